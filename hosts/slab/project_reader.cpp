// Reading a project file: the file itself, its syntax, its tables, and what only the whole shows.

#include "hosts/slab/key_table.h"
#include "hosts/slab/loads.h"
#include "hosts/slab/mesh.h"
#include "hosts/slab/project.h"
#include "hosts/slab/slab_groups.h"
#include "hosts/slab/soil_reader.h"
#include "hosts/slab/supports.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace slab {

namespace {

constexpr std::size_t LargestFile = 16u << 20;

/// The text of a file; a pipe serves as well.
std::string ReadText(const std::string& path) {
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

bool HoldsSettlement(const Model& model) {
    const auto& subgrade = model.Soil.Subgrade;
    return std::any_of(model.Restraints.begin(), model.Restraints.end(),
                       [](const Restraint& r) { return r.Freedom == 1; }) ||
           std::any_of(model.Springs.begin(), model.Springs.end(),
                       [](const NodeSpring& s) { return s.Stiffness[0] > 0; }) ||
           model.Soil.Kind == SoilKind::HalfSpace || model.Soil.Kind == SoilKind::Layered ||
           std::any_of(subgrade.begin(), subgrade.end(), [](double k) { return k > 0; });
}

bool IsLoaded(const Model& model) {
    const auto acts = [](double value) { return value != 0; };
    return std::any_of(model.Pressure.begin(), model.Pressure.end(), acts) ||
           std::any_of(model.NodalLoads.begin(), model.NodalLoads.end(), acts) ||
           std::any_of(model.Restraints.begin(), model.Restraints.end(),
                       [](const Restraint& r) { return r.Value != 0; });
}

void CheckWhole(const KeyTable& root, const Model& model) {
    if (!HoldsSettlement(model)) {
        root.Fail("nothing holds the slab; give it [soil], or [[supports]] or [[springs]] with w");
    }
    if (!IsLoaded(model)) {
        root.Fail("nothing acts on the slab; give it [loads], slab.unit_weight or a prescribed "
                  "settlement");
    }
}

} // namespace

Model ParseProject(const std::string& text, const std::string& name) {
    RefuseUnreadable(text, name);
    const toml::table table = ParseText(text, name);
    const KeyTable root(table, "", name);
    root.Allow(
        {"title", "units", "mesh", "slab", "loads", "supports", "springs", "soil", "iteration"});
    ProjectDraft draft;
    draft.Model.File = name;
    draft.Model.Title = root.Has("title") ? root.Get("title").Text() : "";
    draft.Scale = ReadUnits(root);
    draft.Model.Units = draft.Scale.Units;
    ReadMesh(root, draft);
    ReadSlab(root, draft);
    ReadLoads(root, draft);
    ReadSupports(root, draft);
    ReadSprings(root, draft);
    ReadSoil(root, draft);
    ReadIteration(root, draft);
    CheckWhole(root, draft.Model);
    return draft.Model;
}

Model ReadProject(const std::string& path) {
    return ParseProject(ReadText(path), path);
}

} // namespace slab
