#pragma once

#include <string_view>

namespace tml {

/// Classes and those that derive from them directly, separated by blanks. Classes that differ between VCL,
/// LCL and FMX stand where all their frameworks agree; ancestors that no rule and no exclusion would name are
/// left out.
struct TClassRow {
    std::string_view Ancestor;
    std::string_view Classes;
};

inline constexpr TClassRow kClassRows[] = {
    {"TComponent",
     "TControl TCommonDialog TDataSet TField TMenu TMenuItem TBasicAction TFmxObject TTrayIcon"},
    {"TControl", "TGraphicControl TWinControl TToolButton TTextControl TCustomPopupNotifier"},
    {"TGraphicControl", "TCustomLabel TCustomSpeedButton TImage TShape TBevel TPaintBox TDividerBevel"},
    {"TCustomLabel", "TLabel TDBText TBoundLabel TmlLabel"},
    {"TCustomSpeedButton", "TSpeedButton TColorButton TEditSpeedButton"},
    {"TWinControl",
     "TCustomEdit TCustomComboBox TCustomListBox TButtonControl TCustomGroupBox TCustomPanel TCustomGrid "
     "TCustomListView TCustomTreeView TCustomTabControl TCustomPage TToolBar TCoolBar TStatusBar TTrackBar "
     "TProgressBar TCustomEditButton TCustomStaticText TCustomForm TCustomFrame TCustomSynEdit "
     "TCustomVirtualStringTree TCustomRibbon TCategoryPanelGroup THeaderControl TCDControl TCustomChart"},
    {"TCustomEdit",
     "TEdit TCustomMemo TCustomMaskEdit TCustomLabeledEdit TDBEdit TSpinEdit TCustomFloatSpinEdit "
     "TButtonedEdit "
     "TSearchBox TNumberBox THotKey"},
    {"TCustomMemo", "TMemo TCustomRichEdit TDBMemo"},
    {"TCustomRichEdit", "TRichEdit TDBRichEdit TRichMemo"},
    {"TCustomMaskEdit", "TMaskEdit"},
    {"TCustomLabeledEdit", "TLabeledEdit TDBLabeledEdit"},
    {"TCustomFloatSpinEdit", "TFloatSpinEdit TFloatSpinEditEx TSpinEditEx"},
    {"TCustomEditButton", "TEditButton TFileNameEdit TDirectoryEdit TDateEdit TTimeEdit TCalcEdit"},
    {"TCustomComboBox",
     "TComboBox TComboBoxEx TCustomColorBox TFontComboBox TDBComboBox TDBLookupComboBox TFilterComboBox "
     "TDriveComboBox TChartComboBox TmlLangCombo"},
    {"TCustomColorBox", "TColorBox"},
    {"TCustomListBox",
     "TListBox TCheckListBox TCustomColorListBox TDBListBox TDBLookupListBox TFileListBox TDirectoryListBox "
     "TValueListBox"},
    {"TCustomColorListBox", "TColorListBox"},
    {"TButtonControl", "TCustomButton TCustomCheckBox TRadioButton TToggleBox"},
    {"TCustomButton", "TButton TCustomBitBtn"},
    {"TCustomBitBtn", "TBitBtn"},
    {"TCustomCheckBox", "TCheckBox TDBCheckBox TToggleSwitch"},
    {"TCustomGroupBox", "TGroupBox TCustomRadioGroup TCustomCheckGroup"},
    {"TCustomRadioGroup", "TRadioGroup TDBRadioGroup TTIRadioGroup"},
    {"TCustomCheckGroup", "TCheckGroup TTICheckGroup"},
    {"TCustomPanel", "TPanel TCategoryPanel TFlowPanel TGridPanel TCardPanel"},
    {"TCustomGrid", "TCustomDrawGrid TCustomDBGrid"},
    {"TCustomDrawGrid", "TDrawGrid TStringGrid TValueListEditor"},
    {"TCustomDBGrid", "TDBGrid"},
    {"TCustomListView", "TListView TShellListView"},
    {"TCustomTreeView", "TTreeView TShellTreeView"},
    {"TCustomTabControl", "TTabControl TPageControl TNotebook TTabbedNotebook TTabSet"},
    {"TCustomPage", "TTabSheet TPage TCard"},
    {"TCustomStaticText", "TStaticText"},
    {"TCustomForm", "TForm"},
    {"TCustomFrame", "TFrame"},
    {"TCustomSynEdit", "TSynEdit TSynMemo TDBSynEdit TSynMiniMap"},
    {"TCustomVirtualStringTree", "TVirtualStringTree TLazVirtualStringTree"},
    {"TCDControl", "TCDButton TCDEdit TCDCheckBox TCDRadioButton TCDComboBox TCDStaticText TCDGroupBox"},
    {"TCustomChart", "TChart TDBChart"},
    {"TCustomPopupNotifier", "TPopupNotifier"},
    {"TBasicAction", "TCustomAction"},
    {"TCustomAction", "TAction"},
    {"TMenu", "TMainMenu TPopupMenu"},
    {"TCommonDialog",
     "TOpenDialog TColorDialog TFontDialog TFindDialog TPrintDialog TPrinterSetupDialog TPageSetupDialog "
     "TCustomTaskDialog TCalculatorDialog TCalendarDialog TmlBrowseForFolder TCustomFileOpenDialog "
     "TFolderBrowserDialog TmlColorDialog TmlFontDialog TmlFindDialog TmlPrintDialog TmlPrinterSetupDialog"},
    {"TOpenDialog",
     "TSaveDialog TOpenPictureDialog TOpenTextFileDialog TSelectDirectoryDialog TPreviewFileDialog "
     "TmlOpenDialog TmlOpenPictureDialog"},
    {"TSaveDialog", "TSavePictureDialog TSaveTextFileDialog TmlSaveDialog TmlSavePictureDialog"},
    {"TFindDialog", "TReplaceDialog"},
    {"TmlFindDialog", "TmlReplaceDialog"},
    {"TCustomTaskDialog", "TTaskDialog TmlTaskDialog"},
    {"TCustomFileOpenDialog", "TFileOpenDialog TFileSaveDialog"},
    {"TField",
     "TStringField TNumericField TBooleanField TDateTimeField TBlobField TBinaryField TVariantField "
     "TGuidField"},
    {"TStringField", "TWideStringField"},
    {"TNumericField",
     "TIntegerField TLongintField TSmallintField TLargeintField TFloatField TBCDField TFMTBCDField"},
    {"TIntegerField", "TAutoIncField TWordField"},
    {"TFloatField", "TCurrencyField"},
    {"TDateTimeField", "TDateField TTimeField TSQLTimeStampField"},
    {"TBlobField", "TMemoField TWideMemoField TGraphicField"},
    {"TDataSet",
     "TCustomADODataSet TDBDataSet TCustomClientDataSet TCustomSQLDataSet TDbf TBufDataset TMemDataset"},
    {"TCustomADODataSet", "TADOTable TADOQuery TADODataSet TADOStoredProc"},
    {"TDBDataSet", "TTable TQuery TStoredProc"},
    {"TCustomClientDataSet", "TClientDataSet TSimpleDataSet"},
    {"TCustomSQLDataSet", "TSQLDataSet TSQLQuery TSQLTable TFDQuery TFDTable"},
    // What is a text in FMX derives from few classes of its own.
    {"TFmxObject", "TStyledControl"},
    {"TTextControl", "TPresentedTextControl TExpander TCustomText"},
    {"TPresentedTextControl", "TCornerButton TTabItem TListBoxItem TTreeViewItem TListBoxHeader"},
    {"TCustomText", "TText"},
};

}  // namespace tml
