#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Formnode.h"

namespace tml {

/// How the characters of a string stand in a form: bytes of the file's code page, UTF-16 (little endian)
/// or UTF-8.
enum class TFormStringKind : std::uint8_t { Ansi, Wide, Utf8 };

/// The content of a string, free of quotes and codes.
struct TFormString {
    TFormStringKind Kind = TFormStringKind::Ansi;
    std::string_view Bytes;
};

enum class TFormFloatKind : std::uint8_t { Extended, Double, Single, Currency, Date };

/// A floating point value as it stands in a text (Text, its suffix included) or in a binary (Raw).
struct TFormFloat {
    TFormFloatKind Kind = TFormFloatKind::Extended;
    std::string_view Text;  ///< empty when the value comes from a binary
    std::string_view Raw;   ///< little-endian bytes of the kind; empty when the value comes from a text
};

/// Binary form files hold a child position as a value in front of the class.
struct TFormHead {
    TFormPrefix Prefix = TFormPrefix::Object;
    std::optional<int> Position;
    std::string_view Name;
    std::string_view ClassName;
};

/// The content of a form as a row of events: what the readers of both kinds of file give and the writers
/// of both take. Names are bytes as they stand in the file. What a sink does not override, it does not hear.
class TFormSink {
  public:
    virtual ~TFormSink() = default;

    virtual void BeginNode(const TFormHead& /*head*/) {}
    /// Between the properties and the children of a node.
    virtual void EndProperties() {}
    virtual void EndNode() {}
    /// Comes before the value of a property of a node or of a collection's item.
    virtual void Property(std::string_view /*name*/) {}

    /// text is the number as written where it is decimal, else empty.
    virtual void Integer(std::int64_t /*number*/, std::string_view /*text*/) {}
    virtual void Float(const TFormFloat& /*value*/) {}
    virtual void String(const TFormString& /*value*/) {}
    virtual void Identifier(std::string_view /*name*/) {}
    virtual void Set(const std::vector<std::string_view>& /*names*/) {}
    virtual void Binary(std::string_view /*bytes*/) {}
    virtual void BeginList() {}
    /// Comes before each value of a list.
    virtual void ListItem() {}
    virtual void EndList() {}
    virtual void BeginCollection() {}
    virtual void BeginItem(std::optional<int> /*position*/) {}
    virtual void EndItem() {}
    virtual void EndCollection() {}
};

/// Hears where in the file the parts of a value stand; offsets are 0-based.
class IFormPlaces {
  public:
    virtual ~IFormPlaces() = default;
    virtual void BeginValue(std::size_t offset) = 0;
    virtual void EndValue(std::size_t offset) = 0;
    virtual void BeginItem(std::size_t offset) = 0;
    virtual void EndItem(std::size_t offset) = 0;
};

/// Deeper nesting of components, lists and collections than this is refused.
constexpr int kMaxFormDepth = 1000;

}  // namespace tml
