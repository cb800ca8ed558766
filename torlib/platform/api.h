#pragma once
// Visibility of the symbols that a C++ program may link against; everything else stays inside the
// library.
#define TORLIB_API __attribute__((visibility("default")))
