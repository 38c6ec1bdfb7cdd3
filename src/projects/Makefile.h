#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// What the makefiles that serve as projects say: macros and rules; conditionals and commands are passed
/// over, references to macros stay as they are, and a back slash is always a separator of paths.
struct TMakefile {
    struct TMacro {
        std::string Value;
        int Line = 0;  ///< 1-based
    };
    /// By name; the last definition holds.
    std::map<std::string, TMacro> Macros;
    /// Upper-cased target to the first file that it is made from, "" without one.
    std::map<std::string, std::string> Sources;
};

/// Reads any text; what is neither macro nor rule is passed over. A line that ends in a back slash goes on
/// in the next one.
TMakefile ParseMakefile(std::string_view text);

/// The words of a macro's value, separated by blanks; quotes hold a word together and are taken away.
std::vector<std::string> MakeWords(std::string_view value);

}  // namespace tml
