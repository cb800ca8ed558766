#include "hosts/slab/soil_reader.h"

#include "hosts/slab/limits.h"
#include "hosts/slab/mesh.h"

namespace slab {

namespace {

constexpr int MostLayers = 1000;
constexpr int MostCycles = 10000;

void ReadWinkler(const KeyTable& table, ProjectDraft& draft) {
    table.Allow({"kind", "subgrade", "regions", "tension"});
    Soil& soil = draft.Model.Soil;
    const double general =
        Within(table.Get("subgrade"), NotNegative, draft.Scale.Density, LargestSpring);
    soil.Subgrade.assign(draft.Model.Elements.size(), general);
    for (const KeyTable& region : table.Tables("regions")) {
        region.Allow({"subgrade", "x", "y", "elements"});
        const double value =
            Within(region.Get("subgrade"), NotNegative, draft.Scale.Density, LargestSpring);
        for (const std::size_t i : SelectedElements(region, draft)) {
            soil.Subgrade[i] = value;
        }
    }
}

void ReadHalfSpace(const KeyTable& table, ProjectDraft& draft) {
    table.Allow({"kind", "modulus", "poisson", "tension"});
    draft.Model.Soil.Modulus = table.Get("modulus").Number(Positive) * draft.Scale.Modulus;
    draft.Model.Soil.Poisson = table.Get("poisson").Number(Between(0, 0.5));
}

void ReadLayers(const KeyTable& table, ProjectDraft& draft) {
    table.Allow({"kind", "layers", "tension"});
    table.Get("layers");
    for (const KeyTable& layer : table.Tables("layers")) {
        layer.Allow({"thickness", "modulus", "poisson"});
        draft.Model.Soil.Layers.push_back({
            layer.Get("thickness").Number(Positive) * draft.Scale.Length,
            layer.Get("modulus").Number(Positive) * draft.Scale.Modulus,
            layer.Get("poisson").Number(Between(0, 0.5)),
        });
    }
    const std::size_t count = draft.Model.Soil.Layers.size();
    if (count == 0 || count > MostLayers) {
        table.Get("layers").Fail("has " + std::to_string(count) + " layers (allowed: 1 to " +
                                 std::to_string(MostLayers) + ")");
    }
}

} // namespace

void ReadSoil(const KeyTable& root, ProjectDraft& draft) {
    if (!root.Has("soil")) {
        return;
    }
    const KeyTable table = root.Table("soil");
    constexpr SoilKind kinds[] = {SoilKind::None, SoilKind::Winkler, SoilKind::HalfSpace,
                                  SoilKind::Layered};
    Soil& soil = draft.Model.Soil;
    soil.Kind = kinds[table.Get("kind").Choice({"none", "winkler", "half-space", "layers"})];
    switch (soil.Kind) {
        case SoilKind::None:
            table.Allow({"kind"});
            break;
        case SoilKind::Winkler:
            ReadWinkler(table, draft);
            break;
        case SoilKind::HalfSpace:
            ReadHalfSpace(table, draft);
            break;
        case SoilKind::Layered:
            ReadLayers(table, draft);
            break;
    }
    soil.TensionCutOff = table.Has("tension") && !table.Get("tension").Flag();
}

void ReadIteration(const KeyTable& root, ProjectDraft& draft) {
    if (!root.Has("iteration")) {
        return;
    }
    const KeyTable table = root.Table("iteration");
    table.Allow({"accuracy", "max_cycles"});
    if (const auto entry = table.Find("accuracy")) {
        draft.Model.Stop.Accuracy = entry->Number(Positive) * draft.Scale.Settlement;
    }
    if (const auto entry = table.Find("max_cycles")) {
        draft.Model.Stop.MaxCycles = entry->WholeNumber(1, MostCycles);
    }
}

} // namespace slab
