#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "forms/Formnode.h"
#include "forms/Formvalue.h"

namespace tml {

class IFormEditor;

/// A form file as a lossless tree: what is not changed comes back byte for byte, a change touches its own
/// lines only and is written in the file's own style. Content decides between text and binary.
class TFormTree {
  public:
    /// Reads a form file. fileName serves messages and, where the content shows no style of its own, the
    /// choice of style (".lfm" or another); codePage ("1251", "" when unknown) is that of strings with
    /// bytes above 127. Throws EBadInput with the line (text) or the byte offset (binary).
    static std::unique_ptr<TFormTree> Parse(std::string bytes, const std::string& fileName,
                                            std::string_view codePage = {});
    /// The same of bytes that others hold, too.
    static std::unique_ptr<TFormTree> Parse(std::shared_ptr<const std::string> bytes,
                                            const std::string& fileName, std::string_view codePage = {});
    ~TFormTree();
    /// How many form files this thread has parsed, for tests that hold a command to one reading of each.
    static int& ParseCount();
    TFormTree(const TFormTree&) = delete;
    TFormTree& operator=(const TFormTree&) = delete;

    bool IsBinary() const;
    TFormNode& Root() { return *root_; }
    const TFormNode& Root() const { return *root_; }
    /// The first component of this name below the root (without regard to case), the root included;
    /// nullptr when there is none.
    TFormNode* FindComponent(std::string_view name);

    /// Sets a property; where the file has none it is added at the index, or behind the others. An equal
    /// value changes nothing. Throws EBadInput when the file's code page cannot hold a name, or when the
    /// value is one that no form can hold.
    void SetProperty(TFormNode& node, const std::string& name, const TFormValue& value,
                     std::size_t place = kNoProperty);
    /// Removes a property; one that is not there is no error.
    void RemoveProperty(TFormNode& node, std::string_view name);
    /// Adds a component behind the children of parent.
    TFormNode& AddChild(TFormNode& parent, const std::string& name, const std::string& className,
                        TFormPrefix prefix = TFormPrefix::Object);
    /// Removes a component with all below it; node is gone afterwards. The root cannot be removed.
    void RemoveChild(TFormNode& node);
    /// References by name from other components' properties are the caller's business.
    void Rename(TFormNode& node, const std::string& name);
    /// Gives a component with a class another one; its properties stay. The root's cannot be changed.
    void SetClass(TFormNode& node, const std::string& className);

    /// The file with all changes.
    std::string Bytes() const;
    /// The form as text; a text file comes back as Bytes().
    std::string Text() const;
    /// The form as binary resource; a binary file comes back as Bytes().
    std::string Binary() const;

  private:
    explicit TFormTree(std::unique_ptr<TFormFile> file);
    const IFormEditor& Editor();
    std::unique_ptr<TFormTree> Reread() const;

    std::unique_ptr<TFormFile> file_;
    std::unique_ptr<TFormNode> root_;
    std::unique_ptr<IFormEditor> editor_;  ///< there since the first change
};

}  // namespace tml
