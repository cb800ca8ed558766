#pragma once
// Makes objects of one class for clients outside the library.

#include "torlib/frame/class_table.h"

namespace torlib {

/// A factory that the caller holds one reference to.
ClassFactory* NewClassFactory(const ClassInfo& info);

/// Number of locks that clients have put on the server.
long ServerLocks();

} // namespace torlib
