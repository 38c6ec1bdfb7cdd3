#pragma once

#include <string>
#include <string_view>

#include "forms/Formfile.h"
#include "forms/Formsink.h"

namespace tml {

/// Writes a form or a part of one in binary, without the resource header.
class TFormBinaryWriter : public TFormSink {
  public:
    /// file is what the names and strings that come belong to; strings of the model that are not ASCII are
    /// stored as modelStrings says.
    TFormBinaryWriter(const TFormFile& file, TFormStringKind modelStrings, std::string& out)
        : file_(file), modelStrings_(modelStrings), out_(out) {}

    void BeginNode(const TFormHead& head) override;
    void EndProperties() override { out_ += '\0'; }
    void EndNode() override { out_ += '\0'; }
    void Property(std::string_view name) override { ShortString(name); }

    void Integer(std::int64_t number, std::string_view text) override;
    void Float(const TFormFloat& value) override;
    void String(const TFormString& value) override;
    void Identifier(std::string_view name) override;
    void Set(const std::vector<std::string_view>& names) override;
    void Binary(std::string_view bytes) override;
    void BeginList() override;
    void EndList() override { out_ += '\0'; }
    void BeginCollection() override;
    void BeginItem(std::optional<int> position) override;
    void EndItem() override { out_ += '\0'; }
    void EndCollection() override { out_ += '\0'; }

    /// Appends a length byte and the name; throws EBadInput for one of more than 255 bytes.
    void ShortString(std::string_view name);

  private:
    void Number(std::int64_t number, std::size_t size);
    void AnsiString(std::string_view bytes);

    const TFormFile& file_;
    TFormStringKind modelStrings_;
    std::string& out_;
};

/// The header of a binary resource; className is that of the root, in bytes. The last four bytes, the size
/// of the form, are left at 0.
std::string ResourceHeader(std::string_view className);

/// A 32-bit size as it stands in a binary.
std::string SizeBytes(std::size_t size);

}  // namespace tml
