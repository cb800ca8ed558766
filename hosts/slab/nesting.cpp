#include "hosts/slab/nesting.h"

#include <algorithm>

namespace slab {

namespace {

constexpr int MostBrackets = 32;
constexpr int MostNames = 32;

/// Walks over a text, past comments and strings, and counts what nests.
class NestingScan {
  public:
    NestingScan(const std::string& text, const SourceFile& file) : text_(text), file_(file) {}

    void Run() {
        while (place_ < text_.size()) {
            const char c = text_[place_];
            if (c == '#') {
                place_ = std::min(text_.find('\n', place_), text_.size());
            } else if (c == '"' || c == '\'') {
                SkipString(c);
            } else {
                Count(c);
                Advance();
            }
        }
    }

  private:
    void Advance() {
        if (text_[place_++] == '\n') {
            ++line_;
            lineStart_ = place_;
        }
    }

    void Count(char c) {
        if (c == '[' || c == '{') {
            Refuse(++brackets_ > MostBrackets, "brackets", MostBrackets);
        } else if ((c == ']' || c == '}') && brackets_ > 0) {
            --brackets_;
        }
        if (c == '.') {
            // A dot joins two names of a key, or stands in a number.
            Refuse(++dots_ >= MostNames, "names of a key", MostNames);
        } else if (c == '=' || c == ',' || c == '\n' || c == '[' || c == '{') {
            dots_ = 0;
        }
    }

    /// Moves behind a string, or to the end of the line that leaves it open.
    void SkipString(char quote) {
        const std::string three(3, quote);
        const bool longText = text_.compare(place_, 3, three) == 0;
        place_ += longText ? 3 : 1;
        while (place_ < text_.size()) {
            if (text_[place_] == '\\' && quote == '"' && place_ + 1 < text_.size()) {
                ++place_;
            } else if (longText ? text_.compare(place_, 3, three) == 0 : text_[place_] == quote) {
                place_ += longText ? 3 : 1;
                // Up to two quotes before the closing three belong to the text.
                for (int i = 0; longText && i < 2 && text_[place_] == quote; ++i) {
                    ++place_;
                }
                return;
            }
            if (text_[place_] == '\n' && !longText) {
                return;
            }
            Advance();
        }
    }

    void Refuse(bool tooDeep, const char* what, int most) const {
        if (tooDeep) {
            toml::source_region region;
            region.begin = {static_cast<toml::source_index>(line_),
                            static_cast<toml::source_index>(place_ - lineStart_ + 1)};
            FailAt(file_, region, "",
                   std::string("nests too many ") + what + " (allowed: up to " +
                       std::to_string(most) + ")");
        }
    }

    const std::string& text_;
    const SourceFile& file_;
    std::size_t place_ = 0;
    std::size_t line_ = 1;
    std::size_t lineStart_ = 0;
    int brackets_ = 0;
    int dots_ = 0;
};

} // namespace

void RefuseDeepNesting(const std::string& text, const SourceFile& file) {
    NestingScan(text, file).Run();
}

} // namespace slab
