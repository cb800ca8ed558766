#pragma once
// A small project that tests change line by line.

#include "hosts/slab/project.h"
#include "hosts/slab/system.h"

#include <string>

/// A slab of 4 m x 3 m with every kind of table, one key a line.
inline const std::string& PlainProject() {
    static const std::string text = R"(title = "Test"
[units]
length = "m"
force = "kN"
[mesh]
x = { count = 8, length = 4 }
y = [0.5, [4, 0.5], 0.5]
origin = [1, 2]
[slab]
thickness = 0.3
modulus = 3e7
poisson = 0.2
unit_weight = 25
[[slab.regions]]
name = "thick"
x = [1, 2]
y = [2, 5]
thickness = 0.4
[[loads.uniform]]
pressure = 5
[[loads.patch]]
x = [1.2, 1.7]
y = [2.1, 2.9]
pressure = 40
[[loads.point]]
at = [3.3, 4.1]
force = 100
[[loads.line]]
from = [1.5, 2.5]
to = [4.5, 4.5]
force = 20
[[supports]]
edge = "left"
w = 0
[[springs]]
at = [5, 5]
w = 1000
[soil]
kind = "winkler"
subgrade = 20000
tension = false
[iteration]
accuracy = 0.01
max_cycles = 20
)";
    return text;
}

/// The text with the first occurrence of a line's beginning replaced; empty when it is not there.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t place = text.find(from);
    return place == std::string::npos ? "" : text.replace(place, from.size(), to);
}

inline slab::Model Parsed(const std::string& from, const std::string& to) {
    return slab::ParseProject(Replaced(PlainProject(), from, to), "test.toml");
}

/// The message of the refusal, or "accepted".
inline std::string Refusal(const std::string& text) {
    try {
        slab::OpenProjectText(text, "test.toml");
    } catch (const slab::InputError& error) {
        return error.what();
    }
    return "accepted";
}
