#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Formvalue.h"

namespace tml {

/// What a property takes, as far as the name in a known class or the value that a form holds tells it.
enum class TTakes : std::uint8_t {
    Nothing,  ///< that could be typed: lists, collections, binary data, and what only a command may change
    String,   ///< any text
    Strings,  ///< a list of texts, stored under the name + ".Strings"
    Integer,  ///< of 32 bits; where Of is given also a name that begins so ("cl")
    Long,     ///< of 64 bits
    Float,
    Boolean,
    OneOf,      ///< a name among Of, which are separated by blanks
    SetOf,      ///< names among Of, any where that is ""
    Component,  ///< one of a class among Of
    Method,     ///< of the form's class
    Name,       ///< of something that is not known
};

struct TPropertyType {
    TTakes Takes = TTakes::Nothing;
    std::string Of = {};
};

/// A property that is offered although a form need not hold it.
struct TOfferedProperty {
    std::string_view ClassName;
    std::string_view Names;  ///< separated by blanks
    TPropertyType Type;
};
const std::vector<TOfferedProperty>& OfferedProperties();

/// By the value that the form holds of it.
TPropertyType TypeByValue(std::string_view className, std::string_view property, const TFormValue& held);

/// The words of a text that blanks separate.
std::vector<std::string> WordsOf(std::string_view words);

}  // namespace tml
