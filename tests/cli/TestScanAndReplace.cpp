#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>

#include "support/Workfolder.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

/// For each unit's file its strings with ID, call and advice.
using TStrings = std::map<std::string, std::multiset<std::string>>;

/// A copy of a sample folder, with MainForm as the form that receives the strings of units.
class TSample {
  public:
    TSample(const std::string& folder, const std::string& project) : project_(project) {
        work_.Copy("examples/" + folder, "p");
        WriteBytes(work_ / "p" / fs::path(project).replace_extension(".mlproj"),
                   "[Settings]\nDefaultFormForUnits=MainForm\n");
    }

    void Read(const std::string& command, const std::string& options, TStrings& strings) const {
        const auto [output, exit] = work_.Run("cd p && " + work_.Program() + " " + command + " " + project_ +
                                              " --json " + options + " 2>&1");
        ASSERT_EQ(exit, 0) << output;
        std::istringstream rows(output);
        for (std::string row; std::getline(rows, row);) {
            const nlohmann::json value = nlohmann::json::parse(row);
            if (!value.contains("text")) continue;  // sums a unit up
            strings[fs::path(value["file"].get<std::string>()).filename().string()].insert(
                value["text"].dump() + value["id"].dump() + value["replacement"].dump() +
                value["advice"].dump());
        }
    }

  private:
    TWorkFolder work_;
    std::string project_;
};

TEST(ScanAndReplace, GiveTheSameStringsIDsAndAdvice) {
    constexpr std::pair<const char*, const char*> kSamples[] = {{"orchard", "Orchard.dproj"},
                                                                {"orchard", "Orchard.dpr"},
                                                                {"cellar", "Cellar.cbproj"},
                                                                {"cellar", "Cellar.bpr"}};
    for (const auto& [folder, project] : kSamples) {
        const TSample sample(folder, project);
        TStrings scanned, replaced;
        sample.Read("scan", "", scanned);
        sample.Read("replace", "--dry-run", replaced);
        // Pascal units cannot call a form that is written in C++.
        std::erase_if(scanned, [folder = std::string(folder)](const auto& unit) {
            return folder == "cellar" && unit.first.ends_with(".pas");
        });
        const TStrings forms = replaced;
        for (const auto& [unit, strings] : scanned)
            if (!forms.contains(unit))
                sample.Read("replace", "--dry-run --unit " + fs::path(unit).stem().string(), replaced);
        // In one command its IDs stand behind those that the ancestor gets; scan looks at each form alone.
        if (replaced.erase("Orderdialog.pas") > 0)
            sample.Read("replace", "--dry-run --form OrderDialog", replaced);
        EXPECT_GE(scanned.size(), 5U);
        EXPECT_EQ(scanned, replaced) << project;
    }
}

}  // namespace
}  // namespace tml
