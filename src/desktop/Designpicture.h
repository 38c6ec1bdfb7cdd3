#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "desktop/Formcanvas.h"
#include "ide/Formdesign.h"

namespace tml {

/// The picture of a form in its designer: a click selects the component that is seen there, or the page whose
/// tab is; Ctrl and Shift add it; the arrows go from one to the next, Esc to what it stands in.
class TDesignPicture : public TFormCanvas {
  public:
    explicit TDesignPicture(TFormDesign& design);

    /// The person has selected these, by their indexes.
    std::function<void(const std::vector<int>& indexes)> OnSelect;
    std::function<void()> OnEdit;  ///< Enter or a double click
    std::function<void()> OnDelete;
    std::function<void(const QPoint& at)> OnMenu;

    void Show(TLayoutNode form, const TLayoutOptions& options);
    /// Where the component is seen; empty for one that is not drawn.
    QRect PlaceOf(int component) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    /// Index of the component that is seen there, the form's where no other is.
    int ComponentAt(const QPoint& at) const;
    int ComponentOf(const TLayoutItem& item) const;
    int PageAt(const TLayoutItem& control, const QPoint& at) const;
    QRect FrameAround(const QRect& place) const;
    void SelectNext(int step);

    TFormDesign& design_;
    std::unordered_map<const TLayoutNode*, std::string> paths_;
};

}  // namespace tml
