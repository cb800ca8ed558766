#pragma once
// Registers the library file in a registry of the test's own, by the file's entry points alone.

#include "torlib/platform/component/create_object.h"
#include "torlib/platform/component/server_entry_points.h"

#include "tests/temporary_folder.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace torlib::test {

/// The library file as a loader sees it.
class ServerFile {
  public:
    ServerFile() : handle_(dlopen(TORLIB_SERVER_FILE, RTLD_NOW | RTLD_LOCAL)) {
        EXPECT_NE(handle_, nullptr) << dlerror();
    }
    ServerFile(const ServerFile&) = delete;
    ServerFile& operator=(const ServerFile&) = delete;
    ~ServerFile() { dlclose(handle_); }

    template <class Function>
    Function* Entry(const char* name) const {
        auto* entry = reinterpret_cast<Function*>(dlsym(handle_, name));
        EXPECT_NE(entry, nullptr) << name;
        return entry;
    }
    Result Register() const { return Entry<Result()>("DllRegisterServer")(); }
    Result Unregister() const { return Entry<Result()>("DllUnregisterServer")(); }
    Result CanUnload() const { return Entry<Result()>("DllCanUnloadNow")(); }
    Result ClassObject(const Guid& classId, const Guid& interface, void** object) const {
        return Entry<Result(const Guid&, const Guid&, void**)>("DllGetClassObject")(
            classId, interface, object);
    }

    /// True while some handle keeps the file in the process.
    static bool IsLoaded() {
        void* handle = dlopen(TORLIB_SERVER_FILE, RTLD_NOW | RTLD_NOLOAD);
        if (handle) {
            dlclose(handle);
        }
        return handle != nullptr;
    }

  private:
    void* handle_;
};

class RegisteredServer : public testing::Test {
  protected:
    void SetUp() override {
        setenv("TORLIB_REGISTRY", folder_.File("components.reg").c_str(), 1);
        ASSERT_EQ(ServerFile().Register(), Result::Ok);
    }
    void TearDown() override {
        EXPECT_EQ(UnloadFreeServers(), 0) << "nothing of the library is held any longer";
        unsetenv("TORLIB_REGISTRY");
    }

  private:
    TemporaryFolder folder_;
};

} // namespace torlib::test
