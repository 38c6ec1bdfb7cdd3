#pragma once

#include "editors/Editorhost.h"
#include "platform/Registration.h"

namespace tml {

/// What each editor is made for, by the IDE for one use.
struct TEdited {
    TEditorHostPtr Host;
    std::shared_ptr<IOTAComponent> Component;
    IDesigner& Designer;
};

/// The verbs of a localization component.
class TTranslationsEditor : public IComponentEditor {
  public:
    explicit TTranslationsEditor(TEdited edited);

    int GetVerbCount() override;
    std::string GetVerb(int index) override;
    void ExecuteVerb(int index) override;
    void PrepareItem(int index, TMenuItem& item) override;
    void Edit() override { ExecuteVerb(0); }

  private:
    struct TVerb;
    static const TVerb kVerbs[];

    void OpenEditor();
    void UpdateTranslations();
    void ClearTranslations();
    void ToggleIgnoreRemovals();
    void AddTranslateItem(TMenuItem& item, const std::string& caption, const std::string& command);
    bool IsPascalUnit() const;

    TEdited edited_;
    std::shared_ptr<TmlCustomLang> lang_;
};

/// A string-list property that holds a translation table: the ellipsis opens the translation editor on it.
class TmlStringsProperty : public IPropertyEditor {
  public:
    TmlStringsProperty(TEdited edited, std::string name)
        : edited_(std::move(edited)), name_(std::move(name)) {}

    std::vector<TPropertyAttribute> GetAttributes() override;
    void GetValues(const std::function<void(const std::string&)>&) override {}
    void Edit() override;

  private:
    TEdited edited_;
    std::string name_;
};

/// The languages of a dispatcher or of a combo, by a double click.
class TDispatcherEditor : public IComponentEditor {
  public:
    explicit TDispatcherEditor(TEdited edited) : edited_(std::move(edited)) {}

    int GetVerbCount() override { return 0; }
    std::string GetVerb(int) override { return {}; }
    void ExecuteVerb(int) override {}
    void PrepareItem(int, TMenuItem&) override {}
    void Edit() override;
    /// Edits the property where it is the one with the languages; no further one is asked for then.
    void EditProperty(const std::string& property, bool& goesOn);

  private:
    TEdited edited_;
};

/// How a combo shows its languages: the ellipsis opens its settings.
class TComboConfigurationProperty : public IPropertyEditor {
  public:
    explicit TComboConfigurationProperty(TEdited edited) : edited_(std::move(edited)) {}

    std::vector<TPropertyAttribute> GetAttributes() override;
    void GetValues(const std::function<void(const std::string&)>&) override {}
    void Edit() override;

  private:
    TEdited edited_;
};

/// Texts that the tables leave out: the ellipsis opens the translation editor, which has them too.
class TExtendedTranslationsProperty : public IPropertyEditor {
  public:
    explicit TExtendedTranslationsProperty(TEdited edited) : edited_(std::move(edited)) {}

    std::vector<TPropertyAttribute> GetAttributes() override;
    void GetValues(const std::function<void(const std::string&)>&) override {}
    void Edit() override;

  private:
    TEdited edited_;
};

/// A list of the component's language names.
class TActiveLanguageProperty : public IPropertyEditor {
  public:
    explicit TActiveLanguageProperty(TEdited edited) : edited_(std::move(edited)) {}

    std::vector<TPropertyAttribute> GetAttributes() override;
    void GetValues(const std::function<void(const std::string&)>& add) override;
    void Edit() override {}

  private:
    TEdited edited_;
};

/// Exclusions of a localization component: the ellipsis opens the exclusion editor on its form.
class TExcludePropertyEditor : public IPropertyEditor {
  public:
    explicit TExcludePropertyEditor(TEdited edited) : edited_(std::move(edited)) {}

    std::vector<TPropertyAttribute> GetAttributes() override;
    void GetValues(const std::function<void(const std::string&)>&) override {}
    void Edit() override;

  private:
    TEdited edited_;
};

/// Excludes the selected component from translation.
class TExcludeComponentEditor : public ISelectionEditor {
  public:
    TExcludeComponentEditor(TEditorHostPtr host, IDesigner& designer)
        : host_(std::move(host)), designer_(designer) {}

    int GetVerbCount() override { return 1; }
    std::string GetVerb(int) override { return "Exclude from translation..."; }
    void ExecuteVerb(int index) override;
    void PrepareItem(int index, TMenuItem& item) override;

  private:
    std::shared_ptr<TmlCustomLang> FirstLangOf(const std::shared_ptr<IOTAComponent>& owner) const;
    void Exclude(TmlCustomLang& lang, const std::string& entry);

    TEditorHostPtr host_;
    IDesigner& designer_;
};

/// The component that a linked one asks for what it has not: any but another linked one.
class TCommonContainerProperty : public IPropertyEditor {
  public:
    explicit TCommonContainerProperty(TEdited edited) : edited_(std::move(edited)) {}

    std::vector<TPropertyAttribute> GetAttributes() override;
    void GetValues(const std::function<void(const std::string&)>& add) override;
    void Edit() override {}

  private:
    bool CheckComponent(IOTAComponent& candidate) const;

    TEdited edited_;
};

}  // namespace tml
