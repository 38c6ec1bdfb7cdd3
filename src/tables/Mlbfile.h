#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "tables/Translationfile.h"

namespace tml {

/// The binary kind: parts with a tag and a size, of which unknown ones are kept.
class TMlbFile : public ITranslationFile {
  public:
    /// See OpenTranslationFile.
    TMlbFile(std::string bytes, const std::string& fileName);
    /// True for bytes with the mark of this kind in front.
    static bool IsBegunBy(std::string_view bytes);

    std::vector<TFormAddress> Forms() const override;
    TStringList Languages() const override { return languages_; }
    std::optional<TLangTexts> Read(const TFormAddress& form) const override;
    void ExpectWritable() const override;
    void Put(const TFormAddress& form, const TLangTexts& texts) override;
    const std::string& BytesRead() const override { return read_; }
    bool IsChanged() const override { return isChanged_; }
    std::string Bytes() const override;

  private:
    struct TPart {
        char Tag;
        std::string Payload;
        TFormAddress Form;  ///< of a form's part
    };

    void ReadContent(std::string_view content);
    TLangTexts ReadForm(const TPart& form) const;
    std::string KeptParts(const TPart& form) const;
    std::string Payload(const TFormAddress& form, const TLangTexts& texts);
    std::size_t ColumnOf(const std::string& language);
    [[noreturn]] void Refuse(const std::string& problem) const;

    std::string fileName_;
    std::string read_;
    int version_ = kTranslationFileVersion;
    TStringList languages_;
    std::vector<TPart> parts_;  ///< but for the names
    std::unordered_map<std::string, std::size_t> index_;
    bool isChanged_ = false;
};

}  // namespace tml
