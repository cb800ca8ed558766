#include "hosts/slab/unit_scale.h"

namespace slab {

namespace {

struct Unit {
    std::string Name;
    double Factor;
};

const std::vector<Unit>& Lengths() {
    static const std::vector<Unit> units{
        {"m", 1}, {"cm", 0.01}, {"mm", 0.001}, {"ft", 0.3048}, {"in", 0.0254}};
    return units;
}

const std::vector<Unit>& Forces() {
    static const std::vector<Unit> units{{"N", 0.001},
                                         {"kN", 1},
                                         {"MN", 1000},
                                         {"lbf", 4.4482216152605e-3},
                                         {"kip", 4.4482216152605}};
    return units;
}

/// Every force with every length: "kN/m2", "N/mm2", "kip/in2" and so on.
std::vector<Unit> Stresses() {
    std::vector<Unit> units;
    for (const Unit& force : Forces()) {
        for (const Unit& length : Lengths()) {
            units.push_back({force.Name + '/' + length.Name + '2',
                             force.Factor / (length.Factor * length.Factor)});
        }
    }
    return units;
}

Unit Chosen(const KeyTable& table, const char* key, const std::vector<Unit>& units,
            const std::string& otherwise) {
    std::vector<std::string> names;
    for (const Unit& unit : units) {
        names.push_back(unit.Name);
        if (!table.Has(key) && unit.Name == otherwise) {
            return unit;
        }
    }
    return units[table.Get(key).Choice(names)];
}

} // namespace

UnitScale ReadUnits(const KeyTable& root) {
    static const toml::table none;
    static const SourceFile noFile;
    const KeyTable table = root.Has("units") ? root.Table("units") : KeyTable(none, "", noFile);
    table.Allow({"length", "force", "settlement", "modulus"});
    const Unit length = Chosen(table, "length", Lengths(), "m");
    const Unit force = Chosen(table, "force", Forces(), "kN");
    const bool customary = length.Name == "ft" || length.Name == "in";
    const Unit settlement = Chosen(table, "settlement", Lengths(), customary ? "in" : "cm");
    const Unit modulus = Chosen(table, "modulus", Stresses(), force.Name + '/' + length.Name + '2');
    UnitScale scale;
    scale.Units = {length.Name,   force.Name,   settlement.Name,
                   length.Factor, force.Factor, settlement.Factor};
    scale.Length = length.Factor;
    scale.Settlement = settlement.Factor;
    scale.Force = force.Factor;
    scale.Moment = force.Factor * length.Factor;
    scale.LineLoad = force.Factor / length.Factor;
    scale.Pressure = scale.LineLoad / length.Factor;
    scale.Density = scale.Pressure / length.Factor;
    scale.Modulus = modulus.Factor;
    return scale;
}

} // namespace slab
