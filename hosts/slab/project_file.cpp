#include "hosts/slab/project_file.h"

#include "hosts/slab/interrupt.h"
#include "hosts/slab/nesting.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <unistd.h>

namespace slab {

namespace {

constexpr std::size_t LargestFile = 16u << 20;

void RefuseUnreadable(const std::string& text, const std::string& name) {
    if (text.size() > LargestFile) {
        throw InputError(name + ": is too large for a project file (allowed: up to 16 MB)");
    }
    if (text.find('\0') != std::string::npos) {
        throw InputError(name + ": is a binary file, not a text");
    }
    if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
        throw InputError(name + ": is empty");
    }
}

toml::table ParseText(const std::string& text, const SourceFile& file) {
    RefuseDeepNesting(text, file);
    file.Poll();
    try {
        return toml::parse(std::string_view(text), file.Name);
    } catch (const toml::parse_error& error) {
        FailAt(file, error.source(), "", std::string(error.description()));
    }
}

/// An open file, closed at the end.
class OpenFile {
  public:
    explicit OpenFile(const std::string& path)
        : file_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (file_ >= 0) {
            close(file_);
        }
    }
    int Number() const { return file_; }

  private:
    int file_;
};

} // namespace

std::string ProjectFile::ReadText(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw InputError(path + ": is a folder, not a project file");
    }
    const OpenFile file(path);
    if (file.Number() < 0) {
        throw InputError(path + ": cannot be read: " + std::strerror(errno));
    }
    std::string text;
    std::vector<char> piece(1u << 16);
    while (text.size() <= LargestFile) {
        WaitFor(file.Number(), POLLIN);
        const ssize_t count = read(file.Number(), piece.data(), piece.size());
        if (count == 0) {
            break;
        }
        if (count > 0) {
            text.append(piece.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR && errno != EAGAIN) {
            throw InputError(path + ": cannot be read to its end: " + std::strerror(errno));
        }
    }
    return text;
}

ProjectFile::ProjectFile(const std::string& text, std::string name, ReadingProgress progress)
    : file_{std::move(name), std::move(progress)} {
    RefuseUnreadable(text, file_.Name);
    table_ = ParseText(text, file_);
}

} // namespace slab
