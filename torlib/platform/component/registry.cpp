#include "torlib/platform/component/registry.h"

#include "torlib/platform/component/nearest_names.h"
#include "torlib/platform/component/run_time_error.h"
#include "torlib/platform/component/variant.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/file.h>
#include <unistd.h>

namespace torlib {

namespace {

constexpr std::string_view heading =
    "# Component registry: which server file holds which class. Written by the servers.\n";

[[noreturn]] void RaiseFailed(const std::string& path, const std::string& what) {
    RaiseError(ErrorNumber::FileNotWritable, "the component registry " + path + " " + what);
}

[[noreturn]] void RaiseSystem(const std::string& path, const char* what) {
    RaiseFailed(path, std::string(what) + ": " + std::strerror(errno));
}

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    const auto last = text.find_last_not_of(" \t\r");
    return std::string(first == std::string_view::npos ? "" : text.substr(first, last - first + 1));
}

/// Takes in one line; false when it is neither a heading of an entry nor a value of one.
bool ReadLine(const std::string& line, std::vector<RegistryEntry>& entries) {
    if (line.empty() || line[0] == '#') {
        return true;
    }
    if (line.front() == '[') {
        const auto blank = line.find(' ');
        if (line.back() != ']' || blank == std::string::npos) {
            return false;
        }
        entries.push_back({line.substr(1, blank - 1),
                           Trimmed(std::string_view(line).substr(blank, line.size() - blank - 1)),
                           {}});
        return true;
    }
    const auto sign = line.find('=');
    if (sign == std::string::npos || entries.empty()) {
        return false;
    }
    entries.back().Values.emplace_back(Trimmed(line.substr(0, sign)),
                                       Trimmed(line.substr(sign + 1)));
    return true;
}

bool SameEntry(const RegistryEntry& a, std::string_view kind, std::string_view key) {
    return a.Kind == kind && SameName(FromUtf8(a.Key), FromUtf8(key));
}

std::string FileText(const std::vector<RegistryEntry>& entries) {
    std::string text(heading);
    for (const RegistryEntry& entry : entries) {
        std::string lines = "[" + entry.Kind;
        lines.append(" ").append(entry.Key).append("]");
        for (const auto& [name, value] : entry.Values) {
            if (name.find('\n') != std::string::npos || value.find('\n') != std::string::npos) {
                RaiseError(ErrorNumber::InvalidArgument,
                           "a value of the component registry is one line, not \"" + value + "\"");
            }
            lines.append("\n").append(name).append(" = ").append(value);
        }
        text.append("\n").append(lines).append("\n");
    }
    return text;
}

/// An open file descriptor that closes itself, and with it the lock that it holds.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) {
            close(number_);
        }
    }
    int Number() const { return number_; }

  private:
    int number_;
};

void WriteAll(const std::string& path, int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(file, text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            RaiseSystem(path, "cannot be written");
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    if (fsync(file) != 0) {
        RaiseSystem(path, "cannot be written");
    }
}

/// Puts a whole new file in the place of the old one, so that a reader never sees a half.
void Replace(const std::string& path, const std::string& text) {
    const std::string fresh = path + ".new";
    const Descriptor file(open(fresh.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0644));
    if (file.Number() < 0) {
        RaiseSystem(path, "cannot be written");
    }
    WriteAll(path, file.Number(), text);
    if (rename(fresh.c_str(), path.c_str()) != 0) {
        RaiseSystem(path, "cannot be replaced");
    }
}

/// Reads, changes and writes the registry while no other writer can.
template <class Change>
void Rewrite(const Change& change) {
    const std::string path = RegistryPath();
    std::error_code failure;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), failure);
    const Descriptor lock(open((path + ".lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0644));
    if (lock.Number() < 0 || flock(lock.Number(), LOCK_EX) != 0) {
        RaiseSystem(path, "cannot be locked");
    }
    std::vector<RegistryEntry> entries = ReadRegistry();
    change(entries);
    Replace(path, FileText(entries));
}

} // namespace

std::string RegistryEntry::Value(std::string_view name) const {
    for (const auto& [known, value] : Values) {
        if (known == name) {
            return value;
        }
    }
    return "";
}

std::string RegistryPath() {
    const auto variable = [](const char* name) -> std::string {
        const char* value = std::getenv(name);
        return value ? value : "";
    };
    if (std::string path = variable("TORLIB_REGISTRY"); !path.empty()) {
        return path;
    }
    if (const std::string data = variable("XDG_DATA_HOME"); !data.empty()) {
        return data + "/torlib/components.reg";
    }
    if (const std::string home = variable("HOME"); !home.empty()) {
        return home + "/.local/share/torlib/components.reg";
    }
    RaiseError(ErrorNumber::FileNotWritable,
               "no place for the component registry: set TORLIB_REGISTRY to a file's path");
}

std::vector<RegistryEntry> ReadRegistry() {
    const std::string path = RegistryPath();
    std::vector<RegistryEntry> entries;
    std::error_code failure;
    if (!std::filesystem::exists(path, failure)) {
        return entries;
    }
    std::ifstream file(path);
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (!ReadLine(Trimmed(line), entries)) {
            RaiseFailed(path, "has the line " + std::to_string(number) +
                                  " that is neither \"[kind key]\" nor \"name = value\": " + line);
        }
    }
    if (!file.eof()) {
        RaiseFailed(path, "cannot be read");
    }
    return entries;
}

const RegistryEntry* FindEntry(const std::vector<RegistryEntry>& entries, std::string_view kind,
                               std::string_view key) {
    const auto at =
        std::find_if(entries.begin(), entries.end(), [kind, key](const RegistryEntry& entry) {
            return SameEntry(entry, kind, key);
        });
    return at == entries.end() ? nullptr : &*at;
}

void RegisterEntries(const std::vector<RegistryEntry>& added) {
    Rewrite([&added](std::vector<RegistryEntry>& entries) {
        std::erase_if(entries, [&added](const RegistryEntry& entry) {
            return FindEntry(added, entry.Kind, entry.Key) != nullptr;
        });
        entries.insert(entries.end(), added.begin(), added.end());
    });
}

void UnregisterEntries(const std::vector<RegistryEntry>& removed) {
    Rewrite([&removed](std::vector<RegistryEntry>& entries) {
        std::erase_if(entries, [&removed](const RegistryEntry& entry) {
            const RegistryEntry* own = FindEntry(removed, entry.Kind, entry.Key);
            return own && own->Value("server") == entry.Value("server");
        });
    });
}

} // namespace torlib
