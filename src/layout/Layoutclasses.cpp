#include "layout/Layoutclasses.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>

#include "base/Utf8.h"
#include "tables/Componentclasses.h"

namespace tml {
namespace {

using A = TLayoutAlign;
using F = TLayoutFit;
using K = TLayoutKind;

constexpr TLayoutClass kLayoutClasses[] = {
    {"TForm", K::Form, {320, 240}},
    {"TFrame", K::Frame, {320, 240}},
    {"TControl", K::Box, {75, 50}},
    {"TPanel", K::Panel, {170, 50}},
    {"TFlowPanel", K::Panel, {170, 50}},
    {"TGroupBox", K::GroupBox, {185, 105}, A::None, false, F::Title, {10, 0}},
    {"TDBGroupBox", K::GroupBox, {185, 105}, A::None, false, F::Title, {10, 0}},
    {"TRadioGroup", K::RadioGroup, {185, 105}, A::None, false, F::Title, {10, 0}},
    {"TCheckGroup", K::CheckGroup, {185, 105}, A::None, false, F::Title, {10, 0}},
    {"TScrollBox", K::ScrollBox, {150, 150}},
    {"TPageControl", K::PageControl, {200, 200}},
    {"TTabSheet", K::Page, {200, 200}, A::Client},
    {"TNotebook", K::Panel, {200, 200}},
    {"TPage", K::Page, {200, 200}, A::Client},
    {"TTabControl", K::TabControl, {200, 150}},
    {"TLabel", K::Label, {65, 17}, A::None, true, F::Text},
    {"TStaticText", K::StaticText, {65, 17}, A::None, false, F::Labelled, {4, 4}},
    {"TBoundLabel", K::Label, {65, 17}, A::None, true, F::Text},
    {"TButton", K::Button, {75, 25}, A::None, false, F::Labelled, {10, 10}},
    {"TBitBtn", K::Button, {75, 30}, A::None, false, F::Labelled, {10, 10}},
    {"TColorButton", K::Button, {75, 25}, A::None, false, F::Labelled, {10, 10}},
    {"TSpeedButton", K::SpeedButton, {23, 22}, A::None, false, F::Labelled, {4, 4}},
    {"TToggleBox", K::Button, {90, 23}, A::None, false, F::Labelled, {10, 10}},
    {"TCheckBox", K::CheckBox, {90, 23}, A::None, true, F::Labelled, {23, 4}},
    {"TRadioButton", K::RadioButton, {90, 23}, A::None, true, F::Labelled, {23, 4}},
    {"TEdit", K::Edit, {80, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TCustomEdit", K::Edit, {80, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TSpinEdit", K::SpinEdit, {50, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TCustomFloatSpinEdit", K::SpinEdit, {50, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TCustomEditButton", K::EditButton, {103, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TTreeFilterEdit", K::EditButton, {103, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TListFilterEdit", K::EditButton, {103, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TCustomMemo", K::Memo, {150, 90}},
    {"TCustomSynEdit", K::Memo, {150, 100}},
    {"TCustomComboBox", K::ComboBox, {100, 25}, A::None, true, F::Combo},
    {"TCustomColorBox", K::ComboBox, {100, 25}, A::None, true, F::List},
    {"TCustomListBox", K::ListBox, {100, 80}},
    {"TCheckListBox", K::CheckListBox, {100, 80}},
    {"TCustomListView", K::ListView, {250, 150}},
    {"TCustomTreeView", K::TreeView, {121, 97}},
    {"TCustomVirtualStringTree", K::TreeView, {200, 100}},
    {"TCustomGrid", K::Grid, {200, 100}},
    {"TValueListEditor", K::Grid, {200, 100}},
    {"TToolBar", K::ToolBar, {150, 32}, A::Top},
    {"TToolButton", K::ToolButton, {23, 22}},
    {"TCoolBar", K::CoolBar, {150, 26}, A::Top, true},
    {"TControlBar", K::CoolBar, {150, 26}},
    {"TStatusBar", K::StatusBar, {150, 23}, A::Bottom, true, F::TextLine, {0, 4}},
    {"TSplitter", K::Splitter, {5, 50}, A::Left},
    {"TProgressBar", K::ProgressBar, {100, 20}},
    {"TTrackBar", K::TrackBar, {100, 25}},
    {"TScrollBar", K::ScrollBar, {121, 17}},
    {"TUpDown", K::UpDown, {17, 31}},
    {"TImage", K::Image, {90, 90}},
    {"TShape", K::Shape, {65, 65}},
    {"TBevel", K::Bevel, {50, 50}},
    {"TDividerBevel", K::DividerBevel, {150, 17}, A::None, true, F::TextLine},
    {"TPaintBox", K::PaintBox, {105, 105}},
    {"TButtonPanel", K::ButtonPanel, {170, 50}, A::Bottom, true, F::Buttons, {0, 0}, 6},
    {"TCalendar", K::Calendar, {220, 190}, A::None, false, F::Fixed, {240, 192}},
    {"THeaderControl", K::Grid, {170, 30}},
    {"TArrow", K::Shape, {20, 20}},
    {"TDBNavigator", K::ToolBar, {241, 25}},
    {"TPairSplitter", K::Panel, {90, 90}},
    {"TPairSplitterSide", K::Panel, {90, 90}},
    {"TTIEdit", K::Edit, {80, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TTIMaskEdit", K::Edit, {80, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TTISpinEdit", K::SpinEdit, {50, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TTIFloatSpinEdit", K::SpinEdit, {50, 23}, A::None, true, F::TextLine, {0, 8}},
    {"TTIComboBox", K::ComboBox, {100, 25}, A::None, true, F::Combo},
    {"TTICheckBox", K::CheckBox, {90, 23}, A::None, false, F::Labelled, {23, 4}},
    {"TTIButton", K::Button, {75, 25}, A::None, false, F::Labelled, {10, 10}},
    {"TTILabel", K::Label, {65, 17}, A::None, true, F::Text},
    {"TTIGroupBox", K::GroupBox, {185, 105}, A::None, false, F::Title, {10, 0}},
    {"TTIMemo", K::Memo, {150, 90}},
    {"TTIListBox", K::ListBox, {100, 80}},
    {"TTICheckListBox", K::CheckListBox, {100, 80}},
};

using TClassRows = std::unordered_map<std::string, const TLayoutClass*>;

const TLayoutClass* RowOf(std::string_view className) {
    static const TClassRows rows = [] {
        TClassRows made;
        for (const TLayoutClass& row : kLayoutClasses)
            made.emplace(UpperCase(row.Name), &row);
        return made;
    }();
    const auto found = rows.find(UpperCase(className));
    return found == rows.end() ? nullptr : found->second;
}

}  // namespace

const TLayoutClass* FindLayoutClass(std::string_view className) {
    for (; !className.empty(); className = ComponentAncestor(className))
        if (const TLayoutClass* row = RowOf(className)) return row;
    return nullptr;
}

const TLayoutClass& LayoutClassOf(TLayoutKind kind) {
    return *std::find_if(std::begin(kLayoutClasses), std::end(kLayoutClasses),
                         [kind](const TLayoutClass& row) { return row.Kind == kind; });
}

}  // namespace tml
