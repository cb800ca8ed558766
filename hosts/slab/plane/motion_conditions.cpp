#include "hosts/slab/plane/motion_conditions.h"

#include <algorithm>
#include <cmath>

namespace slab {

namespace {

/// Of a condition scaled to length 1: below it a coefficient is rounding.
constexpr double negligible = 1e-13;
/// Pivots of a structure that holds, however slender, stay far above it.
constexpr double smallest_pivot = 1e-9;

} // namespace

void MotionConditions::Add(const std::vector<std::pair<std::size_t, double>>& terms) {
    std::size_t first = rows_.size();
    std::size_t last = 0;
    double size = 0;
    for (const auto& [unknown, coefficient] : terms) {
        first = std::min(first, unknown);
        last = std::max(last, unknown);
        size = std::hypot(size, coefficient);
    }
    if (!(size > 0)) {
        return;
    }
    Vector row(last - first + 1);
    for (const auto& [unknown, coefficient] : terms) {
        row[unknown - first] += coefficient / size;
    }
    for (std::size_t k = 0; k < row.size(); ++k) {
        if (std::fabs(row[k]) <= negligible) {
            continue;
        }
        Vector& pivot = rows_[first + k];
        if (pivot.empty()) {
            pivot.assign(row.begin() + static_cast<std::ptrdiff_t>(k), row.end());
            return;
        }
        const double radius = std::hypot(pivot[0], row[k]);
        const double c = pivot[0] / radius;
        const double s = row[k] / radius;
        const std::size_t length = std::max(pivot.size(), row.size() - k);
        pivot.resize(length);
        row.resize(k + length);
        for (std::size_t j = 0; j < length; ++j) {
            const double p = pivot[j];
            pivot[j] = c * p + s * row[k + j];
            row[k + j] = c * row[k + j] - s * p;
        }
    }
}

Vector MotionConditions::FreeMotion() const {
    const auto loose = std::find_if(rows_.begin(), rows_.end(), [](const Vector& row) {
        return row.empty() || std::fabs(row[0]) < smallest_pivot;
    });
    if (loose == rows_.end()) {
        return {};
    }
    Vector motion(rows_.size());
    auto j = static_cast<std::size_t>(loose - rows_.begin());
    motion[j] = 1;
    while (j-- > 0) {
        const Vector& row = rows_[j];
        double sum = 0;
        for (std::size_t i = 1; i < row.size(); ++i) {
            sum += row[i] * motion[j + i];
        }
        motion[j] = -sum / row[0];
    }
    return motion;
}

} // namespace slab
