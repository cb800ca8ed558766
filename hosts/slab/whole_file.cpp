#include "hosts/slab/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace slab {

namespace {

[[noreturn]] void RaiseUnwritable(const std::string& path, const std::string& reason) {
    throw std::runtime_error(path + ": cannot be written: " + reason);
}

/// Writes and flushes to the disk; an empty text when it went well, else the reason.
std::string WriteAll(std::FILE* file, const std::string& text) {
    const bool written =
        std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0;
    const std::string reason = written ? "" : std::strerror(errno);
    return std::fclose(file) == 0 || !written ? reason : std::strerror(errno);
}

} // namespace

void WriteWholeFile(const std::string& path, const std::string& text) {
    struct stat status = {};
    const bool exists = stat(path.c_str(), &status) == 0;
    // A device or pipe cannot be replaced by a renamed file.
    const bool special = exists && !S_ISREG(status.st_mode);
    if (exists && S_ISDIR(status.st_mode)) {
        RaiseUnwritable(path, "it is a folder");
    }
    const std::string temporary = special ? path : path + ".part" + std::to_string(getpid());
    std::FILE* file = std::fopen(temporary.c_str(), "wb");
    if (!file) {
        RaiseUnwritable(path, std::strerror(errno));
    }
    std::string reason = WriteAll(file, text);
    if (reason.empty() && !special && std::rename(temporary.c_str(), path.c_str()) != 0) {
        reason = std::strerror(errno);
    }
    if (!reason.empty()) {
        if (!special) {
            std::remove(temporary.c_str());
        }
        RaiseUnwritable(path, reason);
    }
}

} // namespace slab
