#pragma once
// Resources that a server carries inside its file, known by type and number: the type library is
// "TYPELIB" 1. Each is a section of the file with the name ".rsrc.TYPE.NUMBER".

#include "torlib/platform/api.h"

#include <string>
#include <string_view>

namespace torlib {

/// The bytes of a resource of a library file, which is read and not loaded. Raises 53 when there is
/// no such file, 5 when it is not a whole library file of this machine's kind or holds no such
/// resource.
TORLIB_API std::string FindResource(const std::string& path, std::string_view type, int number);

} // namespace torlib
