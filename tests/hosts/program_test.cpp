// The program as a user meets it: exit codes, files written or not, messages, results.

#include "tests/temporary_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::string FileText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

/// A folder with a project in it, and the program run there.
class Program : public testing::Test {
  protected:
    struct Outcome {
        int code;
        std::string out, err;
    };

    fs::path In(const std::string& name) const { return folder_.File(name); }

    void Save(const std::string& name, const std::string& text) const {
        std::ofstream(In(name), std::ios::binary) << text;
    }

    /// Starts the program in the folder; its streams go to files there, or standard output to
    /// another place.
    pid_t Start(std::vector<std::string> arguments, const char* program = SLAB_PROGRAM,
                const char* out = "out.txt") const {
        arguments.insert(arguments.begin(), program);
        const pid_t child = fork();
        if (child == 0) {
            fs::current_path(In("."));
            (void)!std::freopen(out, "w", stdout);
            (void)!std::freopen("err.txt", "w", stderr);
            std::vector<char*> pointers;
            pointers.reserve(arguments.size() + 1);
            for (std::string& argument : arguments) {
                pointers.push_back(argument.data());
            }
            pointers.push_back(nullptr);
            execv(pointers[0], pointers.data());
            _exit(99);
        }
        return child;
    }
    Outcome Wait(pid_t child) const {
        int status = 0;
        waitpid(child, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status),
                FileText(In("out.txt")), FileText(In("err.txt"))};
    }
    /// Waits until the program has written this to standard error.
    void AwaitMessage(const std::string& text) const {
        while (FileText(In("err.txt")).find(text) == std::string::npos) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    Outcome Run(const std::vector<std::string>& arguments) const { return Wait(Start(arguments)); }

    /// The results that `program` writes for a project, less the seconds it took.
    nlohmann::json Results(const char* program, const std::string& project) const {
        const Outcome run = Wait(Start({project, "--json", "r.json", "--quiet"}, program));
        EXPECT_EQ(run.code, 0) << project << run.err;
        auto json = nlohmann::json::parse(FileText(In("r.json")));
        json.erase("seconds");
        return json;
    }

    /// The names of the shipped examples.
    std::vector<std::string> Examples() const {
        std::istringstream lines(Run({"--examples"}).out);
        std::vector<std::string> names;
        for (std::string line; std::getline(lines, line);) {
            if (!line.empty() && line[0] != ' ') {
                names.push_back(line);
            }
        }
        return names;
    }

    /// A project of four elements a side, with the given lines for supports and soil.
    static std::string Project(const std::string& rest, int count = 4) {
        return "[mesh]\nx = { count = " + std::to_string(count) +
               ", length = 4 }\ny = { count = " + std::to_string(count) +
               ", length = 4 }\n[slab]\nthickness = 0.2\nmodulus = 3e7\npoisson = 0.2\n"
               "[[loads.uniform]]\npressure = 10\n" +
               rest;
    }

    torlib::test::TemporaryFolder folder_;
};

std::string LineFrom(const std::string& text, std::size_t start) {
    return text.substr(start, text.find("\r\n", start) - start);
}

/// Where the words of a line end.
std::vector<std::size_t> WordEnds(const std::string& line) {
    std::vector<std::size_t> ends;
    for (std::size_t i = 1; i <= line.size(); ++i) {
        if (line[i - 1] != ' ' && (i == line.size() || line[i] == ' ')) {
            ends.push_back(i);
        }
    }
    return ends;
}

const char* const half_space = "[soil]\nkind = \"half-space\"\nmodulus = 20000\npoisson = 0.3\n";

