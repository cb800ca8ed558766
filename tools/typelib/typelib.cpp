// Prints the type library that a library file carries: typelib PATH.

#include "torlib/platform/component/resources.h"

#include <cstdio>
#include <exception>

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: typelib PATH\nPrints the type library of the library file PATH.\n",
                   stderr);
        return 2;
    }
    try {
        std::fputs(torlib::FindResource(arguments[1], "TYPELIB", 1).c_str(), stdout);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "typelib: %s\n", failure.what());
        return 1;
    }
}
