// Writes the resources of the library file at build time: write_resources TYPELIB VERSION.

#include "torlib/frame/type_library.h"
#include "torlib/server/class_list.h"

#include <cstdio>
#include <fstream>
#include <iterator>

namespace {

/// Leaves a file alone that holds the text already, so that what depends on it is not built again.
bool Write(const char* path, const std::string& text) {
    std::ifstream old(path, std::ios::binary);
    if (old && std::string(std::istreambuf_iterator<char>(old), {}) == text) {
        return true;
    }
    std::ofstream file(path, std::ios::binary);
    file << text << std::flush;
    return file.good();
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: write_resources TYPELIB VERSION\n", stderr);
        return 2;
    }
    const bool done = Write(arguments[1], torlib::TypeLibraryText(torlib::BuiltClasses())) &&
                      Write(arguments[2], torlib::VersionText());
    if (!done) {
        std::fputs("write_resources: the files cannot be written\n", stderr);
    }
    return done ? 0 : 1;
}
