#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Formvalue.h"

namespace tml {

enum class TFormPrefix : std::uint8_t { Object, Inherited, Inline };

/// One component of a form. Nodes belong to their tree and stay where they are until they are removed.
class TFormNode {
  public:
    TFormPrefix Prefix() const;
    std::optional<int> ChildPosition() const;
    const std::string& Name() const;       ///< "" for a nameless component
    const std::string& ClassName() const;  ///< "" for a header without a class
    int Line() const;                      ///< 1-based line of the header in a text file, 0 in a binary one
    TFormNode* Parent() const;             ///< nullptr for the root
    const std::vector<std::unique_ptr<TFormNode>>& Children() const;

    /// Names of the properties in file order, as written ("Font.Height", "LangNames.Strings").
    std::vector<std::string> PropertyNames() const;
    /// The value of a property (name without regard to case); none when the file does not hold it.
    std::optional<TFormValue> Find(std::string_view name) const;
};

/// A form file as a lossless tree: what is not changed comes back byte for byte, a change touches its own
/// lines only and is written in the file's own style. Content decides between text and binary.
class TFormTree {
  public:
    /// Reads a form file. fileName serves messages only; codePage ("1251", "" when unknown) is that of
    /// strings with bytes above 127. Throws EBadInput with the line (text) or the byte offset (binary).
    static std::unique_ptr<TFormTree> Parse(std::string bytes, const std::string& fileName,
                                            std::string_view codePage = {});
    ~TFormTree();

    bool IsBinary() const;
    TFormNode& Root();
    const TFormNode& Root() const;
    /// The first component of this name below the root (without regard to case), the root included;
    /// nullptr when there is none.
    TFormNode* FindComponent(std::string_view name);

    /// Sets a property, adding it behind the others where the file has none. An equal value changes
    /// nothing. Throws EBadInput when the file's code page cannot hold the text.
    void SetProperty(TFormNode& node, const std::string& name, const TFormValue& value);
    void RemoveProperty(TFormNode& node, std::string_view name);
    /// Adds an "object" behind the children of parent.
    TFormNode& AddChild(TFormNode& parent, const std::string& name, const std::string& className);
    void RemoveChild(TFormNode& node);
    /// References by name from other components' properties are the caller's business.
    void Rename(TFormNode& node, const std::string& name);

    /// The file with all changes.
    std::string Bytes() const;
    /// The form as text, or as binary; a file of that kind already comes back as Bytes().
    std::string Text() const;
    std::string Binary() const;
};

}  // namespace tml
