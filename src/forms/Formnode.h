#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Formvalue.h"

namespace tml {

class TFormFile;
class TFormNode;

enum class TFormPrefix : std::uint8_t { Object, Inherited, Inline };

/// The bytes [Begin, End) of a form file, 0-based.
struct TFormSpan {
    std::uint32_t Begin = 0;
    std::uint32_t End = 0;

    bool Empty() const { return Begin == End; }
};

/// A property of a node: where the file holds it, and what it becomes. A new property has empty spans.
struct TFormPropertyPlace {
    TFormSpan Name;
    TFormSpan Value;
    std::unique_ptr<TFormProperty> Change;
};

/// What the readers and writers of this layer keep of a node; everybody else asks the node.
struct TFormNodeData {
    const TFormFile* File = nullptr;
    TFormNode* Parent = nullptr;
    TFormPrefix Prefix = TFormPrefix::Object;
    std::optional<int> Position;
    std::string Name;
    std::string ClassName;
    int Line = 0;
    bool IsNew = false;  ///< not in the file: the spans mean nothing
    bool Renamed = false;
    bool Reclassed = false;
    TFormSpan Span;      ///< from the head to the end of the node
    TFormSpan NameSpan;  ///< empty, at the class name, for a nameless text node
    TFormSpan ClassSpan;
    std::uint32_t PropertiesEnd = 0;  ///< behind the last property, or behind the head
    std::vector<TFormPropertyPlace> Properties;
    std::vector<std::unique_ptr<TFormNode>> Children;
    std::vector<TFormSpan> Removed;  ///< properties and children of the file that are gone

    std::string PropertyName(const TFormPropertyPlace& place) const;
    TFormValue PropertyValue(const TFormPropertyPlace& place) const;
    /// See TFormNode::TextProperties.
    bool MayHoldTexts(const TFormPropertyPlace& place) const;
    /// Index of a property (name without regard to case), kNoProperty when there is none.
    std::size_t FindProperty(std::string_view name) const;
};

constexpr std::size_t kNoProperty = static_cast<std::size_t>(-1);

/// One component of a form. Nodes belong to their tree and stay where they are until they are removed.
class TFormNode {
  public:
    TFormPrefix Prefix() const { return data_.Prefix; }
    std::optional<int> ChildPosition() const { return data_.Position; }
    /// "" for a nameless component.
    const std::string& Name() const { return data_.Name; }
    /// "" for a header without a class.
    const std::string& ClassName() const { return data_.ClassName; }
    /// 1-based line of the header in a text file, 0 in a binary one and for a new component.
    int Line() const { return data_.Line; }
    /// nullptr for the root.
    TFormNode* Parent() const { return data_.Parent; }
    const std::vector<std::unique_ptr<TFormNode>>& Children() const { return data_.Children; }

    /// Names of the properties in file order, as written ("Font.Height", "LangNames.Strings").
    std::vector<std::string> PropertyNames() const;
    /// The value of a property (name without regard to case); none when the file does not hold it.
    std::optional<TFormValue> Find(std::string_view name) const;

    /// All properties in file order; cheaper than to find each by its name.
    std::vector<TFormProperty> Properties() const;
    /// Of these the values that may hold texts, and the parts of objects ("Font.Height").
    std::vector<TFormProperty> TextProperties() const;

    /// What whoever shows the tree keeps with the node; the tree does not look at it.
    std::shared_ptr<void> View;

    /// For the readers and writers of this layer only.
    TFormNodeData& Data() { return data_; }
    const TFormNodeData& Data() const { return data_; }

  private:
    void Append(const TFormPropertyPlace& place, std::vector<TFormProperty>& properties) const;

    TFormNodeData data_;
};

}  // namespace tml
