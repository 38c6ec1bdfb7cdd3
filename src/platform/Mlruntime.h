#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Stringlist.h"
#include "platform/Dialogs.h"
#include "platform/Mlcommon.h"
#include "platform/Toolsapi.h"
#include "tables/Exclusions.h"
#include "tables/Languageplaces.h"
#include "tables/Propertykinds.h"
#include "tables/Table.h"
#include "tables/Texttransfer.h"

namespace tml {

/// The suite's run-time library: the localization components as the system sees them.

/// What a dispatcher and a localization component have in common. Language indexes are 1-based.
class ILanguages {
  public:
    virtual ~ILanguages() = default;
    /// As many as languages; generated ones stand in for those that are missing.
    virtual TStringList GetLangNames() = 0;
    /// Those of a dispatcher bring its number of languages with them.
    virtual void SetLangNames(const TStringList& names) = 0;
    virtual int GetActiveLanguage() = 0;
    virtual std::string GetLanguage() = 0;
    /// A name that is not among the names leaves the language as it is.
    virtual void SetLanguage(const std::string& name) = 0;
};

class TmlLangDispatcher : public ILanguages {
  public:
    virtual int GetNumOfLanguages() = 0;
    virtual void SetNumOfLanguages(int count) = 0;
    virtual std::shared_ptr<IOTAComponent> GetComponent() = 0;
};

enum class TMovePhase { Before, Behind };
using TOnLanguagesMove = std::function<void(const TLanguageMoves& moves, TMovePhase phase)>;

/// A localization component, as a view on the component of the form.
class TmlCustomLang : public ILanguages {
  public:
    virtual std::shared_ptr<IOTAComponent> GetComponent() = 0;
    virtual std::string GetName() = 0;
    virtual std::string GetClassName() = 0;
    virtual int GetNumLang() = 0;
    virtual void SetNumLang(int count) = 0;
    /// The dispatcher that it is linked to, nullptr when it is not.
    virtual std::shared_ptr<TmlLangDispatcher> GetDispatcher() = 0;
    /// Whether it is that one; by names alone, so that no form is opened for it.
    virtual bool IsLinkedTo(TmlLangDispatcher& dispatcher) = 0;

    /// The component of the ancestor form that this one repeats; nullptr for one of the form's own.
    virtual std::shared_ptr<TmlCustomLang> GetInherited() = 0;
    /// A table as it is now; a command reads it once, and writes it back once.
    virtual TTable GetTable(TStringsType type) = 0;
    /// Changes the lines of the form that differ. A table that the class does not have is left out.
    virtual void SetTable(const TTable& table) = 0;
    /// Where a property of the form reads as the tables have it in one language (1-based), it gets the value
    /// in the other (docs/tables.md).
    virtual void ShowLanguage(int from, int to) = 0;
    /// Moves the values of all tables and what is known of them along with their languages; former as in
    /// MovedValues.
    virtual void MoveLanguages(const std::vector<int>& former) = 0;
    /// The same of what the component stores itself; what it inherits has moved already. Gives the number of
    /// translations into languages that go.
    virtual int MoveStoredLanguages(const std::vector<int>& former) = 0;
    /// Who is told when a file that is loaded moves the languages of the component, before and behind it.
    virtual void FollowLanguages(TOnLanguagesMove follow) = 0;
    /// All of them, and all that differ at once.
    virtual std::vector<TTable> GetTables() = 0;
    virtual void SetTables(const std::vector<TTable>& tables) = 0;
    /// The same of tables in which a person has changed texts: what the form shows of them in its active
    /// language follows. Entries stand as they stood, with new ones behind them, but for IDs of "Strings".
    virtual void EditTables(const std::vector<TTable>& tables) = 0;
    /// Called when the person has edited the component in the translation editor, which has let the form
    /// follow; for classes that have more to do.
    virtual void TranslationsEdited() {}
    /// Brings the tables up to what the form shows (docs/tables.md); a table that is as it should be is not
    /// written. Gives notes for the person on what could not be read.
    virtual TStringList BuildList() = 0;
    /// The form shows its base language then; the other languages are empty, keys, base texts and lists stay.
    virtual void ClearTranslations() = 0;

    // Translation files (docs/translation-files.md). EBadInput, with file and line, for one that cannot be
    // used; the component and the file are then as they were.

