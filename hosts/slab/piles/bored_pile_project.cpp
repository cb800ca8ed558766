// The single bored pile as one of the systems of the program: its project file.

#include "hosts/slab/piles/bored_pile.h"
#include "hosts/slab/project_file.h"
#include "hosts/slab/system.h"
#include "hosts/slab/unit_scale.h"

namespace slab {

namespace {

constexpr std::size_t MostLayers = 1000;

/// Reads the strength that is given, of those in the keys.
void ReadStrength(const KeyTable& table, const UnitScale& scale, double& cone, double& shear) {
    if (const auto entry = table.Find("qc")) {
        cone = entry->Number(Positive) * scale.Pressure;
    }
    if (const auto entry = table.Find("cu")) {
        shear = entry->Number(Positive) * scale.Pressure;
    }
}

void ReadLayers(const KeyTable& root, const UnitScale& scale, BoredPile& pile) {
    root.Get("layers");
    for (const KeyTable& table : root.Tables("layers")) {
        table.Allow({"thickness", "qc", "cu", "tau"});
        table.OneOf({"qc", "cu", "tau"});
        PileLayer layer;
        layer.Thickness = table.Get("thickness").Number(Positive) * scale.Length;
        ReadStrength(table, scale, layer.ConeResistance, layer.ShearStrength);
        if (const auto entry = table.Find("tau")) {
            layer.SkinFriction = entry->Number(NotNegative) * scale.Pressure;
        }
        pile.Layers.push_back(layer);
    }
    if (pile.Layers.empty() || pile.Layers.size() > MostLayers) {
        root.Get("layers").Fail("has " + std::to_string(pile.Layers.size()) +
                                " layers (allowed: 1 to " + std::to_string(MostLayers) + ")");
    }
}

void ReadBase(const KeyTable& table, const UnitScale& scale, BoredPile& pile) {
    table.Allow({"qc", "cu", "resistance"});
    table.OneOf({"qc", "cu", "resistance"});
    ReadStrength(table, scale, pile.BaseConeResistance, pile.BaseShearStrength);
    const auto given = table.Find("resistance");
    if (!given) {
        return;
    }
    pile.BaseStressesGiven = true;
    double last = 0;
    std::size_t i = 0;
    for (const Entry& entry : given->List(3)) {
        const double stress = entry.Number(Positive) * scale.Pressure;
        if (stress < last) {
            entry.Fail("is smaller than the one before (allowed: stresses at settlements of 0.02, "
                       "0.03 and 0.10 base diameters, none smaller than the one before)");
        }
        last = pile.BaseStresses[i++] = stress;
    }
}

void ReadShape(const KeyTable& table, const UnitScale& scale, BoredPile& pile) {
    table.Allow({"diameter", "base_diameter", "load", "settlement"});
    pile.Diameter = table.Get("diameter").Number(Positive) * scale.Length;
    pile.BaseDiameter = pile.Diameter;
    if (const auto entry = table.Find("base_diameter")) {
        pile.BaseDiameter = entry->Number(Positive) * scale.Length;
        if (pile.BaseDiameter < pile.Diameter) {
            entry->Fail("is smaller than the shaft (allowed: at least " +
                        ShortNumber(pile.Diameter / scale.Length) + ")");
        }
        if (pile.BaseDiameter > pile.Diameter && pile.Layers.back().Thickness < pile.BaseDiameter) {
            entry->Fail("an enlarged base has to lie in the lowest layer, " +
                        ShortNumber(pile.Layers.back().Thickness / scale.Length) +
                        " thick (allowed: up to this thickness)");
        }
    }
    pile.Load = table.Get("load").Number(Positive) * scale.Force;
    if (const auto entry = table.Find("settlement")) {
        pile.Settlement = entry->Number(NotNegative) * scale.Settlement;
    }
}

BoredPile ReadBoredPile(const ProjectFile& file) {
    const KeyTable root = file.Root();
    root.Allow({"title", "system", "units", "pile", "layers", "base"});
    BoredPile pile;
    pile.File = file.Name();
    pile.Title = root.Has("title") ? root.Get("title").Text() : "";
    const UnitScale scale = ReadUnits(root);
    pile.Units = scale.Units;
    ReadLayers(root, scale, pile);
    ReadBase(root.Table("base"), scale, pile);
    ReadShape(root.Table("pile"), scale, pile);
    return pile;
}

class BoredPileOutcome : public Outcome {
  public:
    explicit BoredPileOutcome(const BoredPile& pile) : pile_(pile), results_(slab::Analyse(pile)) {}
    std::string Summary() const override { return SummaryText(pile_, results_); }
    std::string Report() const override { return ReportText(pile_, results_); }
    std::string Json() const override { return JsonText(pile_, results_); }
    std::string Picture() const override { return PictureText(pile_, results_); }

  private:
    const BoredPile& pile_;
    BoredPileResults results_;
};

class BoredPileProject : public Project {
  public:
    explicit BoredPileProject(BoredPile pile) : pile_(std::move(pile)) {}
    std::string Size() const override {
        return "a pile in " + std::to_string(pile_.Layers.size()) +
               (pile_.Layers.size() == 1 ? " layer" : " layers");
    }
    std::unique_ptr<Outcome> Analyse(const AnalysisOptions& /*options*/,
                                     RunWindow& /*window*/) const override {
        return std::make_unique<BoredPileOutcome>(pile_);
    }

  private:
    BoredPile pile_;
};

} // namespace

std::unique_ptr<Project> OpenPile(const ProjectFile& file) {
    return std::make_unique<BoredPileProject>(ReadBoredPile(file));
}

} // namespace slab
