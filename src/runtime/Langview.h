#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Formtexts.h"
#include "runtime/Langfiles.h"
#include "runtime/Languagesview.h"
#include "tables/States.h"

namespace tml {

/// A localization component as a view on the component of its form: nothing is kept here, every read goes
/// to the form and every write changes only what differs.
class TmlLangView : public TLanguagesView<TmlCustomLang>, public IFormTexts {
  public:
    TmlLangView(std::shared_ptr<IOTAComponent> component, TLangFiles& files)
        : TLanguagesView(std::move(component)), files_(files) {}

    std::string GetName() override;
    std::string GetClassName() override;
    int GetNumLang() override;
    /// Every entry of every table keeps one value a language: names and values of dropped languages go,
    /// values of new ones begin as the base language's. EBadInput below 1 and above kMostLanguages.
    void SetNumLang(int count) override;
    std::shared_ptr<TmlLangDispatcher> GetDispatcher() override;
    bool IsLinkedTo(TmlLangDispatcher& dispatcher) override;
    std::shared_ptr<TmlCustomLang> GetInherited() override;
    TTable GetTable(TStringsType type) override;
    /// EBadInput where the form names more languages than kMostLanguages.
    void SetTable(const TTable& table) override;
    void ShowLanguage(int from, int to) override;
    void MoveLanguages(const std::vector<int>& former) override;
    int MoveStoredLanguages(const std::vector<int>& former) override;
    void FollowLanguages(TOnLanguagesMove follow) override { onMove_ = std::move(follow); }
    std::vector<TTable> GetTables() override;
    void SetTables(const std::vector<TTable>& tables) override;
    void EditTables(const std::vector<TTable>& tables) override;
    TStringList BuildList() override;
    void ClearTranslations() override;
    TTransferReport SaveAllToFile(const std::string& fileName, const std::string& delimiter) override;
    TTransferReport SaveAllToBinaryFile(const std::string& fileName) override;
    TTransferReport SaveToFile(const TPropertyKinds& kinds, const std::string& fileName,
                               const std::string& delimiter) override;
    TTransferReport LoadAllFromFile(const std::string& fileName) override;
    TTransferReport LoadAllFromBinaryFile(const std::string& fileName) override;
    TTransferReport MergeAllFromFile(const std::string& fileName) override;
    TTransferReport LoadLanguage(const std::string& fileName, const std::string& languageName) override;
    TStringList GetExclusions(TExclusionList list) override;
    void SetExclusions(TExclusionList list, const TStringList& entries) override;
    bool GetIgnoreRemovals() override;
    void SetIgnoreRemovals(bool ignore) override;
    void ComponentRenamed(const std::string& oldName, const std::string& newName) override;
    TTextsOfForm GetTextsOfForm() override;
    bool IsUpToDate() override;

  private:
    /// The character between the fields of a table line.
    std::string GetDelimiter();
    bool HasTable(TStringsType type);
    TStateRecords ReadStates();
    TTable ReadTable(TStringsType type, const std::string& delimiter, const TStateRecords& states);
    void WriteTables(const std::vector<TTable>& tables);
    void RenameInExclusions(TExclusionList list, const std::string& oldName, const std::string& newName);

    TLangFiles& files_;
    TOnLanguagesMove onMove_;
};

class TmlDispatcherView : public TLanguagesView<TmlLangDispatcher> {
  public:
    using TLanguagesView::TLanguagesView;

    void SetLangNames(const TStringList& names) override;
    int GetNumOfLanguages() override { return Count(); }
    /// EBadInput below 1 and above kMostLanguages.
    void SetNumOfLanguages(int count) override;
};

}  // namespace tml
