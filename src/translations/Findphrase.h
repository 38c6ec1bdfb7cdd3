#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/Context.h"
#include "core/Placement.h"
#include "translations/Phrases.h"
#include "windows/Listview.h"

namespace tml {

/// Asks for a phrase and how it is looked for.
class TfrmFind : public TForm {
  public:
    /// A search shows no text to replace it with.
    explicit TfrmFind(bool replaces);

    std::string edFindText;
    std::string edReplace;
    bool ReplaceVisible;  ///< edReplace with its label; the window is lower without them
    bool ckbSensit = false;
    bool ckbWhole = false;
    bool ckbIdent = false;
    bool ckbDoPrompt = false;

    TPhraseOptions Options() const;
    void btOKClick() { Close(mrOk); }
    void btCancelClick() { Close(mrCancel); }
};

/// Asks before one replacement.
class TfrmReplConfirm : public TForm {
  public:
    TfrmReplConfirm(const TFormPhrases& form, const TPhraseHit& hit, std::string result);

    std::string lblFileName;
    std::string lblProperty;
    std::string lblLocation;
    std::string memCurrent;  ///< "Current text:"
    std::string memResult;   ///< "Result text:"
    std::string lblQuestion = "Replace this occurence?";

    void btYesClick() { Close(mrYes); }
    void btNoClick() { Close(mrNo); }
    void btCancelClick() { Close(mrCancel); }
    /// Its number is 8, which the command takes for a "Yes" to this one: the next one is asked again, on
    /// purpose.
    void btYesToAllClick() { Close(static_cast<TModalResult>(8)); }
};

/// The columns of the list of hits.
enum TFoundPhraseColumn { fpFileName, fpProperty, fpLine, fpLocation, fpKey, fpText };

class TFoundPhraseRow : public TListRow {
  public:
    TFoundPhraseRow(std::string fileName, TPhraseHit hit, std::string location)
        : FileName(std::move(fileName)), Hit(std::move(hit)), Location(std::move(location)) {}
    const std::string FileName;  ///< of the unit
    const TPhraseHit Hit;
    const std::string Location;

    std::string Cell(std::size_t column) const override;
};

/// Lists where a phrase was found. It stays open; where a view still shows it when it goes, it has been
/// closed before.
class TfrmFoundPhrases : public TForm {
  public:
    explicit TfrmFoundPhrases(TContext& context);
    ~TfrmFoundPhrases() override { Close(mrClose); }
    TfrmFoundPhrases(const TfrmFoundPhrases&) = delete;
    TfrmFoundPhrases& operator=(const TfrmFoundPhrases&) = delete;

    TListOf<TFoundPhraseRow> lvIDs;
    /// Nobody has made a column of lvIDs wider or narrower yet.
    bool HasDesignWidths() const;
    TPlacement Placement;

    void FormShow() override;
    void FormClose() override;
    void Fill(const std::vector<TFormPhrases>& found);
    void lvIDsChange() { Changed(); }
    /// Opens the translation editor at the selected hit.
    void LVIDsDblClick();
    /// Enter does what a double click does.
    void LVIDsKeyDown(TShortCut key);

  private:
    TContext& context_;
};

/// What the commands on phrases remember: the one window of results.
struct TPhrasesMemory {
    std::unique_ptr<TfrmFoundPhrases> Found;
};

/// The command: lists the hits in the forms of the selected rows.
void Findword1Click(TContext& context, TPhrasesMemory& memory);
/// The command: replaces the phrase there, as one step of undo; IDs of "Strings" follow in chosen units. How
/// much was replaced, and what was left, is told in the end.
void Replacephrase1Click(TContext& context);

}  // namespace tml
