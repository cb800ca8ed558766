// The registry's file when somebody else had a hand in it. Most of this must hold for root as well,
// whom no mode of a file keeps out.

#include "torlib/platform/component/registry_file.h"

#include "tests/error_text.h"
#include "tests/temporary_folder.h"

#include "torlib/platform/component/registry.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace torlib {
namespace {

namespace fs = std::filesystem;

class RegistryFiles : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directory(Folder());
        chmod(Folder().c_str(), 0755);
        setenv("TORLIB_REGISTRY", Path().c_str(), 1);
    }
    void TearDown() override { unsetenv("TORLIB_REGISTRY"); }

    std::string Top(const std::string& name) const { return folder_.File(name); }
    std::string Folder() const { return Top("data"); }
    std::string Path() const { return Folder() + "/components.reg"; }

    static void Write(const std::string& path, const std::string& text) {
        std::ofstream(path) << text;
        chmod(path.c_str(), 0644);
    }
    static std::string Text(const std::string& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static unsigned Mode(const std::string& path) {
        struct stat status {};
        stat(path.c_str(), &status);
        return status.st_mode & 07777U;
    }
    static void Register() { RegisterEntries({{"progid", "B", {{"server", "/b.so"}}}}); }
    /// Neither reading nor writing works; both say so with error 75 and the words.
    void ExpectRefusal(const std::string& words) const {
        for (const std::function<void()>& use :
             {std::function<void()>([] { ReadRegistry(); }), std::function<void()>(Register)}) {
            const std::string error = test::ErrorText(use);
            EXPECT_NE(error.find(words), std::string::npos) << words << ": " << error;
            EXPECT_NE(error.find("(error 75)"), std::string::npos) << words << ": " << error;
        }
    }

    const std::string own = "[progid A]\nserver = /a.so\n";

  private:
    test::TemporaryFolder folder_;
};

TEST_F(RegistryFiles, WhatCannotBeReadIsNotAnEmptyRegistryAndStays) {
    const struct {
        const char* what;
        std::function<void()> make;
        const char* words;
    } cases[] = {
        {"a folder", [this] { fs::create_directory(Path()); }, "is not a regular file"},
        {"a pipe that nobody writes", [this] { mkfifo(Path().c_str(), 0644); },
         "is not a regular file"},
        {"a device", [this] { fs::create_symlink("/dev/zero", Path()); }, ""},
        {"a link to itself", [this] { fs::create_symlink(Path(), Path()); }, "leads to no file"},
        {"a file that fails to be read", [this] { fs::create_symlink("/proc/self/mem", Path()); },
         "cannot be "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        c.make();
        const fs::file_type before = fs::symlink_status(Path()).type();
        ExpectRefusal(c.words);
        EXPECT_EQ(fs::symlink_status(Path()).type(), before);
        fs::remove(Path());
    }
    Write(Top("file"), "");
    setenv("TORLIB_REGISTRY", Top("file/components.reg").c_str(), 1);
    ExpectRefusal("is not a folder");
    setenv("TORLIB_REGISTRY", (Folder() + "/" + std::string(300, 'x')).c_str(), 1);
    ExpectRefusal("File name too long");
}

TEST_F(RegistryFiles, OthersMayNotWriteTheFileItsFolderOrALinkToIt) {
    const struct {
        unsigned folder;
        unsigned file;
        const char* words;
    } cases[] = {
        {0755, 0644, nullptr},      {0700, 0600, nullptr},      {01777, 0644, nullptr},
        {0755, 0664, "mode 0664"},  {0755, 0646, "mode 0646"},  {01777, 0666, "mode 0666"},
        {0775, 0644, "its folder"}, {0757, 0644, "its folder"},
    };
    for (const auto& c : cases) {
        Write(Path(), own);
        chmod(Path().c_str(), c.file);
        chmod(Folder().c_str(), c.folder);
        if (c.words) {
            ExpectRefusal(c.words);
            EXPECT_EQ(Text(Path()), own);
        } else {
            EXPECT_EQ(ReadRegistry().size(), 1U);
            Register();
            EXPECT_EQ(ReadRegistry().size(), 2U);
            EXPECT_EQ(Mode(Path()), c.file) << "the mode stays";
        }
    }
    // The folder of a link counts as well as the folder of the file.
    Write(Path(), own);
    chmod(Folder().c_str(), 0755);
    fs::create_directory(Top("open"));
    chmod(Top("open").c_str(), 0777);
    fs::create_symlink(Path(), Top("open/link.reg"));
    setenv("TORLIB_REGISTRY", Top("open/link.reg").c_str(), 1);
    ExpectRefusal("its folder");
}

TEST_F(RegistryFiles, WhatAnotherUserOwnsIsRefused) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can give files away";
    }
    Write(Path(), own);
    ASSERT_EQ(chown(Path().c_str(), 1234, 1234), 0);
    ExpectRefusal("owner 1234");
    ASSERT_EQ(chown(Path().c_str(), 0, 0), 0);
    ASSERT_EQ(chown(Folder().c_str(), 1234, 1234), 0);
    ExpectRefusal("owner 1234");
    ASSERT_EQ(chown(Folder().c_str(), 0, 0), 0);
    EXPECT_EQ(ReadRegistry().size(), 1U);
    // A link that another user planted where everybody may.
    fs::create_directory(Top("sticky"));
    chmod(Top("sticky").c_str(), 01777);
    fs::create_symlink(Path(), Top("sticky/components.reg"));
    ASSERT_EQ(lchown(Top("sticky/components.reg").c_str(), 1234, 1234), 0);
    setenv("TORLIB_REGISTRY", Top("sticky/components.reg").c_str(), 1);
    ExpectRefusal("the link ");
}