TEST_F(Program, ShippedExamplesBalanceAndConverge) {
    const std::vector<std::string> examples = Examples();
    for (const std::string& name : examples) {
        ASSERT_EQ(Run({"--example", name}).code, 0) << name;
        const Outcome run =
            Run({name + ".toml", "--json", "r.json", "--report", "r.txt", "--quiet"});
        ASSERT_EQ(run.code, 0) << name << run.err;
        const auto json = nlohmann::json::parse(FileText(In("r.json")));
        EXPECT_LT(json["balance"]["relative_error"], 1e-6) << name;
        EXPECT_EQ(run.err, "") << name;
        if (name == "bored-pile") {
            continue; // neither iteration nor equations
        }
        EXPECT_TRUE(json["iteration"]["converged"]) << name;
        EXPECT_LE(json["iteration"]["cycles"].size(), 30U) << name;
        EXPECT_LT(json["digits"]["residual_after"], 1e-9) << name;
    }
    EXPECT_GE(examples.size(), 5U);
    EXPECT_EQ(Run({"--example", "slab-floor"}).code, 3) << "an existing file is kept";
    EXPECT_EQ(Run({"--example", "no-such"}).code, 2);
}

// What the script runs is the release: another level of optimisation, sources joined. A test of its
// own builds it first.
TEST_F(Program, ReleaseGivesTheSameBits) {
    for (const std::string& name : Examples()) {
        ASSERT_EQ(Run({"--example", name}).code, 0);
        EXPECT_EQ(Results(RUN_SCRIPT, name + ".toml"), Results(SLAB_PROGRAM, name + ".toml"))
            << name;
    }
    EXPECT_EQ(Wait(Start({"--examples"}, RUN_SCRIPT)).err, "") << "nothing left to build";
}

TEST_F(Program, ResultsStandInTheProjectsUnits) {
    const std::string soil = "[soil]\nkind = \"winkler\"\nsubgrade = 5000\n";
    Save("metric.toml", Project(soil));
    // The same slab in millimetres and newtons: 10 kN/m2 = 0.01 N/mm2, 5000 kN/m3 = 0.005 N/mm3.
    Save("mm.toml",
         "[units]\nlength = \"mm\"\nforce = \"N\"\nsettlement = \"mm\"\n[mesh]\n"
         "x = { count = 4, length = 4000 }\ny = { count = 4, length = 4000 }\n[slab]\n"
         "thickness = 200\nmodulus = 3e4\npoisson = 0.2\n[[loads.uniform]]\npressure = 0.01\n"
         "[soil]\nkind = \"winkler\"\nsubgrade = 0.005\n");
    const auto results = [this](const char* project) {
        const Outcome run = Run({project, "--json", "-", "--quiet"});
        EXPECT_EQ(run.code, 0) << run.err;
        return nlohmann::json::parse(run.out);
    };
    const auto metric = results("metric.toml");
    const auto small = results("mm.toml");
    EXPECT_EQ(metric["units"]["settlement"], "cm");
    EXPECT_EQ(small["units"]["pressure"], "N/mm2");
    for (const std::size_t node : {0U, 7U, 12U}) {
        const auto& a = metric["nodes"][node];
        const auto& b = small["nodes"][node];
        EXPECT_NEAR(double(a["settlement"]) * 10, b["settlement"], 1e-5);
        EXPECT_NEAR(double(a["pressure"]) / 1000, b["pressure"], 1e-7);
        EXPECT_NEAR(double(a["mx"]) * 1000, b["mx"], 1e-2);
        EXPECT_NEAR(double(a["x"]) * 1000, b["x"], 1e-9);
    }
    EXPECT_NEAR(metric["balance"]["loads"], 160, 1e-6);
    EXPECT_NEAR(small["balance"]["loads"], 160000, 1e-3);
}

