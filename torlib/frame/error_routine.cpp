#include "torlib/frame/error_routine.h"

#include "torlib/frame/companion_services.h"

#include <new>

namespace torlib {

namespace {

/// The exception that is being handled, as an error of this library.
RunTimeError CurrentError() {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {ErrorNumber::OutOfMemory, "out of memory"};
    } catch (const std::exception& failure) {
        return {ErrorNumber::InvalidArgument, failure.what()};
    } catch (...) {
        return {ErrorNumber::InvalidArgument, "an exception of an unknown type"};
    }
}

std::FILE*& FileOne() {
    static std::FILE* file = nullptr;
    return file;
}

} // namespace

std::FILE* OpenFileNumberOne(const std::string& path, const char* mode) {
    CloseFileNumberOne();
    FileOne() = std::fopen(path.c_str(), mode);
    if (!FileOne()) {
        RaiseError(ErrorNumber::FileNotFound, "the file " + path + " cannot be opened");
    }
    return FileOne();
}

std::FILE* FileNumberOne() {
    return FileOne();
}

void CloseFileNumberOne() {
    if (FileOne()) {
        std::fclose(FileOne());
        FileOne() = nullptr;
    }
}

void HandleError(const RunTimeError& error) noexcept {
    try {
        Companions().Utility().ShowError(error);
    } catch (...) {
        // A report that fails must not replace the completed call that the host is promised.
    }
    CloseFileNumberOne();
}

void HandleCurrentError() noexcept {
    try {
        HandleError(CurrentError());
    } catch (...) {
        CloseFileNumberOne(); // no memory even for the report
    }
}

} // namespace torlib
