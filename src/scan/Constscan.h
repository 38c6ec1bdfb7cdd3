#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "scan/Scan.h"

namespace tml {

/// Closes every declaration that was rewritten, and keeps later scans away from it.
inline constexpr std::string_view kLocalizedComment = "// TML: Localized (Don't modify!)";

/// One declared constant.
struct TStrRec {
    std::string StrName;
    std::string StrID;
    std::string StrContent;    ///< the value's text, decoded, UTF-8
    std::int32_t StrLine = 0;  ///< of the name, 1-based
    std::int32_t StrCol = 0;   ///< of the name, 1-based byte column
    std::int32_t EndLine = 0;  ///< of the semicolon, 1-based
    std::int32_t EndCol = 0;   ///< behind the semicolon, 1-based byte column
    bool AlreadyHasType = false;
    bool IsPChar = false;               ///< declared as PChar: keeps that type and takes a C method
    std::string Value;                  ///< the value as in the source, delimiters included, on one line
    std::vector<std::string> Comments;  ///< those within the declaration that Value leaves out
    std::string Owner;                  ///< the class around it ("TOuter.TInner"), "" outside classes
    std::string Reference;              ///< how the code that sets it names the component
    std::size_t Begin = 0;              ///< of the name, byte offset, 0-based
    std::size_t End = 0;                ///< behind the semicolon
    std::size_t Place = 0;              ///< of the first literal's delimiter
    std::size_t Routine = 0;            ///< of the routine around it; meaningful when IsLocal
    bool IsLocal = false;               ///< declared inside a routine
    TAdvice Advice = TAdvice::None;
};

struct TConstInput {
    TScanInput Scan;
    std::string CnstPrefix = "str";
    int CnstPermanent = 0;  ///< 0 takes the name into the ID as it is, else in capitals
    bool EmptyConstsValues = true;
};

struct TConstScanResult {
    std::vector<TStrRec> Records;  ///< in the order of the text
    TmlSkippedStrings Skipped;
};

/// The string constants of a Pascal unit's const sections: those whose line with the first literal holds
/// the "=", whose type, if any, is one of the four string types, and whose value is made of literals and
/// character codes alone. None for another language. EBadInput for a section that cannot be read to its
/// end: a comment or a literal without end.
TConstScanResult ScanConsts(const TConstInput& input);

/// What the review shows of the records. A row's SpanBegin and SpanEnd are those of the declaration.
TmlFoundSourceStrings ConstRows(const TConstInput& input, const std::vector<TStrRec>& records);

/// The record that a row of ConstRows was made of; std::logic_error for another row.
const TStrRec& RecordOf(const std::vector<TStrRec>& records, const TmlFoundSourceString& row);

/// The call that fetches a row's text. style is that of the run; a constant has a reference of its own, and
/// a PChar the C method in place of the style's.
std::string CallOf(const TmlFoundSourceString& row, TCallStyle style, const std::vector<TStrRec>& records);

/// Writes each row's call anew for its ID: rows that were given an ID of the component or of another row
/// have taken a call that was not written for their constant.
void FetchAnew(TmlFoundSourceStrings& rows, const TConstInput& input, const std::vector<TStrRec>& records);

/// The method that fetches a text for a PChar in place of another method.
std::string CMethodOf(std::string_view method);

}  // namespace tml
