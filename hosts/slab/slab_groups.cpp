#include "hosts/slab/slab_groups.h"

#include "hosts/slab/mesh.h"

#include <algorithm>

namespace slab {

namespace {

const std::vector<std::string>& GroupKeys() {
    static const std::vector<std::string> keys{"thickness", "modulus", "poisson", "unit_weight"};
    return keys;
}

/// Reads the keys of a group that are there.
void ReadGroup(const KeyTable& table, const UnitScale& scale, Group& group, double& unitWeight) {
    if (const auto entry = table.Find("thickness")) {
        group.Thickness = entry->Number(Positive) * scale.Length;
    }
    if (const auto entry = table.Find("modulus")) {
        group.Modulus = entry->Number(Positive) * scale.Modulus;
    }
    if (const auto entry = table.Find("poisson")) {
        group.Poisson = entry->Number(Between(0, 0.5));
    }
    if (const auto entry = table.Find("unit_weight")) {
        unitWeight = entry->Number(NotNegative) * scale.Density;
    }
}

std::string ReadName(const KeyTable& region, const std::vector<Group>& groups) {
    if (!region.Has("name")) {
        return "region " + std::to_string(groups.size());
    }
    std::string name = region.Get("name").Text();
    if (std::any_of(groups.begin(), groups.end(),
                    [&name](const Group& group) { return group.Name == name; })) {
        region.Get("name").Fail("\"" + name + "\" is the name of an earlier group");
    }
    return name;
}

} // namespace

void ReadSlab(const KeyTable& root, ProjectDraft& draft, const char* key) {
    const KeyTable table = root.Table(key);
    std::vector<std::string> keys = GroupKeys();
    keys.emplace_back("regions");
    table.Allow(keys);
    for (const char* needed : {"thickness", "modulus", "poisson"}) {
        table.Get(needed);
    }
    Group general;
    general.Name = key;
    double generalWeight = 0;
    ReadGroup(table, draft.Scale, general, generalWeight);
    draft.Model.Groups = {general};
    draft.UnitWeights = {generalWeight};
    keys = GroupKeys();
    keys.insert(keys.end(), {"name", "x", "y", "elements"});
    for (const KeyTable& region : table.Tables("regions")) {
        region.Allow(keys);
        Group group = general;
        double weight = generalWeight;
        group.Name = ReadName(region, draft.Model.Groups);
        ReadGroup(region, draft.Scale, group, weight);
        for (const std::size_t i : SelectedElements(region, draft)) {
            draft.Model.Elements[i].Group = static_cast<int>(draft.Model.Groups.size());
        }
        draft.Model.Groups.push_back(group);
        draft.UnitWeights.push_back(weight);
    }
}

} // namespace slab
