// Wrong projects are refused with place, key and allowed range, and never crash.

#include "hosts/slab/system.h"
#include "tests/hosts/project_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace {

struct Fault {
    const char* From;
    const char* To;
    const char* Message;
};

const Fault faults[] = {
    {"poisson = 0.2", "poison = 0.2",
     "test.toml:12:1: slab.poison: is not a key of this table (did you mean poisson"},
    {"poisson = 0.2", "poisson = 0.51",
     "test.toml:12:11: slab.poisson: is 0.51 (allowed: 0 to 0.5)"},
    {"poisson = 0.2", "poisson = -0.1", "allowed: 0 to 0.5"},
    {"poisson = 0.2", "poisson = nan", "slab.poisson: must be a finite number"},
    {"modulus = 3e7", "modulus = inf", "slab.modulus: must be a finite number"},
    {"modulus = 3e7", "modulus = 1e300", "out of all proportion"},
    {"modulus = 3e7", "modulus = 1e-300", "out of all proportion"},
    {"modulus = 3e7", "modulus = \"3e7\"", "slab.modulus: must be a number, but is a text"},
    {"modulus = 3e7\n", "", "test.toml:9:1: slab.modulus: is missing"},
    {"modulus = 3e7", "modulus = 3e7\nmodulus = 3e7", "test.toml:12:"},
    {"thickness = 0.3", "thickness = -0.3", "slab.thickness: is -0.3 (allowed: greater than 0)"},
    {"thickness = 0.4", "thickness = 0",
     "slab.regions[1].thickness: is 0 (allowed: greater than 0)"},
    {"x = [1, 2]", "x = [1, 2.2]",
     "test.toml:16:9: slab.regions[1].x[2]: does not follow a mesh line; the mesh lines beside it are at 2 and 2.5"},
    {"x = [1, 2]", "x = [2, 1]", "from a smaller to a larger coordinate"},
    {"x = [1, 2]", "x = [1, 2, 3]", "has 3 values (allowed: 2)"},
    {"x = [1, 2]", "elements = [49]\nx = [1, 2]", "either x and y or elements"},
    {"length = \"m\"", "length = \"yard\"", "units.length: \"yard\" is not known"},
    {"force = \"kN\"", "force = \"KN\"", "did you mean kN"},
    {"count = 8", "count = 0", "mesh.x.count: is 0 (allowed: 1 to 10000)"},
    {"count = 8", "count = 8.5", "must be a whole number"},
    {"count = 8", "count = 9000", "is too thin"},
    {"length = 4", "length = 1000", "is too thin"},
    {"[4, 0.5]", "[4, 0]", "mesh.y[2][2]: is 0 (allowed: greater than 0)"},
    {"[0.5, [4, 0.5], 0.5]", "[]", "or a list of spacings"},
    {"origin = [1, 2]", "origin = [1e6, 2]",
     "choose an origin near the slab (allowed: up to 10000)"},
    {"origin = [1, 2]", "origin = [1, 2]\nnodes = []", "is not a key of this table"},
    {"origin = [1, 2]", "origin = [1, 2]\nopenings = [{x = [1, 5], y = [2, 5]}]",
     "leave nothing of the slab"},
    {"origin = [1, 2]", "origin = [1, 2]\nsymmetry = \"z\"",
     "allowed: none, x, y, xy, anti-x, anti-y"},
    {"x = [1.2, 1.7]", "x = [0.7, 1.7]",
     "loads.patch[1]: 30 % of the rectangle lies outside the slab"},
    {"pressure = 40", "pressure = 40\nforce = 2",
     "only one of these keys may be given: pressure, force"},
    {"at = [3.3, 4.1]", "at = [3.3, 5.1]", "loads.point[1].at: lies outside the slab"},
    {"to = [4.5, 4.5]", "to = [6, 5.5]", "of the line lie outside the slab"},
    {"to = [4.5, 4.5]", "to = [1.5, 2.5]", "is the same point as from"},
    {"pressure = 5", "pressure = 5\ngroup = \"thin\"", "did you mean thick"},
    {"[[loads.point]]", "[loads.point]", "must be a list of tables"},
    {"edge = \"left\"", "edge = \"top left\"", "allowed: all, left, right, bottom, top"},
    {"edge = \"left\"", "edge = \"left\"\nnode = 3", "only one of these keys"},
    {"edge = \"left\"", "node = 64", "supports[1].node: is 64 (allowed: 1 to 63)"},
    {"edge = \"left\"\nw = 0", "edge = \"left\"",
     "one of these keys is needed: w, wx, wy, clamped"},
    {"[[springs]]", "[[supports]]\nat = [1, 2]\nw = 1\n[[springs]]",
     "already has another value of w"},
    {"at = [5, 5]", "at = [4.8, 5]",
     "springs[1].at: is no mesh node; the nearest is node 63 at (5, 5)"},
    {"at = [5, 5]\nw = 1000", "at = [5, 5]\nw = -1000",
     "springs[1].w: is -1000 (allowed: at least 0)"},
    {"at = [5, 5]\nw = 1000", "at = [5, 5]\nw = 0", "has no stiffness"},
    {"kind = \"winkler\"", "kind = \"halfspace\"", "did you mean half-space"},
    {"kind = \"winkler\"", "kind = \"half-space\"", "soil.subgrade: is not a key of this table"},
    {"subgrade = 20000\ntension = false", "", "soil.subgrade: is missing"},
    {"max_cycles = 20", "max_cycles = 0", "allowed: 1 to 10000"},
    {"accuracy = 0.01", "accuracy = 0", "iteration.accuracy: is 0 (allowed: greater than 0)"},
    {"tension = false", "tension = 0", "must be true or false, but is a whole number"},
    {"title = \"Test\"", "title = \"Test", "test.toml:1:"},
    {"[iteration]", "[itera", "test.toml:"},
};

