#pragma once

#include <string>
#include <vector>

namespace tml {

/// What a program has written, and how it ended.
struct TChildRun {
    std::string Output;
    std::string Errors;
    int Exit = -1;  ///< -1 where a signal ended it
};

/// Runs a program, which gets the input on its standard input, to its end. EBadInput where it cannot be
/// started, EFileError where there is no room for what passes between the two.
TChildRun RunChild(const std::string& path, const std::vector<std::string>& arguments,
                   const std::string& input);

}  // namespace tml
