#include "picture/Formpainter.h"

#include <algorithm>
#include <vector>

#include "base/Utf8.h"
#include "picture/Formcolours.h"
#include "picture/Formglyphs.h"
#include "picture/Formmeasure.h"

namespace tml {
namespace {

constexpr int kTextRoom = 4;    ///< pixels between a border and the text in it
constexpr int kMark = 13;       ///< box of a check button
constexpr int kArrow = 4;       ///< half an arrow's width
constexpr int kButton = 18;     ///< width of the button at the end of a field
constexpr int kLeastLine = 30;  ///< of the contrast to the paper
constexpr int kLeastBar = 10;   ///< thickness of a scroll bar
constexpr int kRound = 3;       ///< radius of a button's corner

QRect RectOf(const TLayoutRect& rect) {
    return {rect.Left, rect.Top, rect.Width, rect.Height};
}

Qt::Alignment Across(TLayoutAlignment alignment) {
    constexpr Qt::AlignmentFlag kFlags[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    return kFlags[static_cast<int>(alignment)];
}

Qt::Alignment Down(TLayoutAlignment alignment) {
    constexpr Qt::AlignmentFlag kFlags[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return kFlags[static_cast<int>(alignment)];
}

/// The part of the palette that a control's paper is where the form says nothing; NoRole for its parent's.
QPalette::ColorRole PaperOf(TLayoutKind kind) {
    switch (kind) {
        case TLayoutKind::Edit:
        case TLayoutKind::SpinEdit:
        case TLayoutKind::EditButton:
        case TLayoutKind::Memo:
        case TLayoutKind::ComboBox:
        case TLayoutKind::ListBox:
        case TLayoutKind::CheckListBox:
        case TLayoutKind::ListView:
        case TLayoutKind::TreeView:
        case TLayoutKind::Grid:
        case TLayoutKind::Calendar:
        case TLayoutKind::Shape:
            return QPalette::Base;
        case TLayoutKind::Button:
            return QPalette::Button;
        case TLayoutKind::Form:
            return QPalette::Window;
        default:
            return QPalette::NoRole;
    }
}

/// The first or the last one of two that stand beside each other, or upright.
QRect PartOf(const QRect& both, const QSize& size, bool isUpright, bool isLast) {
    QRect part({0, 0}, size);
    part.moveCenter(both.center());
    if (isUpright)
        isLast ? part.moveBottom(both.bottom()) : part.moveTop(both.top());
    else
        isLast ? part.moveRight(both.right()) : part.moveLeft(both.left());
    return part;
}

/// One control, inside of the clip that is set.
class TItemPainter {
  public:
    TItemPainter(QPainter& painter, const TLayoutItem& item, const QPalette& palette, const QColor& paper)
        : painter_(painter), item_(item), palette_(palette), paper_(paper), place_(RectOf(item.Place)) {
        painter_.setFont(FontOf(item_.Font));
        painter_.setLayoutDirection(item_.RightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    }

    void Draw() {
        const bool fills = !item_.Color.empty() || PaperOf(item_.Kind) != QPalette::NoRole;
        if (fills && item_.Kind != TLayoutKind::Button && !IsOn("Transparent"))
            painter_.fillRect(place_, paper_);
        (this->*OfKind(item_.Kind))();
    }

  private:
    using TDraw = void (TItemPainter::*)();
    static TDraw OfKind(TLayoutKind kind);

    void Form() { MenuBar(); }
    void Frame() {}
    void Panel();
    void GroupBox();
    void Outline() { Border(place_); }
    void ScrollBox();
    void Pages();
    void Label();
    void Button();
    void SpeedButton();
    void CheckBox();
    void RadioButton();
    void Edit();
    void SpinEdit();
    void EditButton();
    void Memo();
    void ComboBox();
    void List();
    void Columns();
    void ToolBar();
    void StatusBar();
    void Splitter();
    void TrackBar();
    void ScrollBar();
    void UpDown() { Arrows(place_); }
    void Picture();
    void Shape();
    void DividerBevel();
    void ButtonPanel();
    void NamedBox();

    void MenuBar();
    void Border(const QRect& place);
    void PushButton(const QRect& place, const std::string& text);
    void Arrow(const QRect& place, int down);
    void Arrows(const QRect& place);
    /// Of a field; what is left of it for the text.
    QRect CutEnd(QRect& rest) const;
    void Mark(bool isRound);
    void Text(const QRect& place, const std::string& text, int flags);
    /// A button's picture and text, together in the middle.
    void GlyphAndText(const QRect& place);
    void Glyph(const QRect& place);
    void Placeholder(const QRect& place);
    /// From the lower to the upper end at the left, and down at the right.
    void UprightText(const QRect& place, const std::string& text, bool isUp);
    void Title(const TLayoutPart& part);

    bool IsOn(const char* property) const {
        const TFormValue* const value = item_.Node->Find(property);
        return value != nullptr && SameText(value->Text, "True");
    }
    bool Is(const char* property, std::string_view value) const {
        const TFormValue* const given = item_.Node->Find(property);
        return given != nullptr && SameText(given->Text, value);
    }
    /// Fainter than texts, but for lines that would not be seen.
    QColor Line() const {
        const QColor line = palette_.color(QPalette::Dark);
        return qAbs(qGray(line.rgb()) - qGray(paper_.rgb())) < kLeastLine
                   ? palette_.color(QPalette::PlaceholderText)
                   : line;
    }
    QColor Ink(const QColor& paper) const;
    /// From the other side where the control is read from the right.
    QRect PartPlace(const TLayoutRect& part) const {
        const int left = item_.RightToLeft ? item_.Place.Width - part.Left - part.Width : part.Left;
        return {place_.left() + left, place_.top() + part.Top, part.Width, part.Height};
    }

    QPainter& painter_;
    const TLayoutItem& item_;
    const QPalette& palette_;
    const QColor paper_;
    const QRect place_;
};

// clang-format off
TItemPainter::TDraw TItemPainter::OfKind(TLayoutKind kind) {
    switch (kind) {
        case TLayoutKind::Form: return &TItemPainter::Form;
        case TLayoutKind::Frame: case TLayoutKind::Page: return &TItemPainter::Frame;
        case TLayoutKind::Panel: return &TItemPainter::Panel;
        case TLayoutKind::GroupBox: case TLayoutKind::RadioGroup: case TLayoutKind::CheckGroup:
            return &TItemPainter::GroupBox;
        case TLayoutKind::ScrollBox: return &TItemPainter::ScrollBox;
        case TLayoutKind::Bevel: case TLayoutKind::ProgressBar: return &TItemPainter::Outline;
        case TLayoutKind::PageControl: case TLayoutKind::TabControl: return &TItemPainter::Pages;
        case TLayoutKind::Label: case TLayoutKind::StaticText: return &TItemPainter::Label;
        case TLayoutKind::Button: return &TItemPainter::Button;
        case TLayoutKind::SpeedButton: case TLayoutKind::ToolButton: return &TItemPainter::SpeedButton;
        case TLayoutKind::CheckBox: return &TItemPainter::CheckBox;
        case TLayoutKind::RadioButton: return &TItemPainter::RadioButton;
        case TLayoutKind::Edit: return &TItemPainter::Edit;
        case TLayoutKind::SpinEdit: return &TItemPainter::SpinEdit;
        case TLayoutKind::EditButton: return &TItemPainter::EditButton;
        case TLayoutKind::Memo: return &TItemPainter::Memo;
        case TLayoutKind::ComboBox: return &TItemPainter::ComboBox;
        case TLayoutKind::ListBox: case TLayoutKind::CheckListBox: case TLayoutKind::TreeView:
            return &TItemPainter::List;
        case TLayoutKind::ListView: case TLayoutKind::Grid: return &TItemPainter::Columns;
        case TLayoutKind::ToolBar: case TLayoutKind::CoolBar: return &TItemPainter::ToolBar;
        case TLayoutKind::StatusBar: return &TItemPainter::StatusBar;
        case TLayoutKind::Splitter: return &TItemPainter::Splitter;
        case TLayoutKind::TrackBar: return &TItemPainter::TrackBar;
        case TLayoutKind::ScrollBar: return &TItemPainter::ScrollBar;
        case TLayoutKind::UpDown: return &TItemPainter::UpDown;
        case TLayoutKind::Image: return &TItemPainter::Picture;
        case TLayoutKind::Shape: return &TItemPainter::Shape;
        case TLayoutKind::DividerBevel: return &TItemPainter::DividerBevel;
        case TLayoutKind::ButtonPanel: return &TItemPainter::ButtonPanel;
        case TLayoutKind::Calendar: case TLayoutKind::PaintBox: case TLayoutKind::Box: break;
    }
    return &TItemPainter::NamedBox;
}
// clang-format on

QColor TItemPainter::Ink(const QColor& paper) const {
    if (!item_.Enabled) return palette_.color(QPalette::Disabled, QPalette::WindowText);
    const QColor own = ColourOf(item_.Font.Color, palette_);
    const bool isChosen = own.isValid() && !SameText(item_.Font.Color, "clWindowText");
    return isChosen ? own : ReadableOn(paper, palette_.color(QPalette::WindowText));
}

void TItemPainter::Text(const QRect& place, const std::string& text, int flags) {
    if (text.empty()) return;
    painter_.setPen(Ink(paper_));
    painter_.drawText(place, flags, QString::fromUtf8(text));
}

void TItemPainter::Border(const QRect& place) {
    painter_.setPen(Line());
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(place.adjusted(0, 0, -1, -1));
}

void TItemPainter::MenuBar() {
    for (const TLayoutPart& part : item_.Parts)
        Text(PartPlace(part.Place), part.Text, Qt::AlignCenter | Qt::TextShowMnemonic);
}

void TItemPainter::Panel() {
    if (!Is("BevelOuter", "bvNone") || Is("BorderStyle", "bsSingle")) Border(place_);
    Text(place_, item_.Text,
         static_cast<int>(Across(item_.Alignment) | Qt::AlignVCenter) | Qt::TextShowMnemonic);
}

void TItemPainter::GroupBox() {
    const int half = item_.Text.empty() ? 0 : painter_.fontMetrics().height() / 2;
    Border(place_.adjusted(0, half, 0, 0));
    if (item_.Text.empty()) return;
    const int width =
        painter_.fontMetrics().size(Qt::TextShowMnemonic, QString::fromUtf8(item_.Text)).width() +
        2 * kTextRoom;
    const QRect title = PartPlace({2 * kTextRoom, 0, width, 2 * half + 1});
    painter_.fillRect(title, paper_);
    Text(title, item_.Text, Qt::AlignCenter | Qt::TextShowMnemonic);
}

/// Bars stand where the client area leaves more room than a border takes.
void TItemPainter::ScrollBox() {
    const QRect client(place_.topLeft() + QPoint(item_.Client.Left, item_.Client.Top),
                       QSize(item_.Client.Width, item_.Client.Height));
    const QColor bar = palette_.color(QPalette::Mid);
    if (place_.right() - client.right() >= kLeastBar)
        painter_.fillRect(QRect(client.topRight() + QPoint(1, 0), place_.bottomRight()), bar);
    if (place_.bottom() - client.bottom() >= kLeastBar)
        painter_.fillRect(QRect(client.bottomLeft() + QPoint(0, 1), place_.bottomRight()), bar);
    if (!Is("BorderStyle", "bsNone")) Border(place_);
}

void TItemPainter::Pages() {
    const bool isLeft = Is("TabPosition", "tpLeft"), isRight = Is("TabPosition", "tpRight");
    const bool isBottom = Is("TabPosition", "tpBottom");
    // Towards the pages.
    const QPoint in = isLeft     ? QPoint(1, 0)
                      : isRight  ? QPoint(-1, 0)
                      : isBottom ? QPoint(0, -1)
                                 : QPoint(0, 1);
    const TLayoutRect tabs = item_.Parts.empty() ? TLayoutRect() : item_.Parts.front().Place;
    const QPoint depth(in.x() * tabs.Width, in.y() * tabs.Height);
    Border(place_.adjusted(std::max(0, depth.x()), std::max(0, depth.y()), std::min(0, depth.x()),
                           std::min(0, depth.y())));
    for (const TLayoutPart& part : item_.Parts) {
        const QRect tab = PartPlace(part.Place);
        Border(tab.united(tab.translated(in)));
        if (part.IsOn) painter_.fillRect(tab.adjusted(1, 1, -1, -1).translated(2 * in), paper_);
        if (tab.height() > tab.width() && (isLeft || isRight))
            UprightText(tab, part.Text, isLeft);
        else
            Text(tab, part.Text, Qt::AlignCenter | Qt::TextShowMnemonic);
    }
}

void TItemPainter::UprightText(const QRect& place, const std::string& text, bool isUp) {
    painter_.save();
    painter_.translate(QRectF(place).center());
    painter_.rotate(isUp ? -90 : 90);
    const QSize turned = place.size().transposed();
    Text({QPoint(-turned.width() / 2, -turned.height() / 2), turned}, text,
         Qt::AlignCenter | Qt::TextShowMnemonic);
    painter_.restore();
}

void TItemPainter::Label() {
    const int mnemonic = Is("ShowAccelChar", "False") ? 0 : Qt::TextShowMnemonic;
    Text(place_, item_.Text,
         static_cast<int>(Across(item_.Alignment) | Down(item_.Layout)) | mnemonic |
             (item_.WordWrap ? Qt::TextWordWrap : 0));
}

void TItemPainter::PushButton(const QRect& place, const std::string& text) {
    painter_.setPen(Line());
    painter_.setBrush(palette_.color(QPalette::Button));
    painter_.drawRoundedRect(place.adjusted(0, 0, -1, -1), kRound, kRound);
    Text(place, text, Qt::AlignCenter | Qt::TextShowMnemonic | (item_.WordWrap ? Qt::TextWordWrap : 0));
}

void TItemPainter::Placeholder(const QRect& place) {
    painter_.setPen(QPen(Line(), 1, Qt::DashLine));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(place.adjusted(0, 0, -1, -1));
    painter_.drawLine(place.topLeft(), place.bottomRight());
    painter_.drawLine(place.topRight(), place.bottomLeft());
}

void TItemPainter::Glyph(const QRect& place) {
    const QImage glyph = GlyphIn(*item_.Node);
    glyph.isNull() ? Placeholder(place) : painter_.drawImage(place, glyph);
}

void TItemPainter::GlyphAndText(const QRect& place) {
    constexpr int kCenter = static_cast<int>(Qt::AlignCenter) | Qt::TextShowMnemonic;
    const QSize glyph(item_.Glyph.Width, item_.Glyph.Height);
    if (glyph.isEmpty()) return Text(place, item_.Text, kCenter | (item_.WordWrap ? Qt::TextWordWrap : 0));
    const bool isRight = item_.GlyphSide == TLayoutGlyphSide::Right;
    const bool isBelow = item_.GlyphSide == TLayoutGlyphSide::Bottom;
    const bool isUpright = isBelow || item_.GlyphSide == TLayoutGlyphSide::Top;
    const bool isLast = isUpright ? isBelow : isRight != item_.RightToLeft;
    const QSize text = painter_.fontMetrics().size(Qt::TextShowMnemonic, QString::fromUtf8(item_.Text));
    const int space = item_.Text.empty() ? 0 : kTextRoom;
    QSize size = glyph.expandedTo(text);
    if (isUpright)
        size.setHeight(glyph.height() + space + text.height());
    else
        size.setWidth(glyph.width() + space + text.width());
    QRect both({0, 0}, size);
    both.moveCenter(place.center());
    Glyph(PartOf(both, glyph, isUpright, isLast));
    Text(PartOf(both, text, isUpright, !isLast), item_.Text, kCenter);
}

void TItemPainter::Button() {
    PushButton(place_, {});
    GlyphAndText(place_);
}

void TItemPainter::SpeedButton() {
    if (Is("Style", "tbsSeparator") || Is("Style", "tbsDivider")) {
        painter_.setPen(Line());
        painter_.drawLine(place_.center().x(), place_.top() + 2, place_.center().x(), place_.bottom() - 2);
        return;
    }
    if (item_.IsOn) painter_.fillRect(place_, palette_.color(QPalette::Mid));
    if (item_.Kind == TLayoutKind::SpeedButton && !IsOn("Flat")) PushButton(place_, {});
    GlyphAndText(place_);
}

void TItemPainter::Mark(bool isRound) {
    const int top = (item_.Place.Height - kMark) / 2;
    const QRect box = PartPlace({0, top, kMark, kMark}).adjusted(0, 0, -1, -1);
    painter_.setPen(Line());
    painter_.setBrush(palette_.color(QPalette::Base));
    isRound ? painter_.drawEllipse(box) : painter_.drawRect(box);
    if (item_.IsOn) {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(palette_.color(QPalette::Highlight));
        const QRect inner = box.adjusted(3, 3, -2, -2);
        isRound ? painter_.drawEllipse(inner) : painter_.drawRect(inner);
    }
    const int room = kMark + kTextRoom;
    Text(PartPlace({room, 0, item_.Place.Width - room, item_.Place.Height}), item_.Text,
         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic | (item_.WordWrap ? Qt::TextWordWrap : 0));
}

void TItemPainter::CheckBox() {
    Mark(false);
}

void TItemPainter::RadioButton() {
    Mark(true);
}

QRect TItemPainter::CutEnd(QRect& rest) const {
    QRect end = rest;
    if (item_.RightToLeft) {
        end.setWidth(kButton);
        rest.setLeft(end.right() + 1);
    } else {
        end.setLeft(rest.right() + 1 - kButton);
        rest.setRight(end.left() - 1);
    }
    return end;
}

void TItemPainter::Edit() {
    Border(place_);
    Text(place_.adjusted(kTextRoom, 0, -kTextRoom, 0), item_.Text,
         static_cast<int>(Across(item_.Alignment) | Qt::AlignVCenter) | Qt::TextSingleLine);
}

/// down: 1 for an arrow that points down, -1 for one that points up.
void TItemPainter::Arrow(const QRect& place, int down) {
    const QPoint middle = place.center();
    const QPoint corners[] = {middle + QPoint(-kArrow, -down * kArrow / 2),
                              middle + QPoint(kArrow, -down * kArrow / 2),
                              middle + QPoint(0, down * kArrow / 2)};
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(Ink(paper_));
    painter_.drawPolygon(corners, 3);
}

void TItemPainter::Arrows(const QRect& place) {
    Border(place);
    Arrow(place.adjusted(0, 0, 0, -place.height() / 2), -1);
    Arrow(place.adjusted(0, place.height() / 2, 0, 0), 1);
}

void TItemPainter::SpinEdit() {
    QRect rest = place_;
    Arrows(CutEnd(rest));
    Edit();
}

void TItemPainter::EditButton() {
    QRect rest = place_;
    PushButton(CutEnd(rest), "...");
    Edit();
}

void TItemPainter::ComboBox() {
    Border(place_);
    QRect rest = place_;
    Arrow(CutEnd(rest), 1);
    Text(rest.adjusted(kTextRoom, 0, -kTextRoom, 0), item_.Text,
         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine);
}

void TItemPainter::Memo() {
    Border(place_);
    const bool wraps = !Is("WordWrap", "False");
    Text(place_.adjusted(kTextRoom, kTextRoom / 2, -kTextRoom, -1), item_.Text,
         static_cast<int>(Across(item_.Alignment) | Qt::AlignTop) | (wraps ? Qt::TextWordWrap : 0));
}

void TItemPainter::List() {
    for (const TLayoutPart& part : item_.Parts) {
        const QRect line = PartPlace(part.Place);
        if (part.IsOn) painter_.fillRect(line, palette_.color(QPalette::Highlight));
        painter_.setPen(part.IsOn ? palette_.color(QPalette::HighlightedText) : Ink(paper_));
        QRect text = line.adjusted(kTextRoom, 0, -kTextRoom, 0);
        if (item_.Kind == TLayoutKind::CheckListBox) {
            const QRect end = item_.RightToLeft ? CutEnd(text) : QRect(text.left(), text.top(), kMark, kMark);
            painter_.drawRect(end.left() + 1, line.center().y() - kMark / 2, kMark - 3, kMark - 3);
            if (!item_.RightToLeft) text.setLeft(text.left() + kMark + kTextRoom);
        }
        painter_.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          QString::fromUtf8(part.Text));
    }
    Border(place_);
}

void TItemPainter::Title(const TLayoutPart& part) {
    const QRect place = PartPlace(part.Place);
    painter_.fillRect(place, palette_.color(QPalette::Button));
    painter_.setPen(Line());
    painter_.drawLine(place.bottomLeft(), place.bottomRight());
    painter_.drawLine(place.topRight(), place.bottomRight());
    painter_.setPen(ReadableOn(palette_.color(QPalette::Button), palette_.color(QPalette::ButtonText)));
    painter_.drawText(place.adjusted(kTextRoom, 0, -kTextRoom, 0),
                      static_cast<int>(Across(part.Alignment) | Qt::AlignVCenter) | Qt::TextSingleLine,
                      QString::fromUtf8(part.Text));
}

void TItemPainter::Columns() {
    for (const TLayoutPart& part : item_.Parts) {
        if (!part.IsTitle) {
            Text(PartPlace(part.Place).adjusted(kTextRoom, 0, -kTextRoom, 0), part.Text,
                 static_cast<int>(Across(part.Alignment) | Qt::AlignVCenter) | Qt::TextSingleLine);
            continue;
        }
        Title(part);
        const QRect place = PartPlace(part.Place);
        if (item_.Kind != TLayoutKind::Grid) continue;
        painter_.setPen(palette_.color(QPalette::Mid));
        painter_.drawLine(place.right(), place.bottom() + 1, place.right(), place_.bottom());
    }
    Border(place_);
}

void TItemPainter::ToolBar() {
    painter_.setPen(Line());
    painter_.drawLine(place_.bottomLeft(), place_.bottomRight());
}

void TItemPainter::StatusBar() {
    painter_.setPen(Line());
    painter_.drawLine(place_.topLeft(), place_.topRight());
    Text(place_.adjusted(kTextRoom, 0, -kTextRoom, 0), item_.Text, Qt::AlignLeft | Qt::AlignVCenter);
    for (const TLayoutPart& part : item_.Parts) {
        QRect panel = PartPlace(part.Place);
        panel.setBottom(place_.bottom());
        painter_.setPen(Line());
        painter_.drawLine(panel.right(), panel.top() + 2, panel.right(), panel.bottom() - 2);
        Text(panel.adjusted(kTextRoom, 0, -kTextRoom, 0), part.Text,
             static_cast<int>(Across(part.Alignment) | Qt::AlignVCenter) | Qt::TextSingleLine);
    }
}

void TItemPainter::Splitter() {
    constexpr int kGrip = 12;
    const bool isUpright = place_.height() > place_.width();
    const QPoint half = isUpright ? QPoint(0, kGrip) : QPoint(kGrip, 0);
    painter_.setPen(QPen(Line(), 2, Qt::DotLine));
    painter_.drawLine(place_.center() - half, place_.center() + half);
}

void TItemPainter::TrackBar() {
    const bool isUpright = Is("Orientation", "trVertical");
    const QPoint middle = place_.center();
    painter_.setPen(QPen(Line(), 2));
    if (isUpright)
        painter_.drawLine(middle.x(), place_.top() + kTextRoom, middle.x(), place_.bottom() - kTextRoom);
    else
        painter_.drawLine(place_.left() + kTextRoom, middle.y(), place_.right() - kTextRoom, middle.y());
    const QPoint start = isUpright ? QPoint(middle.x() - kMark / 2, place_.top() + kTextRoom)
                                   : QPoint(place_.left() + kTextRoom, middle.y() - kMark / 2);
    PushButton({start, QSize(kMark, kMark)}, {});
}

void TItemPainter::ScrollBar() {
    painter_.fillRect(place_, palette_.color(QPalette::Mid));
    const int thick = std::min(place_.width(), place_.height());
    PushButton({place_.topLeft(), QSize(thick, thick)}, {});
    PushButton({place_.bottomRight() - QPoint(thick - 1, thick - 1), QSize(thick, thick)}, {});
}

void TItemPainter::Picture() {
    const QImage image = ImageIn(*item_.Node);
    if (image.isNull()) return Placeholder(place_);
    const bool fits = image.width() <= place_.width() && image.height() <= place_.height();
    QSize size = image.size();
    if (IsOn("Proportional") && (IsOn("Stretch") || !fits))
        size.scale(place_.size(), Qt::KeepAspectRatio);
    else if (IsOn("Stretch"))
        size = place_.size();
    QRect place(place_.topLeft(), size);
    if (IsOn("Center")) place.moveCenter(place_.center());
    painter_.drawImage(place, image);
}

void TItemPainter::Shape() {
    const QColor brush = item_.Node->Find("Brush.Color") == nullptr
                             ? paper_
                             : ColourOf(item_.Node->Find("Brush.Color")->Text, palette_);
    const bool isRound = Is("Shape", "stCircle") || Is("Shape", "stEllipse");
    painter_.fillRect(place_, palette_.color(QPalette::Window));
    painter_.setPen(Line());
    painter_.setBrush(brush.isValid() ? QBrush(brush) : QBrush(Qt::NoBrush));
    const QRect outline = place_.adjusted(0, 0, -1, -1);
    isRound ? painter_.drawEllipse(outline) : painter_.drawRect(outline);
}

void TItemPainter::DividerBevel() {
    painter_.setPen(Line());
    painter_.drawLine(place_.left(), place_.center().y(), place_.right(), place_.center().y());
    const int width =
        painter_.fontMetrics().size(Qt::TextShowMnemonic, QString::fromUtf8(item_.Text)).width();
    const QRect title = PartPlace({2 * kTextRoom, 0, width + 2 * kTextRoom, item_.Place.Height});
    if (!item_.Text.empty()) painter_.fillRect(title, paper_);
    Text(title, item_.Text, Qt::AlignCenter | Qt::TextShowMnemonic);
}

void TItemPainter::ButtonPanel() {
    for (const TLayoutPart& part : item_.Parts)
        PushButton(PartPlace(part.Place), part.Text);
}

void TItemPainter::NamedBox() {
    painter_.setPen(QPen(Line(), 1, Qt::DashLine));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(place_.adjusted(0, 0, -1, -1));
    const std::string separator = item_.Node->Name.empty() ? "" : ": ";
    Text(place_.adjusted(kTextRoom, 0, -kTextRoom, 0), item_.Node->Name + separator + item_.Node->ClassName,
         Qt::AlignCenter | Qt::TextSingleLine);
}

/// The colours behind the texts of the controls: their own, those of their kind, or their parents'.
std::vector<QColor> PapersOf(const TFormLayout& layout, const QPalette& palette) {
    std::vector<QColor> papers;
    papers.reserve(layout.Items.size());
    for (const TLayoutItem& item : layout.Items) {
        QColor paper = ColourOf(item.Color, palette);
        const QPalette::ColorRole role = PaperOf(item.Kind);
        if (!paper.isValid() && role != QPalette::NoRole) paper = palette.color(role);
        if (!paper.isValid())
            paper = item.Parent < 0 ? palette.color(QPalette::Window)
                                    : papers[static_cast<std::size_t>(item.Parent)];
        papers.push_back(paper);
    }
    return papers;
}

}  // namespace

void PaintForm(QPainter& painter, const TFormLayout& layout, const QPalette& palette, const QRect& area) {
    const std::vector<QColor> papers = PapersOf(layout, palette);
    for (std::size_t i = 0; i < layout.Items.size(); ++i) {
        const TLayoutItem& item = layout.Items[i];
        const QRect seen = RectOf(item.Seen) & area;
        if (seen.isEmpty()) continue;
        painter.save();
        painter.setClipRect(seen, Qt::IntersectClip);
        TItemPainter(painter, item, palette, papers[i]).Draw();
        painter.restore();
    }
}

}  // namespace tml
