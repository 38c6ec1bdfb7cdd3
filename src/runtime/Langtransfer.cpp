#include "runtime/Langtransfer.h"

#include <algorithm>
#include <utility>

#include "base/Errors.h"
#include "base/Format.h"
#include "runtime/Buildlist.h"
#include "runtime/Showlanguage.h"
#include "tables/Languageplaces.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

std::string FormNameOf(TmlCustomLang& lang) {
    return lang.GetComponent()->GetOwner()->GetName();
}

/// file: the form's languages there.
void ExpectOneBase(TmlCustomLang& lang, const TStringList& present, const TStringList& file,
                   const std::string& fileName) {
    if (file.Empty())
        throw EBadInput(fileName, 0, "the form " + FormNameOf(lang) + " has no languages there",
                        "Save the form into the file again");
    if (AreBasesCrossed(present, file))
        throw EBadInput(fileName, 0,
                        Format("the base language of %s is %s there and %s in the form", FormNameOf(lang),
                               file[0], present[0]),
                        "Give both the same base language");
}

/// What a file brings into one component. The file was saved from texts that were brought up to their form;
/// so are these first, for an item's place is part of its key.
class TLangLoad {
  public:
    TLangLoad(TmlCustomLang& lang, const std::string& fileName, TTransferKind kind)
        : lang_(lang),
          languages_(lang),
          fileName_(fileName),
          kind_(kind),
          active_(languages_.Get().GetActiveLanguage()) {
        TBuiltTexts built = BuiltTexts(lang);
        texts_ = std::move(built.Texts);
        report_.Notes = std::move(built.Notes);
    }

    TTransferReport Run(const TLangTexts& file, const std::string& only, const TOnLanguagesMove& onMove) {
        ExpectOneBase(lang_, Present(), file.Languages, fileName_);
        TLanguageMeeting meeting = Meet(file.Languages, only);
        TellLanguages(meeting);
        const TLanguageMoves moves = TLanguageMoves::Of(meeting.Former, active_);
        const bool isTold = onMove != nullptr && !moves.AreNone(Present().Count());
        if (isTold) onMove(moves, TMovePhase::Before);
        SetActive(moves);
        const TLangTexts before = Moved(meeting);
        TransferTexts(texts_, file, {kind_, meeting.Places}, report_);
        Write(meeting);
        if (isTold) onMove(moves, TMovePhase::Behind);
        ShowChanges(before);
        return std::move(report_);
    }

  private:
    const TStringList& Present() const { return texts_.Languages; }

    /// A dispatcher's languages are set on it alone.
    TLanguageMeeting Meet(const TStringList& file, const std::string& only) {
        if (languages_.Dispatcher() == nullptr) return MeetLanguages(Present(), file, kind_, only);
        TLanguageMeeting meeting = MeetLanguages(Present(), file, TTransferKind::Merge, only);
        if (meeting.Names.Count() == Present().Count()) {
            if (kind_ == TTransferKind::Load) CountOthers(meeting);
            return meeting;
        }
        const auto dispatcher = languages_.Dispatcher()->GetComponent();
        throw EBadInput(fileName_, 0,
                        Format("%s is linked to the dispatcher %s of %s, which has no language %s",
                               FormNameOf(lang_), dispatcher->GetName(), dispatcher->GetOwner()->GetName(),
                               meeting.Names[Present().Count()]),
                        "Add the language to the dispatcher first");
    }

    /// The translations into what the file has not, but the dispatcher.
    void CountOthers(const TLanguageMeeting& meeting) {
        for (int place = 2; place <= Present().Count(); ++place)
            if (std::find(meeting.Places.begin(), meeting.Places.end(), place) == meeting.Places.end())
                report_.Kept += CountTranslations(texts_, place);
    }

    void TellLanguages(const TLanguageMeeting& meeting) {
        for (std::size_t i = 0; i < meeting.Former.size(); ++i)
            if (meeting.Former[i] == 0) report_.Added.Add(meeting.Names.Items()[i]);
        for (int place = 1; place <= Present().Count(); ++place)
            if (std::find(meeting.Former.begin(), meeting.Former.end(), place) == meeting.Former.end())
                report_.Dropped.Add(Format("%s with its translations: %d", Present()[place - 1],
                                           CountTranslations(texts_, place)));
    }

