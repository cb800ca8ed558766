#pragma once
// The text of a project file and its syntax, before anyone knows what system it describes.

#include "hosts/slab/key_table.h"

namespace slab {

/// A project file that could be read: its tables, and its name for messages. Stays where it is,
/// since every key refers to it.
class ProjectFile {
  public:
    /// Reads a file; a pipe serves as well. Throws InputError, or Cancelled while it waits.
    static std::string ReadText(const std::string& path);

    /// The tables of a text; `name` stands for the file in messages. Throws InputError.
    ProjectFile(const std::string& text, std::string name, ReadingProgress progress = {});
    ProjectFile(const ProjectFile&) = delete;
    ProjectFile& operator=(const ProjectFile&) = delete;

    const std::string& Name() const { return file_.Name; }
    KeyTable Root() const { return {table_, "", file_}; }

  private:
    SourceFile file_;
    toml::table table_;
};

} // namespace slab
