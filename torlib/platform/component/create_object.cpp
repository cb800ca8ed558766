#include "torlib/platform/component/create_object.h"

#include "torlib/platform/component/nearest_names.h"
#include "torlib/platform/component/registry.h"
#include "torlib/platform/component/server_entry_points.h"

#include <condition_variable>
#include <dlfcn.h>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <pthread.h>
#include <utility>

namespace torlib {

namespace {

[[noreturn]] void RaiseCannotCreate(std::u16string_view id, const std::string& why) {
    RaiseError(ErrorNumber::CannotCreateObject, "cannot create " + ToUtf8(id) + ": " + why);
}

/// The registry's entry of the class that is meant by a programmatic or class identifier; it names
/// a server file.
RegistryEntry ClassEntry(std::u16string_view id) {
    std::vector<std::string> damage;
    const std::vector<RegistryEntry> entries = ReadRegistry(&damage);
    const auto refuse = [&](std::string why) {
        for (const std::string& line : damage) {
            why += "; " + line;
        }
        RaiseCannotCreate(id, why);
    };
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
            refuse("it is not registered in " + RegistryPath() + Suggestion(classId, known));
        }
        classId = named->Value("class");
    }
    const RegistryEntry* entry = FindEntry(entries, "class", classId);
    if (!entry) {
        refuse("the class " + classId + " is not registered in " + RegistryPath());
    }
    if (entry->Value("server").empty()) {
        refuse("the class " + classId + " has no server file in " + RegistryPath());
    }
    return *entry;
}

/// Loads and unloads of servers that are under way; a child process that was forked in the middle
/// of one of another thread could not use the loader any more, so that a fork waits for their end.
class Loads {
  public:
    /// Lasts as long as one of them.
    class Scope {
      public:
        Scope() { Instance().Add(1); }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope() { Instance().Add(-1); }
    };

  private:
    Loads() { pthread_atfork(&StopForFork, &GoOn, &GoOn); }
    static Loads& Instance() {
        static auto* const loads = new Loads; // never destroyed: handlers of a fork use it
        return *loads;
    }
    void Add(int change) {
        const std::lock_guard lock(guard_);
        running_ += change;
        own_ += change;
        ended_.notify_all();
    }
    static void StopForFork() {
        Loads& loads = Instance();
        std::unique_lock lock(loads.guard_);
        loads.ended_.wait(lock, [&loads] { return loads.running_ == own_; });
        lock.release(); // until the fork is done
    }
    static void GoOn() { Instance().guard_.unlock(); }

    std::mutex guard_;
    std::condition_variable ended_;
    int running_ = 0;
    static thread_local int own_; // a server may fork while it is loaded
};
thread_local int Loads::own_ = 0;

/// A handle of a loaded server file; the loader counts them and unloads the file with the last one.
class Server {
  public:
    Server(std::u16string_view id, const std::string& path) {
        std::error_code failure;
        if (!std::filesystem::exists(path, failure)) {
            RaiseCannotCreate(id, "its server file " + path + " does not exist");
        }
        Load(id, path);
        get_factory_ = reinterpret_cast<GetClassObject>(dlsym(handle_.get(), "DllGetClassObject"));
        can_unload_ = reinterpret_cast<CanUnloadNow>(dlsym(handle_.get(), "DllCanUnloadNow"));
        if (!get_factory_ || !can_unload_) {
            RaiseCannotCreate(id, path + " is not a component server");
        }
    }

    bool IsFree() const { return can_unload_() == Result::Ok; }
    /// The factory of a class, or nullptr; the caller releases it.
    ClassFactory* Factory(const Guid& classId) const {
        void* factory = nullptr;
        return get_factory_(classId, IidClassFactory, &factory) == Result::Ok
                   ? static_cast<ClassFactory*>(factory)
                   : nullptr;
    }

  private:
    using GetClassObject = decltype(&DllGetClassObject);
    using CanUnloadNow = decltype(&DllCanUnloadNow);
    struct Closer {
        void operator()(void* handle) const {
            const Loads::Scope scope;
            dlclose(handle);
        }
    };

