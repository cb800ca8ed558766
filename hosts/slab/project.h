#pragma once
// The project of a slab: checking it, and turning it into an analysis model.

#include "hosts/slab/model.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace slab {

/// A fault of the input: what() reads "file:line:column: key: message (allowed range)".
class InputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class ProjectFile;

/// Checks the project of a slab and builds its model. Throws InputError.
Model ReadSlabProject(const ProjectFile& file);

/// The same for a text; `name` stands for the file in messages.
Model ParseProject(const std::string& text, const std::string& name);

/// Names of the examples that are built in, with a sentence each.
struct Example {
    std::string Name;
    std::string Purpose;
    std::string Text;
};
const std::vector<Example>& Examples();

} // namespace slab
