#include "torlib/frame/run_state.h"

#include "torlib/platform/windows/events.h"

namespace torlib {

std::atomic<Long>& ExitControlState() {
    static std::atomic<Long> state{ExitRunning};
    return state;
}

bool CheckCancelRequest(const Object& FrmShow) {
    DoEvents();
    if (ExitControlState().load(std::memory_order_relaxed) != ExitCancelRequested) {
        return false;
    }
    if (FrmShow) {
        ScreenMousePointer() = MousePointer::Default;
        UnloadForm(FrmShow);
    }
    return true;
}

void RequestCancel(const Object& FrmShow) {
    const Long state = ExitControlState().load(std::memory_order_relaxed);
    if (state == ExitFinished || state == ExitHostEnd1 || state == ExitHostEnd2) {
        UnloadForm(FrmShow);
    } else {
        ExitControlState() = ExitCancelRequested;
    }
}

} // namespace torlib
