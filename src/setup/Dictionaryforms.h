#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/Context.h"
#include "tables/Dictionaryfill.h"
#include "tables/Dictionarylearning.h"

namespace tml {

/// A form with what its component holds.
struct TFormTables {
    std::string FormName;
    std::string FileName;  ///< of the unit
    TStringList Languages;
    std::vector<TTable> Tables;
    std::string Problem = {};    ///< why it could not be read, "" for nothing
    std::string Hindrance = {};  ///< why it cannot be written as things are, "" for nothing
};

/// The languages are those of the component's dispatcher where it has one.
TFormTables ReadForm(TmlCustomLang& lang, const TFormRow& row);
/// The forms of rows with a component; a unit that is closed is opened meanwhile. Shows progress;
/// EmlLangSilent where the person stops it.
std::vector<TFormTables> ReadForms(TContext& context, const std::vector<TFormRow*>& rows);

/// Of the row whose component has the most of them; none where no row has a component that can be read.
TStringList LanguagesOf(TContext& context, const std::vector<TFormRow*>& rows);
/// EBadInput where the form's file, which a command would write, is read-only. The form must be open.
void ExpectWritable(TContext& context, const TFormRow& row);

/// Of a language that can be filled or learned, 2 or more. EBadInput for one that the form has not, or that
/// is its base language.
int PlaceToFill(const TFormTables& form, const std::string& language);

/// The languages by which a dictionary is asked.
struct TDictionaryLanguages {
    std::string Language;          ///< of the forms
    std::string Base = {};         ///< what the dictionary calls the forms' base language; "" for their name
    std::string Translation = {};  ///< what the dictionary calls the language; "" for its name
};

/// What a dictionary makes of a form.
struct TFormFills {
    std::string FormName;
    std::string FileName;  ///< of the unit
    int Place = 0;         ///< of the language, 2 or more
    std::vector<TDictionaryFill> Fills;
    TDictionaryCounts Counts;
};

/// Plans what a dictionary makes of forms, one after the other.
class TDictionaryFiller {
  public:
    /// The dictionary must outlive it; fileName is what messages call it.
    TDictionaryFiller(const TDictionary& dictionary, std::string fileName, TDictionaryLanguages languages,
                      const TDictionaryOptions& options);

    /// EBadInput where the form or the dictionary lacks a language.
    TFormFills Plan(const TFormTables& form);

  private:
    TDictionaryLanguages languages_;
    TDictionarySearches searches_;
};

/// Does what was planned; EBadInput where the form has changed since.
void FillForm(TmlCustomLang& lang, const TFormFills& fills);
/// Forms by the files of their units, with why they are as they were; "" where that is told already.
using TFailedFills = std::map<std::string, std::string>;
/// The same of several forms, as one step of undo. A form that fails goes back by itself, the others stand.
TFailedFills FillForms(TContext& context, const std::vector<TFormFills>& forms);

/// Takes the translations of a form into one of its languages, or ("") into all. base: what the dictionary
/// calls the base language, "" for the form's name of it. EBadInput for a language that the form has not.
void LearnForm(TDictionaryLearning& learning, const TFormTables& form, const std::string& base,
               const std::string& language);

}  // namespace tml
