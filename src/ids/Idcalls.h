#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// What the source tells of the ID that a call asks for.
enum class TIDArgument : std::uint8_t {
    Whole,      ///< a literal is the ID
    Beginning,  ///< a literal that something is put to at run time
    Unknown,    ///< anything else
};

/// A call of an accessor as the compiler sees it. Byte offsets, 0-based.
struct TIDCall {
    std::size_t Place = 0;      ///< of the method's name
    std::size_t BodyBegin = 0;  ///< of the ID between its delimiters, 0 where there is none
    std::size_t BodyEnd = 0;
    int Line = 0;           ///< 1-based
    std::string Component;  ///< the name in front of the method, "" for none
    std::string Form;       ///< the name in front of that
    std::string ID;         ///< decoded, or what it begins with
    TIDArgument Argument = TIDArgument::Unknown;
    bool HasOddOwner = false;  ///< something else than names stands in front: Forms[i].mlLang1.GetText
    bool IsOptional = false;   ///< stands under a condition, so that some builds may leave it out
};

/// The calls in the order of the text, those in comments and literals left out.
std::vector<TIDCall> ReadIDCalls(const TSourceText& source);

}  // namespace tml
