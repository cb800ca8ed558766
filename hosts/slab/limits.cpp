#include "hosts/slab/limits.h"

#include <cmath>

namespace slab {

double Within(const Entry& entry, const AllowedRange& bounds, double unit, double largest) {
    const double value = entry.Number(bounds);
    if (std::fabs(value * unit) > largest) {
        const std::string most = ShortNumber(largest / unit);
        entry.Fail("is " + ShortNumber(value) +
                   " (allowed: " + (bounds.Least < 0 ? "-" + most : ShortNumber(bounds.Least)) +
                   " to " + most + ")");
    }
    return value * unit;
}

double WithinOrZero(const KeyTable& table, const char* key, const AllowedRange& bounds, double unit,
                    double largest) {
    const auto entry = table.Find(key);
    return entry ? Within(*entry, bounds, unit, largest) : 0;
}

void CheckRigidity(const Entry& entry, const char* what, double value, double unit,
                   const std::string& unitName) {
    if (value < Rigidity.Least || value > Rigidity.Greatest) {
        entry.Fail(std::string("makes ") + what + " of " + ShortNumber(value / unit) + ' ' +
                   unitName + " (allowed: " + ShortNumber(Rigidity.Least / unit) + " to " +
                   ShortNumber(Rigidity.Greatest / unit) + ")");
    }
}

} // namespace slab
