#pragma once

#include <QPainter>
#include <QPalette>
#include <string>
#include <string_view>

#include "layout/Formlayout.h"

namespace tml {

constexpr int kTextRoom = 4;  ///< pixels between a border and the text in it
constexpr int kMark = 13;     ///< box of a check button

QRect RectOf(const TLayoutRect& rect);
Qt::Alignment Across(TLayoutAlignment alignment);
Qt::Alignment Down(TLayoutAlignment alignment);

/// Of a piece of a control: from the other side where the control is read from the right.
QRect PlaceOfPart(const TLayoutItem& item, const TLayoutRect& part);

/// One control that is drawn, inside of the clip that is set, and what several kinds of controls are drawn
/// with.
struct TControlCanvas {
    TControlCanvas(QPainter& painter, const TLayoutItem& item, const QPalette& palette, const QColor& paper);

    QPainter& Painter;
    const TLayoutItem& Item;
    const QPalette& Palette;
    const QColor Paper;  ///< the colour behind its texts
    const QRect Place;

    /// What the form says of a property of the control; nothing where it does not hold it.
    bool IsOn(const char* property) const;
    bool Is(const char* property, std::string_view value) const;
    /// Fainter than texts, but for lines that would not be seen.
    QColor Line() const;
    /// For texts on a paper.
    QColor Ink(const QColor& paper) const;
    QRect PartPlace(const TLayoutRect& part) const { return PlaceOfPart(Item, part); }
    /// Of a field; rest is what is left of it for the text.
    QRect CutEnd(QRect& rest) const;

    void Text(const QRect& place, const std::string& text, int flags) const;
    void Border(const QRect& place) const;
    void PushButton(const QRect& place, const std::string& text) const;
    /// down: 1 for an arrow that points down, -1 for one that points up.
    void Arrow(const QRect& place, int down) const;
    void Arrows(const QRect& place) const;
    /// For a picture that is not there.
    void Placeholder(const QRect& place) const;
};

}  // namespace tml
