#include "hosts/slab/project_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

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

toml::table ParseText(const std::string& text, const std::string& name) {
    try {
        return toml::parse(text, name);
    } catch (const toml::parse_error& error) {
        FailAt(name, error.source(), "", std::string(error.description()));
    }
}

} // namespace

std::string ProjectFile::ReadText(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw InputError(path + ": is a folder, not a project file");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw InputError(path + ": cannot be read: " + std::strerror(errno == 0 ? ENOENT : errno));
    }
    std::string text(LargestFile + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (file.bad()) {
        throw InputError(path + ": cannot be read to its end");
    }
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

ProjectFile::ProjectFile(const std::string& text, std::string name) : name_(std::move(name)) {
    RefuseUnreadable(text, name_);
    table_ = ParseText(text, name_);
}

} // namespace slab
