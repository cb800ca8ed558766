#pragma once
// Models for the tests of the analysis: plates and rafts on a regular grid.

#include "hosts/slab/analysis.h"

#include <cmath>
#include <functional>

namespace slab {

/// Triangles halve the cells of the grid along crossed or along parallel diagonals.
enum class Shape { Rectangles, Triangles, ParallelTriangles };

struct Plate {
    double Lx = 1, Ly = 1;
    int Nx = 8, Ny = 8;
    double Thickness = 0.2, Modulus = 3e7, Poisson = 0.3, Load = 10;
    Shape Elements = Shape::Rectangles;

    double Rigidity() const {
        return Modulus * std::pow(Thickness, 3) / (12 * (1 - Poisson * Poisson));
    }
};

/// A rectangle from the origin with no supports and no soil; nodes run along y first.
inline Model Grid(const Plate& plate) {
    Model model;
    model.Groups = {{"slab", plate.Thickness, plate.Modulus, plate.Poisson}};
    for (int i = 0; i <= plate.Nx; ++i) {
        for (int j = 0; j <= plate.Ny; ++j) {
            model.Nodes.push_back({plate.Lx * i / plate.Nx, plate.Ly * j / plate.Ny});
        }
    }
    const int column = plate.Ny + 1;
    for (int i = 0; i < plate.Nx; ++i) {
        for (int j = 0; j < plate.Ny; ++j) {
            const int a = i * column + j + 1;
            const int b = a + column;
            if (plate.Elements == Shape::Rectangles) {
                model.Elements.push_back({4, {a, b, b + 1, a + 1}, 0});
            } else if (plate.Elements == Shape::ParallelTriangles || (i + j) % 2 == 0) {
                model.Elements.push_back({3, {a, b, b + 1, 0}, 0});
                model.Elements.push_back({3, {a, b + 1, a + 1, 0}, 0});
            } else {
                model.Elements.push_back({3, {a, b, a + 1, 0}, 0});
                model.Elements.push_back({3, {b, b + 1, a + 1, 0}, 0});
            }
        }
    }
    model.Pressure.assign(model.Elements.size(), plate.Load);
    model.NodalLoads.assign(3 * model.Nodes.size(), 0);
    return model;
}

/// Number of the node nearest to a point.
inline int NodeAt(const Model& model, double x, double y) {
    int nearest = 1;
    double least = 1e300;
    for (std::size_t n = 0; n < model.Nodes.size(); ++n) {
        const double distance = std::hypot(model.Nodes[n].x - x, model.Nodes[n].y - y);
        if (distance < least) {
            least = distance;
            nearest = static_cast<int>(n) + 1;
        }
    }
    return nearest;
}

inline NodeResult At(const Model& model, const Results& results, double x, double y) {
    return results.Nodes[static_cast<std::size_t>(NodeAt(model, x, y) - 1)];
}

/// Holds freedoms (1, 2, 3) of the nodes that a test selects.
inline void Hold(Model& model, const std::function<bool(const Point&)>& where,
                 std::initializer_list<int> freedoms) {
    for (std::size_t n = 0; n < model.Nodes.size(); ++n) {
        for (const int freedom : freedoms) {
            if (where(model.Nodes[n])) {
                model.Restraints.push_back({static_cast<int>(n) + 1, freedom, 0});
            }
        }
    }
}

/// Settlement held along the whole edge, all slopes too when clamped.
inline void HoldEdges(Model& model, const Plate& plate, bool clamped) {
    const auto edge = [&plate](const Point& p) {
        return p.x == 0 || p.y == 0 || p.x == plate.Lx || p.y == plate.Ly;
    };
    Hold(model, edge, {1});
    if (clamped) {
        Hold(model, edge, {2, 3});
    }
}

inline void OnHalfSpace(Model& model, double modulus, double poisson) {
    model.Soil.Kind = SoilKind::HalfSpace;
    model.Soil.Modulus = modulus;
    model.Soil.Poisson = poisson;
}

inline void OnWinkler(Model& model, double modulus) {
    model.Soil.Kind = SoilKind::Winkler;
    model.Soil.Subgrade.assign(model.Elements.size(), modulus);
}

inline Results Analysed(const Model& model, const AnalysisOptions& options = {}) {
    RunWindow window(RunWindow::Style::Quiet);
    return Analyse(model, options, window);
}

} // namespace slab
