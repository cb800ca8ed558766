#pragma once
// The class without members that carries the shared enumerations in the type library.

#include "torlib/frame/enumerations.h"
#include "torlib/frame/picture_enumerations.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API EnumConstantClass {
  public:
    static EnumConstantClass& DefaultInstance();
    static const ClassInfo& Info();
};

} // namespace torlib
