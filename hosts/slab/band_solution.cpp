// What every analysis on the library's band does alike.

#include "hosts/slab/band_solution.h"

#include <algorithm>
#include <cmath>

namespace slab {
namespace {

constexpr int largest_row = 32766; // rows of the band that 16 bits can count
constexpr int most_elements = 32000;

void CheckSize(const Model& model, const std::vector<Element>& elements) {
    const std::size_t most = largest_row / 3;
    if (model.Nodes.size() > most || elements.size() > most_elements) {
        throw AnalysisFailure("the mesh has " + std::to_string(model.Nodes.size()) +
                              " nodes; equations are counted in 16 bits, which allows " +
                              std::to_string(most) +
                              " nodes. Take larger elements, or model a half or a quarter.");
    }
}

/// Largest correction of a displacement over the largest displacement.
double ChangeOf(const Vector& rough, const Vector& u, std::size_t displacements) {
    double change = 0;
    double largest = 0;
    for (std::size_t i = 0; i < u.size(); ++i) {
        if (i % 3 < displacements) {
            change = std::max(change, std::fabs(u[i] - rough[i]));
            largest = std::max(largest, std::fabs(u[i]));
        }
    }
    return largest > 0 ? change / largest : 0;
}

} // namespace

int BandWidthOf(const Model& model, const std::vector<Element>& elements,
                const torlib::FEM_Class& fem) {
    CheckSize(model, elements);
    const int count = static_cast<int>(elements.size());
    Array<Integer> I_ElementType(Bounds{0, count});
    Array<Integer> I_Corner(Bounds{0, count}, Bounds{0, 4});
    for (int e = 1; e <= count; ++e) {
        const Element& element = elements[e - 1];
        I_ElementType(e) = element.Corners;
        for (int i = 0; i < element.Corners; ++i) {
            I_Corner(e, i + 1) = element.Node[i];
        }
    }
    Integer Nw;
    fem.GetBandWidth(Nw, count, I_ElementType, I_Corner);
    const int equations = 3 * static_cast<int>(model.Nodes.size());
    if (equations + Nw - 1 > largest_row) {
        throw AnalysisFailure("equations and half band width together are " +
                              std::to_string(equations + Nw) + "; 16 bits allow " +
                              std::to_string(largest_row) +
                              ". Take larger elements, or model a half or a quarter.");
    }
    return Nw;
}

BandFactor Eliminated(torlib::FEM_Class& fem, RunWindow& window, int halfBandWidth, int equations,
                      const RestraintList& restraints, Array<Single>& A, Array<Single>& Q) {
    if (fem.SetBoundaryToMatrix(halfBandWidth, restraints.NF, A, Q, restraints.AufL, restraints.NS,
                                window.Form())) {
        throw Cancelled();
    }
    window.Begin("Elimination", equations);
    try {
        if (fem.SolveMatrix(halfBandWidth, equations, A, Q, window.Form(), true,
                            window.StatusBar())) {
            throw Cancelled();
        }
    } catch (const torlib::RunTimeError& error) {
        throw AnalysisFailure(std::string("the elimination broke down (") + error.what() +
                              "): the stiffnesses of the model lie too far apart for 32 bits. "
                              "Check thickness, modulus and springs, or take larger elements.");
    }
    window.End();
    return {A, halfBandWidth, equations};
}

void CorrectAndNote(const HeldSystem& system, const BandFactor& factor, const Vector& b, Vector& u,
                    const AnalysisOptions& options, int displacements,
                    const std::function<void()>& poll, Digits& digits) {
    if (options.Plain) {
        Vector product;
        system.Multiply(u, product);
        AddTo(product, -1, b);
        digits.ResidualBefore = digits.ResidualAfter = Norm(b) > 0 ? Norm(product) / Norm(b) : 0;
        return;
    }
    const Vector rough = u;
    const Correction report = CorrectDigits(system, factor, b, u, full_digits, poll);
    digits.Corrected = true;
    digits.ResidualBefore = std::max(digits.ResidualBefore, report.ResidualBefore);
    digits.ResidualAfter = report.ResidualAfter;
    digits.Steps += report.Steps;
    digits.ChangeOfSolution = std::max(digits.ChangeOfSolution,
                                       ChangeOf(rough, u, static_cast<std::size_t>(displacements)));
}

} // namespace slab
