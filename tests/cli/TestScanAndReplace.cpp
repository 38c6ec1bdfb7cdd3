#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <set>
#include <sstream>
#include <string>

namespace tml {
namespace {

namespace fs = std::filesystem;

/// For each unit's file its strings with ID, call and advice.
using TStrings = std::map<std::string, std::multiset<std::string>>;

/// A copy of a sample folder, with MainForm as the form that receives the strings of units.
class TSample {
  public:
    TSample(const std::string& folder, const std::string& project)
        : folder_(fs::temp_directory_path() / ("tml-same-" + std::to_string(std::random_device{}()))),
          project_(project) {
        fs::copy(fs::path(TML_TESTS) / ".." / "examples" / folder, folder_, fs::copy_options::recursive);
        fs::create_directories(folder_ / "config");
        std::ofstream(folder_ / fs::path(project).replace_extension(".mlproj"))
            << "[Settings]\nDefaultFormForUnits=MainForm\n";
    }
    ~TSample() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    TSample(const TSample&) = delete;
    TSample& operator=(const TSample&) = delete;

    void Read(const std::string& command, const std::string& options, TStrings& strings) const {
        const std::string line = "cd '" + folder_.string() + "' && '" TML_BIN "/tmllang' --config '" +
                                 (folder_ / "config").string() + "' " + command + " " + project_ +
                                 " --json " + options + " 2>&1";
        FILE* pipe = ::popen(line.c_str(), "r");
        ASSERT_NE(pipe, nullptr);
        std::string output;
        std::array<char, 4096> part{};
        for (std::size_t size = 0; (size = std::fread(part.data(), 1, part.size(), pipe)) > 0;)
            output.append(part.data(), size);
        ASSERT_EQ(::pclose(pipe), 0) << output;
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
    fs::path folder_;
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
        EXPECT_GE(scanned.size(), 5U);
        EXPECT_EQ(scanned, replaced) << project;
    }
}

}  // namespace
}  // namespace tml
