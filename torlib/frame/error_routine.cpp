#include "torlib/frame/error_routine.h"

#include "torlib/frame/companion_services.h"

namespace torlib {

namespace {

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

} // namespace torlib
