#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/Listmodel.h"
#include "desktop/Rowfilter.h"
#include "desktop/View.h"
#include "scan/Skippedstrings.h"

namespace Ui {
class Skippedview;
}

namespace tml {

/// The strings that the last scan has passed over.
class TSkippedView : public TView {
  public:
    TSkippedView(TfrmSkippedStrings& form, const TViewServices& services);
    ~TSkippedView() override;

    void Refresh() override;
    TPlacement* Place() override { return &form_.Placement; }

  private:
    void BindTable();
    void BindFilter();
    void Select(const QModelIndex& shown);
    void RefreshRows();
    void RefreshPreview();
    void RefreshWayOut();

    TfrmSkippedStrings& form_;
    TRunner& runner_;
    std::unique_ptr<Ui::Skippedview> ui_;
    TBinder binder_;
    TListModel model_;
    TRowFilter sorted_;
    unsigned shown_ = 0;  ///< revision of the list
    bool refreshing_ = false;
};

}  // namespace tml
