// The door of the library file: what a loader that knows nothing of engineering may call.

#include "torlib/platform/component/server_entry_points.h"

#include "torlib/platform/component/module_count.h"
#include "torlib/platform/component/registry.h"
#include "torlib/server/class_factory.h"
#include "torlib/server/class_list.h"

#include <dlfcn.h>
#include <filesystem>
#include <new>

namespace torlib {

namespace {

std::string OwnPath() {
    Dl_info place{};
    if (dladdr(reinterpret_cast<const void*>(&DllCanUnloadNow), &place) == 0) {
        RaiseError(ErrorNumber::FileNotFound, "the library's own file is not known");
    }
    return std::filesystem::canonical(place.dli_fname).string();
}

std::string Version() {
    return std::to_string(LibraryMajorVersion) + "." + std::to_string(LibraryMinorVersion);
}

void AddClass(const ClassInfo& info, const std::string& server,
              std::vector<RegistryEntry>& entries) {
    const std::string name = ToUtf8(info.Name);
    const std::string classId = ToUtf8(GuidText(info.ClassId));
    const std::string interfaceId = ToUtf8(GuidText(info.InterfaceId));
    const std::string library = ToUtf8(GuidText(LibraryId));
    const std::string progId = ToUtf8(LibraryName) + "." + name;
    entries.push_back({"class",
                       classId,
                       {{"name", name},
                        {"progid", progId},
                        {"interface", interfaceId},
                        {"typelib", library},
                        {"version", Version()},
                        {"server", server}}});
    entries.push_back({"progid", progId, {{"class", classId}, {"server", server}}});
    entries.push_back({"interface",
                       interfaceId,
                       {{"name", "_" + name}, {"typelib", library}, {"server", server}}});
    if (info.Events) {
        entries.push_back(
            {"interface",
             ToUtf8(GuidText(info.Events->InterfaceId)),
             {{"name", ToUtf8(info.Events->Name)}, {"typelib", library}, {"server", server}}});
    }
}

std::vector<RegistryEntry> OwnEntries() {
    const std::string server = OwnPath();
    std::vector<RegistryEntry> entries;
    entries.push_back({"typelib",
                       ToUtf8(GuidText(LibraryId)),
                       {{"name", ToUtf8(LibraryName)},
                        {"description", ToUtf8(LibraryDescription)},
                        {"version", Version()},
                        {"path", server},
                        {"server", server}}});
    for (const ClassInfo* info : BuiltClasses()) {
        AddClass(*info, server, entries);
    }
    return entries;
}

/// Runs a change of the registry; a failure becomes a result code at this one place.
template <class Change>
Result ChangeRegistry(const Change& change) noexcept {
    try {
        change(OwnEntries());
        return Result::Ok;
    } catch (...) {
        return Result::RegistryFailed;
    }
}

} // namespace

} // namespace torlib

using namespace torlib;

Result DllRegisterServer() noexcept {
    return ChangeRegistry(RegisterEntries);
}

Result DllUnregisterServer() noexcept {
    return ChangeRegistry(UnregisterEntries);
}

Result DllGetClassObject(const Guid& classId, const Guid& interface, void** object) noexcept {
    if (!object) {
        return Result::InvalidPointer;
    }
    *object = nullptr;
    try {
        const ClassInfo* info = FindClass(classId);
        if (!info) {
            return Result::ClassNotAvailable;
        }
        ClassFactory* factory = NewClassFactory(*info);
        const Result result = factory->QueryInterface(interface, object);
        factory->Release();
        return result;
    } catch (const std::bad_alloc&) {
        return Result::OutOfMemory;
    } catch (...) {
        return Result::Exception;
    }
}

Result DllCanUnloadNow() noexcept {
    return LiveInModule() == 0 && ServerLocks() == 0 ? Result::Ok : Result::False;
}
