#include "tables/Texttransfer.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "base/Format.h"
#include "base/Utf8.h"
#include "tables/Languageplaces.h"
#include "tables/States.h"
#include "tables/Textmerge.h"
#include "tables/Translationfile.h"

namespace tml {
namespace {

/// Where the form holds no texts that entries could stand for.
bool IsFreeTable(TStringsType type) {
    return type == TStringsType::stStrings || type == TStringsType::stLocales;
}

TTableValue ValueAt(const TTableEntry& entry, std::size_t index) {
    return index < entry.Values.size() ? entry.Values[index] : TTableValue();
}

bool IsTranslated(const TTableEntry& entry, int place) {
    return IsTranslation(ValueAt(entry, static_cast<std::size_t>(place) - 1), entry.Base());
}

/// "Captions btnOK.Caption (German): 'Gut'".
std::string LineOf(std::string_view where, const std::string& language, const std::string& text) {
    return Format("%s (%s): '%s'", where, language, text);
}

/// One table of the form and that of the file.
class TTableTransfer {
  public:
    TTableTransfer(std::string_view name, TTable& own, const TStringList& languages,
                   const TTransfer& transfer, TTransferReport& report)
        : name_(name), own_(own), languages_(languages), transfer_(transfer), report_(report) {
        const auto& entries = own_.Entries();
        known_ = entries.size();
        for (std::size_t i = 0; i < known_; ++i)
            indexes_[UpperCase(entries[i].Key)].Items.push_back(static_cast<int>(i));
    }

    void Run(const TTable& file) {
        std::vector<bool> met(known_, false);
        for (const TTableEntry& entry : file.Entries()) {
            const int index = TakeIndex(entry);
            if (index < 0) continue;
            Take(index, entry);
            if (!IsNew(index)) met[static_cast<std::size_t>(index)] = true;
        }
        for (std::size_t i = 0; i < met.size(); ++i)
            if (!met[i]) Leave(static_cast<int>(i));
    }

  private:
    /// Entries of one key, and the one whose turn it is.
    struct TIndexes {
        std::vector<int> Items;
        std::size_t Next = 0;
    };

    const TTableEntry& At(int index) const { return own_.Entries()[static_cast<std::size_t>(index)]; }
    bool IsNew(int index) const { return static_cast<std::size_t>(index) >= known_; }
    std::string Where(const std::string& key) const { return name_ + ' ' + key; }

    /// -1 where the form has no place for the entry.
    int TakeIndex(const TTableEntry& entry) {
        std::string key = UpperCase(entry.Key);
        if (const auto found = indexes_.find(key); found != indexes_.end()) {
            TIndexes& own = found->second;
            if (own.Next < own.Items.size()) return own.Items[own.Next++];
            report_.Notes.Add(
                Format("no place: %s (stands in the file more often than in the form)", Where(entry.Key)));
            return -1;
        }
        if (IsFreeTable(own_.Type())) return Append(std::move(key), entry);
        report_.Unknown.Add(Where(entry.Key));
        return -1;
    }

    /// An entry whose key is not known, and is taken from now on.
    int Append(std::string key, const TTableEntry& entry) {
        indexes_.try_emplace(std::move(key));
        own_.Add(entry.Key, entry.Base(), languages_.Count());
        if (own_.Type() == TStringsType::stStrings) report_.Added.Add(Where(entry.Key));
        report_.Taken += entry.Base().empty() ? 0 : 1;
        return static_cast<int>(own_.Entries().size()) - 1;
    }

    void Take(int index, const TTableEntry& entry) {
        for (std::size_t column = 1; column < transfer_.Places.size(); ++column)
            if (transfer_.Places[column] > 1) Take(index, transfer_.Places[column], entry, column);
    }

    void Take(int index, int place, const TTableEntry& entry, std::size_t column) {
        // What a new entry begins with, its base text, is nobody's translation yet.
        const TTableValue former =
            IsNew(index) ? TTableValue() : ValueAt(At(index), static_cast<std::size_t>(place) - 1);
        const bool wasTranslated = IsTranslation(former, At(index).Base());
        const TTableValue taken =
            WithNewBase(ValueAt(entry, column), entry.Base(), At(index).Base(), HasStates(own_.Type()));
        const bool says = transfer_.Kind == TTransferKind::Load ? !taken.Text.empty()
                                                                : IsTranslation(taken, At(index).Base());
        if (!says && (wasTranslated || taken.Text.empty())) {
            report_.Kept += wasTranslated ? 1 : 0;
            return;
        }
        Set(index, place, former, Settled(taken, former, entry.Base() == At(index).Base()));
        if (wasTranslated && former.Text != taken.Text)
            report_.Overwritten.Add(LineOf(Where(entry.Key), LanguageAt(place), taken.Text) +
                                    Format(" instead of '%s'", former.Text));
    }

    /// What is in doubt on one side only has been looked at on the other: the same text in a merge, and a
    /// text that was written anew in the file, of which the base text is the form's.
    TTableValue Settled(TTableValue taken, const TTableValue& former, bool hasSameBase) const {
        const bool isSame = taken.Text == former.Text;
        if (isSame && transfer_.Kind == TTransferKind::Merge && IsInDoubt(taken) && !IsInDoubt(former))
            return former;
        const bool isSameDoubt =
            IsInDoubt(taken) && taken.Mark == former.Mark && taken.Former == former.Former;
        if (!isSame && isSameDoubt && hasSameBase) return {taken.Text};
        return taken;
    }

