#include "torlib/platform/component/registry_file.h"

#include "torlib/platform/component/run_time_error.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace torlib {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void RaiseFailed(const std::string& path, const std::string& what) {
    RaiseError(ErrorNumber::FileNotWritable, "the component registry " + path + " " + what);
}

[[noreturn]] void RaiseSystem(const std::string& path, const std::string& what) {
    const int error = errno;
    RaiseFailed(path, what + ": " + std::strerror(error));
}

/// Runs a system call again as long as a signal interrupts it.
template <class Call>
auto Uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// An open file that closes itself.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (number_ >= 0) {
            close(number_);
        }
    }
    int Number() const { return number_; }
    int Release() { return std::exchange(number_, -1); }

  private:
    int number_;
};

bool HasForeignOwner(const struct stat& status) {
    return status.st_uid != 0 && status.st_uid != geteuid();
}

bool OthersMayWrite(const struct stat& status) {
    // In a sticky folder others may add files, but neither rename nor remove what is not theirs.
    const bool sticky = S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0;
    return HasForeignOwner(status) || (!sticky && (status.st_mode & (S_IWGRP | S_IWOTH)) != 0);
}

[[noreturn]] void RaiseOpen(const std::string& path, const std::string& part,
                            const struct stat& status) {
    char mode[8];
    std::snprintf(mode, sizeof mode, "%04o", static_cast<unsigned>(status.st_mode) & 07777U);
    RaiseFailed(path, "is not used, since others may write " + part + " (owner " +
                          std::to_string(status.st_uid) + ", mode " + mode +
                          "): make it your own and chmod go-w");
}

/// A folder that is not there yet is no danger.
void CheckFolder(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    struct stat status {};
    if (stat(folder.c_str(), &status) != 0) {
        if (errno == ENOENT) {
            return;
        }
        RaiseSystem(path, "cannot be reached");
    }
    if (!S_ISDIR(status.st_mode)) {
        RaiseFailed(path, "cannot be reached: " + folder + " is not a folder");
    }
    if (OthersMayWrite(status)) {
        RaiseOpen(path, "its folder " + folder, status);
    }
}

void MakeFolders(const std::string& path, const fs::path& folder) {
    struct stat status {};
    if (folder.empty() || stat(folder.c_str(), &status) == 0) {
        return;
    }
    MakeFolders(path, folder.parent_path());
    // Not what the umask allows: a folder that a group may write would not be used.
    if (mkdir(folder.c_str(), 0755) != 0 && errno != EEXIST) {
        RaiseSystem(path, "has no folder, and none can be made");
    }
}

/// Opens the file itself: no link, no waiting for the other end of a pipe.
Descriptor Open(const std::string& path, int how) {
    return Descriptor(Uninterrupted([&] {
        return open(path.c_str(), how | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0600);
    }));
}

struct stat CheckedStatus(const std::string& path, const Descriptor& file) {
    struct stat status {};
    if (fstat(file.Number(), &status) != 0) {
        RaiseSystem(path, "cannot be read");
    }
    if (!S_ISREG(status.st_mode)) {
        RaiseFailed(path, "is not a regular file");
    }
    if (OthersMayWrite(status)) {
        RaiseOpen(path, "it", status);
    }
    return status;
}

void Lock(const std::string& path, int file, int how) {
    if (Uninterrupted([&] { return flock(file, how); }) != 0) {
        RaiseSystem(path, "cannot be locked");
    }
}