TEST(Refusal, NamesPlaceKeyAndRange) {
    ASSERT_EQ(Refusal(PlainProject()), "accepted");
    for (const Fault& fault : faults) {
        const std::string text = Replaced(PlainProject(), fault.From, fault.To);
        ASSERT_NE(text, "") << fault.From;
        const std::string message = Refusal(text);
        EXPECT_NE(message.find(fault.Message), std::string::npos)
            << fault.To << "\n  gives: " << message << "\n  wanted: " << fault.Message;
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

std::string ListedProject(const std::string& nodes, const std::string& elements) {
    return "[mesh]\nnodes = [" + nodes + "]\nelements = [" + elements + "]\n" +
           "[slab]\nthickness = 0.2\nmodulus = 3e7\npoisson = 0.2\n[[loads.uniform]]\npressure = 1\n"
           "[[supports]]\nedge = \"all\"\nw = 0\n";
}

TEST(Refusal, OfListedMeshes) {
    const Fault meshes[] = {
        {"[0,0],[1,0],[1,1],[0,1]", "[1,2,3],[1,3,4]", "accepted"},
        {"[0,0],[1,0],[1,1],[0,1]", "[3,2,1,4]", "accepted"},
        {"[0,0],[1,0],[1,1],[0,1]", "[1,3,2,4]", "must form a rectangle"},
        {"[0,0],[1,0],[1.1,1],[0,1]", "[1,2,3,4]", "must form a rectangle"},
        {"[0,0],[1,0],[1,1],[0,1]", "[1,2,3]", "node 4 belongs to no element"},
        {"[0,0],[1,0],[1,1],[0,1]", "[1,2,5]", "elements[1][3]: is 5 (allowed: 1 to 4)"},
        {"[0,0],[1,0],[1,1],[0,1]", "[1,2,2]", "names node 2 twice"},
        {"[0,0],[1,0],[1,1],[0,1]", "[1,2]", "has 2 nodes (allowed: 3 or 4)"},
        {"[0,0],[1,0],[1,1],[0,1]", "[1,2,3,4],[1,2,3]",
         "elements[2]: overlaps an earlier element"},
        {"[0,0],[1,0],[2,0]", "[1,2,3]", "is too thin"},
        {"[0,0],[1,0],[0,1],[1,0],[1,1],[0,1]", "[1,2,3],[4,5,6]",
         "nodes 3 and 6 lie at the same place (0, 1)"},
        {"[0,0],[2,0],[2,1],[0,1],[1,1],[1,2],[0,2]", "[1,2,3,4],[4,5,6,7]",
         "node 5 lies inside the side from node 3 to node 4"},
    };
    for (const Fault& mesh : meshes) {
        const std::string message = Refusal(ListedProject(mesh.From, mesh.To));
        EXPECT_NE(message.find(mesh.Message), std::string::npos) << mesh.To << ": " << message;
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
            slab::OpenProject(path.string());
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
        {"deep", "x = " + std::string(100000, '['), "deep:1:"},
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
