// Runs the program on copies of projects. Each folder below cases/ is one case:
//   command   the arguments, one run a line ("$P" is the copy's folder); lines are run in order
//   before    the project, as a folder; or a file that names one, relative to the repository
//   output    expected standard output of all runs, then "exit N" after each; messages follow with "! "
//   changes   expected difference of all files, as a unified diff
// TML_GOLDEN_UPDATE=1 in the environment writes output and changes anew: read them before you keep them.
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "base/Codedtext.h"
#include "base/Diff.h"
#include "forms/Formtree.h"
#include "support/Workfolder.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

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

class TGoldenCase {
  public:
    explicit TGoldenCase(const fs::path& folder) : folder_(folder) {
        std::string before = (folder / "before").string();
        if (fs::is_regular_file(folder / "before")) {
            before = BytesOf(folder / "before");
            before.erase(before.find_last_not_of(" \n") + 1);
        }
        if (fs::exists(fs::path(TML_TESTS) / ".." / before)) work_.Copy(before, "p");
    }

    void Run() {
        const auto before = ContentOf(work_ / "p");
        std::istringstream lines(BytesOf(folder_ / "command"));
        std::string output;
        for (std::string line; std::getline(lines, line);)
            output += RunLine(line);
        Check("output", output);
        Check("changes", DifferenceOf(before, ContentOf(work_ / "p")));
    }

  private:
    std::string RunLine(const std::string& line) {
        const std::string place = (work_ / "p").string();
        const TWorkFolder::TRun run =
            work_.Run("cd p && " + work_.Program() + " " + Replaced(line, "$P", place) + " 2>../messages");
        std::string text = run.Output;
        std::istringstream errors(BytesOf(work_ / "messages"));
        for (std::string error; std::getline(errors, error);)
            text += "! " + error + "\n";
        return Replaced(text, place, "$P") + "exit " + std::to_string(run.Exit) + "\n";
    }

    void Check(const std::string& name, const std::string& actual) {
        if (std::getenv("TML_GOLDEN_UPDATE") != nullptr)
            WriteBytes(folder_ / name, actual);
        else
            EXPECT_EQ(BytesOf(folder_ / name), actual) << folder_.filename() << ": " << name;
    }

    fs::path folder_;
    TWorkFolder work_;
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