    /// The active language stays active; where it goes the form shows its base language first.
    void SetActive(const TLanguageMoves& moves) {
        if (moves.Shown() != active_) {
            WriteTexts(lang_, texts_);
            lang_.ShowLanguage(active_, moves.Shown());
        }
        active_ = moves.NewActive;
    }

    /// The texts in their new languages, before the file's come in.
    TLangTexts Moved(const TLanguageMeeting& meeting) {
        if (meeting.Names.Count() != Present().Count() ||
            !std::is_sorted(meeting.Former.begin(), meeting.Former.end()) || meeting.Former.back() == 0)
            Move(meeting.Former);
        texts_.Languages = meeting.Names;
        return active_ > 1 ? texts_ : TLangTexts();
    }
    void Move(const std::vector<int>& former) {
        for (TTable& table : texts_.Tables)
            table.MoveLanguages(former);
        for (TExtendedItem& item : texts_.Extended) {
            const std::vector<std::string> values = std::exchange(item.Values, {});
            for (const int place : former)
                item.Values.push_back(place > 0 && place <= static_cast<int>(values.size())
                                          ? values[static_cast<std::size_t>(place) - 1]
                                          : std::string());
        }
    }

    void Write(const TLanguageMeeting& meeting) {
        if (languages_.Dispatcher() == nullptr) {
            lang_.SetNumLang(meeting.Names.Count());
            lang_.SetLangNames(meeting.Names);
        }
        WriteTexts(lang_, texts_);
        if (languages_.Dispatcher() == nullptr) lang_.SetLanguage(meeting.Names[active_ - 1]);
    }

    /// A form that shows another language than the base language goes on showing what the tables hold.
    void ShowChanges(const TLangTexts& before) const {
        if (active_ > 1) ShowChangedTexts(lang_, before, texts_, active_);
    }

    TmlCustomLang& lang_;
    TEffectiveLanguages languages_;
    const std::string& fileName_;
    TTransferKind kind_;
    TLangTexts texts_;
    int active_;
    TTransferReport report_;
};

/// A form without what was asked for is told of and stays as it is.
TTransferReport Passed(const std::string& note) {
    TTransferReport report;
    report.Notes.Add(note);
    return report;
}

}  // namespace

TTransferReport SaveTexts(TmlCustomLang& lang, TLangFiles& files, const std::string& fileName,
                          const std::string& delimiter) {
    TBuiltTexts built = BuiltTexts(lang);
    TTransferReport report;
    for (const TTable& table : built.Texts.Tables)
        report.Taken += static_cast<int>(table.Entries().size());
    report.Taken += static_cast<int>(built.Texts.Extended.size());
    report.Notes = std::move(built.Notes);
    files.Write(fileName, delimiter, FormNameOf(lang), built.Texts);
    return report;
}

TTransferReport SaveKinds(TmlCustomLang& lang, TLangFiles& files, const TPropertyKinds& kinds,
                          const std::string& fileName, const std::string& delimiter) {
    const TBuiltTexts built = BuiltTexts(lang);
    TTransferReport report;
    report.Notes = built.Notes;
    report.Taken = CountEntries(built.Texts, kinds);
    if (kinds.None()) return report;
    files.Change(fileName, delimiter, FormNameOf(lang),
                 [&](const std::optional<TLangTexts>& present) -> std::optional<TLangTexts> {
                     if (!present && report.Taken == 0) return std::nullopt;
                     if (present) ExpectOneBase(lang, built.Texts.Languages, present->Languages, fileName);
                     return WithKindsOf(built.Texts, present ? *present : TextsIn(built.Texts.Languages),
                                        kinds);
                 });
    return report;
}

TTransferReport LoadTexts(TmlCustomLang& lang, TLangFiles& files, const std::string& fileName,
                          TTransferKind kind, const std::string& only, const TOnLanguagesMove& onMove) {
    const auto file = files.Read(fileName, FormNameOf(lang));
    if (!file) return Passed("the file holds nothing of it");
    const int language = only.empty() ? 0 : file->Languages.IndexOf(only);
    if (language < 0) return Passed("the file has no " + only + " of it");
    if (language == 0 && !only.empty()) return Passed(only + " is its base language there; its texts stay");
    return TLangLoad(lang, fileName, kind).Run(*file, only, onMove);
}

}  // namespace tml