    void Load(std::u16string_view id, const std::string& path) {
        const Loads::Scope scope;
        handle_.reset(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
        if (!handle_) {
            RaiseCannotCreate(id, std::string("its server does not load: ") + dlerror());
        }
    }

    std::unique_ptr<void, Closer> handle_;
    GetClassObject get_factory_ = nullptr;
    CanUnloadNow can_unload_ = nullptr;
};

using Servers = std::map<std::string, Server>;

/// The servers that stay loaded until they are free. The lock is held for looking at the list alone
/// and never while a server runs, which may want an object of another server.
class LoadedServers {
  public:
    static LoadedServers& Instance() {
        // Never destroyed: objects of the servers may live longer.
        static auto* const loaded = new LoadedServers;
        return *loaded;
    }

    /// Adds servers; those that are there already stay with the caller.
    std::size_t Add(Servers& servers) {
        const Loads::Scope no_fork;
        const std::lock_guard lock(guard_);
        by_path_.merge(servers);
        return by_path_.size();
    }
    Servers TakeAll() {
        const Loads::Scope no_fork;
        const std::lock_guard lock(guard_);
        return std::exchange(by_path_, {});
    }

  private:
    std::mutex guard_;
    Servers by_path_;
};

/// A server in use by one call, with a handle of its own, so that nobody unloads it meanwhile; at
/// the end it joins the loaded ones.
class ServerInUse {
  public:
    ServerInUse(std::u16string_view id, const std::string& path)
        : server_(own_.try_emplace(path, id, path).first->second) {}
    ServerInUse(const ServerInUse&) = delete;
    ServerInUse& operator=(const ServerInUse&) = delete;
    ~ServerInUse() { LoadedServers::Instance().Add(own_); }

    const Server& Get() const { return server_; }

  private:
    Servers own_;
    const Server& server_;
};

/// Releases an interface that was handed out.
struct Releaser {
    void operator()(Unknown* held) const { held->Release(); }
};
template <class Interface>
using Holder = std::unique_ptr<Interface, Releaser>;

/// Asks the factory of a class for an object: `ask` calls the factory and says what went wrong, or
/// nothing.
template <class Ask>
Object ObjectOfFactory(std::u16string_view id, const Ask& ask) {
    const RegistryEntry entry = ClassEntry(id);
    const std::string path = entry.Value("server");
    Guid classId;
    if (!ParseGuid(FromUtf8(entry.Key), &classId)) {
        RaiseCannotCreate(id, entry.Key + " is not a class identifier");
    }
    const ServerInUse server(id, path);
    const Holder<ClassFactory> factory(server.Get().Factory(classId));
    if (!factory) {
        RaiseCannotCreate(id, "the server " + path + " does not hold the class " + entry.Key);
    }
    void* object = nullptr;
    if (const char* failure = ask(*factory, &object)) {
        RaiseCannotCreate(id, "the server " + path + " " + failure);
    }
    return Object::Adopt(static_cast<Dispatch*>(object));
}

} // namespace

Object CreateObject(std::u16string_view progIdOrClassId) {
    return ObjectOfFactory(progIdOrClassId, [](ClassFactory& factory, void** object) {
        const bool made = factory.CreateInstance(IidDispatch, object) == Result::Ok;
        return made ? nullptr : "failed to make an object";
    });
}

Object DefaultObject(std::u16string_view progIdOrClassId) {
    return ObjectOfFactory(progIdOrClassId, [](ClassFactory& factory, void** object) {
        void* found = nullptr;
        if (factory.QueryInterface(IidApplicationFactory, &found) != Result::Ok) {
            return "offers no default instance";
        }
        const Holder<ApplicationFactory> application(static_cast<ApplicationFactory*>(found));
        const bool made = application->GetDefaultInstance(IidDispatch, object) == Result::Ok;
        return made ? nullptr : "failed to hand out its default instance";
    });
}

int UnloadFreeServers() {
    Servers servers = LoadedServers::Instance().TakeAll();
    std::erase_if(servers, [](const auto& item) { return item.second.IsFree(); });
    return static_cast<int>(LoadedServers::Instance().Add(servers));
}

} // namespace torlib
