#pragma once

#include <memory>

#include "desktop/Actionbinding.h"
#include "desktop/Binder.h"
#include "desktop/Gridmodel.h"
#include "desktop/View.h"
#include "setup/Dictionaryconflicts.h"
#include "setup/Dictionaryform.h"

class QPlainTextEdit;

namespace Ui {
class Dictionaryview;
class Conflictsview;
}  // namespace Ui

namespace tml {

/// "Dictionary".
class TDictionaryView : public TView {
  public:
    TDictionaryView(TfrmDictionary& form, const TViewServices& services);
    ~TDictionaryView() override;

    void Refresh() override;

  private:
    void BindTable();
    void BindText(QPlainTextEdit& edit, const std::string& member,
                  void (TfrmDictionary::*change)(const std::string&));

    TfrmDictionary& form_;
    const TViewServices& services_;
    std::unique_ptr<Ui::Dictionaryview> ui_;
    TBinder binder_;
    TGridModel model_;
    std::unique_ptr<TActionBinding> actions_;
};

/// "Several Translations".
class TDictionaryConflictsView : public TView {
  public:
    TDictionaryConflictsView(TfrmDictionaryConflicts& form, const TViewServices& services);
    ~TDictionaryConflictsView() override;

    void Refresh() override;

  private:
    std::unique_ptr<Ui::Conflictsview> ui_;
    TBinder binder_;
    TGridModel model_;
};

}  // namespace tml
