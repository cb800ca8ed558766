// Wrong projects are refused with place, key and allowed range, and never crash.

#include "hosts/slab/system.h"
#include "tests/hosts/project_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <regex>

namespace {

/// The message of an analysis that ended in an error of the library's arithmetic.
std::string ArithmeticFault(const std::string& text) {
    try {
        slab::RunWindow window(slab::RunWindow::Style::Quiet);
        slab::OpenProjectText(text, "test.toml")->Analyse({}, window);
    } catch (const slab::InputError&) {
    } catch (const slab::AnalysisFailure& failure) {
        const std::string message = failure.what();
        return message.find("fit") == std::string::npos ? "" : message;
    } catch (const torlib::RunTimeError& error) {
        return error.what();
    }
    return "";
}

/// A text with the ends of lines that "\\n" stands for.
std::string Unescaped(std::string text) {
    for (std::size_t at = 0; (at = text.find("\\n", at)) != std::string::npos; ++at) {
        text.replace(at, 2, "\n");
    }
    return text;
}

/// Calls `base` with each base of the golden file and `refused` with each of its cases.
void ForEachRefusal(const std::function<void(const std::string& text)>& base,
                    const std::function<void(const std::string& line, const std::string& text,
                                             const std::string& message)>& refused) {
    std::ifstream file(REFUSALS);
    std::map<std::string, std::string> bases;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("base ", 0) == 0) {
            std::string& text = bases[line.substr(5)];
            for (std::string row; std::getline(file, row) && row != "end";) {
                text += row + '\n';
            }
            base(text);
        } else if (!line.empty() && line[0] != '#') {
            const std::string gap = " | ";
            const std::size_t from = line.find(gap);
            const std::size_t to = line.find(gap, from + 2);
            const std::size_t says = line.find(gap, to + 2);
            ASSERT_NE(says, std::string::npos) << line;
            const auto field = [&](std::size_t a, std::size_t b) {
                return Unescaped(b > a + 3 ? line.substr(a + 3, b - a - 3) : "");
            };
            const std::string& text = bases.at(line.substr(0, from));
            const std::string old = field(from, to);
            refused(line,
                    old.empty() ? text + field(to, says) : Replaced(text, old, field(to, says)),
                    line.substr(says + 3));
        }
    }
}

TEST(Refusal, LimitsHoldOnBothSides) {
    const std::string region = "x = [1, 2]\ny = [2, 5]";
    const std::string lines = "[0.5, [4, 0.5], 0.5]";
    const std::string grid = "x = { count = 8, length = 4 }\ny = " + lines;
    const struct {
        std::string From, To;
        const char* Message;
        bool Refused;
    } cases[] = {
        {region, "elements = [[48, 48]]", "accepted", true},
        {region, "elements = [49]", "is 49 (allowed: 1 to 48)", true},
        {region, "elements = [[9, 8]]", "is 8 (allowed: 9 to 48)", true},
        {region, "elements = [[9, 49]]", "is 49 (allowed: 9 to 48)", true},
        {region, "elements = []", "names no element", true},
        {"poisson = 0.2", "poisson = 0", "accepted", true},
        {"poisson = 0.2", "poisson = 0.5", "accepted", true},
        {"max_cycles = 20", "max_cycles = 10000", "accepted", true},
        {"max_cycles = 20", "max_cycles = 10001", "allowed: 1 to 10000", true},
        {"count = 8", "count = 10001", "is 10001 (allowed: 1 to 10000)", true},
        {lines, "[[10001, 0.5]]", "is 10001 (allowed: 1 to 10000)", true},
        {lines, "[0.5, [9999, 0.5], 0.5]", "has more than 10000 spacings", true},
        {lines, "[0.5, [9998, 0.5], 0.5]", "has more than 10000 spacings", false},
        {grid, "x = { count = 1000, length = 400 }\ny = { count = 99, length = 40 }",
         "give a grid of 100100 nodes (allowed: up to 100000", true},
        {grid, "x = { count = 999, length = 400 }\ny = { count = 99, length = 40 }",
         "give a grid of", false},
    };
    for (const auto& c : cases) {
        const std::string text = Replaced(PlainProject(), c.From, c.To);
        ASSERT_NE(text, "") << c.From;
        const std::string message = Refusal(text);
        EXPECT_EQ(message.find(c.Message) != std::string::npos, c.Refused)
            << c.To << "\n  gives: " << message;
    }
}

