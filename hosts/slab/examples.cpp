// The examples as part of the program.

#include "hosts/slab/project.h"

namespace slab {

namespace {

/// The comment at the head of an example says what it shows.
std::string LeadingComment(const std::string& text) {
    std::string purpose;
    std::size_t start = 0;
    while (start < text.size() && text[start] == '#') {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const std::size_t first = text.find_first_not_of("# ", start);
        if (first < end) {
            purpose += (purpose.empty() ? "" : " ") + text.substr(first, end - first);
        }
        start = end + 1;
    }
    return purpose;
}

std::vector<Example> AllExamples() {
    const struct {
        const char* Name;
        std::string Text;
    } texts[] = {
#include SLAB_EXAMPLE_TEXTS
    };
    std::vector<Example> examples;
    for (const auto& [name, text] : texts) {
        examples.push_back({name, LeadingComment(text), text});
    }
    return examples;
}

} // namespace

const std::vector<Example>& Examples() {
    static const std::vector<Example> examples = AllExamples();
    return examples;
}

} // namespace slab
