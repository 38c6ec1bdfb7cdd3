#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Files.h"
#include "ids/Idcheck.h"

namespace tml {

/// The bad IDs of a check as a SARIF 2.1.0 log.
class TSarifLog {
  public:
    /// The folder of the project, by which findings are known wherever it lies; file addresses begin at the
    /// working folder.
    explicit TSarifLog(std::string projectFolder) : projectFolder_(std::move(projectFolder)) {}

    void Add(const TBadID& bad);
    /// EFileError where it cannot be written.
    void Write(IFileSystem& files, const std::string& path) const;

  private:
    struct TResult {
        TBadID Bad;
        std::string Fingerprint;
    };

    std::string projectFolder_;
    std::vector<TResult> results_;
    std::unordered_map<std::string, int> equal_;  ///< how often a content was found so far
};

}  // namespace tml
