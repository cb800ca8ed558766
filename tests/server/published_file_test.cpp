// What the library file shows to the outside: its symbols and its resources. The listing of the
// type library is pinned; after a wanted change of the public surface record it anew with
//
//     TORLIB_RECORD=1 ctest -R PublishedFile

#include "torlib/platform/component/resources.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>

namespace torlib {
namespace {

/// The symbols that the library file defines for others, demangled.
std::set<std::string> ExportedSymbols() {
    std::FILE* listing = popen(TORLIB_NM " -D -C --defined-only " TORLIB_SERVER_FILE, "r");
    std::set<std::string> symbols;
    char line[4096];
    while (listing && std::fgets(line, sizeof line, listing)) {
        const std::string text(line);
        if (text.size() > 20) {
            symbols.insert(text.substr(19, text.find('\n') - 19)); // address, blank, kind, blank
        }
    }
    EXPECT_EQ(pclose(listing), 0);
    return symbols;
}

TEST(PublishedFile, ExportsTheFourEntryPointsAndTheLibrarysOwnNames) {
    std::set<std::string> others;
    std::size_t own = 0;
    for (const std::string& symbol : ExportedSymbols()) {
        const bool ours = symbol.starts_with("torlib::") ||
                          symbol.starts_with("typeinfo for torlib::") ||
                          symbol.starts_with("typeinfo name for torlib::") ||
                          symbol.starts_with("vtable for torlib::");
        ours ? void(++own) : void(others.insert(symbol));
    }
    EXPECT_EQ(others, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject",
                                             "DllRegisterServer", "DllUnregisterServer"}));
    EXPECT_GT(own, 100U) << "what the C++ headers need is there";
}

TEST(PublishedFile, CarriesTheTypeLibraryThatIsPinned) {
    const std::string listing = FindResource(TORLIB_SERVER_FILE, "TYPELIB", 1);
    if (std::getenv("TORLIB_RECORD")) {
        std::ofstream(TORLIB_GOLDEN_TYPELIB, std::ios::binary) << listing;
    }
    std::ifstream file(TORLIB_GOLDEN_TYPELIB, std::ios::binary);
    const std::string pinned(std::istreambuf_iterator<char>(file), {});
    EXPECT_EQ(listing, pinned) << "a wanted change is recorded by: TORLIB_RECORD=1 ctest -R "
                                  "PublishedFile";
}

TEST(PublishedFile, IsMarkedAsRegisteringItself) {
    const std::string version = FindResource(TORLIB_SERVER_FILE, "VERSION", 1);
    EXPECT_NE(version.find("OLESelfRegister"), std::string::npos);
    EXPECT_NE(version.find("FileVersion = 74.1\n"), std::string::npos);
}

} // namespace
} // namespace torlib
