#pragma once

#include <QWidget>

#include "layout/Formlayout.h"

namespace tml {

/// A form as it is drawn, without widgets of its own.
class TFormCanvas : public QWidget {
  public:
    TFormCanvas();

    void Show(TLayoutNode form, const TLayoutOptions& options);
    /// Its items say where in the picture each control is.
    const TFormLayout& Layout() const { return layout_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    TLayoutNode form_;  ///< what the layout points into
    TFormLayout layout_;
};

}  // namespace tml
