#pragma once
// What the analysis of a plane system gives, in the units of the project: tables that report, JSON
// and summary walk over in the same way.

#include "hosts/slab/model.h"
#include "hosts/slab/results.h"

#include <array>
#include <string>
#include <vector>

namespace slab {

struct Column {
    std::string Key;    ///< for machines
    std::string Symbol; ///< for readers
    std::string Unit;
    bool IsNumber = false; ///< of a node, member or element
};

struct ResultTable {
    std::string Key;
    std::string Title;
    std::vector<Column> Columns;
    std::vector<std::vector<double>> Rows;
};

/// Smallest and largest value of a quantity over columns of a table, with the number of the row.
struct PlaneExtreme {
    std::string Key;
    std::string Name;
    std::string Symbol;
    std::string Unit;
    std::string Of; ///< "node", "member" or "element"
    Extreme Least;
    Extreme Greatest;
};

/// A line of the report on the system.
struct Fact {
    std::string Name;
    std::string Symbol;
    std::string Unit;
    std::string Value;
};

/// Sums of forces along +x and +y and of moments about the centre, in the sense of theta; supports
/// and springs act on the structure.
struct PlaneBalance {
    std::array<double, 3> Loads{};
    std::array<double, 3> Supports{};
    std::array<double, 3> Springs{};
    double RelativeError = 0; ///< largest of the three sums over the sizes of all forces
};

struct PlaneResults {
    std::string System; ///< "Plane frame" or "Wall plate"
    std::string Title;
    std::string File;
    slab::Units Units;
    std::string Size; ///< such as "8 nodes, 9 members"
    std::vector<Fact> Facts;
    std::vector<ResultTable> Tables;
    std::vector<PlaneExtreme> Extremes;
    PlaneBalance Balance;
    slab::Digits Digits;
    int Equations = 0;
    int HalfBandWidth = 0;
    double Seconds = 0;
    std::vector<std::string> Warnings;
    std::string Picture; ///< SVG
};

} // namespace slab
