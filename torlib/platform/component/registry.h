#pragma once
// The component registry of a user: a text file that says which server file holds which class. It
// may be read and edited by hand:
//
//     [class {B24E9108-3F67-4C8A-A15D-720E934BC618}]
//     name = Math_Class
//     progid = TORVALib.Math_Class
//     server = /usr/lib/libtorlib.so
//
// The file is the one that TORLIB_REGISTRY names, or torlib/components.reg in the user's folder for
// data. Readers always see a whole file; writers take turns.
//
// Whoever can write this file, or set that variable, chooses the code that clients load. A file or
// folder that anybody but its owner and root may write, or that belongs to another user, is
// refused.

#include "torlib/platform/api.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace torlib {

/// One entry: what it is ("class", "progid", "interface", "typelib"), which, and its values. The
/// value "server" is the path of the server file that the entry belongs to.
struct RegistryEntry {
    std::string Kind;
    std::string Key;
    std::vector<std::pair<std::string, std::string>> Values;

    /// A value by name, or an empty text.
    TORLIB_API std::string Value(std::string_view name) const;
};

/// Path of the registry file; raises 75 when the environment tells no place for it.
TORLIB_API std::string RegistryPath();

/// All entries; none when there is no file yet. A line that cannot be understood is skipped, and
/// the values below a heading that cannot be; `damage` receives a sentence for each that tells the
/// line. Raises 75 for a file that cannot be read or that others may write.
TORLIB_API std::vector<RegistryEntry> ReadRegistry(std::vector<std::string>* damage = nullptr);

/// The entry of a kind and key (without regard to case), or nullptr.
TORLIB_API const RegistryEntry* FindEntry(const std::vector<RegistryEntry>& entries,
                                          std::string_view kind, std::string_view key);

/// Adds entries, replacing those of the same kind and key; all others stay, as do comments and
/// lines that cannot be understood. Raises 75 when the file cannot be written or others may write
/// it; 5 for a text with line ends or with blanks at its ends, and for a name with brackets.
TORLIB_API void RegisterEntries(const std::vector<RegistryEntry>& entries);

/// Removes the entries of the same kind, key and server; all others stay.
TORLIB_API void UnregisterEntries(const std::vector<RegistryEntry>& entries);

} // namespace torlib
