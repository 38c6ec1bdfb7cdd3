#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Stringlist.h"
#include "tables/Langtexts.h"

namespace tml {

/// Translation files of both kinds, as docs/translation-files.md has them.

/// The version that is written; an older one is brought up to it.
inline constexpr int kTranslationFileVersion = 1;

/// A form of a project; Project is "" where the file names none. Compared without regard to case.
struct TFormAddress {
    std::string Project;
    std::string Form;
};

/// A translation file as it is being read or changed.
class ITranslationFile {
  public:
    virtual ~ITranslationFile() = default;

    /// The forms in the order of the file.
    virtual std::vector<TFormAddress> Forms() const = 0;
    /// The languages of all forms in the order of their first use.
    virtual TStringList Languages() const = 0;
    /// None when the file does not hold the form. What a newer version has on record of a translation is
    /// passed over. EBadInput, with the place, for a damaged one.
    virtual std::optional<TLangTexts> Read(const TFormAddress& form) const = 0;
    /// EBadInput for a file of a newer version.
    virtual void ExpectWritable() const = 0;
    /// Replaces the form in its place, or adds it at the end; everything else stays as it is. Every entry
    /// gets a text a language. EBadInput for a file of a newer version.
    virtual void Put(const TFormAddress& form, const TLangTexts& texts) = 0;
    /// Those that it was opened with.
    virtual const std::string& BytesRead() const = 0;
    /// False while Bytes() are those that were read.
    virtual bool IsChanged() const = 0;
    virtual std::string Bytes() const = 0;
};

/// Finds forms in a file that may name projects otherwise, or none.
class TFormFinder {
  public:
    explicit TFormFinder(const ITranslationFile& file);
    /// The form of that project, else the only one of that name whose project is not known on either side.
    std::optional<TFormAddress> Find(const TFormAddress& form) const;

  private:
    std::unordered_map<std::string, std::vector<TFormAddress>> byName_;
};

/// A language's name as files have it: in one line, without blanks and control characters at its ends.
std::string PlainLanguageName(std::string_view name);

/// True for the extension ".mlb" in any case.
bool IsBinaryTranslation(std::string_view fileName);

/// Reads a file of either kind, by its extension; empty bytes are a new one. delimiter is that of a new text
/// file and of one that names none, and the one that an old one is to have from now on ("" keeps it).
/// EBadInput for a damaged or foreign file.
std::unique_ptr<ITranslationFile> OpenTranslationFile(std::string bytes, const std::string& fileName,
                                                      const std::string& delimiter = {});

}  // namespace tml
