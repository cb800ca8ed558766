#include "hosts/slab/system.h"

#include "hosts/slab/project_file.h"

#include <chrono>

namespace slab {

namespace {

struct System {
    const char* Name; ///< of the key `system`
    std::unique_ptr<Project> (*Open)(const ProjectFile& file);
};

constexpr System systems[] = {
    {"slab", OpenSlab}, {"grid", OpenGrid}, {"frame", OpenFrame},
    {"wall", OpenWall}, {"pile", OpenPile},
};

const System& SystemOf(const KeyTable& root) {
    if (!root.Has("system")) {
        return systems[0];
    }
    std::vector<std::string> names;
    for (const System& system : systems) {
        names.emplace_back(system.Name);
    }
    return systems[root.Get("system").Choice(names)];
}

/// Shows the lists of a project that takes long to read, and lets the user cancel.
class ShownReading {
  public:
    explicit ShownReading(RunWindow& window) : window_(window) {}

    void operator()(const std::string& list, int step, int steps) {
        if (std::chrono::steady_clock::now() - start_ < silence || list.empty()) {
            Require(window_.Continue());
            return;
        }
        if (list != shown_) {
            shown_ = list;
            window_.Begin("Reading " + list, steps);
        }
        Require(window_.Step(step));
    }

  private:
    static constexpr std::chrono::milliseconds silence{300};

    static void Require(bool goesOn) {
        if (!goesOn) {
            throw Cancelled();
        }
    }

    RunWindow& window_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::string shown_;
};

std::unique_ptr<Project> OpenFile(const ProjectFile& file) {
    return SystemOf(file.Root()).Open(file);
}

} // namespace

std::unique_ptr<Project> OpenProjectText(const std::string& text, const std::string& name) {
    return OpenFile(ProjectFile(text, name));
}

std::unique_ptr<Project> OpenProject(const std::string& path, RunWindow& window) {
    const std::string text = ProjectFile::ReadText(path);
    std::unique_ptr<Project> project = OpenFile(ProjectFile(text, path, ShownReading(window)));
    window.End();
    return project;
}

} // namespace slab
