#pragma once
// What a call fails with, as text, so that number, member and description are checked together.

#include "tests/error_of.h"

#include "torlib/platform/component/run_time_error.h"

#include <string>

namespace torlib::test {

/// "member: description (error number)", or an empty text when the call succeeds.
template <class F>
std::string ErrorText(F call) {
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return "";
}

} // namespace torlib::test
