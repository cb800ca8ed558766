#pragma once
// Checked access to the keys of a project file: each value knows its place in the file, so that
// every refusal can name file, line, column, key and allowed range.
//
//     const KeyTable soil = root.Table("soil");
//     soil.Allow({"kind", "modulus", "poisson"});
//     const double nu = soil.Get("poisson").Number(Between(0, 0.5));

#include "hosts/slab/model.h"
#include "hosts/slab/project.h"

#include <toml++/toml.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace slab {

/// The range of a number in the units of the file.
struct AllowedRange {
    double Least = 0;
    double Greatest = 0;
    bool WithoutLeast = false; ///< the least value itself is not allowed
};

/// Sizes beyond these, but for 0, have no meaning in any unit and would not survive 32 bits.
constexpr double SmallestNumber = 1e-15;
constexpr double LargestNumber = 1e15;

constexpr AllowedRange Any{-LargestNumber, LargestNumber, false};
constexpr AllowedRange Positive{0, LargestNumber, true};
constexpr AllowedRange NotNegative{0, LargestNumber, false};
constexpr AllowedRange Between(double least, double greatest) {
    return {least, greatest, false};
}

/// A number as short as it can be written.
std::string ShortNumber(double value);

/// Follows the reading of a project: step 1..steps of the tables [[list]], or 0 of 0 between
/// such steps. May throw to end the reading.
using ReadingProgress = std::function<void(const std::string& list, int step, int steps)>;

/// The file that keys belong to.
struct SourceFile {
    std::string Name;
    ReadingProgress Progress; ///< may be empty

    void Poll(const std::string& list = "", int step = 0, int steps = 0) const {
        if (Progress) {
            Progress(list, step, steps);
        }
    }
};

class KeyTable;

/// A value of the file with its place and its full name, such as "mesh.x[3]".
class Entry {
  public:
    Entry(const toml::node& node, std::string name, const SourceFile& file)
        : node_(&node), name_(std::move(name)), file_(&file) {}

    double Number(const AllowedRange& bounds) const;
    int WholeNumber(int least, int greatest) const;
    bool Flag() const;
    std::string Text() const;
    /// The place of the text in a list of allowed words.
    std::size_t Choice(const std::vector<std::string>& words) const;
    /// Two numbers, [x, y].
    Point Pair() const;
    bool IsList() const { return node_->is_array(); }
    bool IsText() const { return node_->is_string(); }
    bool IsTable() const { return node_->is_table(); }
    /// The values of a list, of a given length unless `length` is 0.
    std::vector<Entry> List(std::size_t length = 0) const;
    KeyTable Table() const;

    [[noreturn]] void Fail(const std::string& message) const;

  private:
    [[noreturn]] void FailType(const char* wanted) const;

    const toml::node* node_;
    std::string name_;
    const SourceFile* file_;
};

/// A table of the file. The file must outlive it.
class KeyTable {
  public:
    KeyTable(const toml::table& table, std::string name, const SourceFile& file)
        : table_(&table), name_(std::move(name)), file_(&file) {}

    /// Refuses every key that is not listed, with the names it may have meant. Every reader of a
    /// table starts with it, so this is where the progress of reading is told, too.
    void Allow(const std::vector<std::string>& keys) const;
    bool Has(std::string_view key) const { return table_->contains(key); }
    Entry Get(std::string_view key) const;
    std::optional<Entry> Find(std::string_view key) const;
    KeyTable Table(std::string_view key) const { return Get(key).Table(); }
    /// The tables [[key]], none when the key is missing.
    std::vector<KeyTable> Tables(std::string_view key) const;
    double NumberOr(std::string_view key, const AllowedRange& bounds, double otherwise) const;
    /// Refuses the table unless exactly one of the keys is there; gives that key.
    std::string OneOf(const std::vector<std::string>& keys) const;

    /// Lets the reading be ended between steps that take long.
    void Poll() const { file_->Poll(); }

    [[noreturn]] void Fail(const std::string& message) const;

  private:
    std::string FullName(std::string_view key) const;

    const toml::table* table_;
    std::string name_;
    const SourceFile* file_;
    std::string list_; ///< the name of the tables [[list]] of which this is number_ of count_
    int number_ = 0;
    int count_ = 0;
};

/// The place of the text among things that have a name; the first of that name.
template <class Named>
std::size_t ChoiceByName(const Entry& entry, const std::vector<Named>& things) {
    const std::string text = entry.Text();
    const auto found = std::find_if(things.begin(), things.end(),
                                    [&text](const Named& thing) { return thing.Name == text; });
    if (found != things.end()) {
        return static_cast<std::size_t>(found - things.begin());
    }
    std::vector<std::string> names;
    for (const Named& thing : things) {
        names.push_back(thing.Name);
    }
    return entry.Choice(names);
}

/// "file:line:column: key: message" as an InputError.
[[noreturn]] void FailAt(const SourceFile& file, const toml::source_region& place,
                         const std::string& key, const std::string& message);

} // namespace slab
