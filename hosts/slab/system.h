#pragma once
// The systems that the program can analyse, each behind the same two faces: a project that has been
// read and checked, and the outcome of its analysis. A new system is a reader in the table of
// system.cpp and these two classes.
//
//     const std::unique_ptr<Project> project = OpenProject("raft.toml", window);
//     std::cout << project->Analyse(options, window)->Summary();

#include "hosts/slab/analysis.h"

#include <memory>
#include <string>

namespace slab {

/// What an analysis has given, in the forms in which a user asks for it.
class Outcome {
  public:
    virtual ~Outcome() = default;
    /// A dozen lines for the terminal.
    virtual std::string Summary() const = 0;
    virtual std::string Report() const = 0;
    virtual std::string Json() const = 0;
    /// An SVG document.
    virtual std::string Picture() const = 0;
    /// Empty, or why the results are no equilibrium.
    virtual std::string NotConverged() const { return {}; }
};

/// A project file that has been read and found valid.
class Project {
  public:
    virtual ~Project() = default;
    /// Such as "441 nodes, 400 elements".
    virtual std::string Size() const = 0;
    /// The outcome refers to its project. Throws AnalysisFailure or Cancelled.
    virtual std::unique_ptr<Outcome> Analyse(const AnalysisOptions& options,
                                             RunWindow& window) const = 0;
};

/// Reads a project file of any system; the window shows the progress of a reading that takes long.
/// Throws InputError or Cancelled.
std::unique_ptr<Project> OpenProject(const std::string& path, RunWindow& window);

/// The same for a text; `name` stands for the file in messages.
std::unique_ptr<Project> OpenProjectText(const std::string& text, const std::string& name);

// The readers of the single systems.
class ProjectFile;
std::unique_ptr<Project> OpenSlab(const ProjectFile& file);
std::unique_ptr<Project> OpenGrid(const ProjectFile& file);
std::unique_ptr<Project> OpenFrame(const ProjectFile& file);
std::unique_ptr<Project> OpenWall(const ProjectFile& file);
std::unique_ptr<Project> OpenPile(const ProjectFile& file);

} // namespace slab
