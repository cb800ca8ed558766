#pragma once
// Which vector instructions code may use that was compiled once for each set. All sets give the
// same bits; a test or a measurement takes an older one than the processor's by the environment
// variable TORLIB_INSTRUCTION_SET, which is read once.
//
//     if (NewestInstructionSet() >= InstructionSet::Avx2) { ... }

#include "torlib/platform/component/run_time_error.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

namespace torlib {

/// Older ones first; Avx2 is together with fused multiplication and addition.
enum class InstructionSet { Portable, Avx2, Avx512 };

inline constexpr const char* InstructionSetNames[] = {"portable", "avx2", "avx512"};

/// The newest set that this processor runs.
inline InstructionSet InstructionSetOfProcessor() {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) {
        return __builtin_cpu_supports("avx512f") ? InstructionSet::Avx512 : InstructionSet::Avx2;
    }
#endif
    return InstructionSet::Portable;
}

/// The older of a set and the one that a text names; no text or an empty one limits nothing.
/// Errors: 5 for any other text.
inline InstructionSet LimitedInstructionSet(InstructionSet newest, const char* limit) {
    if (!limit || !*limit) {
        return newest;
    }
    const auto* const name = std::find(std::begin(InstructionSetNames),
                                       std::end(InstructionSetNames), std::string_view(limit));
    if (name == std::end(InstructionSetNames)) {
        RaiseError(ErrorNumber::InvalidArgument, "TORLIB_INSTRUCTION_SET is \"" +
                                                     std::string(limit) +
                                                     "\", not portable, avx2 or avx512");
    }
    return std::min(newest, static_cast<InstructionSet>(name - std::begin(InstructionSetNames)));
}

/// The newest set that this processor runs and the environment allows. Errors: 5 for a set that
/// the environment names wrongly.
inline InstructionSet NewestInstructionSet() {
    static const InstructionSet newest =
        LimitedInstructionSet(InstructionSetOfProcessor(), std::getenv("TORLIB_INSTRUCTION_SET"));
    return newest;
}

} // namespace torlib
