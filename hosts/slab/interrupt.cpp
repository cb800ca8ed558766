#include "hosts/slab/interrupt.h"

#include "torlib/frame/run_state.h"

#include <atomic>
#include <csignal>
#include <cstddef>
#include <ctime>
#include <poll.h>
#include <unistd.h>

namespace slab {

namespace {

std::atomic<int> cancel_signal{SIGINT};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler stores it");

extern "C" void OnInterrupt(int signal) {
    if (torlib::ExitControlState().exchange(torlib::ExitCancelRequested) ==
        torlib::ExitCancelRequested) {
        // A second Ctrl-C does not wait for the poll.
        _exit(128 + signal);
    }
    cancel_signal = signal;
}

/// Holds the signals back, so that none arrives between the question and the wait.
class HeldSignals {
  public:
    HeldSignals() {
        sigset_t held;
        sigemptyset(&held);
        sigaddset(&held, SIGINT);
        sigaddset(&held, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &held, &before_);
    }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;
    ~HeldSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    const sigset_t& Before() const { return before_; }

  private:
    sigset_t before_{};
};

void Wait(pollfd* file, nfds_t files, const timespec* longest) {
    const HeldSignals held;
    ThrowIfCancelled();
    ppoll(file, files, longest, &held.Before());
    ThrowIfCancelled();
}

} // namespace

void InstallCancelOnInterrupt() {
    // Makes sure that the state exists before a signal can arrive.
    torlib::ExitControlState();
    struct sigaction action = {};
    action.sa_handler = OnInterrupt;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

void ThrowIfCancelled() {
    if (torlib::ExitControlState() == torlib::ExitCancelRequested) {
        throw Cancelled();
    }
}

int CancelExitCode() {
    return 128 + cancel_signal;
}

void WaitFor(int file, short events) {
    pollfd wanted{file, events, 0};
    Wait(&wanted, 1, nullptr);
}

void WaitAMoment() {
    const timespec moment{0, 50'000'000};
    Wait(nullptr, 0, &moment);
}

} // namespace slab
