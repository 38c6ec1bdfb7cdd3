#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/Gridmodel.h"
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
    void RefreshPreview();
    void RefreshWayOut();

    TfrmSkippedStrings& form_;
    TRunner& runner_;
    std::unique_ptr<Ui::Skippedview> ui_;
    TBinder binder_;
    TGridModel model_;
};

}  // namespace tml
