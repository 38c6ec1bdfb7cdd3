#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

#include "base/Files.h"

namespace tml {

/// How a run ends; a build server reads these.
enum TExitCode : int { kDone = 0, kFindings = 1, kBadInput = 2, kDoneInPart = 3 };

/// What all commands share: the options before and behind them, and the chosen command's work.
struct TProgram {
    bool Json = false;
    bool Yes = false;
    std::string ConfigFolder;  ///< of the settings; the user's unless --config names another
    std::string ProjectName;   ///< of the group's project to work on; "" for its active one
    /// Class of inserted components in this run, the user's default when empty.
    std::string ComponentClass;
    IFileSystem* Files = nullptr;
    /// Set by the command that the arguments name; gives the exit code.
    std::function<int(TProgram&)> Run;
};

/// Adds a command's arguments and, once it is chosen, its work. One file a command.
using TAddCommand = void (*)(CLI::App&, TProgram&);

void AddFormsCommand(CLI::App& app, TProgram& program);
void AddScanCommand(CLI::App& app, TProgram& program);
void AddReplaceCommand(CLI::App& app, TProgram& program);
void AddInsertCommand(CLI::App& app, TProgram& program);
void AddLanguagesCommand(CLI::App& app, TProgram& program);
void AddFormTextCommand(CLI::App& app, TProgram& program);
void AddFormBinaryCommand(CLI::App& app, TProgram& program);
void AddSettingsCommand(CLI::App& app, TProgram& program);

/// A sub-command with its description and, below the options, examples.
CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& examples);

}  // namespace tml
