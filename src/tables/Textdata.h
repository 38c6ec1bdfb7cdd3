#pragma once

#include <cstdint>
#include <string_view>

#include "tables/Tablekinds.h"

namespace tml {

/// What the values of a property are to a reader.
enum class TTextNature : std::uint8_t {
    Never,    ///< no text: names, files, formats
    Wording,  ///< what a control says
    Content,  ///< what may be wording or data: a value that looks like data is none
    Filter,   ///< descriptions and patterns by turns: a text where a description is more than patterns
    Setting,  ///< part of a font: any value
};

/// A rule on the texts of components. The rules of a component's own class come first, then those of its
/// ancestors, then those of classes by the end of their name ("*Dialog"), then those of all classes (""); of
/// a class's own the first one counts. Property is the last name of the property's path, the whole path
/// without its indexes ("Dialog.Title"), or how the last name ends ("*Caption"); a list is named without
/// ".Strings", and its table is MultiLines whatever the rule says.
struct TTextRule {
    std::string_view ClassName;
    std::string_view Property;
    TTextNature Nature = TTextNature::Never;
    TStringsType Table = TStringsType::stOtherStrings;
};

inline constexpr TTextRule kTextRules[] = {
    // Every class, known or not; the first two are of the dialog inside an action.
    {"", "Dialog.Title", TTextNature::Wording, TStringsType::stDlgsCaptions},
    {"", "Dialog.Filter", TTextNature::Filter, TStringsType::stDlgsCaptions},
    {"", "Caption", TTextNature::Wording, TStringsType::stCaptions},
    {"", "Hint", TTextNature::Wording, TStringsType::stHints},
    {"", "DisplayLabel", TTextNature::Wording, TStringsType::stDisplayLabels},
    {"", "Text", TTextNature::Content, TStringsType::stOtherStrings},
    {"", "Title", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "Subtitle", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "Filter", TTextNature::Filter, TStringsType::stOtherStrings},
    {"", "DisplayValues", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "DisplayName", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "Lines", TTextNature::Content},
    {"", "Items", TTextNature::Content},
    {"", "Tabs", TTextNature::Content},
    {"", "PickList", TTextNature::Content},
    {"", "Pages", TTextNature::Content},
    {"", "Sections", TTextNature::Content},
    {"", "*Font.Name", TTextNature::Setting, TStringsType::stFonts},
    {"", "*Font.Height", TTextNature::Setting, TStringsType::stFonts},
    {"", "*Font.Style", TTextNature::Setting, TStringsType::stFonts},
    {"", "*Font.Charset", TTextNature::Setting, TStringsType::stCharSets},
    {"", "*Caption", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "*Captions", TTextNature::Content},
    {"", "*Title", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "*Titles", TTextNature::Content},
    {"", "*Hint", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "*Hints", TTextNature::Content},
    {"", "*Text", TTextNature::Content, TStringsType::stOtherStrings},
    {"", "*Label", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "*Labels", TTextNature::Content},
    {"", "*Message", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "*Messages", TTextNature::Content},
    {"", "*Prompt", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "*Description", TTextNature::Wording, TStringsType::stOtherStrings},
    {"", "CommandText", TTextNature::Never},
    {"", "*SQLText", TTextNature::Never},
    {"", "*RequestText", TTextNature::Never},

    // A dialog is no form: what it says are the texts of the system's window.
    {"TCommonDialog", "Title", TTextNature::Wording, TStringsType::stDlgsCaptions},
    {"TCommonDialog", "Filter", TTextNature::Filter, TStringsType::stDlgsCaptions},
    {"TCommonDialog", "Caption", TTextNature::Wording, TStringsType::stDlgsCaptions},
    {"TCommonDialog", "Text", TTextNature::Wording, TStringsType::stDlgsCaptions},
    {"TCommonDialog", "*Text", TTextNature::Wording, TStringsType::stDlgsCaptions},
    {"TCommonDialog", "*Label", TTextNature::Wording, TStringsType::stDlgsCaptions},
    {"TCommonDialog", "*Caption", TTextNature::Wording, TStringsType::stDlgsCaptions},
    {"TFindDialog", "FindText", TTextNature::Never},
    {"TFindDialog", "ReplaceText", TTextNature::Never},
    // The font that the person chooses from, not one that the dialog is written in.
    {"TFontDialog", "Font.Name", TTextNature::Never},
    {"TFontDialog", "Font.Height", TTextNature::Never},
    {"TFontDialog", "Font.Style", TTextNature::Never},
    {"TFontDialog", "Font.Charset", TTextNature::Never},
    {"*Dialog", "Title", TTextNature::Wording, TStringsType::stDlgsCaptions},
    {"*Dialog", "Filter", TTextNature::Filter, TStringsType::stDlgsCaptions},

    // What a control holds that is written for a machine.
    {"TCustomSynEdit", "Lines", TTextNature::Never},
    {"TCustomSynEdit", "Text", TTextNature::Never},
    {"TCustomMaskEdit", "Text", TTextNature::Never},
    {"TNumberBox", "Text", TTextNature::Never},
    {"TSpinEdit", "Text", TTextNature::Never},
    {"THotKey", "Text", TTextNature::Never},
    {"TDateEdit", "Text", TTextNature::Never},
    {"TTimeEdit", "Text", TTextNature::Never},
    {"TFileNameEdit", "Text", TTextNature::Never},
    {"TDirectoryEdit", "Text", TTextNature::Never},
    {"TFileListBox", "Items", TTextNature::Never},
    {"TDirectoryListBox", "Items", TTextNature::Never},
    {"TCustomColorBox", "Items", TTextNature::Never},
    {"TCustomColorBox", "Text", TTextNature::Never},
    {"TCustomColorListBox", "Items", TTextNature::Never},
    {"TFontComboBox", "Text", TTextNature::Never},
    {"TFontComboBox", "Items", TTextNature::Never},
    {"TCustomTreeView", "Items", TTextNature::Never},
    {"TDataSet", "Filter", TTextNature::Never},
    {"TDataSet", "*Text", TTextNature::Never},

    // FMX says with Text what the others say with Caption.
    {"TButton", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"TSpeedButton", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"TLabel", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"TCheckBox", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"TRadioButton", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"TGroupBox", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"TMenuItem", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"TTextControl", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"TAction", "Text", TTextNature::Wording, TStringsType::stCaptions},
    {"", "Header", TTextNature::Wording, TStringsType::stCaptions},
};

}  // namespace tml
