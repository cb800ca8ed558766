#pragma once
// The text of a project file and its syntax, before anyone knows what system it describes.

#include "hosts/slab/key_table.h"

namespace slab {

/// A project file that could be read: its tables, and its name for messages. Stays where it is,
/// since every key refers to it.
class ProjectFile {
  public:
    /// Reads a file; a pipe serves as well. Throws InputError.
    static std::string ReadText(const std::string& path);

    /// The tables of a text; `name` stands for the file in messages. Throws InputError.
    ProjectFile(const std::string& text, std::string name);
    ProjectFile(const ProjectFile&) = delete;
    ProjectFile& operator=(const ProjectFile&) = delete;

    const std::string& Name() const { return name_; }
    KeyTable Root() const { return {table_, "", name_}; }

  private:
    std::string name_;
    toml::table table_;
};

} // namespace slab
