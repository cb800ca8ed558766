#include "torlib/platform/component/nearest_names.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace torlib {

namespace {

template <class C>
constexpr C Lower(C c) {
    return c >= 'A' && c <= 'Z' ? static_cast<C>(c + ('a' - 'A')) : c;
}

/// Edit distance (Levenshtein 1966) without regard to case.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replace = diagonal + (Lower(a[i - 1]) != Lower(b[j - 1]));
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replace});
        }
    }
    return row[b.size()];
}

} // namespace

bool SameName(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return Lower(x) == Lower(y); });
}

std::vector<std::string> NearestNames(std::string_view wanted,
                                      const std::vector<std::string>& known) {
    std::vector<std::pair<std::size_t, std::string>> ranked;
    for (const std::string& name : known) {
        const std::size_t distance = Distance(wanted, name);
        if (distance <= std::max<std::size_t>(2, std::max(wanted.size(), name.size()) / 3)) {
            ranked.emplace_back(distance, name);
        }
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (std::size_t i = 0; i < ranked.size() && i < 3; ++i) {
        names.push_back(ranked[i].second);
    }
    return names;
}

std::string Suggestion(std::string_view wanted, const std::vector<std::string>& known) {
    const std::vector<std::string> names = NearestNames(wanted, known);
    if (names.empty()) {
        return "";
    }
    std::string text = " (did you mean " + names[0];
    for (std::size_t i = 1; i < names.size(); ++i) {
        text += (i + 1 == names.size() ? " or " : ", ") + names[i];
    }
    return text + "?)";
}

} // namespace torlib