TEST(Refusal, NamesPlaceKeyAndRange) {
    int cases = 0;
    ForEachRefusal(
        [](const std::string& text) { EXPECT_EQ(Refusal(text), "accepted") << text; },
        [&cases](const std::string& line, const std::string& text, const std::string& wanted) {
            ASSERT_NE(text, "") << "nothing to replace: " << line;
            const std::string message = Refusal(text);
            EXPECT_EQ(message.rfind("test.toml:", 0), 0U) << line << '\n' << message;
            EXPECT_NE(message.find(wanted), std::string::npos) << line << '\n' << message;
            ++cases;
        });
    EXPECT_GT(cases, 140);
}

// Whatever a single number is made, the project is analysed, or refused by its key, or fails as a
// structure; never in the arithmetic of the solver.
TEST(Refusal, OfNumbersThatTheSolverCannotHold) {
    const std::regex number("= (\\[*)(-?[0-9][0-9.e-]*)(?=[\\n, }\\]])");
    ForEachRefusal(
        [&number](const std::string& text) {
            for (std::sregex_iterator at(text.begin(), text.end(), number), end; at != end; ++at) {
                for (const char* extreme : {"1e-15", "1e-7", "1e9", "1e15"}) {
                    std::string other = text;
                    other.replace(static_cast<std::size_t>(at->position(2)),
                                  static_cast<std::size_t>(at->length(2)), extreme);
                    EXPECT_EQ(ArithmeticFault(other), "") << at->str() << " -> " << extreme;
                }
            }
        },
        [](const std::string&, const std::string&, const std::string&) {});
}

TEST(Refusal, OfDeepNesting) {
    const auto repeated = [](const std::string& text, int count) {
        std::string all;
        for (int i = 0; i < count; ++i) {
            all += text;
        }
        return all;
    };
    const std::string place = "test.toml:3:";
    const std::string head = "title = \"a\"\n# [[[[ in a comment\n";
    for (const std::string& text :
         {"a" + repeated(".a", 40000) + " = 1", "[a" + repeated(".a", 40000) + "]",
          "[[a" + repeated(" . \"b\"", 32) + "]]", "a = " + repeated("[", 40000),
          "a = " + repeated("{a=", 33) + "1" + repeated("}", 33),
          "a = " + repeated("[{b=", 17) + "1" + repeated("}]", 17),
          "a = { s = \"\"\"x\"\"\"\"\", b" + repeated(".b", 40000) + " = 1 }",
          "a = { s = 'C:\\', b" + repeated(".b", 40000) + " = 1 }"}) {
        const std::string message = Refusal(head + text + "\n");
        EXPECT_EQ(message.rfind(place, 0), 0U) << message.substr(0, 200);
        EXPECT_NE(message.find("nests too many"), std::string::npos) << message.substr(0, 200);
    }
    // What only looks deep is text: strings, strings of many lines with quotes in them, comments.
    const std::string deep = repeated("[", 100) + repeated("a.", 100);
    for (const std::string& title :
         {'"' + deep + "\\\"" + deep + '"', '\'' + deep + '\'',
          "\"\"\"\n" + deep + "\"\n\"\" \\\"\"\" " + deep + "\"\"\"\"\"",
          "\'\'\'" + deep + "\n\'\' \\" + deep + "\'\'\'", "\"\" #" + deep}) {
        EXPECT_EQ(Refusal(Replaced(PlainProject(), "\"Test\"", title)), "accepted") << title;
    }
}

