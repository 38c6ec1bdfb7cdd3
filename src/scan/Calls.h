#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "scan/Replacement.h"
#include "source/Sourcetext.h"

namespace tml {

/// A call of an accessor on the component, as Scan writes it or as a person may have written it. Byte
/// offsets, 0-based.
struct TAccessorCall {
    std::size_t Begin = 0;  ///< of the reference, its qualifier included
    std::size_t Open = 0;   ///< the parenthesis
    std::size_t End = 0;    ///< behind the closing parenthesis, or the line's end where there is none
};

/// The name of an accessor in front of a parenthesis: of a call as a rule, but of a declaration or in a
/// comment too. Byte offsets, 0-based.
struct TAccessorName {
    std::size_t Begin = 0;
    std::size_t Open = 0;  ///< the parenthesis
};

/// The places where the names of all accessors begin alike, in any case and in the order of the text; other
/// words hold them, too. Byte offsets, 0-based.
std::vector<std::size_t> FindMethodStarts(std::string_view text);

/// In any case, in the order of the text.
std::vector<TAccessorName> FindAccessorNames(std::string_view text);

/// The calls on the component, bare or qualified by the form or Self (this), in any case; in the order
/// of their parentheses, calls in comments among them. With others, also the calls on any of those; none
/// without them when the reference names no component.
std::vector<TAccessorCall> FindCalls(const TSourceText& source, const TComponentReference& component,
                                     const TFormComponents& others = {});

/// The ID (decoded) that a call begins with, "" when it begins with something else.
std::string CalledID(const TSourceText& source, const TAccessorCall& call);

}  // namespace tml
