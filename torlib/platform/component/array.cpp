#include "torlib/platform/component/array.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace torlib {

namespace {

std::string RangeText(const Bounds& bounds) {
    return std::to_string(bounds.Lower) + ".." + std::to_string(bounds.Upper);
}

} // namespace

ArrayBlock* NewArrayBlock(std::size_t size, std::size_t elementSize) noexcept {
    void* const memory = std::calloc(1, sizeof(ArrayBlock) + size * elementSize);
    return memory ? new (memory) ArrayBlock{1, size} : nullptr;
}

void FreeArrayBlock(ArrayBlock* block) noexcept {
    std::free(block);
}

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
        if (range.Upper < std::int64_t{range.Lower} - 1) {
            RaiseError(ErrorNumber::OutOfRange,
                       Label() + "bounds " + RangeText(range) + " are empty");
        }
    }
}

bool SafeArray::CanBeCounted(Bounds first, Bounds second, std::size_t elementSize) noexcept {
    constexpr std::size_t room = std::numeric_limits<std::ptrdiff_t>::max() - sizeof(ArrayBlock);
    const auto rows = static_cast<std::size_t>(std::int64_t{first.Upper} - first.Lower + 1);
    const auto columns = static_cast<std::size_t>(std::int64_t{second.Upper} - second.Lower + 1);
    return rows == 0 || columns <= room / elementSize / rows;
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

void SafeArray::RaiseMemory(int dimensions, Bounds first, Bounds second) const {
    RaiseError(ErrorNumber::OutOfMemory, Label() + "there is no memory for the bounds " +
                                             RangeText(first) +
                                             (dimensions == 2 ? ", " + RangeText(second) : ""));
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
