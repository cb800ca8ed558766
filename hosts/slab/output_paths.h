#pragma once
// Where results may be written: not over the project, and no two into one file.

#include <string>
#include <utility>
#include <vector>

namespace slab {

/// The path with symbolic links to files followed, also one that leads nowhere yet.
std::string BehindLinks(const std::string& path);

/// Refuses outputs, {option, path} with "-" for standard output, that would write over the project
/// or over one another, whatever links lead there. Empty paths are no outputs. Throws InputError.
void CheckOutputs(const std::string& project,
                  const std::vector<std::pair<std::string, std::string>>& outputs);

} // namespace slab
