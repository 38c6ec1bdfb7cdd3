#pragma once

#include <utility>

#include "tables/Filefields.h"
#include "tables/Mlldocument.h"
#include "tables/Translationfile.h"

namespace tml {

/// The delimiter of a text file, without reading more of it than its options; "" where it names none.
std::string DelimiterOfMll(std::string_view bytes);

/// False where the first lines of a file tell that it is no text file of translations.
bool MayBeMll(std::string_view bytes);

/// The text kind.
class TMllFile : public ITranslationFile {
  public:
    /// See OpenTranslationFile.
    TMllFile(std::string bytes, const std::string& fileName, const std::string& delimiter);

    std::vector<TFormAddress> Forms() const override;
    TStringList Languages() const override;
    std::optional<TLangTexts> Read(const TFormAddress& form) const override;
    void ExpectWritable() const override;
    void Put(const TFormAddress& form, const TLangTexts& texts) override;
    const std::string& BytesRead() const override { return document_.BytesRead(); }
    bool IsChanged() const override { return document_.IsChanged(); }
    std::string Bytes() const override { return document_.Bytes(); }

  private:
    using TSection = TMllDocument::TSection;
    using TEntryLine = TMllDocument::TEntryLine;

    struct TSetting {
        std::string Name;
        std::string Value;
        /// What a value means, however it is spelt.
        std::string (*Plain)(std::string_view) = [](std::string_view value) { return std::string(value); };
    };

    void Use(const std::string& delimiter);
    std::string ReadOptions();
    void ExpectForms() const;
    void PutSettings(std::string_view section, const std::vector<TSetting>& settings,
                     std::string_view behind = {});
    void WriteOptions();
    void ReadNames();
    int LastColumn() const;
    void PutNames();
    std::string ColumnsOf(const TStringList& languages);
    void WriteAnew(const std::string& delimiter);
    TFileEntry ReadEntry(TEntryLine line, int fields) const;
    TStringList ReadLanguages(const TSection& head) const;
    void ReadTable(const TSection& section, int languages, TTable& table) const;
    void ReadStates(const TSection& section, TLangTexts& texts) const;
    std::vector<TExtendedItem> ReadExtended(const TSection& section, int languages) const;
    std::string LinesOf(const TTable& table, std::size_t languages) const;
    std::string StateLinesOf(const TLangTexts& texts) const;
    std::string ExtendedLinesOf(const TLangTexts& texts) const;
    [[noreturn]] void Refuse(int line, const std::string& problem, const std::string& remedy) const;

    std::string fileName_;
    TMllDocument document_;
    int version_ = kTranslationFileVersion;
    std::string delimiter_;
    TFileFields fields_;
    std::vector<std::pair<std::string, std::string>> names_;  ///< keys and names of languages
};

}  // namespace tml
