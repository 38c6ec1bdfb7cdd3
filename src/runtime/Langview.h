#pragma once

#include <string>
#include <vector>

#include "runtime/Languagesview.h"

namespace tml {

/// A localization component as a view on the component of its form: nothing is kept here, every read goes
/// to the form and every write changes only what differs.
class TmlLangView : public TLanguagesView<TmlCustomLang> {
  public:
    using TLanguagesView::TLanguagesView;

    std::string GetName() override;
    std::string GetClassName() override;
    int GetNumLang() override;
    /// Every entry of every table keeps one value a language: values of dropped languages go, those of new
    /// ones begin as the base language's. EBadInput below 1 and above kMostLanguages.
    void SetNumLang(int count) override;
    std::shared_ptr<TmlLangDispatcher> GetDispatcher() override;
    std::string GetDelimiter() override;
    TStringList GetTable(TStringsType type) override;
    void SetTable(TStringsType type, const TStringList& lines) override;
    std::vector<TmlString> GetStrings() override;
    /// Entries whose ID the table has already are left out.
    std::vector<TPropertyChange> PlanAddStrings(const std::vector<TmlString>& entries) override;
    void ComponentRenamed(const std::string& oldName, const std::string& newName) override;

  private:
    bool HasTable(TStringsType type);
    void RenameInTable(TStringsType type, const std::string& oldName, const std::string& newName);
    void RenameInList(const std::string& property, const std::string& oldName, const std::string& newName);
};

class TmlDispatcherView : public TLanguagesView<TmlLangDispatcher> {
  public:
    using TLanguagesView::TLanguagesView;

    int GetNumOfLanguages() override { return Count(); }
    /// EBadInput below 1 and above kMostLanguages.
    void SetNumOfLanguages(int count) override;
};

}  // namespace tml
