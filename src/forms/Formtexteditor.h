#pragma once

#include "forms/Formeditor.h"
#include "forms/Formtextwriter.h"

namespace tml {

/// Changes of a text form, in its style.
class TFormTextEditor : public IFormEditor {
  public:
    TFormTextEditor(const TFormFile& file, const TFormNode& root);

    TFormSpot SpotAt(std::size_t offset) const override;
    TFormSpot Deeper(const TFormSpot& spot, int levels) const override;
    std::string Value(const TFormValue& value, const TFormSpot& spot) const override;
    std::string ListItem(const TFormValue& value, const TFormSpot& spot) const override;
    std::string Item(const std::vector<TFormProperty>& item, const TFormSpot& spot) const override;
    TEdit Replacement(TFormSpan value) const override;
    TEdit Name(const TFormNodeData& node) const override;
    TEdit Class(const TFormNodeData& node) const override;
    TEdit NewProperty(const TFormNodeData& owner, const TFormProperty& property,
                      const TFormPropertyPlace* next) const override;
    void ExpectWritable(const std::string& name, const TFormValue& value) const override;
    TEdit NewChild(const TFormNodeData& parent, const TFormNode& child) const override;
    TEdit Removal(TFormSpan span) const override;
    /// A text has nothing that follows from other changes.
    void Finish(TEdits& /*edits*/) const override {}

  private:
    TFormTextStyle StyleAt(const TFormSpot& spot) const;
    TFormSpot PropertySpot(const TFormNodeData& owner) const;
    std::size_t LineAfter(std::size_t offset) const;
    TEdit NewLines(std::size_t offset, const TFormSpot& spot, const std::string& text) const;

    const TFormFile& file_;
    const std::string& text_;
    TFormTextStyle style_;
};

}  // namespace tml
