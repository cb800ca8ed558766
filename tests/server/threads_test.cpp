// The contract of docs/threads.md: what may run in several threads at once.

#include "tests/error_text.h"
#include "tests/temporary_folder.h"

#include "torlib/fem/fem_class.h"
#include "torlib/frame/class_object.h"
#include "torlib/frame/companion_services.h"
#include "torlib/frame/run_state.h"
#include "torlib/platform/component/registry.h"
#include "torlib/platform/windows/events.h"
#include "torlib/server/class_list.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstring>
#include <functional>
#include <latch>
#include <thread>
#include <vector>

namespace torlib {
namespace {

constexpr std::size_t thread_count = 4;

/// Runs a task in several threads that begin together.
void InThreads(const std::function<void(std::size_t)>& task) {
    std::latch start(thread_count);
    std::vector<std::thread> threads;
    threads.reserve(thread_count);
    for (std::size_t i = 0; i < thread_count; ++i) {
        threads.emplace_back([&task, &start, i] {
            start.arrive_and_wait();
            task(i);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// A beam on springs, in the band form of the solver; the seed makes each system another one.
struct System {
    explicit System(std::size_t number) {
        const int seed = static_cast<int>(number);
        for (int n = 1; n <= equations; ++n) {
            for (int l = 1; l <= width && n + l - 1 <= equations; ++l) {
                A(n, l) = l == 1 ? 10 + (n * seed) % 7 : -1.0 / (l + seed);
            }
            Q(n) = (n + seed) % 11;
        }
    }
    std::string Bits() const {
        return std::string(reinterpret_cast<const char*>(Q.Data()), Q.Size() * sizeof(Single));
    }

    static constexpr int equations = 120, width = 45; // wide enough for the fast kernels
    Array<Single> A{Bounds{1, equations + width - 1}, Bounds{1, width}};
    Array<Single> Q{Bounds{1, equations + width - 1}};
};

TEST(Threads, SolvingOnSeparateArraysGivesTheBitsOfOneThread) {
    std::vector<std::string> alone;
    for (std::size_t seed = 0; seed < thread_count; ++seed) {
        System system(seed);
        FEM_Class().SolveMatrix(System::width, System::equations, system.A, system.Q);
        alone.push_back(system.Bits());
    }
    std::atomic<int> same = 0;
    InThreads([&](std::size_t seed) {
        for (int round = 0; round < 10; ++round) {
            System early(seed), late(seed);
            FEM_Class().SolveMatrix(System::width, System::equations, early.A, early.Q);
            NewObject(FEM_Class::Info())
                .Invoke(u"SolveMatrix",
                        {System::width, System::equations, ByRef(late.A), ByRef(late.Q)});
            same += early.Bits() == alone[seed] && late.Bits() == alone[seed] ? 1 : 0;
        }
    });
    EXPECT_EQ(same, 10 * thread_count);
}

TEST(Threads, AnErrorNamesTheMemberOfItsOwnThread) {
    std::atomic<int> right = 0;
    InThreads([&right](std::size_t i) {
        const ClassInfo& info = *BuiltClasses()[i];
        const std::string wanted = ToUtf8(info.Name) + ".None: ";
        for (int round = 0; round < 100; ++round) {
            const Object shared = DefaultObject(info);
            right += test::ErrorText([&] { shared.Invoke(u"None"); }).starts_with(wanted) ? 1 : 0;
        }
    });
    EXPECT_EQ(right, 100 * thread_count);
}

TEST(Threads, ACancelOfAnotherThreadStopsASolver) {
    std::atomic<bool> cancelled = false;
    std::thread solving([&cancelled] {
        while (!cancelled) {
            System system(1);
            cancelled =
                FEM_Class().SolveMatrix(System::width, System::equations, system.A, system.Q);
        }
    });
    RequestCancel({});
    solving.join();
    ExitControlState() = ExitRunning;
    EXPECT_TRUE(cancelled);
}

TEST(Threads, PostEventsWhileAnotherPolls) {
    constexpr int posters = 4, each = 20000;
    std::array<std::atomic<int>, posters> last{};
    std::atomic<int> ran = 0, disorder = 0, still = posters;
    std::vector<std::thread> threads;
    for (int p = 0; p < posters; ++p) {
        threads.emplace_back([&, p] {
            for (int i = 1; i <= each; ++i) {
                PostEvent([&, p, i] {
                    disorder += last[p].exchange(i) != i - 1;
                    ++ran;
                });
                if (i % 64 == 0) {
                    RemoveEventSource(AddEventSource([] {}));
                }
            }
            --still;
        });
    }
    while (still != 0 || ran != posters * each) {
        DoEvents();
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(disorder, 0);

    // Two that poll at once: each event runs once.
    ran = 0;
    for (int i = 0; i < each; ++i) {
        PostEvent([&] { ++ran; });
    }
    std::thread second([] { DoEvents(); });
    DoEvents();
    second.join();
    EXPECT_EQ(ran, each);
}

TEST(Threads, ThatUseTheCompanionsFirstGetTheSameOnes) {
    for (int round = 0; round < 200; ++round) {
        CompanionObjects companions;
        std::array<const void*, 3 * thread_count> found{};
        InThreads([&](std::size_t i) {
            found[3 * i] = &companions.Language();
            found[3 * i + 1] = &companions.Utility();
            found[3 * i + 2] = &companions.Drawing();
        });
        for (std::size_t i = 3; i < found.size(); ++i) {
            ASSERT_EQ(found[i], found[i - 3]) << round;
        }
    }
}

TEST(Threads, PostEventsAndPollWhileTheUserInterfaceThreadAloneRunsThem) {
    constexpr int each = 500;
    const UserInterfaceThread here;
    int runs = 0; // not atomic: two threads that ran events would be seen by the sanitizer
    std::atomic<std::size_t> posting = thread_count;
    std::thread posters([&] {
        InThreads([&](std::size_t) {
            for (int i = 0; i < each; ++i) {
                PostEvent([&runs] { ++runs; });
                CheckCancelRequest({});
            }
            --posting;
        });
    });
    while (posting > 0) {
        CheckCancelRequest({});
    }
    posters.join();
    DoEvents();
    EXPECT_EQ(runs, each * static_cast<int>(thread_count));
}

TEST(Threads, WriteTheRegistryInTurnsAndReadItWhole) {
    const test::TemporaryFolder folder;
    setenv("TORLIB_REGISTRY", folder.File("components.reg").c_str(), 1);
    std::atomic<int> found = 0;
    InThreads([&found](std::size_t writer) {
        for (int i = 0; i < 10; ++i) {
            const std::string name = std::to_string(writer) + "." + std::to_string(i);
            RegisterEntries({{"progid", name, {{"server", "/" + name}}}});
            const auto entries = ReadRegistry();
            const RegistryEntry* own = FindEntry(entries, "progid", name);
            found += own && own->Value("server") == "/" + name ? 1 : 0;
        }
    });
    EXPECT_EQ(found, 10 * thread_count);
    EXPECT_EQ(ReadRegistry().size(), 10 * thread_count);
    unsetenv("TORLIB_REGISTRY");
}

} // namespace
} // namespace torlib
