#pragma once

#include <QAbstractSpinBox>
#include <functional>

namespace tml {

/// A field of text with an up and a down button. What a step does is the handler's business, any text may
/// be typed.
class TStepEdit : public QAbstractSpinBox {
  public:
    explicit TStepEdit(QWidget* parent) : QAbstractSpinBox(parent) {}

    /// 1 is the up button, -1 the down button.
    std::function<void(int)> OnStep;
    QLineEdit* Edit() const { return lineEdit(); }

    void stepBy(int steps) override;

  protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
};

}  // namespace tml
