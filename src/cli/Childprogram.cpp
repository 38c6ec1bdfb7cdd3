#include "cli/Childprogram.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/Errors.h"

namespace tml {
namespace {

[[noreturn]] void NoRoom() {
    throw EFileError("a temporary file", 0, "cannot be written", "Make room in /tmp");
}

/// A file without a name, which goes with the object: unlike a pipe it takes all that one side writes before
/// the other one reads.
class TPassed {
  public:
    TPassed() : file_(std::tmpfile(), &std::fclose) {
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

int Start(const std::string& path, const std::vector<std::string>& arguments,
          const std::array<TPassed, 3>& streams) {
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
    if (error != 0) throw EBadInput(path, 0, std::string("cannot be started: ") + std::strerror(error));
    return child;
}

int ExitOf(int child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

TChildRun RunChild(const std::string& path, const std::vector<std::string>& arguments,
                   const std::string& input) {
    std::array<TPassed, 3> streams;
    streams[0].Write(input);
    TChildRun run;
    run.Exit = ExitOf(Start(path, arguments, streams));
    run.Output = streams[1].Read();
    run.Errors = streams[2].Read();
    return run;
}

}  // namespace tml
