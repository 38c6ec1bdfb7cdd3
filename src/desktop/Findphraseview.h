#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "translations/Findphrase.h"

namespace Ui {
class Findphraseview;
class Replconfirmview;
}  // namespace Ui

namespace tml {

/// "Find Phrase".
class TFindPhraseView : public TView {
  public:
    TFindPhraseView(TfrmFind& form, const TViewServices& services);
    ~TFindPhraseView() override;

    void Refresh() override { binder_.Refresh(); }

  private:
    std::unique_ptr<Ui::Findphraseview> ui_;
    TBinder binder_;
};

/// "Replace Confirmation".
class TReplConfirmView : public TView {
  public:
    TReplConfirmView(TfrmReplConfirm& form, const TViewServices& services);
    ~TReplConfirmView() override;

    void Refresh() override { binder_.Refresh(); }

  private:
    std::unique_ptr<Ui::Replconfirmview> ui_;
    TBinder binder_;
};

}  // namespace tml