    void Set(int index, int place, const TTableValue& former, const TTableValue& taken) {
        report_.Taken += former.Text != taken.Text ? 1 : 0;
        report_.InDoubt += former != taken && IsInDoubt(taken) ? 1 : 0;
        own_.SetText(index, place, taken.Text);
        own_.SetMark(index, place, taken.Mark, taken.Former);
    }

    /// An entry that the file has not.
    void Leave(int index) {
        if (own_.Type() == TStringsType::stLocales) return;
        for (const int place : transfer_.Places) {
            if (place < 2 || !IsTranslated(At(index), place)) continue;
            if (transfer_.Kind == TTransferKind::Merge) {
                ++report_.Kept;
                continue;
            }
            const std::string text = ValueAt(At(index), static_cast<std::size_t>(place) - 1).Text;
            report_.Dropped.Add(LineOf(Where(At(index).Key), LanguageAt(place), text));
            own_.SetText(index, place, {});
        }
    }

    std::string LanguageAt(int place) const { return languages_[place - 1]; }

    std::string name_;
    TTable& own_;
    const TStringList& languages_;
    const TTransfer& transfer_;
    TTransferReport& report_;
    std::unordered_map<std::string, TIndexes> indexes_;  ///< by key, upper-cased
    std::size_t known_ = 0;                              ///< entries that the form has had
};

/// They go through a table of their own: what holds for entries holds for them.
TTable TableOf(const std::vector<TExtendedItem>& items) {
    TTable table(TStringsType::stOtherStrings);
    for (const TExtendedItem& item : items) {
        TTableEntry entry{item.Component + ':' + item.Property, {}};
        for (const std::string& value : item.Values)
            entry.Values.push_back({value});
        table.Append(std::move(entry));
    }
    return table;
}

void TransferExtended(TLangTexts& form, const TLangTexts& file, const TTransfer& transfer,
                      TTransferReport& report) {
    TTable table = TableOf(form.Extended);
    TTableTransfer("ExtendedTranslations", table, form.Languages, transfer, report)
        .Run(TableOf(file.Extended));
    for (std::size_t i = 0; i < form.Extended.size(); ++i) {
        const std::vector<TTableValue>& values = table.Entries()[i].Values;
        form.Extended[i].Values.resize(values.size());
        std::transform(values.begin(), values.end(), form.Extended[i].Values.begin(),
                       [](const TTableValue& value) { return value.Text; });
    }
}

TStringList PlainNames(const TStringList& names) {
    TStringList plain;
    for (const std::string& name : names)
        plain.Add(PlainLanguageName(name));
    return plain;
}

std::vector<int> FirstPlaces(int count) {
    std::vector<int> places(static_cast<std::size_t>(count));
    std::iota(places.begin(), places.end(), 1);
    return places;
}

/// A language that the form knows keeps the form's spelling.
std::string Spelled(const TStringList& present, int place, const std::string& name) {
    const bool isKnown = place > 0 && SameText(PlainLanguageName(present[place - 1]), name);
    return isKnown ? present[place - 1] : name;
}

/// The file's languages, in its order.
TLanguageMeeting LoadedLanguages(const TStringList& present, const TStringList& file,
                                 std::vector<int> places) {
    TLanguageMeeting meeting{{}, std::move(places), FirstPlaces(file.Count())};
    for (int i = 0; i < file.Count(); ++i)
        meeting.Names.Add(Spelled(present, meeting.Former[static_cast<std::size_t>(i)], file[i]));
    return meeting;
}

}  // namespace

bool AreBasesCrossed(const TStringList& present, const TStringList& file) {
    const TStringList plain = PlainNames(present);
    return !SameText(plain[0], file[0]) && (plain.IndexOf(file[0]) > 0 || file.IndexOf(plain[0]) > 0);
}

TLanguageMeeting MeetLanguages(const TStringList& present, const TStringList& file, TTransferKind kind,
                               const std::string& only) {
    std::vector<int> places = PlacesOfLanguages(PlainNames(present), file);
    places.front() = 1;
    if (kind == TTransferKind::Load) return LoadedLanguages(present, file, std::move(places));
    TLanguageMeeting meeting{present, FirstPlaces(present.Count()), {1}};
    for (int column = 1; column < file.Count(); ++column) {
        const bool isTaken = only.empty() || SameText(file[column], only);
        int place = isTaken ? places[static_cast<std::size_t>(column)] : 0;
        if (place > 0) meeting.Names.Set(place - 1, Spelled(present, place, file[column]));
        if (isTaken && place == 0) {
            meeting.Names.Add(file[column]);
            meeting.Former.push_back(0);
            place = meeting.Names.Count();
        }
        meeting.Places.push_back(place);
    }
    return meeting;
}

void TransferTexts(TLangTexts& form, const TLangTexts& file, const TTransfer& transfer,
                   TTransferReport& report) {
    for (std::size_t i = 0; i < form.Tables.size(); ++i)
        TTableTransfer(KindOf(form.Tables[i].Type()).Property, form.Tables[i], form.Languages, transfer,
                       report)
            .Run(file.Tables[i]);
    TransferExtended(form, file, transfer, report);
}

int CountTranslations(const TLangTexts& texts, int place) {
    int count = 0;
    for (const TTable& table : texts.Tables)
        // A tag says what a language is; it translates nothing.
        if (table.Type() != TStringsType::stLocales)
            for (const TTableEntry& entry : table.Entries())
                count += IsTranslated(entry, place) ? 1 : 0;
    return count;
}

}  // namespace tml
