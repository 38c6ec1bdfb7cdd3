#pragma once

#include "forms/Formbinary.h"
#include "forms/Formeditor.h"

namespace tml {

/// Changes of a binary form. Strings that are not ASCII are stored the way the file stores such strings:
/// UTF-8, wide or in its code page; wide in a file that has none yet or whose code page nobody names.
class TFormBinaryEditor : public IFormEditor {
  public:
    explicit TFormBinaryEditor(const TBinaryFormFile& file);

    /// Surroundings do not matter in a binary.
    TFormSpot SpotAt(std::size_t /*offset*/) const override { return {}; }
    TFormSpot Deeper(const TFormSpot& spot, int /*levels*/) const override { return spot; }
    std::string Value(const TFormValue& value, const TFormSpot& spot) const override;
    std::string ListItem(const TFormValue& value, const TFormSpot& spot) const override;
    std::string Item(const std::vector<TFormProperty>& item, const TFormSpot& spot) const override;
    TEdit Replacement(TFormSpan value) const override { return {value.Begin, value.End, ""}; }
    TEdit Name(const TFormNodeData& node) const override;
    TEdit Class(const TFormNodeData& node) const override;
    TEdit NewProperty(const TFormNodeData& owner, const TFormProperty& property,
                      const TFormPropertyPlace* next) const override;
    void ExpectWritable(const std::string& name, const TFormValue& value) const override;
    TEdit NewChild(const TFormNodeData& parent, const TFormNode& child) const override;
    TEdit Removal(TFormSpan span) const override { return {span.Begin, span.End, ""}; }
    /// Brings the resource's size up to date.
    void Finish(TEdits& edits) const override;

  private:
    const TBinaryFormFile& file_;
    TFormStringKind strings_;
};

}  // namespace tml
