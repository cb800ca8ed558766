#include "hosts/slab/interrupt.h"
#include "hosts/slab/output.h"
#include "hosts/slab/output_paths.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace slab {

namespace {

[[noreturn]] void RaiseUnwritable(const std::string& path, int error) {
    throw std::runtime_error(path + ": cannot be written: " + std::strerror(error));
}

/// Writes all of a text; 0, or the number of the error. Pipes and terminals take no more at a time
/// than they announce room for, so that the wait for a reader can be cancelled.
int WriteAll(int file, const std::string& text) {
    for (std::size_t done = 0; done < text.size();) {
        WaitFor(file, POLLOUT);
        const std::size_t piece = std::min<std::size_t>(text.size() - done, PIPE_BUF);
        const ssize_t count = write(file, text.data() + done, piece);
        if (count >= 0) {
            done += static_cast<std::size_t>(count);
        } else if (errno != EINTR && errno != EAGAIN) {
            return errno;
        }
    }
    return 0;
}

/// Writes into a file that is there, a pipe or a device; a pipe may have no reader yet.
void WriteInPlace(const std::string& path, const std::string& text, int flags) {
    int file = open(path.c_str(), flags);
    while (file < 0 && (errno == ENXIO || errno == EINTR)) {
        WaitAMoment();
        file = open(path.c_str(), flags);
    }
    if (file < 0) {
        RaiseUnwritable(path, errno);
    }
    int error = 0;
    try {
        error = WriteAll(file, text);
    } catch (...) {
        close(file);
        throw;
    }
    if (close(file) != 0 && error == 0) {
        error = errno;
    }
    if (error != 0) {
        RaiseUnwritable(path, error);
    }
}

/// Writes a new file beside the wanted one and renames it; `mode` is that of the file it replaces,
/// or -1.
void Replace(const std::string& path, const std::string& text, int mode) {
    std::string temporary = path + ".XXXXXX";
    const int file = mkstemp(temporary.data());
    if (file < 0) {
        RaiseUnwritable(path, errno);
    }
    if (mode < 0) {
        const mode_t mask = umask(0);
        umask(mask);
        mode = static_cast<int>(0666 & ~mask);
    }
    int error = 0;
    try {
        error = WriteAll(file, text);
    } catch (...) {
        close(file);
        std::remove(temporary.c_str());
        throw;
    }
    if (error == 0 && fchmod(file, static_cast<mode_t>(mode)) != 0) {
        error = errno;
    }
    if (close(file) != 0 && error == 0) {
        error = errno;
    }
    if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        std::remove(temporary.c_str());
        RaiseUnwritable(path, error);
    }
}

} // namespace

void WriteWholeFile(const std::string& path, const std::string& text) {
    const std::string target = BehindLinks(path);
    struct stat status = {};
    if (stat(target.c_str(), &status) != 0) {
        Replace(target, text, -1);
    } else if (S_ISDIR(status.st_mode)) {
        throw std::runtime_error(path + ": cannot be written: it is a folder");
    } else if (!S_ISREG(status.st_mode)) {
        WriteInPlace(target, text, O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    } else if (status.st_nlink > 1) {
        WriteInPlace(target, text, O_WRONLY | O_TRUNC | O_CLOEXEC);
    } else {
        Replace(target, text, static_cast<int>(status.st_mode & 07777));
    }
}

void WriteStandardOutput(const std::string& text) {
    if (const int error = WriteAll(STDOUT_FILENO, text)) {
        RaiseUnwritable("standard output", error);
    }
}

} // namespace slab
