#include "torlib/platform/component/registry.h"

#include "torlib/platform/component/nearest_names.h"
#include "torlib/platform/component/registry_file.h"
#include "torlib/platform/component/run_time_error.h"
#include "torlib/platform/component/variant.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace torlib {

namespace {

const std::string heading =
    "# Component registry: which server file holds which class. Written by the servers.\n";

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    const auto last = text.find_last_not_of(" \t\r");
    return std::string(first == std::string_view::npos ? "" : text.substr(first, last - first + 1));
}

/// An entry with its lines as they stand in the file, so that those that nobody changes stay: also
/// comments and lines that cannot be understood.
struct Block {
    RegistryEntry Entry; ///< of no kind when its heading is damaged
    std::string Lines;
};

/// Reads the file line by line.
class Reader {
  public:
    explicit Reader(const std::string& text) {
        std::size_t start = 0;
        while (start < text.size()) {
            const std::size_t end = std::min(text.find('\n', start), text.size());
            Take(text.substr(start, end - start));
            start = end + 1;
        }
        (Blocks.empty() ? Preamble : Blocks.back().Lines) += pending_;
    }

    std::string Preamble;
    std::vector<Block> Blocks;
    std::vector<std::string> Damage;

  private:
    void Take(const std::string& line) {
        ++number_;
        const std::string text = Trimmed(line);
        pending_ += line + "\n";
        if (text.empty() || text[0] == '#') {
            return; // belongs to the entry of the next line that says something
        }
        if (text[0] == '[') {
            TakeHeading(text);
        } else {
            TakeValue(text);
        }
        Blocks.back().Lines += std::exchange(pending_, "");
    }
    /// Lines above the first entry that a blank line parts from it are the file's own.
    void Begin() {
        if (Blocks.empty()) {
            const std::size_t end = pending_.rfind("\n\n");
            const std::size_t kept = end == std::string::npos ? 0 : end + 1;
            Preamble = pending_.substr(0, kept);
            pending_.erase(0, kept);
        }
        Blocks.emplace_back();
    }
    void TakeHeading(const std::string& text) {
        Begin();
        const auto blank = text.find(' ');
        if (text.back() != ']' || blank == std::string::npos || blank == 1) {
            Complain(text);
            return;
        }
        RegistryEntry& entry = Blocks.back().Entry;
        entry.Kind = text.substr(1, blank - 1);
        entry.Key = Trimmed(std::string_view(text).substr(blank, text.size() - blank - 1));
    }
    void TakeValue(const std::string& text) {
        const auto sign = text.find('=');
        if (sign == std::string::npos || Blocks.empty()) {
            Complain(text);
        } else if (RegistryEntry& entry = Blocks.back().Entry; !entry.Kind.empty()) {
            entry.Values.emplace_back(Trimmed(text.substr(0, sign)),
                                      Trimmed(text.substr(sign + 1)));
        }
        if (Blocks.empty()) {
            Begin();
        }
    }
    void Complain(const std::string& text) {
        Damage.push_back("line " + std::to_string(number_) +
                         " is neither \"[kind key]\" nor \"name = value\": " + text.substr(0, 80));
    }

    int number_ = 0;
    std::string pending_;
};

bool SameEntry(const RegistryEntry& a, std::string_view kind, std::string_view key) {
    return a.Kind == kind && SameName(FromUtf8(a.Key), FromUtf8(key));
}

bool IsOneLine(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](unsigned char c) { return (c < ' ' && c != '\t') || c == 0x7f; });
}

/// Refuses what would be read back as something else.
void CheckText(const char* what, const std::string& text, std::string_view refused,
               bool mayBeEmpty) {
    if (!IsOneLine(text) || text != Trimmed(text) ||
        text.find_first_of(refused) != std::string::npos || (text.empty() && !mayBeEmpty)) {
        RaiseError(ErrorNumber::InvalidArgument,
                   std::string("a ") + what +
                       " of the component registry is one line without blanks at its ends" +
                       (refused.empty() ? "" : " and without any of " + std::string(refused)) +
                       ", not \"" + text + "\"");
    }
}

std::string EntryLines(const RegistryEntry& entry) {
    CheckText("kind", entry.Kind, "[] \t", false);
    CheckText("key", entry.Key, "[]", false);
    std::string lines = "\n[" + entry.Kind;
    lines.append(" ").append(entry.Key).append("]\n");
    for (const auto& [name, value] : entry.Values) {
        CheckText("name", name, "[]#=", false);
        CheckText("value", value, "", true);
        lines.append(name).append(" = ").append(value).append("\n");
    }
    return lines;
}

/// Takes entries out of the registry and puts new lines at its end, while no other writer can.
template <class Condition>
void Rewrite(const Condition& removed, const std::string& added) {
    const RegistryFile file(RegistryPath());
    const RegistryFile::WriteLock lock(file);
    Reader old(file.Read());
    std::erase_if(old.Blocks, [&removed](const Block& block) { return removed(block.Entry); });
    std::string text = old.Preamble.empty() ? heading : old.Preamble;
    if (old.Preamble.empty() && !old.Blocks.empty()) {
        text += "\n";
    }
    for (const Block& block : old.Blocks) {
        text += block.Lines;
    }
    file.Replace(text + added);
}

} // namespace

std::string RegistryEntry::Value(std::string_view name) const {
    for (const auto& [known, value] : Values) {
        if (known == name) {
            return value;
        }
    }
    return "";
}

std::string RegistryPath() {
    const auto variable = [](const char* name) -> std::string {
        const char* value = std::getenv(name);
        return value ? value : "";
    };
    if (std::string path = variable("TORLIB_REGISTRY"); !path.empty()) {
        return path;
    }
    if (const std::string data = variable("XDG_DATA_HOME"); !data.empty()) {
        return data + "/torlib/components.reg";
    }
    if (const std::string home = variable("HOME"); !home.empty()) {
        return home + "/.local/share/torlib/components.reg";
    }
    RaiseError(ErrorNumber::FileNotWritable,
               "no place for the component registry: set TORLIB_REGISTRY to a file's path");
}

std::vector<RegistryEntry> ReadRegistry(std::vector<std::string>* damage) {
    Reader read(RegistryFile(RegistryPath()).Read());
    std::vector<RegistryEntry> entries;
    for (Block& block : read.Blocks) {
        if (!block.Entry.Kind.empty()) {
            entries.push_back(std::move(block.Entry));
        }
    }
    if (damage) {
        *damage = std::move(read.Damage);
    }
    return entries;
}

const RegistryEntry* FindEntry(const std::vector<RegistryEntry>& entries, std::string_view kind,
                               std::string_view key) {
    const auto at =
        std::find_if(entries.begin(), entries.end(), [kind, key](const RegistryEntry& entry) {
            return SameEntry(entry, kind, key);
        });
    return at == entries.end() ? nullptr : &*at;
}

void RegisterEntries(const std::vector<RegistryEntry>& added) {
    std::string lines;
    for (const RegistryEntry& entry : added) {
        lines += EntryLines(entry);
    }
    Rewrite(
        [&added](const RegistryEntry& entry) {
            return FindEntry(added, entry.Kind, entry.Key) != nullptr;
        },
        lines);
}

void UnregisterEntries(const std::vector<RegistryEntry>& removed) {
    Rewrite(
        [&removed](const RegistryEntry& entry) {
            const RegistryEntry* own = FindEntry(removed, entry.Kind, entry.Key);
            return own && own->Value("server") == entry.Value("server");
        },
        "");
}

} // namespace torlib
