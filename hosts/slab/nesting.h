#pragma once
// A look at a project's text before it is parsed.

#include "hosts/slab/key_table.h"

namespace slab {

/// Refuses a text whose keys or brackets nest deeper than any project's: the parser, and whoever
/// walks its tables, takes a piece of the stack for every level. Throws InputError.
void RefuseDeepNesting(const std::string& text, const SourceFile& file);

} // namespace slab
