#include "hosts/slab/piles/bored_pile.h"

#include "hosts/slab/library_types.h"
#include "torlib/piles/piles_class.h"

#include <algorithm>
#include <cmath>

namespace slab {
namespace {

/// The library's routine takes meganewtons, metres and centimetres.
constexpr double mega = 1000;
constexpr double centi = 0.01;

double Value(Single stored) {
    return double{stored.Value()};
}

/// The arguments of the library's routine, one set for one pile.
struct Arguments {
    explicit Arguments(const BoredPile& pile);
    void Run() {
        const torlib::Piles_class piles;
        piles.SinglePile(According, D, DF, QV, SZV, QSSU, CUU, ANSCH, SIG, SIG1, SIGGR, L1, Qss, CU,
                         Tau, FromTables, SV, QSP, QMA, SUMTAU1, Qp, Sp, QZV, QSD);
    }

    Integer According, ANSCH;
    Single D, DF, QV, SZV, QSSU, CUU, SIG, SIG1, SIGGR;
    Array<Single> L1, Qss, CU, Tau;
    Array<Integer> FromTables;
    Single SV, QSP, QMA, SUMTAU1, QZV;
    Array<Single> Qp{Bounds{1, 5}}, Sp{Bounds{1, 5}}, QSD{Bounds{1, 4}};
};

Arguments::Arguments(const BoredPile& pile)
    : According(pile.BaseStressesGiven ? 2 : 1),
      ANSCH(static_cast<int>(pile.Layers.size())),
      D(pile.Diameter),
      DF(pile.BaseDiameter),
      QV(pile.Load / mega),
      SZV(std::max(pile.Settlement, 0.0) / centi),
      QSSU(std::max(pile.BaseConeResistance, 0.0) / mega),
      CUU(std::max(pile.BaseShearStrength, 0.0) / mega),
      SIG(pile.BaseStresses[0] / mega),
      SIG1(pile.BaseStresses[1] / mega),
      SIGGR(pile.BaseStresses[2] / mega) {
    for (Array<Single>* list : {&L1, &Qss, &CU, &Tau}) {
        list->ReDim(ANSCH);
    }
    FromTables.ReDim(ANSCH);
    int i = 0;
    for (const PileLayer& layer : pile.Layers) {
        L1(++i) = layer.Thickness;
        Qss(i) = std::max(layer.ConeResistance, 0.0) / mega;
        CU(i) = std::max(layer.ShearStrength, 0.0) / mega;
        Tau(i) = std::max(layer.SkinFriction, 0.0) / mega;
        FromTables(i) = layer.SkinFriction >= 0 ? 0 : 1;
    }
}

/// The point whose base part is that at the shaft's limit settlement is the shaft's; the others are
/// at the three fixed settlements.
void FillCurve(const Arguments& arguments, BoredPileResults& results) {
    int atShaft = 1;
    const auto off = [&](int k) {
        return std::fabs(Value(arguments.Qp(k)) - results.Shaft / mega - Value(arguments.QSD(1)));
    };
    for (const int k : {2, 3}) {
        atShaft = off(k) < off(atShaft) ? k : atShaft;
    }
    std::vector<const char*> places{"0.02 base diameters", "0.03 base diameters",
                                    "0.10 base diameters"};
    std::vector<int> baseParts{2, 3, 4};
    places.insert(places.begin() + atShaft - 1, "shaft exhausted");
    baseParts.insert(baseParts.begin() + atShaft - 1, 1);
    for (int k = 1; k <= 4; ++k) {
        const auto i = static_cast<std::size_t>(k - 1);
        results.Curve.push_back({Value(arguments.Sp(k)) * centi, Value(arguments.Qp(k)) * mega,
                                 Value(arguments.QSD(baseParts[i])) * mega, places[i]});
    }
    results.HalfLimit = {Value(arguments.Sp(5)) * centi, Value(arguments.Qp(5)) * mega, 0,
                         "half the limit resistance"};
}

void FillWarnings(const BoredPile& pile, BoredPileResults& results) {
    const CurvePoint& limit = results.Curve.back();
    if (pile.Load > limit.Resistance) {
        results.Warnings.emplace_back(
            "the working load exceeds the limit resistance; the settlement continues the last piece "
            "of the curve");
    }
    if (pile.Settlement > limit.Settlement) {
        results.Warnings.emplace_back(
            "the settlement asked for lies beyond the curve, whose last resistance is given");
    }
    const bool weakSand = pile.BaseConeResistance >= 0 && pile.BaseConeResistance < 10 * mega;
    const bool weakClay = pile.BaseShearStrength >= 0 && pile.BaseShearStrength < 0.1 * mega;
    if (weakSand || weakClay) {
        results.Warnings.emplace_back(
            "the ground under the base is weaker than the tables of DIN 4014 reach (cone resistance "
            "10 MN/m2, undrained strength 0.1 MN/m2); the base is interpolated from zero");
    }
}

} // namespace

BoredPileResults Analyse(const BoredPile& pile) {
    Arguments arguments(pile);
    arguments.Run();
    BoredPileResults results;
    results.Shaft = Value(arguments.SUMTAU1) * mega;
    results.BaseStresses = {Value(arguments.SIG) * mega, Value(arguments.SIG1) * mega,
                            Value(arguments.SIGGR) * mega};
    for (int i = 1; i <= arguments.ANSCH; ++i) {
        results.SkinFriction.push_back(Value(arguments.Tau(i)) * mega);
    }
    FillCurve(arguments, results);
    results.Settlement = Value(arguments.SV) * centi;
    results.BaseLoad = Value(arguments.QSP) * mega;
    results.ShaftLoad = Value(arguments.QMA) * mega;
    results.LoadAtSettlement = Value(arguments.QZV) * mega;
    FillWarnings(pile, results);
    return results;
}

} // namespace slab
