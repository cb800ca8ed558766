#include "torlib/platform/component/registry.h"

#include "tests/error_text.h"
#include "tests/temporary_folder.h"

#include "torlib/platform/component/create_object.h"

#include <gtest/gtest.h>

#include <fstream>

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
    std::string Text() const {
        std::ifstream file(Path());
        return {std::istreambuf_iterator<char>(file), {}};
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

TEST_F(Registry, ADamagedLineIsToldAndLeavesTheRestUsable) {
    const struct {
        const char* text;
        const char* damage;
        std::size_t entries;
    } cases[] = {
        {"# by hand\n\n[progid A]\nclass = {1}\n[progid B]\n", "", 2},
        {"[progid A]\r\nclass = {1}\r\n", "", 1},
        {"[progid B\nserver = /b.so\n[progid A]\nclass = {1}\n", "line 1", 1},
        {"[progid A]\nclass = {1}\n\n[progid]\nclass = {2}\n", "line 4", 1},
        {"[progid A]\nclass = {1}\n[ B]\nclass = {2}\n", "line 3", 1},
        {"name = 1\n[progid A]\nclass = {1}\n", "line 1", 1},
        {"[progid A]\nclass {2}\nclass = {1}\n", "line 2", 1},
    };
    for (const auto& c : cases) {
        Write(c.text);
        std::vector<std::string> damage;
        const auto entries = ReadRegistry(&damage);
        EXPECT_EQ(entries.size(), c.entries) << c.text;
        const RegistryEntry* A = FindEntry(entries, "progid", "A");
        ASSERT_NE(A, nullptr) << c.text;
        EXPECT_EQ(A->Value("class"), "{1}") << c.text;
        EXPECT_EQ(damage.size(), *c.damage ? 1U : 0U) << c.text;
        const std::string error = ErrorText([] { CreateObject(u"B"); });
        EXPECT_EQ(error.find(std::string("; ") + c.damage + " is neither") != std::string::npos,
                  *c.damage != '\0')
            << error;
    }
}

TEST_F(Registry, WhatNobodyChangesStaysAsItWasWritten) {
    const std::string own = "# mine\n\n[progid  A]\n# why\nclass={1}\ndamaged\n\n# of B\n";
    Write(own + "[progid B]\nserver = /b.so\n# end");
    RegisterEntries({Entry("C", "/c.so")});
    const std::string added = "\n[progid C]\nclass = {C}\nserver = /c.so\n";
    EXPECT_EQ(Text(), own + "[progid B]\nserver = /b.so\n# end\n" + added);
    UnregisterEntries({{"progid", "B", {{"server", "/b.so"}}}});
    EXPECT_EQ(Text(), "# mine\n\n[progid  A]\n# why\nclass={1}\ndamaged\n# end\n" + added);
    for (const char* start : {"", "nonsense\n", "[progid C]\n", "\n\n[progid D]\n", "# c\n"}) {
        Write(start);
        RegisterEntries({Entry("C", "/c.so")});
        const std::string once = Text();
        RegisterEntries({Entry("C", "/c.so")});
        EXPECT_EQ(Text(), once) << "registering again changes nothing: " << start;
    }
}

TEST_F(Registry, WhatWouldReadBackAsSomethingElseIsRefused) {
    const RegistryEntry refused[] = {
        {"prog id", "A", {}},
        {"progid]", "A", {}},
        {"", "A", {}},
        {"progid", "", {}},
        {"progid", "A]\n[progid B", {}},
        {"progid", "A\rB", {}},
        {"progid", "A ", {}},
        {"progid", "\tA", {}},
        {"progid", "[A", {}},
        {"progid", "A", {{"server\n", "/a"}}},
        {"progid", "A", {{"[server", "/a"}}},
        {"progid", "A", {{"#server", "/a"}}},
        {"progid", "A", {{"ser=ver", "/a"}}},
        {"progid", "A", {{"", "/a"}}},
        {"progid", "A", {{"server", "/a\n[progid B]"}}},
        {"progid", "A", {{"server", "/a "}}},
        {"progid", "A", {{"server", std::string("/a\0b", 4)}}},
    };
    for (const RegistryEntry& entry : refused) {
        EXPECT_EQ(test::ErrorOf([&] { RegisterEntries({entry}); }), 5) << entry.Key;
        EXPECT_FALSE(std::filesystem::exists(Path()));
    }
    RegisterEntries({{"progid", "A (1) = #", {{"server", "/[a] = #"}, {"empty", ""}}}});
    const auto entries = ReadRegistry();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].Key, "A (1) = #");
    EXPECT_EQ(entries[0].Value("server"), "/[a] = #");
}

TEST_F(Registry, CreatingSaysWhyThereIsNoObject) {
    RegisterEntries({
        Entry("Lib.Slab", "/nowhere/lib.so"),
        {"progid", "Lib.Real", {{"class", "{7A3C1C02-52D1-4E0E-9D6B-0C415E287001}"}}},
        {"class", "{7A3C1C02-52D1-4E0E-9D6B-0C415E287001}", {{"server", "/nowhere/lib.so"}}},
        {"class", "{7A3C1C02-52D1-4E0E-9D6B-0C415E287002}", {{"server", Path()}}},
        {"class", "{7A3C1C02-52D1-4E0E-9D6B-0C415E287004}", {}},
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
        {u"{7A3C1C02-52D1-4E0E-9D6B-0C415E287004}", "has no server file"},
    };
    for (const auto& c : cases) {
        const std::string text = ErrorText([&c] { CreateObject(c.id); });
        EXPECT_NE(text.find(c.words), std::string::npos) << text;
        EXPECT_NE(text.find("(error 429)"), std::string::npos) << text;
    }
}

} // namespace
} // namespace torlib
