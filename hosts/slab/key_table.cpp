#include "hosts/slab/key_table.h"

#include "torlib/platform/component/nearest_names.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace slab {

namespace {

/// Keeps the time to read any file within bounds.
constexpr std::size_t MostTables = 10000;
/// Values of a long list between two polls.
constexpr std::size_t PollEvery = 4096;

std::string Listed(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

std::string Described(const AllowedRange& bounds) {
    const std::string least = ShortNumber(bounds.Least);
    if (bounds.Greatest < LargestNumber) {
        return "allowed: " + least + " to " + ShortNumber(bounds.Greatest);
    }
    return bounds.WithoutLeast ? "allowed: greater than " + least : "allowed: at least " + least;
}

} // namespace

std::string ShortNumber(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.7g", value);
    return text;
}

void FailAt(const SourceFile& file, const toml::source_region& place, const std::string& key,
            const std::string& message) {
    std::string text = file.Name;
    if (place.begin.line > 0) {
        text += ':' + std::to_string(place.begin.line) + ':' + std::to_string(place.begin.column);
    }
    throw InputError(text + ": " + (key.empty() ? "" : key + ": ") + message);
}

double Entry::Number(const AllowedRange& bounds) const {
    if (!node_->is_number()) {
        FailType("a number");
    }
    const double value = node_->value<double>().value_or(std::nan(""));
    if (!std::isfinite(value)) {
        Fail("must be a finite number");
    }
    const double size = std::fabs(value);
    if (size > LargestNumber || (size > 0 && size < SmallestNumber)) {
        Fail(ShortNumber(value) +
             " is out of all proportion (allowed: sizes from 1e-15 to 1e+15, or 0)");
    }
    if (value < bounds.Least || value > bounds.Greatest ||
        (bounds.WithoutLeast && value == bounds.Least)) {
        Fail("is " + ShortNumber(value) + " (" + Described(bounds) + ")");
    }
    return value;
}

int Entry::WholeNumber(int least, int greatest) const {
    const auto value = node_->value_exact<std::int64_t>();
    if (!value) {
        FailType("a whole number");
    }
    if (*value < least || *value > greatest) {
        Fail("is " + std::to_string(*value) + " (allowed: " + std::to_string(least) + " to " +
             std::to_string(greatest) + ")");
    }
    return static_cast<int>(*value);
}

bool Entry::Flag() const {
    const auto value = node_->value_exact<bool>();
    if (!value) {
        FailType("true or false");
    }
    return *value;
}

std::string Entry::Text() const {
    const auto value = node_->value_exact<std::string>();
    if (!value) {
        FailType("a text");
    }
    return *value;
}

std::size_t Entry::Choice(const std::vector<std::string>& words) const {
    const std::string text = Text();
    const auto found = std::find(words.begin(), words.end(), text);
    if (found == words.end()) {
        Fail("\"" + text + "\" is not known" + torlib::Suggestion(text, words) +
             " (allowed: " + Listed(words) + ")");
    }
    return static_cast<std::size_t>(found - words.begin());
}

Point Entry::Pair() const {
    const std::vector<Entry> items = List(2);
    return {items[0].Number(Any), items[1].Number(Any)};
}

std::vector<Entry> Entry::List(std::size_t length) const {
    const toml::array* array = node_->as_array();
    if (array == nullptr) {
        FailType("a list");
    }
    if (length != 0 && array->size() != length) {
        Fail("has " + std::to_string(array->size()) +
             " values (allowed: " + std::to_string(length) + ")");
    }
    std::vector<Entry> items;
    items.reserve(array->size());
    for (std::size_t i = 0; i < array->size(); ++i) {
        if (i % PollEvery == PollEvery - 1) {
            file_->Poll();
        }
        items.emplace_back((*array)[i], name_ + '[' + std::to_string(i + 1) + ']', *file_);
    }
    return items;
}

KeyTable Entry::Table() const {
    const toml::table* table = node_->as_table();
    if (table == nullptr) {
        FailType("a table");
    }
    return {*table, name_, *file_};
}

void Entry::Fail(const std::string& message) const {
    FailAt(*file_, node_->source(), name_, message);
}

void Entry::FailType(const char* wanted) const {
    const char* given = "a date or time";
    switch (node_->type()) {
        case toml::node_type::table:
            given = "a table";
            break;
        case toml::node_type::array:
            given = "a list";
            break;
        case toml::node_type::string:
            given = "a text";
            break;
        case toml::node_type::integer:
            given = "a whole number";
            break;
        case toml::node_type::floating_point:
            given = "a number";
            break;
        case toml::node_type::boolean:
            given = "true or false";
            break;
        default:
            break;
    }
    Fail(std::string("must be ") + wanted + ", but is " + given);
}

void KeyTable::Allow(const std::vector<std::string>& keys) const {
    file_->Poll(list_, number_, count_);
    for (const auto& [key, node] : *table_) {
        if (std::find(keys.begin(), keys.end(), key.str()) == keys.end()) {
            FailAt(*file_, key.source(), FullName(key.str()),
                   "is not a key of this table" + torlib::Suggestion(key.str(), keys) +
                       " (allowed: " + Listed(keys) + ")");
        }
    }
}

Entry KeyTable::Get(std::string_view key) const {
    const toml::node* node = table_->get(key);
    if (node == nullptr) {
        FailAt(*file_, table_->source(), FullName(key), "is missing");
    }
    return {*node, FullName(key), *file_};
}

std::optional<Entry> KeyTable::Find(std::string_view key) const {
    return Has(key) ? std::optional<Entry>(Get(key)) : std::nullopt;
}

std::vector<KeyTable> KeyTable::Tables(std::string_view key) const {
    std::vector<KeyTable> tables;
    if (Has(key)) {
        if (!Get(key).IsList()) {
            Get(key).Fail("must be a list of tables: write [[" + FullName(key) + "]]");
        }
        const std::vector<Entry> items = Get(key).List();
        if (items.size() > MostTables) {
            Get(key).Fail("has " + std::to_string(items.size()) + " tables (allowed: up to " +
                          std::to_string(MostTables) + ")");
        }
        tables.reserve(items.size());
        for (const Entry& item : items) {
            tables.push_back(item.Table());
            tables.back().list_ = FullName(key);
            tables.back().number_ = static_cast<int>(tables.size());
            tables.back().count_ = static_cast<int>(items.size());
        }
    }
    return tables;
}

double KeyTable::NumberOr(std::string_view key, const AllowedRange& bounds,
                          double otherwise) const {
    return Has(key) ? Get(key).Number(bounds) : otherwise;
}

std::string KeyTable::OneOf(const std::vector<std::string>& keys) const {
    const auto present = std::count_if(keys.begin(), keys.end(),
                                       [this](const std::string& key) { return Has(key); });
    if (present != 1) {
        Fail((present == 0 ? "one of these keys is needed: "
                           : "only one of these keys may be given: ") +
             Listed(keys));
    }
    return *std::find_if(keys.begin(), keys.end(),
                         [this](const std::string& key) { return Has(key); });
}

void KeyTable::Fail(const std::string& message) const {
    FailAt(*file_, table_->source(), name_, message);
}

std::string KeyTable::FullName(std::string_view key) const {
    return name_.empty() ? std::string(key) : name_ + '.' + std::string(key);
}

} // namespace slab