TEST_F(Program, ReportIsAListingAndPictureIsDrawn) {
    Save("p.toml", Project(half_space));
    ASSERT_EQ(Run({"p.toml", "--report", "r.txt", "--picture", "r.svg", "--quiet"}).code, 0);
    const std::string report = FileText(In("r.txt"));
    EXPECT_NE(
        report.find("Equations                                             -        = 75\r\n"),
        std::string::npos);
    EXPECT_EQ(report.find("nan"), std::string::npos);
    std::size_t bare = 0;
    for (std::size_t i = 0; i < report.size(); ++i) {
        bare += report[i] == '\n' && (i == 0 || report[i - 1] != '\r');
    }
    EXPECT_EQ(bare, 0U) << "listing lines end in carriage return and line feed";
    // Numbers, units and symbols of a column end at the same place; the node number has no unit.
    const std::vector<std::size_t> ends = WordEnds(LineFrom(report, report.find("  Node ")));
    EXPECT_GE(ends.size(), 10U);
    std::size_t place = report.find('\n', report.find("  Node ")) + 1;
    const std::vector<std::size_t> units(ends.begin() + 1, ends.end());
    EXPECT_EQ(WordEnds(LineFrom(report, place)), units);
    for (int node = 1; node <= 25; ++node) {
        place = report.find('\n', place) + 1;
        EXPECT_EQ(WordEnds(LineFrom(report, place)), ends) << "node " << node;
    }
    const std::string picture = FileText(In("r.svg"));
    EXPECT_EQ(picture.rfind("<svg", 0), 0U);
    EXPECT_NE(picture.find("</svg>"), std::string::npos);
}

TEST_F(Program, PlainKeepsTheSolutionAndSaysSo) {
    Save("p.toml", Project(half_space, 12));
    const Outcome plain = Run({"p.toml", "--plain"});
    EXPECT_EQ(plain.code, 0) << plain.err;
    EXPECT_NE(plain.out.find("not corrected"), std::string::npos);
    EXPECT_EQ(Run({"p.toml"}).out.find("not corrected"), std::string::npos);
}

TEST_F(Program, ExitCodesAndMessages) {
    Save("good.toml", Project(half_space));
    Save("mechanism.toml", Project("[[supports]]\nat = [0, 0]\nw = 0\n[soil]\nkind = \"none\"\n"));
    Save("unheld.toml", Project(""));
    std::string negative = Project(half_space);
    negative.replace(negative.find("0.2"), 3, "-.2");
    Save("negative.toml", negative);
    struct Case {
        std::vector<std::string> arguments;
        int code;
        const char* says;
    };
    const Case cases[] = {
        {{"good.toml", "--validate"}, 0, ""},
        {{"mechanism.toml"}, 1, "node"},
        {{"unheld.toml"}, 2, "unheld.toml"},
        {{"negative.toml"}, 2, "negative.toml:5:"},
        {{"absent.toml"}, 2, "absent.toml"},
        {{"."}, 2, "."},
        {{"good.toml", "--nonsense"}, 2, "--nonsense"},
        {{}, 2, "project file"},
        {{"good.toml", "--json", "no/such/folder.json"}, 3, "no/such/folder.json"},
        {{"good.toml", "--report", "."}, 3, "folder"},
        {{"--version"}, 0, ""},
        {{"--help"}, 0, ""},
    };
    for (const Case& c : cases) {
        const Outcome run = Run(c.arguments);
        EXPECT_EQ(run.code, c.code) << testing::PrintToString(c.arguments) << run.err;
        EXPECT_NE(run.err.find(c.says), std::string::npos) << run.err;
    }
}

TEST_F(Program, InterruptCancelsAndLeavesNoFile) {
    Save("large.toml", Project(half_space, 90));
    const pid_t child = Start({"large.toml", "--json", "r.json", "--report", "r.txt"});
    AwaitMessage("\n");
    kill(child, SIGINT);
    const Outcome run = Wait(child);
    EXPECT_EQ(run.code, 130);
    EXPECT_NE(run.err.find("cancelled; nothing was written"), std::string::npos) << run.err;
    for (const auto& entry : fs::directory_iterator(In("."))) {
        EXPECT_NE(entry.path().filename().string().rfind("r.", 0), 0U) << entry.path();
    }
}

TEST_F(Program, ALongReadingShowsItsProgressAndIsCancelled) {
    std::string text = Project(half_space, 60);
    for (int i = 0; i < 9990; ++i) {
        text += "[[loads.patch]]\nx = [0, 4]\ny = [0, 4]\npressure = 1\n";
    }
    Save("long.toml", text);
    const pid_t child = Start({"long.toml", "--validate"});
    AwaitMessage("Reading loads.patch");
    kill(child, SIGTERM);
    const Outcome run = Wait(child);
    EXPECT_EQ(run.code, 143);
    EXPECT_NE(run.err.find("cancelled"), std::string::npos) << run.err;
}

