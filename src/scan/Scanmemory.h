#pragma once

#include <string>

#include "scan/Skiprules.h"

namespace tml {

/// The scan mode in which only the code editor's block is scanned.
inline constexpr int kScanSelection = 999;

/// What the scanning commands remember from one to the next.
struct TScanMemory {
    TmlSkippedStrings Skipped;        ///< by the last scan
    std::string ScannedUnit;          ///< by the last scan, "" before the first
    std::string ExcludeRowsTypedStr;  ///< last answer of the review's "Delete rows that contains"
    int ScanMode = 0;                 ///< kScanSelection while only the editor's block is scanned
};

}  // namespace tml
