#include "torlib/platform/component/array.h"

namespace torlib {

namespace {

std::string RangeText(const Bounds& bounds) {
    return std::to_string(bounds.Lower) + ".." + std::to_string(bounds.Upper);
}

} // namespace

SafeArray::~SafeArray() = default;

const Bounds& SafeArray::Of(int dimension) const {
    if (dimension < 1 || dimension > dimensions_) {
        RaiseError(ErrorNumber::OutOfRange, Label() + "has " + std::to_string(dimensions_) +
                                                " dimensions, dimension " +
                                                std::to_string(dimension) + " was asked for");
    }
    return bounds_[dimension - 1];
}

void SafeArray::CheckBounds(Bounds first, Bounds second) const {
    for (const Bounds& range : {first, second}) {
        if (range.Upper < range.Lower - 1) {
            RaiseError(ErrorNumber::OutOfRange,
                       Label() + "bounds " + RangeText(range) + " are empty");
        }
    }
}

void SafeArray::RaiseIndex(int i) const {
    if (dimensions_ != 1) {
        RaiseError(ErrorNumber::OutOfRange,
                   Label() + (dimensions_ == 0 ? "array is not allocated"
                                               : "one index given for an array of two dimensions"));
    }
    RaiseError(ErrorNumber::OutOfRange,
               Label() + "index " + std::to_string(i) + " outside " + RangeText(bounds_[0]));
}

void SafeArray::RaiseIndex(int i, int j) const {
    if (dimensions_ != 2) {
        RaiseError(ErrorNumber::OutOfRange,
                   Label() + (dimensions_ == 0
                                  ? "array is not allocated"
                                  : "two indices given for an array of one dimension"));
    }
    RaiseError(ErrorNumber::OutOfRange,
               Label() + "index (" + std::to_string(i) + ", " + std::to_string(j) + ") outside (" +
                   RangeText(bounds_[0]) + ", " + RangeText(bounds_[1]) + ")");
}

void SafeArray::RaiseSize(int n) const {
    RaiseError(ErrorNumber::OutOfRange, Label() + "cannot have the size " + std::to_string(n));
}

void SafeArray::RaiseFixed() const {
    RaiseError(ErrorNumber::ArrayFixed,
               Label() + "its bounds cannot change: its memory is borrowed or being looked at");
}

bool SafeArray::HasBounds(int dimensions, Bounds first, Bounds second) const noexcept {
    return dimensions == dimensions_ && first == bounds_[0] &&
           (dimensions < 2 || second == bounds_[1]);
}

std::string SafeArray::Label() const {
    const CallScope* scope = CallScope::Innermost();
    const char* name = scope ? scope->NameOf(this) : nullptr;
    return name ? std::string(name) + ": " : std::string();
}

} // namespace torlib
