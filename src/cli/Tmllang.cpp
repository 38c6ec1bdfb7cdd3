#include <cstdlib>
#include <iostream>

#include "base/Binarystreams.h"
#include "base/Diskfiles.h"
#include "base/Errors.h"
#include "cli/Commandline.h"
#include "cli/Interrupt.h"
#include "cli/Terminal.h"

namespace tml {
namespace {

std::string EnvironmentOf(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// The folder of the user's settings, by the conventions of the system; "" where it does not tell: a path
/// of the working folder would be somebody else's.
std::string UserConfigFolder() {
#ifdef _WIN32
    const std::string folder = EnvironmentOf("APPDATA");
#else
    std::string folder = EnvironmentOf("XDG_CONFIG_HOME");
    const std::string home = EnvironmentOf("HOME");
    if (!IsAbsolutePath(folder)) folder = IsAbsolutePath(home) ? JoinPath(home, ".config") : "";
#endif
    return folder.empty() ? folder : JoinPath(folder, "tmllang");
}

/// A folder that was named and is not there is a slip of the pen, not the wish for settings of its own.
void CheckConfigFolder(const TProgram& program, const std::string& usersFolder) {
    if (program.MakesConfig || program.ConfigFolder == usersFolder) return;
    const auto info = program.Files->Stat(program.ConfigFolder);
    if (!info || !info->IsFolder)
        throw EBadInput(program.ConfigFolder, 0, "there is no such folder of settings",
                        "\"tmllang settings NAME VALUE\" makes it");
}

int RunChosen(TProgram& program, const std::string& usersFolder) {
    try {
        CheckConfigFolder(program, usersFolder);
        const int code = program.Run(program);
        std::cout.flush();
        if (std::cout) return code;
        PrintMessage(EFileError("standard output", 0, "cannot be written",
                                program.HasWritten ? "The files of the project are written all the same"
                                                   : "Check the disk or the pipe")
                         .what());
        return program.HasWritten ? kDoneInPart : kBadInput;
    } catch (const EmlLangSilent&) {
        return kBadInput;
    } catch (const std::exception& error) {
        PrintMessage(error.what());
        return kBadInput;
    }
}

int RunProgram(int argc, char** argv) {
    const auto files = MakeDiskFileSystem(Interrupted);
    const std::string usersFolder = UserConfigFolder();
    TProgram program;
    program.Files = files.get();
    program.ConfigFolder = usersFolder;
    TCommandLine line(program);
    if (const auto code = line.Parse(argc, argv)) return *code;
    return RunChosen(program, usersFolder);
}

}  // namespace
}  // namespace tml

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    tml::MakeStreamsBinary();
    return tml::RunProgram(argc, argv);
}
