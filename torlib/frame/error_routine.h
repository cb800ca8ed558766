#pragma once
// What members do that catch their own errors: report, close file number 1, go on.
//
//     try { ... } catch (...) { HandleCurrentError(); form.Unload(); }

#include "torlib/platform/component/run_time_error.h"

#include <cstdio>
#include <string>

namespace torlib {

/// Opens a file under file number 1, closing what was open there; raises 53 when it cannot.
TORLIB_API std::FILE* OpenFileNumberOne(const std::string& path, const char* mode);
/// The file open under file number 1, or nullptr.
TORLIB_API std::FILE* FileNumberOne();
/// Closes file number 1 if it is open, ignoring any error of the close.
TORLIB_API void CloseFileNumberOne();

/// The library-wide error routine: reports the error to the user through the utility services and
/// closes file number 1. Never raises an error itself; after it the member cleans up and returns.
TORLIB_API void HandleError(const RunTimeError& error) noexcept;
/// The same for the exception that is being handled, whatever its type: a lack of memory is
/// reported as 7, anything that is not an error of this library as 5.
TORLIB_API void HandleCurrentError() noexcept;

} // namespace torlib
