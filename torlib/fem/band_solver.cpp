#include "torlib/fem/band_kernel.h"
#include "torlib/fem/fem_class.h"
#include "torlib/frame/run_state.h"

#include <new>

namespace torlib {

bool FEM_Class::SolveMatrix(Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q,
                            const Object& FrmShow, bool PrograssBarMode, const Object& ObjStbar) {
    const MemberScope scope("FEM_Class.SolveMatrix", Named("A", A), Named("Q", Q));
    try {
        // An event may not re-dimension what the solver has raw pointers into.
        const auto heldA = A.Share();
        const auto heldQ = Q.Share();
        band::EquationEvents events;
        if (PrograssBarMode) {
            events.Progress = [&](Integer n) { ProgressBarValue(FrmShow, n, ObjStbar); };
        }
        events.Cancelled = [&] { return CheckCancelRequest(FrmShow); };
        if (!band::BoundsHold(Nw, N3, A, Q)) {
            return band::SolveReference(Nw, N3, A, Q, events);
        }
        return band::Solve(band::FastestKernel(Nw), Nw, N3, A, Q, events);
    } catch (const std::bad_alloc&) { // the window of a wide band is as large as the band
        RaiseError(ErrorNumber::OutOfMemory, "out of memory");
    }
}

} // namespace torlib
