#pragma once
// The four entry points that every component server exports; none of them throws.

#include "torlib/platform/component/unknown.h"

extern "C" {

/// Enters the server's classes, interfaces and type library into the component registry.
TORLIB_API torlib::Result DllRegisterServer() noexcept;
/// Takes exactly the entries of this server file out of the component registry.
TORLIB_API torlib::Result DllUnregisterServer() noexcept;
/// Hands out the factory of a class.
TORLIB_API torlib::Result DllGetClassObject(const torlib::Guid& classId,
                                            const torlib::Guid& interface, void** object) noexcept;
/// Ok when nothing of the server is in use: no object, no factory, no array of its making, no lock;
/// otherwise False.
TORLIB_API torlib::Result DllCanUnloadNow() noexcept;
}
