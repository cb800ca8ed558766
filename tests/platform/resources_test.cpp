#include "torlib/platform/component/resources.h"

#include "tests/error_text.h"
#include "tests/temporary_folder.h"

#include <elf.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <fstream>

namespace torlib {
namespace {

using test::ErrorOf;

/// A small library file by hand: header, one resource, the names, three section headers.
std::string LibraryImage() {
    const std::string content = "resource text";
    const std::string names("\0.rsrc.KIND.7\0.names\0", 21);
    Elf64_Ehdr header{};
    std::memcpy(header.e_ident, ELFMAG, SELFMAG);
    header.e_ident[EI_CLASS] = ELFCLASS64;
    header.e_ident[EI_DATA] = ELFDATA2LSB;
    header.e_shoff = sizeof header + content.size() + names.size();
    header.e_shentsize = sizeof(Elf64_Shdr);
    header.e_shnum = 3;
    header.e_shstrndx = 2;
    Elf64_Shdr sections[3]{};
    sections[1].sh_name = 1;
    sections[1].sh_type = SHT_PROGBITS;
    sections[1].sh_offset = sizeof header;
    sections[1].sh_size = content.size();
    sections[2].sh_name = 14; // ".names"
    sections[2].sh_type = SHT_STRTAB;
    sections[2].sh_offset = sizeof header + content.size();
    sections[2].sh_size = names.size();
    return std::string(reinterpret_cast<const char*>(&header), sizeof header) + content + names +
           std::string(reinterpret_cast<const char*>(sections), sizeof sections);
}

class Resources : public testing::Test {
  protected:
    std::string Write(const std::string& bytes) const {
        const std::string path = folder_.File("library.so");
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }

  private:
    test::TemporaryFolder folder_;
};

TEST_F(Resources, AreFoundByTypeAndNumber) {
    const std::string path = Write(LibraryImage());
    EXPECT_EQ(FindResource(path, "KIND", 7), "resource text");
    EXPECT_EQ(test::ErrorText([&] { FindResource(path, "KIND", 8); }),
              "the file " + path + " holds no .rsrc.KIND.8 (error 5)");
    EXPECT_EQ(ErrorOf([&] { FindResource(path + "x", "KIND", 7); }), 53);
    EXPECT_EQ(ErrorOf([&] { FindResource(Write("no library"), "KIND", 7); }), 5);
    EXPECT_EQ(ErrorOf([] { FindResource("/", "KIND", 7); }), 5) << "a folder";
}

TEST_F(Resources, ADamagedFileIsAnErrorAtWorst) {
    const std::string whole = LibraryImage();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string path = Write(whole.substr(0, length));
        EXPECT_EQ(ErrorOf([&] { FindResource(path, "KIND", 7); }), 5) << length;
    }
    std::string fewer = whole; // the section of names is beyond the number of sections
    fewer[offsetof(Elf64_Ehdr, e_shnum)] = 2;
    EXPECT_EQ(ErrorOf([&] { FindResource(Write(fewer), "KIND", 7); }), 5);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const char damage : {'\0', '\x7F', '\xFF'}) {
            std::string bytes = whole;
            bytes[at] = damage;
            const std::string path = Write(bytes);
            const int number = ErrorOf([&] { FindResource(path, "KIND", 7); });
            EXPECT_TRUE(number == 0 || number == 5) << at << ": " << number;
        }
    }
}

} // namespace
} // namespace torlib
