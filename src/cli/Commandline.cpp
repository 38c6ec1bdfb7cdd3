#include "cli/Commandline.h"

#include <algorithm>
#include <iostream>

#include "base/Errors.h"
#include "cli/Checkcommand.h"
#include "cli/Completioncommand.h"
#include "cli/Dictionarycommand.h"
#include "cli/Excludecommand.h"
#include "cli/Formfilecommands.h"
#include "cli/Formpicturecommand.h"
#include "cli/Formscommand.h"
#include "cli/Idcommands.h"
#include "cli/Insertcommands.h"
#include "cli/Languagescommand.h"
#include "cli/Nearestword.h"
#include "cli/Phrasecommands.h"
#include "cli/Pseudocommand.h"
#include "cli/Replacecommand.h"
#include "cli/Scancommand.h"
#include "cli/Setcommand.h"
#include "cli/Settingscommand.h"
#include "cli/Setupcommand.h"
#include "cli/Statscommand.h"
#include "cli/Terminal.h"
#include "cli/Textscommand.h"
#include "cli/Transfercommands.h"
#include "cli/Updatecommands.h"

namespace tml {
namespace {

constexpr TAddCommand kCommands[] = {
    AddFormsCommand,
    AddScanCommand,
    AddReplaceCommand,
    AddInsertCommand,
    AddLanguagesCommand,
    AddSetupCommand,
    AddExcludeCommand,
    AddUpdateCommand,
    AddClearCommand,
    AddTextsCommand,
    AddSetCommand,
    AddStatsCommand,
    AddPseudoCommand,
    AddCheckCommand,
    AddRenameIDCommand,
    AddFindCommand,
    AddReplacePhraseCommand,
    AddChangeTypeCommand,
    AddSaveCommand,
    AddLoadCommand,
    AddMergeCommand,
    AddLoadLanguageCommand,
    AddExportPropertiesCommand,
    AddDictionaryCommand,
    AddFormTextCommand,
    AddFormBinaryCommand,
    AddFormPictureCommand,
    AddSettingsCommand,
    AddCompletionCommand,
};

constexpr const char* kListsCommands = "\"tmllang help\" lists the commands";
constexpr const char* kFooter =
    "Exit code: 0 done, 1 findings, 2 bad input or usage, 3 done in part.\n"
    "\"tmllang help COMMAND\" explains a command and gives examples.";

std::vector<std::string> CommandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(command->get_name());
    return names;
}

}  // namespace

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& examples) {
    CLI::App* command = app.add_subcommand(name, description);
    command->footer("Examples:\n" + examples);
    return command;
}

TCommandLine::TCommandLine(TProgram& program)
    : program_(program),
      app_(
          "Localizes projects of forms and units: finds hard-coded strings and moves them into the "
          "forms' localization components.",
          "tmllang") {
    app_.require_subcommand(1);
    app_.fallthrough();
    app_.set_version_flag("--version", std::string("tmllang ") + TML_VERSION);
    app_.footer(kFooter);
    for (const TAddCommand add : kCommands)
        add(app_, program_);
    AddShared(app_);
    for (CLI::App* command : app_.get_subcommands([](CLI::App*) { return true; }))
        AddShared(*command);
    AddHelp();
}

/// Stands in the help of every command, and is taken in front of it as well.
void TCommandLine::AddShared(CLI::App& command) {
    const char* group = "Options of every command";
    command.add_flag("--json", program_.Json, "Print one JSON object a line")->group(group);
    command.add_flag("--yes", program_.Yes, "Answer warnings (overwriting, deleting) with Yes")->group(group);
    command.add_option("--config", program_.ConfigFolder, "Folder of the settings instead of the user's")
        ->type_name("DIR")
        ->group(group);
    command
        .add_option("--project", program_.ProjectName,
                    "Project of a group to work on instead of its active one")
        ->type_name("NAME")
        ->group(group);
}

void TCommandLine::AddHelp() {
    CLI::App* help = app_.add_subcommand("help", "Explain the program or a command");
    help->add_option("COMMAND", helpTopic_, "The command; the whole program without it");
    help->callback([this] {
        program_.Run = [this](TProgram&) {
            const auto topics =
                app_.get_subcommands([&](CLI::App* command) { return command->get_name() == helpTopic_; });
            if (!helpTopic_.empty() && topics.empty()) throw UnknownCommand(helpTopic_);
            std::cout << (topics.empty() ? app_.help() : topics.front()->help(app_.get_name()));
            return static_cast<int>(kDone);
        };
    });
}

std::optional<int> TCommandLine::Parse(int argc, const char* const* argv) {
    try {
        app_.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return Refuse(error);
    }
    return std::nullopt;
}

EBadInput TCommandLine::UnknownCommand(const std::string& word) const {
    const std::string nearest = NearestWord(CommandNames(app_), word);
    return {"", 0, "there is no command " + word,
            nearest.empty() ? kListsCommands : "Did you mean " + nearest + "?"};
}

std::optional<int> TCommandLine::Refuse(const CLI::ParseError& error) {
    const std::vector<std::string> words = app_.remaining();
    const auto word = std::find_if(words.begin(), words.end(),
                                   [](const std::string& each) { return !each.starts_with("-"); });
    if (error.get_exit_code() == 0) {
        app_.exit(error);
        return kDone;
    }
    const bool isCommand = !app_.get_subcommands().empty() || word == words.end();
    PrintMessage(isCommand ? std::string(error.what()) + ". Run with --help for more information"
                           : std::string(UnknownCommand(*word).what()));
    return kBadInput;
}

}  // namespace tml