// The first signal is heard while the program waits for somebody else.
TEST_F(Program, SignalsAreHeardWhileItWaits) {
    for (const int signal : {SIGINT, SIGTERM}) {
        ASSERT_EQ(mkfifo(In("p.fifo").c_str(), 0600), 0);
        const pid_t reading = Start({"p.fifo"});
        const int writer = open(In("p.fifo").c_str(), O_WRONLY); // returns when both ends are open
        ASSERT_EQ(write(writer, "title", 5), 5);
        int unread = 5;
        while (unread != 0) {
            ASSERT_EQ(ioctl(writer, FIONREAD, &unread), 0);
        }
        kill(reading, signal);
        EXPECT_EQ(Wait(reading).code, 128 + signal);
        close(writer);
        fs::remove(In("p.fifo"));

        Save("p.toml", Project(half_space, 20));
        ASSERT_EQ(mkfifo(In("out.fifo").c_str(), 0600), 0);
        const int reader = open(In("out.fifo").c_str(), O_RDONLY | O_NONBLOCK);
        const int capacity = fcntl(reader, F_SETPIPE_SZ, 4096);
        const pid_t writing = Start({"p.toml", "--json", "-", "--report", "r.txt"}, SLAB_PROGRAM,
                                    In("out.fifo").c_str());
        for (int full = 0; full < capacity;) {
            ASSERT_EQ(ioctl(reader, FIONREAD, &full), 0);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        kill(writing, signal);
        const Outcome run = Wait(writing);
        EXPECT_EQ(run.code, 128 + signal);
        EXPECT_NE(run.err.find("cancelled while the results were written"), std::string::npos);
        EXPECT_NE(FileText(In("r.txt")), "") << "files do not wait for the reader of the pipe";
        close(reader);
        fs::remove(In("out.fifo"));
    }
}

TEST_F(Program, AFullDiskIsNoSuccess) {
    Save("p.toml", Project(half_space));
    const std::vector<std::string> calls[] = {{"--help"},     {"--version"},
                                              {"--examples"}, {"p.toml", "--validate"},
                                              {"p.toml"},     {"p.toml", "--json", "-"}};
    for (const auto& arguments : calls) {
        const Outcome run = Wait(Start(arguments, SLAB_PROGRAM, "/dev/full"));
        EXPECT_EQ(run.code, 3) << arguments.back();
        EXPECT_NE(run.err.find("standard output: cannot be written"), std::string::npos) << run.err;
    }
    EXPECT_EQ(Run({"p.toml", "--picture", "/dev/full"}).code, 3);
}

TEST_F(Program, OutputsSpareTheProjectAndOneAnother) {
    Save("p.toml", Project(half_space));
    fs::create_symlink("p.toml", In("soft.toml"));
    fs::create_hard_link(In("p.toml"), In("hard.toml"));
    fs::create_symlink("new.json", In("ahead.json"));
    fs::create_directory(In("sub"));
    const std::vector<std::string> wrong[] = {
        {"p.toml", "--json", "p.toml"},
        {"p.toml", "--json", "sub/../p.toml"},
        {"p.toml", "--report", "soft.toml"},
        {"soft.toml", "--report", "hard.toml"},
        {"p.toml", "--report", "r.txt", "--json", "./r.txt"},
        {"p.toml", "--picture", "new.json", "--json", "ahead.json"},
        {"p.toml", "--report", "-", "--json", "-"},
        {"p.toml", "--report", "out.txt"}, // where standard output goes
    };
    for (const auto& arguments : wrong) {
        const Outcome run = Run(arguments);
        EXPECT_EQ(run.code, 2) << testing::PrintToString(arguments);
        EXPECT_NE(run.err.find(arguments[arguments.size() - 2]), std::string::npos) << run.err;
        EXPECT_EQ(FileText(In("p.toml")), Project(half_space));
        EXPECT_FALSE(fs::exists(In("new.json")) || fs::exists(In("r.txt")));
    }
    EXPECT_EQ(Run({"p.toml", "--report", "/dev/null", "--json", "/dev/null"}).code, 0);
}

TEST_F(Program, ModeAndLinksOfAnOutputStay) {
    Save("p.toml", Project(half_space));
    Save("private.json", "old");
    fs::permissions(In("private.json"), fs::perms::owner_read | fs::perms::owner_write);
    Save("twice.txt", std::string(1 << 20, 'x'));
    fs::create_hard_link(In("twice.txt"), In("other.txt"));
    fs::create_symlink("target.svg", In("link.svg"));
    ASSERT_EQ(Run({"p.toml", "--json", "private.json", "--report", "twice.txt", "--picture",
                   "link.svg", "--quiet"})
                  .code,
              0);
    EXPECT_EQ(fs::status(In("private.json")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(FileText(In("private.json")).rfind("{", 0), 0U);
    EXPECT_EQ(fs::hard_link_count(In("twice.txt")), 2U);
    EXPECT_NE(FileText(In("other.txt")).find("Equations"), std::string::npos);
    EXPECT_EQ(FileText(In("other.txt")).find("xxx"), std::string::npos);
    EXPECT_TRUE(fs::is_symlink(In("link.svg")));
    EXPECT_EQ(FileText(In("target.svg")).rfind("<svg", 0), 0U);
}

// ESC, the eight-bit control of a terminal, an end of line that would forge one, and delete.
TEST_F(Program, ControlCharactersAreWrittenOut) {
    const std::string title = "title = \"a\\u001b[31mb\\u009b2Jc\\nd\\u007fe\\u00e4\"\n";
    Save("slab.toml", title + Project(half_space));
    Save("wall.toml", title + "system = \"wall\"\n[mesh]\nx = [1, 1]\ny = [1, 1]\n[wall]\n"
                              "thickness = 0.2\nmodulus = 3e7\npoisson = 0.2\nunit_weight = 25\n"
                              "[[supports]]\nedge = \"bottom\"\nu = 0\nv = 0\n");
    Save("pile.toml", title + "system = \"pile\"\n[pile]\ndiameter = 0.9\nload = 2000\n[[layers]]\n"
                              "thickness = 9\nqc = 9000\n[base]\nqc = 9000\n");
    const std::string safe = "a\\u001b[31mb\\u009b2Jc\\u000ad\\u007fe\u00e4";
    for (const std::string project : {"slab.toml", "wall.toml", "pile.toml"}) {
        const Outcome run =
            Run({project, "--report", "r.txt", "--json", "r.json", "--picture", "r.svg"});
        ASSERT_EQ(run.code, 0) << run.err;
        const std::string report = FileText(In("r.txt"));
        for (const std::string& text : {run.out, report, FileText(In("r.svg"))}) {
            EXPECT_EQ(text.find_first_of("\x1b\x7f"), std::string::npos) << project;
            EXPECT_EQ(text.find("\xc2\x9b"), std::string::npos) << project;
        }
        EXPECT_EQ(run.out.rfind(safe + '\n', 0), 0U) << run.out.substr(0, 60);
        EXPECT_NE(report.find(safe + "\r\n"), std::string::npos) << project;
        const std::string json = FileText(In("r.json"));
        EXPECT_EQ(json.find_first_of("\x1b\x7f"), std::string::npos) << project;
        EXPECT_EQ(json.find("\xc2\x9b"), std::string::npos) << project;
        EXPECT_EQ(nlohmann::json::parse(json)["title"], "a\x1b[31mb\xc2\x9b"
                                                        "2Jc\nd\x7f"
                                                        "e\u00e4");
    }
    Save("wrong.toml", "\"k\\u001b[2J\" = 1\n");
    EXPECT_NE(Run({"wrong.toml"}).err.find("k\\u001b[2J"), std::string::npos);
}

} // namespace
