#pragma once
// Objects by programmatic or class identifier: finds the server in the component registry, loads it
// and asks it for the object.
//
//     Object math = CreateObject(u"TORVALib.Math_Class");
//     math.Invoke(u"ProductMatrxByVector", {N, ByRef(A), ByRef(V), ByRef(U)});
//     math = nullptr;
//     UnloadFreeServers();
//
// All three may be called from several threads at once, and by servers that are themselves being
// loaded or asked for an object.

#include "torlib/platform/component/object.h"

#include <string_view>

namespace torlib {

/// A new object of the class with this programmatic or class identifier; raises 429 and says why
/// when there is none.
TORLIB_API Object CreateObject(std::u16string_view progIdOrClassId);

/// The implicit default instance of the class with this programmatic or class identifier, the same
/// that the server's own code uses; raises 429 and says why when there is none.
TORLIB_API Object DefaultObject(std::u16string_view progIdOrClassId);

/// Unloads the servers that the two above have loaded and that say that nothing of them is in use.
/// No other thread may be in the midst of releasing the last object of a server. Result: how many
/// servers stay loaded.
TORLIB_API int UnloadFreeServers();

} // namespace torlib
