#pragma once

#include <CLI/CLI.hpp>
#include <optional>

#include "base/Errors.h"
#include "cli/Program.h"

namespace tml {

/// Every command of the program with its arguments, and what all of them share.
class TCommandLine {
  public:
    /// program must outlive the object.
    explicit TCommandLine(TProgram& program);

    /// Reads the arguments into the program. An exit code when nothing is left to run: help was printed, or
    /// a message on what is wrong with the arguments.
    std::optional<int> Parse(int argc, const char* const* argv);

  private:
    void AddShared(CLI::App& command);
    void AddHelp();
    EBadInput UnknownCommand(const std::string& word) const;
    std::optional<int> Refuse(const CLI::ParseError& error);

    TProgram& program_;
    CLI::App app_;
    std::string helpTopic_;
};

}  // namespace tml
