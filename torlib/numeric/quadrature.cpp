#include "torlib/numeric/math_class.h"

#include <span>

namespace torlib {
namespace {

struct SamplingPoint {
    double Abscissa;
    double Weight;
};

// The points at and above the middle, from the outermost inwards; the others mirror them.
constexpr SamplingPoint order1[] = {{0, 2}};
constexpr SamplingPoint order4[] = {{0.861136311594053, 0.347854845137454},
                                    {0.339981043584856, 0.652145154862546}};
constexpr SamplingPoint order5[] = {{0.906179845938664, 0.236926885056189},
                                    {0.538469310105683, 0.478628670499366},
                                    {0, 0.568888888888889}};
constexpr SamplingPoint order6[] = {{0.932469514203152, 0.171324492379170},
                                    {0.661209386466264, 0.360761573048139},
                                    {0.238619186083197, 0.467913934572691}};
constexpr SamplingPoint order7[] = {{0.949107912342758, 0.129484966168870},
                                    {0.741531185599394, 0.279705391489277},
                                    {0.405845151377397, 0.381830050505119},
                                    {0, 0.417959183673469}};
constexpr SamplingPoint order9[] = {{0.968160239507626, 0.081274388361574},
                                    {0.836031107326636, 0.180648160694857},
                                    {0.613371432700590, 0.260610696402935},
                                    {0.324253423403809, 0.312347077040003},
                                    {0, 0.330239355001260}};
constexpr SamplingPoint order11[] = {
    {0.978228658146057, 0.055668567116174}, {0.887062599768095, 0.125580369464905},
    {0.730152005574049, 0.186290210927734}, {0.519096129206812, 0.233193764591990},
    {0.269543155952345, 0.262804544510247}, {0, 0.272925086777901}};
constexpr SamplingPoint order13[] = {{0.984183054718588, 0.040484004765316},
                                     {0.917598399222978, 0.092121499837728},
                                     {0.801578090733310, 0.138873510219787},
                                     {0.642349339440340, 0.178145980761946},
                                     {0.448492751036447, 0.207816047536889},
                                     {0.230458315955135, 0.226283180262897},
                                     {0, 0.232551553230874}};
constexpr SamplingPoint order15[] = {
    {0.987992518020485, 0.030753241996117}, {0.937273392400706, 0.070366047488108},
    {0.848206583410427, 0.107159220467172}, {0.724417731360170, 0.139570677926154},
    {0.570972172608539, 0.166269205816994}, {0.394151347077563, 0.186161000015562},
    {0.201194093997435, 0.198431485327112}, {0, 0.202578241925561}};

// By order; an order without a table has none.
constexpr std::span<const SamplingPoint> tables[] = {{},     order1,  {}, {},     order4, order5,
                                                     order6, order7,  {}, order9, {},     order11,
                                                     {},     order13, {}, order15};

std::span<const SamplingPoint> TableOf(int Ngp) {
    const auto order = static_cast<std::size_t>(Ngp);
    return order < std::size(tables) ? tables[order] : std::span<const SamplingPoint>();
}

void SetPoint(int k, Real abscissa, Real weight, Array<Single>& Samp) {
    Samp(k, 1) = abscissa;
    Samp(k, 2) = weight;
}

} // namespace

void Math_Class::GauseLegendreQuadrature(Array<Single>& Samp, const Integer& Ngp) const {
    const MemberScope scope("Math_Class.GauseLegendreQuadrature", Named("Samp", Samp));
    Samp.ReDim(Ngp, 2);
    if (Ngp == 2) {
        const Real abscissa = 1 / Sqrt(3);
        SetPoint(1, abscissa, 1, Samp);
        SetPoint(2, -abscissa, 1, Samp);
    } else if (Ngp == 3) {
        const Real abscissa = Sqrt(15) * 0.2;
        SetPoint(1, abscissa, Real(5) / 9, Samp);
        SetPoint(2, 0, Real(8) / 9, Samp);
        SetPoint(3, -abscissa, Real(5) / 9, Samp);
    }
    int k = 0;
    for (const SamplingPoint& point : TableOf(Ngp)) {
        ++k;
        SetPoint(Ngp + 1 - k, -point.Abscissa, point.Weight, Samp);
        SetPoint(k, point.Abscissa, point.Weight, Samp); // the middle is 0, not minus 0
    }
}

} // namespace torlib
