#include "torlib/fem/band_kernel.h"

#include "torlib/fem/band_window.h"
#include "torlib/platform/instruction_set.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace torlib::band {

namespace {

RawBand RawBandOf(int Nw, int N3, Array<Single>& A, Array<Single>& Q) {
    return {reinterpret_cast<float*>(&A(1, 1)), static_cast<std::ptrdiff_t>(A.Rows()),
            reinterpret_cast<float*>(&Q(1)), Nw, N3 + Nw - 1};
}

/// All equations but the last, which has no rows below to update.
bool EliminateAllButLast(const Kernel& kernel, int Nw, int N3, Array<Single>& A, Array<Single>& Q,
                         const EquationEvents& events) {
    const RawBand band = RawBandOf(Nw, N3, A, Q);
    BandWindow window(kernel, band);
    for (int n = 1; n < N3; ++n) {
        if (!window.IsOpen()) {
            window.Open(n - 1);
        }
        float& diagonal = window.Diagonal(n - 1);
        if (diagonal == 0) {
            diagonal = 1.0E-10F;
            band.Load[n - 1] = 0;
        }
        events.Progress(n);
        if (events.Cancelled()) {
            return true;
        }
        if (!window.Eliminate(n - 1)) {
            window.Close();
            EliminateEquation(n, Nw, N3, A, Q);
        }
    }
    return false;
}

bool BackSubstituteAll(const Kernel& kernel, int Nw, int N3, Array<Single>& A, Array<Single>& Q,
                       const EquationEvents& events) {
    const RawBand band = RawBandOf(Nw, N3, A, Q);
    std::vector<float> rows(static_cast<std::size_t>(PanelRows) * static_cast<std::size_t>(Nw));
    std::vector<float> steps(static_cast<std::size_t>(Nw));
    int firstPacked = N3;
    for (int n = N3 - 1; n >= 1; --n) {
        if (events.Cancelled()) {
            return true;
        }
        if (n < firstPacked) {
            firstPacked = std::max(1, n - PanelRows + 1);
            PackRows(band, firstPacked - 1, n - firstPacked + 1, rows.data(), Nw);
        }
        float& unknown = band.Load[n - 1];
        const float* const ratios =
            rows.data() + static_cast<std::ptrdiff_t>(n - firstPacked) * Nw + 1;
        const float solved =
            kernel.BackSubstitute(unknown, ratios, &unknown + 1, Nw - 1, steps.data());
        if (std::isfinite(solved)) {
            unknown = solved;
        } else {
            BackSubstituteEquation(n, Nw, A, Q);
        }
    }
    return false;
}

} // namespace

std::span<const Kernel* const> AvailableKernels() {
    static const std::vector<const Kernel*> kernels = [] {
        std::vector<const Kernel*> found = {&PortableKernel};
#ifdef TORLIB_X86_KERNELS
        if (NewestInstructionSet() >= InstructionSet::Avx2) {
            found.push_back(&Avx2Kernel);
        }
        if (NewestInstructionSet() >= InstructionSet::Avx512) {
            found.push_back(&Avx512Kernel);
        }
#endif
        return found;
    }();
    return kernels;
}

const Kernel& FastestKernel(Integer Nw) {
    return *(Nw < 40 ? AvailableKernels().front() : AvailableKernels().back());
}

bool BoundsHold(Integer Nw, Integer N3, const Array<Single>& A, const Array<Single>& Q) {
    const int rows = N3 + Nw - 1;
    return Nw >= 1 && N3 >= 1 && Nw < 32767 && N3 < 32767 && rows <= 32767 && A.Dimensions() == 2 &&
           A.LBound(1) <= 1 && A.UBound(1) >= rows && A.LBound(2) <= 1 && A.UBound(2) >= Nw &&
           Q.Dimensions() == 1 && Q.LBound() <= 1 && Q.UBound() >= rows;
}

bool Solve(const Kernel& kernel, Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q,
           const EquationEvents& events) {
    if (EliminateAllButLast(kernel, Nw, N3, A, Q, events)) {
        return true;
    }
    ReplaceZeroDiagonal(N3, A, Q);
    events.Progress(N3);
    if (events.Cancelled()) {
        return true;
    }
    EliminateEquation(N3, Nw, N3, A, Q);
    return BackSubstituteAll(kernel, Nw, N3, A, Q, events);
}

} // namespace torlib::band
