#pragma once
// Ctrl-C and SIGTERM: the first asks for a cancel, also while the program waits for a pipe or a
// terminal; a second ends the program.

#include <exception>

namespace slab {

/// The user asked to stop.
class Cancelled : public std::exception {
  public:
    const char* what() const noexcept override { return "cancelled"; }
};

/// Lets the first SIGINT or SIGTERM ask the library-wide run state for a cancel instead of ending
/// the program.
void InstallCancelOnInterrupt();

/// Throws Cancelled when a cancel has been asked for.
void ThrowIfCancelled();

/// The exit code of a cancelled program: 128 and the number of the signal that asked for it.
int CancelExitCode();

/// Waits until a file can be read (POLLIN) or written (POLLOUT). Throws Cancelled when a signal
/// asks for it, before or while it waits.
void WaitFor(int file, short events);

/// Waits a moment before another attempt. Throws Cancelled like WaitFor.
void WaitAMoment();

} // namespace slab
