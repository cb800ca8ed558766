#pragma once
// The number of the run-time error that a call ends with.

#include "torlib/platform/component/run_time_error.h"

namespace torlib::test {

/// Number of the run-time error that a call ends with, 0 for none.
template <class Call>
int ErrorOf(Call call) {
    try {
        call();
    } catch (const RunTimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

} // namespace torlib::test
