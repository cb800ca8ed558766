#include "torlib/platform/component/create_object.h"

#include "torlib/platform/component/nearest_names.h"
#include "torlib/platform/component/registry.h"
#include "torlib/platform/component/server_entry_points.h"

#include <dlfcn.h>
#include <filesystem>
#include <map>
#include <mutex>

namespace torlib {

namespace {

using GetClassObject = decltype(&DllGetClassObject);
using CanUnloadNow = decltype(&DllCanUnloadNow);

struct Server {
    void* Handle = nullptr;
    GetClassObject GetFactory = nullptr;
    CanUnloadNow IsFree = nullptr;
};

struct LoadedServers {
    std::mutex Guard;
    std::map<std::string, Server> ByPath;
};

LoadedServers& Loaded() {
    static LoadedServers servers;
    return servers;
}

[[noreturn]] void RaiseCannotCreate(std::u16string_view id, const std::string& why) {
    RaiseError(ErrorNumber::CannotCreateObject, "cannot create " + ToUtf8(id) + ": " + why);
}

/// The registry's entry of the class that is meant by a programmatic or class identifier.
RegistryEntry ClassEntry(std::u16string_view id) {
    const std::vector<RegistryEntry> entries = ReadRegistry();
    std::string classId = ToUtf8(id);
    if (Guid guid; !ParseGuid(id, &guid)) {
        const RegistryEntry* named = FindEntry(entries, "progid", classId);
        if (!named) {
            std::vector<std::string> known;
            for (const RegistryEntry& entry : entries) {
                if (entry.Kind == "progid") {
                    known.push_back(entry.Key);
                }
            }
            RaiseCannotCreate(id, "it is not registered in " + RegistryPath() +
                                      Suggestion(classId, known));
        }
        classId = named->Value("class");
    }
    const RegistryEntry* entry = FindEntry(entries, "class", classId);
    if (!entry) {
        RaiseCannotCreate(id, "the class " + classId + " is not registered in " + RegistryPath());
    }
    return *entry;
}

Server Load(std::u16string_view id, const std::string& path) {
    std::error_code failure;
    if (!std::filesystem::exists(path, failure)) {
        RaiseCannotCreate(id, "its server file " + path + " does not exist");
    }
    Server server;
    server.Handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!server.Handle) {
        RaiseCannotCreate(id, std::string("its server does not load: ") + dlerror());
    }
    server.GetFactory = reinterpret_cast<GetClassObject>(dlsym(server.Handle, "DllGetClassObject"));
    server.IsFree = reinterpret_cast<CanUnloadNow>(dlsym(server.Handle, "DllCanUnloadNow"));
    if (!server.GetFactory || !server.IsFree) {
        dlclose(server.Handle);
        RaiseCannotCreate(id, path + " is not a component server");
    }
    return server;
}

/// Releases an interface that was handed out.
struct Releaser {
    Unknown* Held;
    explicit Releaser(Unknown* held) : Held(held) {}
    Releaser(const Releaser&) = delete;
    Releaser& operator=(const Releaser&) = delete;
    ~Releaser() { Held->Release(); }
};

} // namespace

Object CreateObject(std::u16string_view progIdOrClassId) {
    const RegistryEntry entry = ClassEntry(progIdOrClassId);
    const std::string path = entry.Value("server");
    Guid classId;
    if (!ParseGuid(FromUtf8(entry.Key), &classId)) {
        RaiseCannotCreate(progIdOrClassId, entry.Key + " is not a class identifier");
    }
    LoadedServers& loaded = Loaded();
    const std::lock_guard lock(loaded.Guard);
    auto at = loaded.ByPath.find(path);
    if (at == loaded.ByPath.end()) {
        at = loaded.ByPath.emplace(path, Load(progIdOrClassId, path)).first;
    }
    void* pointer = nullptr;
    if (at->second.GetFactory(classId, IidClassFactory, &pointer) != Result::Ok) {
        RaiseCannotCreate(progIdOrClassId,
                          "the server " + path + " does not hold the class " + entry.Key);
    }
    auto* factory = static_cast<ClassFactory*>(pointer);
    const Releaser release(factory);
    if (factory->CreateInstance(IidDispatch, &pointer) != Result::Ok) {
        RaiseCannotCreate(progIdOrClassId, "the server " + path + " failed to make an object");
    }
    return Object::Adopt(static_cast<Dispatch*>(pointer));
}

int UnloadFreeServers() {
    LoadedServers& loaded = Loaded();
    const std::lock_guard lock(loaded.Guard);
    std::erase_if(loaded.ByPath, [](const auto& item) {
        const Server& server = item.second;
        return server.IsFree() == Result::Ok && dlclose(server.Handle) == 0;
    });
    return static_cast<int>(loaded.ByPath.size());
}

} // namespace torlib
