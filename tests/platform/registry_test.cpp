#include "torlib/platform/component/registry.h"

#include "tests/error_text.h"
#include "tests/temporary_folder.h"

#include "torlib/platform/component/create_object.h"

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

namespace torlib {
namespace {

using test::ErrorText;

class Registry : public testing::Test {
  protected:
    void SetUp() override { setenv("TORLIB_REGISTRY", Path().c_str(), 1); }
    void TearDown() override { unsetenv("TORLIB_REGISTRY"); }

    std::string Path() const { return folder_.File("deep/components.reg"); }
    void Write(const std::string& text) const {
        std::filesystem::create_directories(std::filesystem::path(Path()).parent_path());
        std::ofstream(Path()) << text;
    }
    static RegistryEntry Entry(const std::string& key, const std::string& server) {
        return {"progid", key, {{"class", "{" + key + "}"}, {"server", server}}};
    }

  private:
    test::TemporaryFolder folder_;
};

TEST_F(Registry, EntriesReadBackReplaceTheirLikeAndLeaveOthersAlone) {
    EXPECT_TRUE(ReadRegistry().empty()) << "no file yet";
    RegisterEntries({Entry("Lib.A", "/one = 1/a b.so"), Entry("Lib.B", "/one.so")});
    RegisterEntries({Entry("Other.A", "/two.so"), Entry("lib.b", "/three.so")});
    const auto entries = ReadRegistry();
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(FindEntry(entries, "progid", "LIB.A")->Value("server"), "/one = 1/a b.so");
    EXPECT_EQ(FindEntry(entries, "progid", "Lib.B")->Value("server"), "/three.so");
    EXPECT_EQ(FindEntry(entries, "class", "Lib.B"), nullptr);
}

TEST_F(Registry, UnregisteringRemovesExactlyTheOwnEntries) {
    RegisterEntries({Entry("Lib.A", "/one.so"), Entry("Lib.B", "/one.so")});
    RegisterEntries({Entry("Lib.B", "/two.so"), Entry("Lib.C", "/two.so")});
    UnregisterEntries({Entry("Lib.A", "/one.so"), Entry("Lib.B", "/one.so")});
    const auto entries = ReadRegistry();
    EXPECT_EQ(entries.size(), 2U);
    EXPECT_EQ(FindEntry(entries, "progid", "Lib.A"), nullptr);
    EXPECT_NE(FindEntry(entries, "progid", "Lib.B"), nullptr) << "another server took it over";
}

TEST_F(Registry, WritersTakeTurnsAndReadersSeeWholeFiles) {
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer) {
        writers.emplace_back([writer] {
            for (int i = 0; i < 10; ++i) {
                const std::string name = std::to_string(writer) + "." + std::to_string(i);
                RegisterEntries({Entry(name, "/" + name)});
                const auto entries = ReadRegistry();
                EXPECT_EQ(FindEntry(entries, "progid", name)->Value("server"), "/" + name);
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    EXPECT_EQ(ReadRegistry().size(), 40U);
}

TEST_F(Registry, AFileThatCannotBeUnderstoodIsNamedWithItsLine) {
    Write("# by hand\n\n[progid A]\nclass = {1}\n");
    EXPECT_EQ(ReadRegistry().at(0).Value("class"), "{1}");
    for (const char* bad : {"[progid A\n", "[progid]\n", "name = 1\n", "[progid A]\nnonsense\n"}) {
        Write(bad);
        EXPECT_NE(ErrorText([] { ReadRegistry(); }).find(Path() + " has the line "),
                  std::string::npos);
    }
    EXPECT_EQ(test::ErrorOf([] { RegisterEntries({Entry("A", "/one\n[progid B]")}); }), 75)
        << "the broken file is not overwritten";
    Write("");
    EXPECT_EQ(test::ErrorOf([] { RegisterEntries({Entry("A", "/one\n[progid B]")}); }), 5);
}

TEST_F(Registry, CreatingSaysWhyThereIsNoObject) {
    RegisterEntries({
        Entry("Lib.Slab", "/nowhere/lib.so"),
        {"progid", "Lib.Real", {{"class", "{7A3C1C02-52D1-4E0E-9D6B-0C415E287001}"}}},
        {"class", "{7A3C1C02-52D1-4E0E-9D6B-0C415E287001}", {{"server", "/nowhere/lib.so"}}},
        {"class", "{7A3C1C02-52D1-4E0E-9D6B-0C415E287002}", {{"server", Path()}}},
    });
    const struct {
        const char16_t* id;
        std::string words;
    } cases[] = {
        {u"Lib.Slap", "not registered in " + Path() + " (did you mean Lib.Slab?)"},
        {u"Lib.Slab", "the class {Lib.Slab} is not registered"},
        {u"Lib.Real", "its server file /nowhere/lib.so does not exist"},
        {u"{7A3C1C02-52D1-4E0E-9D6B-0C415E287001}", "does not exist"},
        {u"{7A3C1C02-52D1-4E0E-9D6B-0C415E287002}", "its server does not load"},
        {u"{7A3C1C02-52D1-4E0E-9D6B-0C415E287003}", "is not registered"},
    };
    for (const auto& c : cases) {
        const std::string text = ErrorText([&c] { CreateObject(c.id); });
        EXPECT_NE(text.find(c.words), std::string::npos) << text;
        EXPECT_NE(text.find("(error 429)"), std::string::npos) << text;
    }
}

} // namespace
} // namespace torlib
