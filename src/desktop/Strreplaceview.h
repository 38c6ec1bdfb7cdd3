#pragma once

#include <memory>

#include "desktop/Actionbinding.h"
#include "desktop/Binder.h"
#include "desktop/Listmodel.h"
#include "desktop/View.h"
#include "ids/Stridrepl.h"

namespace Ui {
class Strreplaceview;
}

namespace tml {

/// "String ID Replacement".
class TStrReplaceView : public TView {
  public:
    TStrReplaceView(TfrmStrReplace& form, const TViewServices& services);
    ~TStrReplaceView() override;

    void Refresh() override;

  private:
    void BindUnits();
    void BindLines();
    TStringList ShownNames(const TNamesBox& box) const;

    TfrmStrReplace& form_;
    TRunner& runner_;
    std::unique_ptr<Ui::Strreplaceview> ui_;
    TBinder binder_;
    TStringList units_, selectedUnits_;  ///< as they are shown
    TListModel lines_;
    std::unique_ptr<TActionBinding> actions_;
};

}  // namespace tml
