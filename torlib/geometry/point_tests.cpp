#include "torlib/geometry/geometry_class.h"

namespace torlib {
namespace {

/// Width times the height of the point Yi above Y, in the arithmetic of the tagged value.
Real TaggedProduct(Real width, const Variant& Yi, Single Y) {
    const Variant value = Yi.Dereferenced();
    if (std::holds_alternative<float>(value.Value()) ||
        std::holds_alternative<std::int16_t>(value.Value())) {
        const Single narrow = width;
        const Single height = Single(value.ToSingle()) - Y;
        return Single(narrow * height);
    }
    return width * (value.ToDouble() - Y);
}

} // namespace

bool Geometry_Class::PointInPolygon(const Integer& NS, const Array<Single>& x,
                                    const Array<Single>& Y, const Single& XI,
                                    const Variant& Yi) const {
    const MemberScope scope("Geometry_Class.PointInPolygon", Named("x", x), Named("Y", Y));
    constexpr Single tolerance = 0.0001;
    for (int i : Range(1, NS)) {
        const int j = i == NS ? 1 : i + 1;
        const Real first = (Y(j) - Y(i)) * (XI - x(i));
        const Single cross = first - TaggedProduct(x(j) - x(i), Yi, Y(i));
        if (Abs(cross) >= tolerance && cross > 0) {
            return false;
        }
    }
    return true;
}

Integer Geometry_Class::RepeatedNode(Integer& NN, Array<Single>& XL, Array<Single>& YL,
                                     const Single& x, const Single& Y) const {
    const MemberScope scope("Geometry_Class.RepeatedNode", Named("XL", XL), Named("YL", YL));
    for (int i : Range(1, NN)) {
        const Single dx = Abs(XL(i) - x);
        const Single dy = Abs(YL(i) - Y);
        if (dx < 0.001 && dy < 0.001) {
            return i;
        }
    }
    // The point may be an element of the lists, which move when they are resized.
    const Single newX = x;
    const Single newY = Y;
    NN = NN + 1;
    XL.ReDimPreserve(NN);
    YL.ReDimPreserve(NN);
    XL(NN) = newX;
    YL(NN) = newY;
    return NN;
}

} // namespace torlib
