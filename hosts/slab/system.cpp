#include "hosts/slab/system.h"

#include "hosts/slab/project_file.h"

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

} // namespace

std::unique_ptr<Project> OpenProjectText(const std::string& text, const std::string& name) {
    const ProjectFile file(text, name);
    return SystemOf(file.Root()).Open(file);
}

std::unique_ptr<Project> OpenProject(const std::string& path) {
    return OpenProjectText(ProjectFile::ReadText(path), path);
}

} // namespace slab
