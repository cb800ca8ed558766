// Objects by identifier where more than one server, thread or process is at work.

#include "torlib/platform/component/create_object.h"

#include "tests/error_text.h"
#include "tests/host_window.h"
#include "tests/server/registered_server.h"

#include "torlib/fem/fem_class.h"
#include "torlib/frame/class_object.h"
#include "torlib/platform/clock.h"
#include "torlib/platform/component/registry.h"

#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace torlib {
namespace {

constexpr const char* nest_id = "{51D3A011-0000-0000-0000-000000000000}";

class CreatedObjects : public test::RegisteredServer {
  protected:
    void SetUp() override {
        RegisteredServer::SetUp();
        RegisterEntries({{"class", nest_id, {{"server", TORLIB_NESTING_SERVER_FILE}}},
                         {"progid", "Test.Nest", {{"class", nest_id}}}});
    }
};

TEST_F(CreatedObjects, AServerMayCreateObjectsWhileItLoadsAndWhileItMakesOne) {
    const Object nest = CreateObject(u"Test.Nest");
    EXPECT_TRUE(nest.Invoke(u"CreatedWhileLoading").ToBoolean());
    EXPECT_EQ(ToUtf8(nest.Invoke(u"Blanks", {3}).ToText()), "   ");
}

TEST_F(CreatedObjects, TheDefaultInstanceIsTheOneThatTheServersOwnCodeUses) {
    test::HostWindow window;
    const Object form = window.Reference();
    double now = 100;
    ReplaceClock([&now] { return now; });
    Default<FEM_Class>().ProgressBarValue(form, 1, form); // step 1 starts the instance's clock
    now = 160;
    const auto remaining = [&](const Object& fem) {
        window.Take();
        fem.Invoke(u"ProgressBarValue", {form, 6, form});
        const std::string log = window.Take();
        const auto at = log.find("Remaining time: ");
        return at == std::string::npos ? log : log.substr(at + 16, 8);
    };
    const Object shared = DefaultObject(u"TORVALib.FEM_Class");
    EXPECT_EQ(remaining(shared), "00:00:10") << "one of seven steps is left";
    EXPECT_EQ(remaining(CreateObject(u"TORVALib.FEM_Class")), "00:00:27")
        << "an instance of its own started at midnight";
    shared.Invoke(u"ProgressBarValue", {form, 1, form});
    now = 220;
    EXPECT_EQ(remaining(DefaultObject(FEM_Class::Info())), "00:00:10");
    ReplaceClock({});
}

TEST_F(CreatedObjects, AClassWithoutADefaultInstanceSaysSo) {
    EXPECT_EQ(test::ErrorText([] { DefaultObject(u"Test.Nest"); }),
              "cannot create Test.Nest: the server " TORLIB_NESTING_SERVER_FILE
              " offers no default instance (error 429)");
}

TEST_F(CreatedObjects, NoServerIsUnloadedByOneThreadWhileAnotherMakesItsFirstObject) {
    for (int round = 0; round < 50; ++round) {
        std::atomic<bool> made = false;
        std::thread unloading([&made] {
            while (!made) {
                UnloadFreeServers();
            }
        });
        std::vector<Object> nests(2);
        std::thread second([&nests] { nests[0] = CreateObject(u"Test.Nest"); });
        nests[1] = CreateObject(u"Test.Nest");
        second.join();
        made = true;
        unloading.join();
        for (const Object& nest : nests) {
            ASSERT_EQ(ToUtf8(nest.Invoke(u"Blanks", {1}).ToText()), " ") << round;
        }
    }
}

TEST_F(CreatedObjects, AForkedChildCreatesObjectsThoughAThreadOfItsParentWasAtIt) {
    std::atomic<bool> done = false;
    std::thread creating([&done] {
        while (!done) {
            CreateObject(u"Test.Nest");
            UnloadFreeServers();
        }
    });
    int finished = 0;
    const int children = 50;
    for (int i = 0; i < children; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(20); // ends a child that hangs
            _exit(CreateObject(u"TORVALib.Math_Class") ? 0 : 1);
        }
        int status = -1;
        waitpid(child, &status, 0);
        finished += status == 0 ? 1 : 0;
    }
    done = true;
    creating.join();
    EXPECT_EQ(finished, children);
}

} // namespace
} // namespace torlib