TEST_F(RegistryFiles, ANewFolderAndFileAreTheOwnersWhateverTheUmask) {
    const mode_t mask = umask(0);
    setenv("TORLIB_REGISTRY", Top("new/deep/components.reg").c_str(), 1);
    Register();
    umask(mask);
    EXPECT_EQ(ReadRegistry().size(), 1U);
    EXPECT_EQ(Mode(Top("new")), 0755U);
    EXPECT_EQ(Mode(Top("new/deep/components.reg")), 0644U);
}

TEST_F(RegistryFiles, LinksAndOtherNamesOfTheFileStay) {
    Write(Top("real.reg"), own);
    fs::create_symlink("../real.reg", Folder() + "/middle");
    fs::create_symlink("middle", Path());
    Register();
    EXPECT_TRUE(fs::is_symlink(Path()));
    EXPECT_FALSE(fs::is_symlink(Top("real.reg")));
    EXPECT_EQ(ReadRegistry().size(), 2U);
    EXPECT_NE(Text(Top("real.reg")).find("[progid B]"), std::string::npos);

    fs::create_hard_link(Top("real.reg"), Top("other.reg"));
    UnregisterEntries({{"progid", "A", {{"server", "/a.so"}}}});
    EXPECT_EQ(fs::hard_link_count(Top("real.reg")), 2U);
    EXPECT_EQ(Text(Top("other.reg")), Text(Path()));
    EXPECT_EQ(ReadRegistry().size(), 1U);

    fs::remove(Path());
    fs::create_symlink("nothing yet", Path());
    Register();
    EXPECT_TRUE(fs::is_symlink(Path()));
    EXPECT_EQ(ReadRegistry().size(), 1U);
}

TEST_F(RegistryFiles, NothingIsWrittenThroughALinkThatWasPlanted) {
    Write(Path(), own);
    Write(Top("victim"), "precious");
    for (const char* name : {".new", ".new1", ".new2"}) {
        fs::create_symlink(Top("victim"), Path() + name);
    }
    Register();
    EXPECT_EQ(ReadRegistry().size(), 2U);
    EXPECT_EQ(Text(Top("victim")), "precious");
    fs::remove(Path() + ".lock");
    fs::create_symlink(Top("made by the lock"), Path() + ".lock");
    EXPECT_EQ(test::ErrorOf(Register), 75);
    EXPECT_FALSE(fs::exists(Top("made by the lock")));
}

TEST_F(RegistryFiles, AFailedWriteLeavesTheOldFileAndNothingElse) {
    Write(Path(), own);
    for (const bool linked : {false, true}) {
        if (linked) {
            fs::create_hard_link(Path(), Top("other.reg"));
        }
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{own.size() + 5, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const std::string error = test::ErrorText(Register);
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        EXPECT_NE(error.find("cannot be written: File too large"), std::string::npos) << error;
        EXPECT_EQ(Text(Path()), own);
        const auto files = fs::directory_iterator(Folder());
        EXPECT_EQ(std::distance(begin(files), end(files)), 2) << "the registry and its lock";
    }
}

} // namespace
} // namespace torlib
