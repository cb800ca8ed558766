#include "torlib/platform/component/resources.h"

#include "torlib/platform/component/run_time_error.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <elf.h>
#include <fstream>

namespace torlib {

namespace {

/// A library file in the 64-bit executable and linkable format; every access is checked against the
/// length of the file, since nothing in a file can be trusted.
class LibraryFile {
  public:
    explicit LibraryFile(const std::string& path) : path_(path), file_(path, std::ios::binary) {
        if (!file_) {
            RaiseError(ErrorNumber::FileNotFound, "the file " + path + " cannot be opened");
        }
        file_.seekg(0, std::ios::end);
        length_ = static_cast<std::uint64_t>(std::max<std::streamoff>(file_.tellg(), 0));
        header_ = Read<Elf64_Ehdr>(0);
        const bool known = std::memcmp(header_.e_ident, ELFMAG, SELFMAG) == 0 &&
                           header_.e_ident[EI_CLASS] == ELFCLASS64 &&
                           header_.e_ident[EI_DATA] == ELFDATA2LSB &&
                           header_.e_shentsize == sizeof(Elf64_Shdr);
        if (!known) {
            RaiseCorrupt("is not a library file of this machine's kind");
        }
    }

    std::string Section(const std::string& name) {
        const std::string names = Content(HeaderOf(header_.e_shstrndx));
        for (std::uint64_t i = 0; i < header_.e_shnum; ++i) {
            const Elf64_Shdr section = HeaderOf(i);
            if (section.sh_name < names.size() &&
                std::strcmp(names.c_str() + section.sh_name, name.c_str()) == 0) {
                return Content(section);
            }
        }
        RaiseCorrupt("holds no " + name);
    }

  private:
    Elf64_Shdr HeaderOf(std::uint64_t index) {
        if (index >= header_.e_shnum || header_.e_shoff > length_) {
            RaiseCorrupt("is damaged");
        }
        return Read<Elf64_Shdr>(header_.e_shoff + index * sizeof(Elf64_Shdr));
    }
    std::string Content(const Elf64_Shdr& section) {
        return section.sh_type == SHT_NOBITS ? "" : Bytes(section.sh_offset, section.sh_size);
    }
    std::string Bytes(std::uint64_t offset, std::uint64_t size) {
        if (offset > length_ || size > length_ - offset) {
            RaiseCorrupt("is cut off or damaged");
        }
        std::string bytes(size, '\0');
        file_.seekg(static_cast<std::streamoff>(offset));
        if (!file_.read(bytes.data(), static_cast<std::streamsize>(size))) {
            RaiseCorrupt("cannot be read");
        }
        return bytes;
    }
    template <class T>
    T Read(std::uint64_t offset) {
        T value;
        std::memcpy(&value, Bytes(offset, sizeof value).data(), sizeof value);
        return value;
    }
    [[noreturn]] void RaiseCorrupt(const std::string& what) const {
        RaiseError(ErrorNumber::InvalidArgument, "the file " + path_ + " " + what);
    }

    std::string path_;
    std::ifstream file_;
    std::uint64_t length_ = 0;
    Elf64_Ehdr header_{};
};

} // namespace

std::string FindResource(const std::string& path, std::string_view type, int number) {
    return LibraryFile(path).Section(".rsrc." + std::string(type) + "." + std::to_string(number));
}

} // namespace torlib
