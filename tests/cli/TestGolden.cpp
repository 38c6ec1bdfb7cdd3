// Runs the program on copies of projects. Each folder below cases/ is one case:
//   command   the arguments, one run a line ("$P" is the copy's folder); lines are run in order
//   before    the project, as a folder; or a file that names one, relative to the repository
//   output    expected standard output of all runs, then "exit N" after each; messages follow with "! "
//   changes   expected difference of all files, as a unified diff
// TML_GOLDEN_UPDATE=1 in the environment writes output and changes anew: read them before you keep them.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sstream>

#include "base/Codedtext.h"
#include "base/Diff.h"
#include "forms/Formtree.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFile(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::map<std::string, std::string> FilesBelow(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files[entry.path().lexically_relative(folder).generic_string()] = ReadFile(entry.path());
    return files;
}

/// Text as a person would see it, so that the expected files are readable whatever the encoding.
std::string Shown(const std::string& bytes) {
    const bool binaryForm = bytes.starts_with("\xFF\x0A") || bytes.starts_with("TPF0");
    std::string text = TCodedText(binaryForm ? TFormTree::Parse(bytes, "")->Text() : bytes, "").Text();
    std::erase(text, '\r');
    return text;
}

std::string DifferenceOf(const std::map<std::string, std::string>& before,
                         const std::map<std::string, std::string>& after) {
    std::map<std::string, std::pair<std::string, std::string>> both;
    for (const auto& [name, bytes] : before)
        both[name].first = bytes;
    for (const auto& [name, bytes] : after)
        both[name].second = bytes;
    std::string text;
    for (const auto& [name, bytes] : both)
        text += UnifiedDiff("a/" + name, "b/" + name, Shown(bytes.first), Shown(bytes.second));
    return text;
}

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t pos = 0; (pos = text.find(what, pos)) != std::string::npos; pos += by.size())
        text.replace(pos, what.size(), by);
    return text;
}

struct TRun {
    std::string Output;
    int Exit = -1;
};

TRun RunShell(const std::string& command) {
    TRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return run;
    std::array<char, 4096> part{};
    for (std::size_t size = 0; (size = std::fread(part.data(), 1, part.size(), pipe)) > 0;)
        run.Output.append(part.data(), size);
    run.Exit = WEXITSTATUS(::pclose(pipe));
    return run;
}

class TGoldenCase {
  public:
    explicit TGoldenCase(const fs::path& folder)
        : folder_(folder),
          work_(fs::temp_directory_path() / ("tml-case-" + std::to_string(std::random_device{}()))) {
        fs::path before = folder / "before";
        if (fs::is_regular_file(before)) {
            std::string name = ReadFile(before);
            name.erase(name.find_last_not_of(" \n") + 1);
            before = fs::path(TML_TESTS) / ".." / name;
        }
        fs::create_directories(work_ / "config");
        if (fs::exists(before)) fs::copy(before, work_ / "p", fs::copy_options::recursive);
    }
    ~TGoldenCase() {
        std::error_code ignored;
        fs::remove_all(work_, ignored);
    }

    void Run() {
        const auto before = FilesBelow(work_ / "p");
        std::istringstream lines(ReadFile(folder_ / "command"));
        std::string output;
        for (std::string line; std::getline(lines, line);)
            output += RunLine(line);
        Check("output", output);
        Check("changes", DifferenceOf(before, FilesBelow(work_ / "p")));
    }

  private:
    std::string RunLine(const std::string& line) {
        const std::string place = (work_ / "p").string();
        const std::string messages = (work_ / "messages").string();
        const TRun run = RunShell("cd '" + place + "' && '" + TML_BIN "/tmllang' --config '" +
                                  (work_ / "config").string() + "' " + Replaced(line, "$P", place) + " 2>'" +
                                  messages + "'");
        std::string text = run.Output;
        std::istringstream errors(ReadFile(messages));
        for (std::string error; std::getline(errors, error);)
            text += "! " + error + "\n";
        return Replaced(text, place, "$P") + "exit " + std::to_string(run.Exit) + "\n";
    }

    void Check(const std::string& name, const std::string& actual) {
        if (std::getenv("TML_GOLDEN_UPDATE") != nullptr)
            WriteFile(folder_ / name, actual);
        else
            EXPECT_EQ(ReadFile(folder_ / name), actual) << folder_.filename() << ": " << name;
    }

    fs::path folder_;
    fs::path work_;
};

TEST(Program, GivesTheExpectedOutputAndChangesForEveryCase) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(TML_TESTS) / "cli" / "cases")) {
        TGoldenCase(entry.path()).Run();
        ++count;
    }
    EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace tml
