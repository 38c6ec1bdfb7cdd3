#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Mlcommon.h"
#include "scan/Foundstring.h"
#include "scan/Replacement.h"
#include "scan/Skiprules.h"
#include "source/Sourcetext.h"
#include "tables/Table.h"

namespace tml {

/// Part of a text, byte offsets, 0-based, End exclusive.
struct TTextRange {
    std::size_t Begin = 0;
    std::size_t End = 0;
};

/// All that a scan of one unit depends on.
struct TScanInput {
    TSharedSource Source;  ///< the whole unit; its lines end with CR LF
    TSharedSource Header;  ///< of a C++ unit, may be null; serves the advice
    TComponentReference Component;
    TFormComponents Others;                    ///< calls on these are passed over too; may be empty
    TTable Existing{TStringsType::stStrings};  ///< what the component holds already
    TSkipSettings Skip;
    std::string HCPrefix = "IDS_";
    bool IDsFromTexts = false;  ///< proposed IDs are made from the texts, see TTextIDs
    std::string ReplaceMethod = "GetTextOrDefault(";
    int CommentsLength = 0;
    bool NoCommentsInSources = false;
    std::optional<TTextRange> Selection;  ///< only this part is scanned; positions stay those of the unit
    ICommonLibrary* Common = nullptr;     ///< nullptr is a library without entry points
    bool WithAdvice = true;               ///< off, every Advice is None and the scan is quicker
    /// Told the number of strings found so far after each; false ends the scan by EmlLangSilent.
    std::function<bool(int)> Progress;

    std::string_view Text() const { return Source->Text(); }
    const std::string& FileName() const { return Source->FileName(); }
};

struct TScanResult {
    /// In the order of the text, each with an ID of its own; those made from texts are the same for the same
    /// text.
    TmlFoundSourceStrings Found;
    TmlSkippedStrings Skipped;
};

/// How calls are written for this input; Scan, the review and the search for duplicates share it.
TCallStyle CallStyleOf(const TScanInput& input);

/// The literals to offer and those passed over; nothing is changed.
TScanResult Scan(const TScanInput& input);

struct TStringCounts {
    int Found = 0;
    int Skipped = 0;
};

/// How many literals Scan would offer, and how many it would record as passed over.
TStringCounts CountStrings(const TScanInput& input);

}  // namespace tml
