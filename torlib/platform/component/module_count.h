#pragma once
// How much of what this module made is still alive. A module is the program or shared library that
// the code is linked into; what has virtual functions needs its module as long as it lives, whoever
// holds it. A server may be unloaded when its count is 0.

#include <atomic>

namespace torlib {

/// Hidden, so that every module has a count of its own.
inline __attribute__((visibility("hidden"))) constinit std::atomic<long> live_in_module{0};

/// A member of everything that needs its module: counts from construction to destruction, also when
/// another module destroys it.
class ModuleHold {
  public:
    ModuleHold() noexcept : ModuleHold(live_in_module) {}
    /// Keeps the module loaded that this count is of.
    explicit ModuleHold(std::atomic<long>& live) noexcept : live_(live) {
        live_.fetch_add(1, std::memory_order_relaxed);
    }
    ModuleHold(const ModuleHold& other) noexcept : ModuleHold(other.live_) {}
    ModuleHold& operator=(const ModuleHold&) = delete;
    ~ModuleHold() { live_.fetch_sub(1, std::memory_order_release); }

  private:
    std::atomic<long>& live_;
};

/// Number of objects and arrays made by the code of this module that are alive.
inline long LiveInModule() noexcept {
    return live_in_module.load(std::memory_order_acquire);
}

} // namespace torlib
