#include "hosts/slab/report_lines.h"

#include "hosts/slab/quantities.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace slab {

namespace {

/// Correct decimal digits that a relative residual stands for, 0 to 15.
std::string DigitsText(double residual) {
    const int digits =
        residual > 0 ? std::clamp(static_cast<int>(-std::log10(residual)), 0, 15) : 15;
    return std::to_string(digits) + (digits == 1 ? " digit" : " digits");
}

} // namespace

const char* SoilName(SoilKind kind) {
    switch (kind) {
        case SoilKind::None:
            return "none";
        case SoilKind::Winkler:
            return "Winkler springs";
        case SoilKind::HalfSpace:
            return "elastic half-space";
        case SoilKind::Layered:
            return "layered medium";
    }
    return "";
}

const char* SymmetryName(torlib::SymmetricCase symmetry) {
    using torlib::SymmetricCase;
    switch (symmetry) {
        case SymmetricCase::Unsymmetric:
            return "none";
        case SymmetricCase::X_symmetric:
            return "about the line y = ymax";
        case SymmetricCase::Y_Symmetric:
            return "about the line x = xmax";
        case SymmetricCase::XY_Symmetric:
            return "about the lines x = xmax and y = ymax";
        case SymmetricCase::X_AntiSymmetric:
            return "antisymmetric about the line y = ymax";
        case SymmetricCase::Y_AntiSymmetric:
            return "antisymmetric about the line x = xmax";
    }
    return "";
}

std::vector<std::string> DigitLines(const Digits& digits, const char* displacement) {
    std::vector<std::string> lines;
    lines.push_back("32-bit elimination: residual " + NumberText(digits.ResidualBefore) +
                    " of the load, about " + DigitsText(digits.ResidualBefore) + " of equilibrium");
    if (digits.Corrected) {
        lines.push_back("after " + std::to_string(digits.Steps) + " correction steps: residual " +
                        NumberText(digits.ResidualAfter) + ", about " +
                        DigitsText(digits.ResidualAfter) + "; largest " + displacement +
                        " changed by " + NumberText(100 * digits.ChangeOfSolution) + " %");
    } else {
        lines.push_back("not corrected");
    }
    return lines;
}

std::string Padded(const std::string& text, std::size_t width) {
    return text.size() < width ? text + std::string(width - text.size(), ' ') : text;
}

std::string RightAligned(const std::string& text, std::size_t width) {
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string LowerFirst(std::string text) {
    if (!text.empty()) {
        text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
    }
    return text;
}

} // namespace slab
