#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Edits.h"
#include "forms/Formfile.h"
#include "forms/Formvalue.h"

namespace tml {

/// What is around a part that is to be written; empty texts in a binary.
struct TFormSpot {
    std::string Indent;
    std::string LineEnd;
};

/// How one kind of file takes changes: where they go and how they are written there.
class IFormEditor {
  public:
    virtual ~IFormEditor() = default;

    /// The surroundings of a property or component that begins at an offset.
    virtual TFormSpot SpotAt(std::size_t offset) const = 0;
    virtual TFormSpot Deeper(const TFormSpot& spot, int levels) const = 0;

    virtual std::string Value(const TFormValue& value, const TFormSpot& spot) const = 0;
    /// A value of a list with what separates it from the one before; spot is that of the list.
    virtual std::string ListItem(const TFormValue& value, const TFormSpot& spot) const = 0;
    /// Likewise an item of a collection.
    virtual std::string Item(const std::vector<TFormProperty>& item, const TFormSpot& spot) const = 0;
    /// The span to replace when a value is written anew, and the text to put before it.
    virtual TEdit Replacement(TFormSpan value) const = 0;

    /// Puts a component's new name in the place of the old.
    virtual TEdit Name(const TFormNodeData& node) const = 0;
    /// The same for its class.
    virtual TEdit Class(const TFormNodeData& node) const = 0;
    /// In front of a property that the file holds, or (nullptr) behind them all.
    virtual TEdit NewProperty(const TFormNodeData& owner, const TFormProperty& property,
                              const TFormPropertyPlace* next) const = 0;
    /// EBadInput for a name or a value that no such file can hold.
    virtual void ExpectWritable(const std::string& name, const TFormValue& value) const = 0;
    virtual TEdit NewChild(const TFormNodeData& parent, const TFormNode& child) const = 0;
    /// What goes when a property or component goes.
    virtual TEdit Removal(TFormSpan span) const = 0;
    /// Adds what follows from all other edits.
    virtual void Finish(TEdits& edits) const = 0;
};

std::unique_ptr<IFormEditor> MakeFormEditor(const TFormFile& file, const TFormNode& root);

}  // namespace tml