TEST(Refusal, OfWholeModels) {
    const std::string loose =
        Replaced(PlainProject(), "edge = \"left\"\nw = 0", "edge = \"left\"\nwx = 0");
    const std::string freed = Replaced(Replaced(loose, "at = [5, 5]\nw =", "at = [5, 5]\nwx ="),
                                       "subgrade = 20000", "subgrade = 0");
    EXPECT_NE(Refusal(freed).find("nothing holds the slab"), std::string::npos) << Refusal(freed);
    const std::string unloaded =
        "[mesh]\nx = [1, 1]\ny = [1, 1]\n[slab]\nthickness = 0.2\nmodulus = 3e7\npoisson = 0.2\n"
        "[[supports]]\nedge = \"all\"\nw = ";
    EXPECT_NE(Refusal(unloaded + "0\n").find("nothing acts on the slab"), std::string::npos);
    EXPECT_EQ(Refusal(unloaded + "1\n"), "accepted");
}

TEST(Refusal, OfEquationsBeyond16Bits) {
    // 3 (n + 1)^2 equations and a half band width of 3 (n + 3): the last mesh that fits has n =
    // 102.
    const auto withElements = [](int n) {
        const std::string count = std::to_string(n);
        const std::string side = "{ count = " + count + ", length = 4 }";
        std::string text = Replaced(PlainProject(), "{ count = 8, length = 4 }", side);
        text = Replaced(text, "[0.5, [4, 0.5], 0.5]", "{ count = " + count + ", length = 3 }");
        return Replaced(text, "x = [1, 2]\ny = [2, 5]", "elements = [1]");
    };
    const std::string message = Refusal(withElements(104));
    EXPECT_NE(
        message.find("11025 nodes give 33075 equations with a half band width of 321, together "
                     "33395 rows (allowed: up to 32767)"),
        std::string::npos)
        << message;
    EXPECT_EQ(Refusal(withElements(103)).find("too many"), std::string::npos);
}

TEST(Refusal, OfFilesThatAreNoProjects) {
    const auto folder = std::filesystem::path(testing::TempDir()) / "slab_refusals";
    std::filesystem::create_directories(folder);
    const auto refusal = [](const std::filesystem::path& path) -> std::string {
        try {
            slab::RunWindow window(slab::RunWindow::Style::Quiet);
            slab::OpenProject(path.string(), window);
        } catch (const slab::InputError& error) {
            return error.what();
        }
        return "accepted";
    };
    const struct {
        const char* Name;
        std::string Text;
        const char* Message;
    } files[] = {
        {"good", PlainProject(), "accepted"},
        {"windows", "\xEF\xBB\xBF" + Replaced(PlainProject(), "\n", "\r\n"), "accepted"},
        {"empty", "", "is empty"},
        {"blank", " \n\n", "is empty"},
        {"binary",
         std::string("\x7f"
                     "ELF\0\0",
                     6),
         "is a binary file"},
        {"latin", "title = \"Gr\xfc\xdf\"\n", "latin:1:"},
        {"huge", std::string((16u << 20) + 1, '#'), "is too large"},
        {"cut", PlainProject().substr(0, 150), "cut:"},
    };
    for (const auto& [name, text, message] : files) {
        std::ofstream(folder / name, std::ios::binary) << text;
        EXPECT_NE(refusal(folder / name).find(message), std::string::npos)
            << name << ": " << refusal(folder / name);
    }
    EXPECT_NE(refusal(folder).find("is a folder"), std::string::npos);
    EXPECT_NE(refusal(folder / "missing").find("cannot be read"), std::string::npos);
    std::filesystem::remove_all(folder);
}

TEST(Refusal, IsTheOnlyAnswerToDamagedFiles) {
    std::mt19937 random(20240607);
    int refused = 0;
    for (const slab::Example& example : slab::Examples()) {
        for (std::size_t length = 0; length < example.Text.size(); length += 47) {
            refused += Refusal(example.Text.substr(0, length)) != "accepted";
        }
        for (int i = 0; i < 150; ++i) {
            std::string text = example.Text;
            for (int flips = 0; flips < 3; ++flips) {
                text[random() % text.size()] ^= static_cast<char>(1u << random() % 8);
            }
            refused += Refusal(text) != "accepted";
        }
    }
    EXPECT_GT(refused, 500);
}

} // namespace
