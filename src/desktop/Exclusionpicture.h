#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "desktop/Formcanvas.h"
#include "setup/Exclude.h"

namespace tml {

/// A form as it is drawn, with what of it is translated in a frame and what is excluded hatched.
class TExclusionPicture : public TFormCanvas {
  public:
    TExclusionPicture() { setObjectName("exclusionPicture"); }

    /// Told the path of a component that is clicked, "" for the form itself.
    std::function<void(const std::string& path)> OnClick;

    /// Draws the current form of the window, which may be another one now.
    void ShowForm(const TfrmExclude& form);
    /// The same form, with the boxes as they are now.
    void ShowMarks(const TfrmExclude& form);
    /// Where the current node's component stands; empty for none.
    QRect CurrentPlace() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    struct TMark {
        QRect Place;
        TExclusionCheck Check;
        bool IsCurrent;
    };
    void PaintMark(QPainter& painter, const TMark& mark) const;

    std::vector<std::string> paths_;  ///< of the layout's items; upper-cased, "-" for one without a name
    std::vector<TMark> marks_;
};

}  // namespace tml
