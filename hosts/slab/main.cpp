// slab: analyses a slab on elastic soil, or another system of its kind, from a project file.

#include "hosts/slab/interrupt.h"
#include "hosts/slab/output.h"
#include "hosts/slab/output_paths.h"
#include "hosts/slab/printable.h"
#include "hosts/slab/project.h"
#include "hosts/slab/system.h"

#include "torlib/frame/class_catalogue.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <sstream>
#include <unistd.h>

namespace slab {

namespace {

enum ExitCode { Done = 0, AnalysisFailed = 1, BadInput = 2, CannotWrite = 3 };

struct CommandLine {
    std::string project;
    std::string report;
    std::string json;
    std::string picture;
    std::string example;
    bool listExamples = false;
    bool validate = false;
    bool plain = false;
    bool quiet = false;
};

void Describe(CLI::App& app, CommandLine& command) {
    app.description(
        "Analyses slabs on elastic soil, with grid beams and piles, and grids of beams,\n"
        "plane frames, wall plates and bored piles from a project file: settlements,\n"
        "contact pressures, internal forces and reactions. Results go to standard output,\n"
        "progress and messages to standard error.");
    app.add_option("project", command.project,
                   "project file (TOML); its keys: docs/project-file.md");
    app.add_option("--report", command.report,
                   "write the full report to FILE (- for standard output)")
        ->type_name("FILE");
    app.add_option("--json", command.json,
                   "write all results as JSON to FILE (- for standard output)")
        ->type_name("FILE");
    app.add_option("--picture", command.picture, "draw the results as SVG to FILE")
        ->type_name("FILE");
    app.add_flag("--plain", command.plain,
                 "keep the 32-bit solution, without the correction of digits");
    app.add_flag("--validate", command.validate, "check the project file only");
    app.add_flag("--quiet", command.quiet, "no progress and no messages but errors");
    app.add_option("--example", command.example, "write the shipped example NAME to NAME.toml")
        ->type_name("NAME");
    app.add_flag("--examples", command.listExamples, "list the shipped examples");
    app.set_version_flag("--version", "slab, torlib " +
                                          std::to_string(torlib::LibraryMajorVersion) + "." +
                                          std::to_string(torlib::LibraryMinorVersion));
    app.footer("Exit codes: 0 done, 1 analysis failed, 2 input error, 3 cannot write,\n"
               "130 cancelled by Ctrl-C, 143 by SIGTERM.");
}

int ListExamples() {
    std::string list;
    for (const Example& example : Examples()) {
        list += example.Name + "\n    " + example.Purpose + '\n';
    }
    WriteStandardOutput(list);
    return Done;
}

int WriteExample(const CommandLine& command) {
    for (const Example& example : Examples()) {
        if (example.Name != command.example) {
            continue;
        }
        const std::string path = example.Name + ".toml";
        if (std::filesystem::exists(std::filesystem::symlink_status(path))) {
            std::cerr << path << ": already exists; move it away first\n";
            return CannotWrite;
        }
        WriteWholeFile(path, example.Text);
        WriteStandardOutput(path + '\n');
        return Done;
    }
    std::cerr << "--example: there is no example " << Printable(command.example)
              << "; there are:\n";
    for (const Example& example : Examples()) {
        std::cerr << "  " << example.Name << '\n';
    }
    return BadInput;
}

void Write(const std::string& path, const std::function<std::string()>& text, RunWindow& window) {
    if (path.empty()) {
        return;
    }
    if (path == "-") {
        WriteStandardOutput(text());
        return;
    }
    WriteWholeFile(path, text());
    window.Log("written: " + Printable(path));
}

/// Files first: what a reader of standard output keeps waiting costs none of them.
void WriteAll(const CommandLine& command, const Outcome& outcome, RunWindow& window) {
    const std::pair<const std::string&, std::function<std::string()>> outputs[] = {
        {command.report, [&] { return outcome.Report(); }},
        {command.json, [&] { return outcome.Json(); }},
        {command.picture, [&] { return outcome.Picture(); }},
    };
    bool summary = true;
    for (const auto& [path, text] : outputs) {
        if (path != "-") {
            Write(path, text, window);
        }
    }
    for (const auto& [path, text] : outputs) {
        if (path == "-") {
            summary = false;
            Write(path, text, window);
        }
    }
    if (summary) {
        WriteStandardOutput(outcome.Summary());
    }
}

int AnalyseProject(const CommandLine& command) {
    const auto style = command.quiet           ? RunWindow::Style::Quiet
                       : isatty(STDERR_FILENO) ? RunWindow::Style::Bar
                                               : RunWindow::Style::Lines;
    RunWindow window(style);
    InstallCancelOnInterrupt();
    if (!command.validate) {
        CheckOutputs(command.project, {{"--report", command.report},
                                       {"--json", command.json},
                                       {"--picture", command.picture}});
    }
    const std::unique_ptr<Project> project = OpenProject(command.project, window);
    if (command.validate) {
        WriteStandardOutput(Printable(command.project) + ": valid; " + project->Size() + '\n');
        return Done;
    }
    AnalysisOptions options;
    options.Plain = command.plain;
    const std::unique_ptr<Outcome> outcome = project->Analyse(options, window);
    window.End();
    ThrowIfCancelled();
    try {
        WriteAll(command, *outcome, window);
    } catch (const Cancelled&) {
        std::cerr << "cancelled while the results were written\n";
        return CancelExitCode();
    }
    const std::string doubt = outcome->NotConverged();
    if (!doubt.empty()) {
        std::cerr << doubt << '\n';
        return AnalysisFailed;
    }
    return Done;
}

int Run(const CommandLine& command) {
    if (command.listExamples) {
        return ListExamples();
    }
    if (!command.example.empty()) {
        return WriteExample(command);
    }
    if (command.project.empty()) {
        std::cerr
            << "a project file is needed; --help shows the options, --examples what is shipped\n";
        return BadInput;
    }
    return AnalyseProject(command);
}

/// Every way a run can end, as an exit code.
int Ended(const std::function<int()>& run) {
    const auto failed = [](const std::string& message, int code) {
        std::cerr << Printable(message) << '\n';
        return code;
    };
    try {
        return run();
    } catch (const InputError& error) {
        return failed(error.what(), BadInput);
    } catch (const Cancelled&) {
        return failed("cancelled; nothing was written", CancelExitCode());
    } catch (const AnalysisFailure& error) {
        return failed(std::string("the analysis failed: ") + error.what(), AnalysisFailed);
    } catch (const torlib::RunTimeError& error) {
        return failed(std::string("the analysis failed: ") + error.what(), AnalysisFailed);
    } catch (const std::bad_alloc&) {
        return failed("the analysis failed: not enough memory for this model", AnalysisFailed);
    } catch (const std::exception& error) {
        return failed(error.what(), CannotWrite);
    }
}

int Main(int argc, char** argv) {
    CommandLine command;
    CLI::App app;
    Describe(app, command);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        std::ostringstream help;
        std::ostringstream refusal;
        const int code = app.exit(error, help, refusal) == 0 ? Done : BadInput;
        std::cerr << Printable(refusal.str(), true);
        return Ended([&] {
            WriteStandardOutput(help.str());
            return code;
        });
    }
    return Ended([&] { return Run(command); });
}

} // namespace

} // namespace slab

int main(int argc, char** argv) {
    return slab::Main(argc, argv);
}
