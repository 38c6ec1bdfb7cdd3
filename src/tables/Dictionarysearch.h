#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tables/Dictionary.h"

namespace tml {

/// A translation from a dictionary.
struct TDictionaryHit {
    std::string Text;  ///< with the accelerator that the text looked for has, or none
    std::string
        Found;  ///< what the dictionary translates; equal to the text looked for where nothing differs
};

/// Looks texts of one language up in another, each in constant time. What is the same goes before what
/// differs in its accelerator, that before what differs in case; kinds of line breaks never count.
class TDictionarySearch {
  public:
    /// Languages of the dictionary by index (0-based); it must outlive the search.
    TDictionarySearch(const TDictionary& dictionary, int base, int language,
                      const TDictionaryOptions& options);

    const TDictionaryOptions& Options() const { return options_; }
    /// None for a text that is not known, or one of whose lines is not.
    std::optional<TDictionaryHit> Find(const std::string& text) const;

  private:
    /// What does not count, with the first entry of each text without it.
    struct TLevel {
        bool SkipsAmpersands = false;
        bool IgnoresCase = false;
        std::unordered_map<std::string, const TDictionaryEntry*> Entries = {};
    };

    static std::string KeyOf(const TLevel& level, const std::string& text);
    std::optional<TDictionaryHit> FindWhole(const std::string& text) const;
    std::optional<TDictionaryHit> FindLines(const std::string& text) const;

    int base_;
    int language_;
    TDictionaryOptions options_;
    std::vector<TLevel> levels_;
};

/// Searches between the languages of a dictionary, each made when it is asked for first.
class TDictionarySearches {
  public:
    /// The dictionary must outlive it; fileName is what messages call it.
    TDictionarySearches(const TDictionary& dictionary, std::string fileName,
                        const TDictionaryOptions& options)
        : dictionary_(dictionary), fileName_(std::move(fileName)), options_(options) {}

    /// By names as TDictionary::LanguageOf takes them; EBadInput for a language that the dictionary has not.
    const TDictionarySearch& Between(const std::string& base, const std::string& language);

  private:
    int Expect(const std::string& language) const;

    const TDictionary& dictionary_;
    std::string fileName_;
    TDictionaryOptions options_;
    std::map<std::pair<int, int>, TDictionarySearch> searches_;
};

}  // namespace tml
