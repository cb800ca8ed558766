// slab: analyses a slab on elastic soil, or another system of its kind, from a project file.

#include "hosts/slab/output.h"
#include "hosts/slab/project.h"
#include "hosts/slab/system.h"

#include "torlib/frame/class_catalogue.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <unistd.h>

namespace slab {

namespace {

enum ExitCode { Done = 0, AnalysisFailed = 1, BadInput = 2, CannotWrite = 3, WasCancelled = 130 };

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
    app.footer(
        "Exit codes: 0 done, 1 analysis failed, 2 input error, 3 cannot write, 130 cancelled.");
}

int ListExamples() {
    for (const Example& example : Examples()) {
        std::cout << example.Name << "\n    " << example.Purpose << '\n';
    }
    return Done;
}

int WriteExample(const CommandLine& command) {
    for (const Example& example : Examples()) {
        if (example.Name != command.example) {
            continue;
        }
        const std::string path = example.Name + ".toml";
        if (std::filesystem::exists(path)) {
            std::cerr << path << ": already exists; move it away first\n";
            return CannotWrite;
        }
        WriteWholeFile(path, example.Text);
        std::cout << path << '\n';
        return Done;
    }
    std::cerr << "--example: there is no example " << command.example << "; there are:\n";
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
        std::cout << text() << std::flush;
        return;
    }
    WriteWholeFile(path, text());
    window.Log("written: " + path);
}

int AnalyseProject(const CommandLine& command) {
    const auto style = command.quiet           ? RunWindow::Style::Quiet
                       : isatty(STDERR_FILENO) ? RunWindow::Style::Bar
                                               : RunWindow::Style::Lines;
    RunWindow window(style);
    const std::unique_ptr<Project> project = OpenProject(command.project);
    if (command.validate) {
        std::cout << command.project << ": valid; " << project->Size() << '\n';
        return Done;
    }
    AnalysisOptions options;
    options.Plain = command.plain;
    const std::unique_ptr<Outcome> outcome = project->Analyse(options, window);
    window.End();
    Write(
        command.report, [&] { return outcome->Report(); }, window);
    Write(
        command.json, [&] { return outcome->Json(); }, window);
    Write(
        command.picture, [&] { return outcome->Picture(); }, window);
    if (command.report != "-" && command.json != "-" && command.picture != "-") {
        std::cout << outcome->Summary() << std::flush;
    }
    if (!std::cout) {
        std::cerr << "standard output: cannot be written\n";
        return CannotWrite;
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
int Main(int argc, char** argv) {
    CommandLine command;
    CLI::App app;
    Describe(app, command);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? Done : BadInput;
    }
    InstallCancelOnInterrupt();
    try {
        return Run(command);
    } catch (const InputError& error) {
        std::cerr << error.what() << '\n';
        return BadInput;
    } catch (const Cancelled&) {
        std::cerr << "cancelled; nothing was written\n";
        return WasCancelled;
    } catch (const AnalysisFailure& error) {
        std::cerr << "the analysis failed: " << error.what() << '\n';
        return AnalysisFailed;
    } catch (const torlib::RunTimeError& error) {
        std::cerr << "the analysis failed: " << error.what() << '\n';
        return AnalysisFailed;
    } catch (const std::bad_alloc&) {
        std::cerr << "the analysis failed: not enough memory for this model\n";
        return AnalysisFailed;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return CannotWrite;
    }
}

} // namespace

} // namespace slab

int main(int argc, char** argv) {
    return slab::Main(argc, argv);
}
