#include <cstdlib>
#include <iostream>

#include "base/Diskfiles.h"
#include "base/Errors.h"
#include "cli/Interrupt.h"
#include "cli/Program.h"

namespace tml {
namespace {

constexpr TAddCommand kCommands[] = {
    AddFormsCommand,     AddScanCommand,     AddReplaceCommand,    AddInsertCommand,
    AddLanguagesCommand, AddFormTextCommand, AddFormBinaryCommand, AddSettingsCommand,
};

constexpr const char* kFooter =
    "Exit code: 0 done, 1 findings, 2 bad input or usage, 3 done in part.\n"
    "\"tmllang COMMAND --help\" explains a command and gives examples.";

std::string EnvironmentOf(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// The folder of the user's settings, by the conventions of the system.
std::string UserConfigFolder() {
#ifdef _WIN32
    return JoinPath(EnvironmentOf("APPDATA"), "tmllang");
#else
    std::string folder = EnvironmentOf("XDG_CONFIG_HOME");
    if (folder.empty()) folder = JoinPath(EnvironmentOf("HOME"), ".config");
    return JoinPath(folder, "tmllang");
#endif
}

int Report(const std::exception& error) {
    std::cerr << "tmllang: " << error.what() << "\n";
    return kBadInput;
}

int RunChosen(TProgram& program) {
    try {
        const int code = program.Run(program);
        std::cout.flush();
        if (!std::cout)
            throw EFileError("standard output", 0, "cannot be written", "Check the disk or the pipe");
        return code;
    } catch (const EmlLangSilent&) {
        return kBadInput;
    } catch (const std::exception& error) {
        return Report(error);
    }
}

int RunProgram(int argc, char** argv) {
    const auto files = MakeDiskFileSystem(Interrupted);
    TProgram program;
    program.Files = files.get();
    program.ConfigFolder = UserConfigFolder();
    CLI::App app(
        "Localizes projects of forms and units: finds hard-coded strings and moves them into the "
        "forms' localization components.",
        "tmllang");
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", std::string("tmllang ") + TML_VERSION);
    app.add_flag("--json", program.Json, "Print one JSON object a line");
    app.add_flag("--yes", program.Yes, "Answer warnings (overwriting, deleting) with Yes");
    app.add_option("--config", program.ConfigFolder, "Folder of the settings instead of the user's")
        ->type_name("DIR");
    app.add_option("--project", program.ProjectName,
                   "Project of a group to work on instead of its active one")
        ->type_name("NAME");
    app.footer(kFooter);
    for (const TAddCommand add : kCommands)
        add(app, program);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? kDone : kBadInput;
    }
    return RunChosen(program);
}

}  // namespace

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& examples) {
    CLI::App* command = app.add_subcommand(name, description);
    command->footer("Examples:\n" + examples);
    return command;
}

}  // namespace tml

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    return tml::RunProgram(argc, argv);
}
