#pragma once
// The file of the component registry, which decides what code clients run: nobody but its owner and
// root may be able to change it, a reader sees a whole file, and writers take turns.
//
//     RegistryFile file(RegistryPath());
//     const RegistryFile::WriteLock lock(file);
//     file.Replace(Changed(file.Read()));

#include <string>

namespace torlib {

class RegistryFile {
  public:
    /// Follows links from this path to the file itself. Raises 75 when others may write a folder or
    /// a link on the way; a sticky folder may be open to others, as /tmp is.
    explicit RegistryFile(const std::string& path);

    /// The whole text; empty when there is no file yet. Raises 75 for a file that cannot be read,
    /// is no regular file or may be written by others.
    std::string Read() const;

    /// While it lives, other writers wait.
    class WriteLock {
      public:
        /// Makes the folder when it is missing; raises 75 when there is no lock to be had.
        explicit WriteLock(const RegistryFile& file);
        WriteLock(const WriteLock&) = delete;
        WriteLock& operator=(const WriteLock&) = delete;
        ~WriteLock();

      private:
        int number_;
    };

    /// Puts a new text in the place of the old one; mode, links and other names of the file stay.
    /// Raises 75 when that cannot be done, and then the old text is still there.
    void Replace(const std::string& text) const;

  private:
    std::string path_;
};

} // namespace torlib
