#pragma once
// Objects by programmatic or class identifier: finds the server in the component registry, loads it
// and asks it for the object.
//
//     Object math = CreateObject(u"TORVALib.Math_Class");
//     math.Invoke(u"ProductMatrxByVector", {N, ByRef(A), ByRef(V), ByRef(U)});
//     math = nullptr;
//     UnloadFreeServers();

#include "torlib/platform/component/object.h"

#include <string_view>

namespace torlib {

/// A new object of the class with this programmatic or class identifier; raises 429 and says why
/// when there is none.
TORLIB_API Object CreateObject(std::u16string_view progIdOrClassId);

/// Unloads the servers that CreateObject has loaded and that say that nothing of them is in use.
/// Result: how many servers stay loaded.
TORLIB_API int UnloadFreeServers();

} // namespace torlib
