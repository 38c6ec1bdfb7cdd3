#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "layout/Layoutgeometry.h"
#include "layout/Layoutnode.h"
#include "layout/Textmeasure.h"

namespace tml {

/// What a control is drawn as.
enum class TLayoutKind : std::uint8_t {
    Form,
    Frame,
    Panel,
    GroupBox,
    ScrollBox,
    PageControl,
    Page,
    TabControl,
    Label,
    StaticText,
    Button,
    SpeedButton,
    CheckBox,
    RadioButton,
    RadioGroup,
    CheckGroup,
    Edit,
    SpinEdit,
    EditButton,
    Memo,
    ComboBox,
    ListBox,
    CheckListBox,
    ListView,
    TreeView,
    Grid,
    ToolBar,
    ToolButton,
    CoolBar,
    StatusBar,
    Splitter,
    ProgressBar,
    TrackBar,
    ScrollBar,
    UpDown,
    Image,
    Shape,
    Bevel,
    DividerBevel,
    PaintBox,
    ButtonPanel,
    Calendar,
    Component,  ///< of a data module, which has no controls
    Box,
};

constexpr int kComponentIcon = 32;  ///< pixels of the icon of a component; its name stands below

/// "Form", "Panel", ...
std::string_view NameOf(TLayoutKind kind);

enum class TLayoutAlignment : std::uint8_t { Near, Center, Far };
/// Where a button's picture stands by its text.
enum class TLayoutGlyphSide : std::uint8_t { Left, Right, Top, Bottom };

/// A piece of a control that is no control itself: a tab, an item of a radio group, a column's title, a panel
/// of a status bar, an item of a menu bar, a line of a list, a node of a tree, a cell.
struct TLayoutPart {
    TLayoutRect Place;  ///< within the control
    std::string Text;
    bool IsOn = false;  ///< chosen, checked, or the open tab
    TLayoutAlignment Alignment = TLayoutAlignment::Near;
    bool IsTitle = false;  ///< of a column
};

/// A control of a form, with what is needed to draw it.
struct TLayoutItem {
    const TLayoutNode* Node = nullptr;  ///< of the tree that was laid out; never nullptr
    int Parent = -1;                    ///< index, -1 for the form itself
    /// What stands for an item of a radio or check group has the node of the group; -1 for all others.
    int Item = -1;
    TLayoutKind Kind = TLayoutKind::Box;
    /// As the running program says it: in the client area of the parent. A form's own place is that on the
    /// screen.
    TLayoutRect Bounds;
    TLayoutRect Client;  ///< the client area, within the control
    TLayoutRect Place;   ///< from the upper left corner of the form on
    /// What of Place can be seen inside all parents; empty (no width) for what is hidden or on another page.
    TLayoutRect Seen;
    bool Visible = true;  ///< its own property; one on another page is visible and not seen
    bool Enabled = true;
    bool AutoSize = false;
    TLayoutFont Font;
    std::string Text;   ///< caption or text, with "&" before the access key; LF between lines
    std::string Color;  ///< "clWindow" or a number as the form holds it; "" for that of the kind
    TLayoutAlignment Alignment = TLayoutAlignment::Near;  ///< across
    TLayoutAlignment Layout = TLayoutAlignment::Near;     ///< down
    bool WordWrap = false;
    bool RightToLeft = false;
    bool IsOn = false;  ///< checked, pressed
    TLayoutSize Glyph;  ///< of the picture on a button; empty without one
    TLayoutGlyphSide GlyphSide = TLayoutGlyphSide::Left;
    std::vector<TLayoutPart> Parts;
};

struct TFormLayout {
    std::vector<TLayoutItem> Items;  ///< parents before their children, those behind others first
    std::vector<std::string> Notes;  ///< for the person: "Circle of anchors at Button1"
};

/// Whose rules and measures count.
enum class TLayoutLook : std::uint8_t { Lcl, Vcl };
/// By the extension of the form's file.
TLayoutLook LookOf(std::string_view formFile);

struct TLayoutOptions {
    TLayoutLook Look = TLayoutLook::Lcl;
    int PixelsPerInch = 96;  ///< of the screen
    bool Scaled = true;      ///< the program scales forms that were drawn at another resolution
};

/// Reckons where everything on a form stands. Any tree is taken: what makes no sense is passed over and
/// noted. Items point into the tree, which has to outlive them. Time grows with the number of components.
TFormLayout LayOutForm(const TLayoutNode& form, const ITextMeasure& texts,
                       const TLayoutOptions& options = {});

}  // namespace tml