void WriteAll(const std::string& path, const Descriptor& file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written =
            Uninterrupted([&] { return write(file.Number(), text.data(), text.size()); });
        if (written < 0) {
            RaiseSystem(path, "cannot be written");
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    if (fsync(file.Number()) != 0) {
        RaiseSystem(path, "cannot be written");
    }
}

/// Takes the room first, so that what is there is only overwritten when all of the new text fits.
void WriteInPlace(const std::string& path, const Descriptor& file, off_t oldSize,
                  const std::string& text) {
    const auto size = static_cast<off_t>(text.size());
    errno = posix_fallocate(file.Number(), 0, size);
    if (errno != 0) {
        const int error = errno;
        if (ftruncate(file.Number(), oldSize) == 0) {
            errno = error;
        }
        RaiseSystem(path, "cannot be written");
    }
    WriteAll(path, file, text);
    if (ftruncate(file.Number(), size) != 0) {
        RaiseSystem(path, "cannot be written");
    }
}

/// A file under a new name beside the registry, which goes away unless it takes its place.
class FreshFile {
  public:
    explicit FreshFile(const std::string& path) : path_(path), file_(Create()) {}
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;
    ~FreshFile() {
        if (!name_.empty()) {
            unlink(name_.c_str());
        }
    }

    /// Like the file that it replaces.
    void TakeAfter(const struct stat& old) {
        // Only root can give a file to another owner.
        if (fchown(file_.Number(), old.st_uid, old.st_gid) != 0 && geteuid() == 0) {
            RaiseSystem(path_, "cannot keep its owner");
        }
        if (fchmod(file_.Number(), old.st_mode & 07777U) != 0) {
            RaiseSystem(path_, "cannot keep its mode");
        }
    }
    void Publish(const std::string& text) {
        WriteAll(path_, file_, text);
        if (rename(name_.c_str(), path_.c_str()) != 0) {
            RaiseSystem(path_, "cannot be replaced");
        }
        name_.clear();
    }

  private:
    /// Whatever stands under a name already, also a link, is left alone.
    Descriptor Create() {
        constexpr int how = O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC;
        for (int i = 1; i <= 100; ++i) {
            const std::string name = path_ + ".new" + std::to_string(i);
            Descriptor file(open(name.c_str(), how, 0644));
            if (file.Number() >= 0) {
                name_ = name;
                return file;
            }
            if (errno != EEXIST) {
                break;
            }
        }
        RaiseSystem(path_, "cannot be written");
    }

    std::string path_;
    std::string name_;
    Descriptor file_;
};

} // namespace

RegistryFile::RegistryFile(const std::string& path) : path_(fs::absolute(path).string()) {
    for (int links = 0; links < 40; ++links) {
        CheckFolder(path_);
        struct stat status {};
        if (lstat(path_.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) {
            return;
        }
        if (HasForeignOwner(status)) {
            RaiseOpen(path, "the link " + path_, status);
        }
        std::error_code failure;
        path_ = (fs::path(path_).parent_path() / fs::read_symlink(path_, failure)).string();
    }
    RaiseFailed(path, "is a link that leads to no file");
}

std::string RegistryFile::Read() const {
    const Descriptor file = Open(path_, O_RDONLY);
    if (file.Number() < 0) {
        if (errno == ENOENT) {
            return "";
        }
        RaiseSystem(path_, "cannot be read");
    }
    if (CheckedStatus(path_, file).st_nlink > 1) {
        Lock(path_, file.Number(), LOCK_SH); // it is written in place
    }
    std::string text;
    char part[4096];
    while (true) {
        const ssize_t count = Uninterrupted([&] { return read(file.Number(), part, sizeof part); });
        if (count < 0) {
            RaiseSystem(path_, "cannot be read");
        }
        if (count == 0) {
            return text;
        }
        text.append(part, static_cast<std::size_t>(count));
    }
}

RegistryFile::WriteLock::WriteLock(const RegistryFile& file) {
    const std::string& path = file.path_;
    MakeFolders(path, fs::path(path).parent_path());
    CheckFolder(path);
    Descriptor lock = Open(path + ".lock", O_CREAT | O_RDWR);
    if (lock.Number() < 0) {
        RaiseSystem(path, "cannot be locked");
    }
    CheckedStatus(path + ".lock", lock);
    Lock(path, lock.Number(), LOCK_EX);
    number_ = lock.Release();
}

RegistryFile::WriteLock::~WriteLock() {
    // Closing is not enough: a child that was forked meanwhile has the file open as well.
    flock(number_, LOCK_UN);
    close(number_);
}

void RegistryFile::Replace(const std::string& text) const {
    const Descriptor old = Open(path_, O_RDWR);
    if (old.Number() < 0 && errno != ENOENT) {
        RaiseSystem(path_, "cannot be written");
    }
    if (old.Number() < 0) {
        FreshFile(path_).Publish(text);
        return;
    }
    const struct stat status = CheckedStatus(path_, old);
    if (status.st_nlink == 1) {
        FreshFile fresh(path_);
        fresh.TakeAfter(status);
        fresh.Publish(text);
        return;
    }
    // A new file in its place would not be known by the other names of this one.
    Lock(path_, old.Number(), LOCK_EX);
    WriteInPlace(path_, old, status.st_size, text);
}

} // namespace torlib
