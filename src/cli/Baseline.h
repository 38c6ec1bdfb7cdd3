#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <string>
#include <vector>

#include "base/Files.h"

namespace tml {

/// What a gate knows a finding by: nothing of it changes when its line moves.
struct TFinding {
    std::string Kind;
    std::string File;  ///< full path
    std::vector<std::string> Content;
};

struct TBaselineOptions {
    std::string Baseline;
    std::string WriteBaseline;
};

/// The findings that a gate accepts, in a file for version control: one a line, sorted, fields separated by
/// tabs, paths from the file's folder on. A finding that is there twice is accepted twice.
class TBaseline {
  public:
    /// Without files nothing is accepted and nothing written. EBadInput for one that cannot be read or is no
    /// baseline.
    TBaseline(IFileSystem& files, const TBaselineOptions& options);

    /// Takes the finding into what Write writes. True where it is accepted; each line of the file accepts
    /// one.
    bool Accepts(const TFinding& finding);
    bool IsUsed() const { return !accepted_.empty() || !writeTo_.empty(); }
    /// Writes all that was found, over a former file.
    void Write();

  private:
    IFileSystem& files_;
    std::string readFolder_;
    std::string writeTo_;
    std::map<std::string, int> accepted_;
    std::vector<std::string> found_;
};

/// Adds --baseline and --write-baseline.
void AddBaselineOptions(CLI::App* command, TBaselineOptions& options);

}  // namespace tml
