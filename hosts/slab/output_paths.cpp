#include "hosts/slab/output_paths.h"

#include "hosts/slab/project.h"

#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace slab {

namespace {

namespace fs = std::filesystem;

constexpr int MostLinks = 40;

/// What makes two paths the same file: device and number of a file that is there, else the folder
/// and the name.
struct Identity {
    std::string Name; ///< for messages
    dev_t Device = 0;
    ino_t Number = 0;
    std::string Path; ///< empty when the file is there

    bool Same(const Identity& other) const {
        return Device == other.Device && Number == other.Number && Path == other.Path;
    }
};

/// A pipe or a device, such as /dev/null, takes any number of outputs.
std::optional<Identity> Known(const std::string& name, const struct stat& status) {
    return S_ISREG(status.st_mode)
               ? std::optional<Identity>({name, status.st_dev, status.st_ino, ""})
               : std::nullopt;
}

std::optional<Identity> IdentityOf(const std::string& name, const std::string& path) {
    struct stat status = {};
    if (path == "-") {
        return fstat(STDOUT_FILENO, &status) == 0 ? Known(name, status) : std::nullopt;
    }
    const fs::path target = BehindLinks(path);
    if (stat(target.c_str(), &status) == 0) {
        return Known(name, status);
    }
    std::error_code none;
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    return Identity{name, 0, 0, (fs::weakly_canonical(folder, none) / target.filename()).string()};
}

} // namespace

std::string BehindLinks(const std::string& path) {
    std::error_code none;
    fs::path target = path;
    for (int i = 0; i < MostLinks && fs::is_symlink(target, none); ++i) {
        const fs::path next = fs::read_symlink(target, none);
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target.string();
}

void CheckOutputs(const std::string& project,
                  const std::vector<std::pair<std::string, std::string>>& outputs) {
    std::vector<Identity> taken;
    const auto take = [&taken](const std::string& name, const std::string& path) {
        const auto identity = IdentityOf(name, path);
        for (const Identity& other : taken) {
            if (identity && identity->Same(other)) {
                throw InputError(name + ": " + path + " is the same file as " + other.Name);
            }
        }
        if (identity) {
            taken.push_back(*identity);
        }
    };
    take("the project", project);
    std::string onStandardOutput;
    for (const auto& [option, path] : outputs) {
        if (path == "-" && !onStandardOutput.empty()) {
            throw InputError(option + ": " + onStandardOutput +
                             " already goes to standard output (allowed: one \"-\")");
        }
        if (path == "-") {
            onStandardOutput = option;
        } else if (!path.empty()) {
            take(option, path);
        }
    }
    // What no option claims, the summary, goes there.
    take("standard output", "-");
}

} // namespace slab
