#pragma once

#include <string>

#include "scan/Scan.h"

namespace tml::bench {

/// The input of a scan with every rule on: words, patterns, lines, characters and comments are tested. The
/// lists are those that "ratios" stores for the program.
inline TScanInput EveryRule(std::string text, const std::string& fileName, ICommonLibrary* common) {
    TScanInput input;
    input.Source = ReadSource(std::move(text), fileName);
    input.Component.ComponentName = "mlLang1";
    input.Skip.SkipWords.SetText("OK\r\nCancel\r\n\\d+\r\n[A-Z]{2,4}\r\n");
    input.Skip.SkipLines.SetText("RaiseLastOSError\r\nDebugMessage(\r\n");
    input.Skip.ExcludeChars = "\\|/?><.,\":;]}[{=+-_)(!@#$%^&*`~' ";
    input.Skip.UseRegExpForSkip = true;
    input.Common = common;
    return input;
}

}  // namespace tml::bench