    /// Writes what BuildList would make of the tables into a text file; the form does not change, and what
    /// else the file holds stays. Another delimiter than the file's rewrites it. Taken are the entries, notes
    /// those of BuildList.
    virtual TTransferReport SaveAllToFile(const std::string& fileName, const std::string& delimiter) = 0;
    virtual TTransferReport SaveAllToBinaryFile(const std::string& fileName) = 0;
    /// The same of chosen kinds: what the file holds of the form's others stays. No file for no entry.
    virtual TTransferReport SaveToFile(const TPropertyKinds& kinds, const std::string& fileName,
                                       const std::string& delimiter) = 0;
    /// Brings the tables up to the form and replaces languages and translations by those of the file (see
    /// TTransferKind). EBadInput where a
    /// dispatcher has not the file's languages.
    virtual TTransferReport LoadAllFromFile(const std::string& fileName) = 0;
    virtual TTransferReport LoadAllFromBinaryFile(const std::string& fileName) = 0;
    /// Adds and overwrites translations from a file of either kind; what it lacks stays.
    virtual TTransferReport MergeAllFromFile(const std::string& fileName) = 0;
    /// The same of one language, by its name without regard to case.
    virtual TTransferReport LoadLanguage(const std::string& fileName, const std::string& languageName) = 0;
    virtual TStringList GetExclusions(TExclusionList list) = 0;
    virtual void SetExclusions(TExclusionList list, const TStringList& entries) = 0;
    /// Whether BuildList keeps entries that the form has no more.
    virtual bool GetIgnoreRemovals() = 0;
    virtual void SetIgnoreRemovals(bool ignore) = 0;
    /// Lets the stored translations follow a component that was renamed.
    virtual void ComponentRenamed(const std::string& oldName, const std::string& newName) = 0;
};

/// Options of the project as the run-time translation editor shares them.
class ImlLangProjectSettings;

/// The translation files of a command over a project: while it lives each is read once, and what forms save
/// is written once, by Commit. Without one every call reads and writes by itself.
class ITranslationFiles {
  public:
    virtual ~ITranslationFiles() = default;
    /// The languages of all forms that a file holds. EFileError for a missing file, EBadInput for one that
    /// cannot be read.
    virtual TStringList GetLanguages(const std::string& fileName) = 0;
    /// EBadInput for a file that no form could be saved into; see SaveAllToFile.
    virtual void ExpectWritable(const std::string& fileName, const std::string& delimiter) = 0;
    /// EFileError where somebody else has changed a file since it was read.
    virtual void Commit() = 0;
};

/// Where the translation editor opens: at an entry (0-based; -1 for none in particular) of a table. Field 0
/// is the entry's key, others are languages (1-based).
struct TTransEditorPlace {
    TStringsType Table = TStringsType::stStrings;
    int Entry = 0;
    int Field = 0;        ///< the key, or the place of a language; -1 for the first translation
    bool IsLast = false;  ///< where the person was last instead
};
/// Told when an ID of "Strings" has become another one, inside the change that wrote it.
using TChangeStrID =
    std::function<void(const std::string& formName, const std::string& oldID, const std::string& newID)>;

class IMlRuntime {
  public:
    virtual ~IMlRuntime() = default;

    /// One lives at a time. projectName: whose forms are meant, without folder and extension.
    virtual std::unique_ptr<ITranslationFiles> OpenTranslationFiles(const std::string& projectName) = 0;

    /// Class names of the localization components.
    virtual const std::vector<std::string>& NamesArray() const = 0;
    /// True for a class of the suite that can be put on a form.
    virtual bool IsRegistered(const std::string& className) const = 0;
    /// True when the class is the ancestor or derives from it ("TmlCustomLang").
    virtual bool InheritsFrom(const std::string& className, const std::string& ancestor) const = 0;
    /// The unit that declares a class of the suite, without extension; "" for another class.
    virtual std::string UnitOf(const std::string& className) const = 0;
    /// The properties that one class of the suite has and the other one has not.
    virtual std::vector<std::string> PropertiesWithout(const std::string& className,
                                                       const std::string& otherClass) const = 0;
    /// Views on a component; nullptr when its class is not of the kind.
    virtual std::shared_ptr<TmlCustomLang> AsCustomLang(const std::shared_ptr<IOTAComponent>& component) = 0;
    virtual std::shared_ptr<TmlLangDispatcher> AsDispatcher(
        const std::shared_ptr<IOTAComponent>& component) = 0;

    /// Shows the translation editor on a component, as a modal window; true when it has changed the form.
    std::function<bool(TmlCustomLang&, const TTransEditorPlace&, const TChangeStrID&)> TransEditorDlg;
    /// The same on the components of several forms; those that it has changed. The place is in the first one.
    std::function<std::vector<TmlCustomLang*>(const std::vector<TmlCustomLang*>&, const TTransEditorPlace&,
                                              const TChangeStrID&)>
        TransEditorForms;

    // What the library asks of the host; each is missing where there is none.

    /// By which it reads and writes files.
    ICommandFiles* Files = nullptr;
    /// Makes what the editor writes one step of undo.
    std::function<std::unique_ptr<ICommandScope>(const std::string& title)> BeginCommand;
    IDialogs* Dialogs = nullptr;
    /// For searches by regular expressions.
    ICommonLibraryLoader* CommonLibrary = nullptr;
    /// Callbacks of the translation editor.
    std::function<void(const std::string& formName, const std::string& id)> NavigateToSource;
    std::function<void()> ShowAboutBox;
    /// The settings of the open project; empty between projects.
    std::shared_ptr<ImlLangProjectSettings> mlLangProjectSettings;
};

}  // namespace tml
