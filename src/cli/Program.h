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
    /// Of the settings; the user's unless --config names another, "" where the system knows of no user's.
    std::string ConfigFolder;
    std::string ProjectName;  ///< of the group's project to work on; "" for its active one
    /// Class of inserted components in this run, the user's default when empty.
    std::string ComponentClass;
    bool MakesConfig = false;  ///< the command stores settings and makes their folder
    bool HasWritten = false;   ///< what the command was asked for is on the disk, whatever comes behind
    IFileSystem* Files = nullptr;
    /// Set by the command that the arguments name; gives the exit code.
    std::function<int(TProgram&)> Run;
};

/// Adds a command's arguments and, once it is chosen, its work. One file a command.
using TAddCommand = void (*)(CLI::App&, TProgram&);

/// A sub-command with its description and, below the options, examples.
CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& examples);

}  // namespace tml
