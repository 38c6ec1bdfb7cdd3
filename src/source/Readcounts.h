#pragma once

namespace tml {

/// How often source texts were read by this thread, for tests that hold a command to one reading of each.
struct TReadCounts {
    int Skims = 0;          ///< passes that find comments and literals
    int Tokenizations = 0;  ///< passes that tell tokens apart
    int Outlines = 0;       ///< passes that find sections, classes and routines
};

TReadCounts& ReadCounts();

}  // namespace tml
