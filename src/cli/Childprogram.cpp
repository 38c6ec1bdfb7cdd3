#include "cli/Childprogram.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#ifdef _WIN32
#include <filesystem>
#include <io.h>
#include <system_error>
#include <windows.h>
#else
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "base/Errors.h"

namespace tml {
namespace {

#ifdef _WIN32
std::FILE* NewTemporaryFile() {
    std::array<wchar_t, MAX_PATH + 1> folder{}, name{};
    const auto room = static_cast<DWORD>(folder.size());
    if (GetTempPathW(room, folder.data()) == 0) return nullptr;
    if (GetTempFileNameW(folder.data(), L"tml", 0, name.data()) == 0) return nullptr;
    return _wfopen(name.data(), L"w+bTD");
}
#else
std::FILE* NewTemporaryFile() {
    return std::tmpfile();
}
#endif

[[noreturn]] void NoRoom() {
    throw EFileError("a temporary file", 0, "cannot be written", "Make room in the folder for such files");
}

/// A file that goes with the object: unlike a pipe it takes all that one side writes before the other one
/// reads.
class TPassed {
  public:
    TPassed() : file_(NewTemporaryFile(), &std::fclose) {
        if (file_ == nullptr) NoRoom();
    }

    int Handle() const { return fileno(file_.get()); }
    void Write(const std::string& bytes) {
        const bool isWhole = std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) == bytes.size();
        if (!isWhole || std::fflush(file_.get()) != 0) NoRoom();
        std::rewind(file_.get());
    }
    std::string Read() {
        std::string bytes;
        std::array<char, 65536> part{};
        std::rewind(file_.get());
        for (std::size_t size = 0; (size = std::fread(part.data(), 1, part.size(), file_.get())) > 0;)
            bytes.append(part.data(), size);
        return bytes;
    }

  private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

using TStreams = std::array<TPassed, 3>;  ///< standard input, output and errors

[[noreturn]] void CannotStart(const std::string& path, const std::string& why) {
    throw EBadInput(path, 0, "cannot be started: " + why);
}

#ifdef _WIN32
/// As the program's start-up code takes it apart: a backslash counts as one but in front of a quote.
std::wstring Quoted(const std::wstring& word) {
    std::wstring quoted = L"\"";
    std::size_t slashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"') quoted.append(slashes + 1, L'\\');
        slashes = c == L'\\' ? slashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(slashes, L'\\') + L'"';
}

std::wstring Wide(const std::string& text) {
    return std::filesystem::u8path(text).wstring();
}

HANDLE Inherited(const TPassed& stream) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(stream.Handle()));
    SetHandleInformation(handle, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    return handle;
}

int ExitOf(HANDLE child) {
    DWORD code = 0;
    const bool ended = WaitForSingleObject(child, INFINITE) == WAIT_OBJECT_0;
    const bool known = ended && GetExitCodeProcess(child, &code) != 0;
    CloseHandle(child);
    return known ? static_cast<int>(code) : -1;
}

int RunToEnd(const std::string& path, const std::vector<std::string>& arguments, const TStreams& streams) {
    std::wstring line = Quoted(Wide(path));
    for (const std::string& argument : arguments)
        line += L' ' + Quoted(Wide(argument));
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = Inherited(streams[0]);
    start.hStdOutput = Inherited(streams[1]);
    start.hStdError = Inherited(streams[2]);
    PROCESS_INFORMATION child{};
    if (CreateProcessW(Wide(path).c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                       nullptr, &start, &child) == 0)
        CannotStart(path, std::system_category().message(static_cast<int>(GetLastError())));
    CloseHandle(child.hThread);
    return ExitOf(child.hProcess);
}
#else
int ExitOf(int child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int RunToEnd(const std::string& path, const std::vector<std::string>& arguments, const TStreams& streams) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (std::size_t i = 0; i < streams.size(); ++i)
        posix_spawn_file_actions_adddup2(&actions, streams[i].Handle(), static_cast<int>(i));
    std::vector<char*> words = {const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    pid_t child = 0;
    const int error = posix_spawn(&child, path.c_str(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) CannotStart(path, std::strerror(error));
    return ExitOf(child);
}
#endif

}  // namespace

TChildRun RunChild(const std::string& path, const std::vector<std::string>& arguments,
                   const std::string& input) {
    TStreams streams;
    streams[0].Write(input);
    TChildRun run;
    run.Exit = RunToEnd(path, arguments, streams);
    run.Output = streams[1].Read();
    run.Errors = streams[2].Read();
    return run;
}

}  // namespace tml
