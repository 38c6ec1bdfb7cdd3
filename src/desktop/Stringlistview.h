#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "windows/Stringlisteditor.h"

namespace Ui {
class Stringlistview;
}

namespace tml {

/// Edits a list of strings, a line each.
class TStringListView : public TView {
  public:
    TStringListView(TfrmStringList& form, const TViewServices& services);
    ~TStringListView() override;

    void Refresh() override { binder_.Refresh(); }

  private:
    void CountLines();

    TfrmStringList& form_;
    std::unique_ptr<Ui::Stringlistview> ui_;
    TBinder binder_;
};

}  // namespace tml
