#pragma once

#include <string>
#include <string_view>

#include "forms/Formfile.h"
#include "forms/Formsink.h"

namespace tml {

/// The two habits in which text forms are written; they differ in where brackets stand.
enum class TFormDialect : std::uint8_t { Dfm, Lfm };

/// How a text form is written. As it stands here: a form made from a binary.
struct TFormTextStyle {
    TFormDialect Layout = TFormDialect::Lfm;
    std::string LineEnd = "\n";
    std::string Indent = "  ";
    bool DoubledApostrophe = true;  ///< 'it''s', else 'it'#39's'
    bool RawCharacters = false;     ///< characters above 127 as bytes of the file's encoding, else as codes
};

/// Writes a form as text; every line break comes before what stands on the line, so that a part of a form
/// begins with one too.
class TFormTextWriter : public TFormSink {
  public:
    /// file gives the encoding of the names and strings that come. base is the indent of what is around
    /// the part that is written.
    TFormTextWriter(const TFormFile& file, const TFormTextStyle& style, std::string& out,
                    std::string base = {});

    void BeginNode(const TFormHead& head) override;
    void EndNode() override;
    void Property(std::string_view name) override;

    void Integer(std::int64_t number, std::string_view text) override;
    void Float(const TFormFloat& value) override;
    void String(const TFormString& value) override;
    void Identifier(std::string_view name) override;
    void Set(const std::vector<std::string_view>& names) override;
    void Binary(std::string_view bytes) override;
    void BeginList() override;
    void ListItem() override;
    void EndList() override;
    void BeginCollection() override;
    void BeginItem(std::optional<int> position) override;
    void EndItem() override;
    void EndCollection() override;

  private:
    void NewLine();
    void Deeper() { indent_ += style_.Indent; }
    void Shallower() { indent_.resize(indent_.size() - style_.Indent.size()); }
    void WriteHexLine(std::string_view bytes);
    bool WritePlain(const TFormString& value);
    [[noreturn]] void Refuse(std::string_view name) const;

    const TFormFile& file_;
    const TFormTextStyle& style_;
    std::string& out_;
    std::string indent_;
    bool isEmpty_ = true;  ///< nothing yet in the list or collection that was opened last
};

}  // namespace tml
