#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tml {

/// Files on the disk and the programs that work on them, for tests that go through both.

std::string BytesOf(const std::filesystem::path& file);
void WriteBytes(const std::filesystem::path& file, const std::string& bytes);
/// All files below a folder with their bytes, by their path in it ("forms/About.dfm").
std::map<std::string, std::string> ContentOf(const std::filesystem::path& folder);

/// A folder of the test's own, which goes with it.
class TWorkFolder {
  public:
    TWorkFolder();
    ~TWorkFolder();
    TWorkFolder(const TWorkFolder&) = delete;
    TWorkFolder& operator=(const TWorkFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
    /// Copies a folder of the repository ("examples/orchard") to a new one here.
    void Copy(const std::string& folder, const std::string& name) const;

    struct TRun {
        std::string Output;  ///< what came on standard output
        int Exit = -1;
    };
    /// Runs a shell command in this folder.
    TRun Run(const std::string& command) const;
    /// How a shell command calls the program, with settings that are kept in this folder.
    std::string Program() const;

  private:
    std::filesystem::path path_;
};

}  // namespace tml
