#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Stringlist.h"

namespace tml {

/// How texts are looked for and which translations are filled, as the settings of a project have it.
struct TDictionaryOptions {
    bool IgnoreCase = false;
    bool SkipAmpersands = false;     ///< accelerators do not count
    bool OverwriteExisting = false;  ///< translations that are there, too
    bool ForceEmpties = false;       ///< translations without a text, too
    bool ParseMultilines = false;    ///< a text of several lines that is not known, line by line
};

/// Texts that mean the same.
struct TDictionaryEntry {
    /// One a language of the dictionary, "" for none; there may be fewer than languages.
    std::vector<std::string> Texts;
    std::string Before = {};  ///< what stands before the entry in a file and is no entry, as lines of XML
    std::string Inside = {};  ///< what stands in it and is no text, likewise

    /// Of a language (0-based).
    const std::string& Text(int language) const;
    void SetText(int language, const std::string& text);

    bool operator==(const TDictionaryEntry&) const = default;
};

inline constexpr int kDictionaryVersion = 1;

/// A dictionary: entries in a stable order. Where several have a text, the first one counts.
struct TDictionary {
    int Version = kDictionaryVersion;
    TStringList Languages;
    std::vector<TDictionaryEntry> Entries;
    std::string InHead = {};  ///< what stands in the head of a file and is no language, as lines of XML
    std::string Behind = {};  ///< what stands behind the entries
    std::string LineEnd = "\n";

    /// Index (0-based) of a language without regard to case, -1 where there is none. A name may have the
    /// closing tag that lists of languages show.
    int LanguageOf(std::string_view name) const;
    /// The same; a name that is not there yet is appended.
    int NeedLanguage(std::string_view name);
    /// Where (0-based) a new entry belongs by its text in the first language.
    std::size_t PlaceFor(const TDictionaryEntry& entry) const;
    /// The first entry with the text in a language, -1 where there is none.
    int Find(int language, const std::string& text) const;
    /// Puts entries where they belong; those that are there keep their order.
    void Merge(std::vector<TDictionaryEntry> entries);

    bool operator==(const TDictionary&) const = default;
};

/// A language's name as it is without the closing tag that a list of a dictionary's languages leaves on it.
std::string_view LanguageWithoutTag(std::string_view name);

}  // namespace tml
