#include "runtime/Transcommands.h"

#include <array>

#include "runtime/Mltranseditor.h"

namespace tml {
namespace {

using TRow = TActionRow<TfrmTransEditor>;
using TEditor = TfrmTransEditor;

constexpr std::array kCommands{
    TRow{"acUndo", "&Undo", "Ctrl+Z", &TEditor::acUndo, &TEditor::CanUndo},
    TRow{"acRedo", "&Redo", "Shift+Ctrl+Z", &TEditor::acRedo, &TEditor::CanRedo},
    TRow{"acCopy", "&Copy", "Ctrl+C", &TEditor::acCopy, &TEditor::HasRow},
    TRow{"acPaste", "&Paste", "Ctrl+V", &TEditor::acPaste, &TEditor::HasRow},
    TRow{"acClear", "C&lear", "Del", &TEditor::acClear, &TEditor::HasTranslation,
         "Empties the selected translations"},
    TRow{"acNextUntranslated", "&Next untranslated", "F7", &TEditor::acNextUntranslated, &TEditor::HasRow,
         "Goes to the next text that is missing, stale or touched", "Next", true},
    TRow{"acPreviousUntranslated", "Pre&vious untranslated", "Shift+F7", &TEditor::acPreviousUntranslated,
         &TEditor::HasRow, "Goes back to the text before that is missing, stale or touched", "", true},
    TRow{"acCopyBase", "Copy &base text", "F6", &TEditor::acCopyBase, &TEditor::HasTranslation,
         "Writes the base text into the selected translations", "Copy base", true},
    TRow{"acConfirm", "C&onfirm", "F8", &TEditor::acConfirm, &TEditor::HasTranslation,
         "The selected translations are done; goes on to the next untranslated one", "Confirm", true},
    TRow{"acFillFromBase", "&Fill from base", "", &TEditor::acFillFromBase, &TEditor::HasTranslation,
         "Writes the base text into the empty translations that are selected or shown"},
    TRow{"acFillFromDictionary", "Fill from &dictionary", "Ctrl+D", &TEditor::acFillFromDictionary,
         &TEditor::HasTranslation,
         "Looks the base texts up in the project's dictionary, for the translations that are selected or "
         "shown",
         "", true},
    TRow{"acTranslateEqual", "Translate &equal texts", "Ctrl+E", &TEditor::acTranslateEqual,
         &TEditor::HasTranslation, "Missing texts with the same base text get the selected translation", "",
         true},
    TRow{"acMarkDone", "&Done", "", &TEditor::acMarkDone, &TEditor::HasTranslation},
    TRow{"acMarkTouched", "&Touched", "", &TEditor::acMarkTouched, &TEditor::HasTranslation},
    TRow{"acMarkStale", "&Stale", "", &TEditor::acMarkStale, &TEditor::HasTranslation},
    TRow{"acMarkMissing", "Missin&g", "", &TEditor::acMarkMissing, &TEditor::HasTranslation,
         "What equals the base text is not on purpose"},
    TRow{"acAddID", "&Add ID...", "Ins", &TEditor::acAddID, &TEditor::CanAddID, "Adds a string ID"},
    TRow{"acRenameID", "Rena&me ID...", "Ctrl+R", &TEditor::acRenameID, &TEditor::HasID,
         "Renames the string ID in the form and, if you like, in the units"},
    TRow{"acDeleteID", "Delete &IDs", "Ctrl+Del", &TEditor::acDeleteID, &TEditor::HasID,
         "Deletes the selected string IDs"},
    TRow{"acJumpToSource", "Sho&w in source", "Ctrl+J", &TEditor::acJumpToSource, &TEditor::CanJump,
         "Writes what is edited, closes the editor and shows the first use of the string ID", "", true},
    TRow{"acHelp", "&Help", "F1", nullptr, nullptr, "", "", true},
    TRow{"acAbout", "&About...", "", &TEditor::acAbout, &TEditor::HasAbout},
};

}  // namespace

TActions CommandsOf(TfrmTransEditor& editor) {
    TActions actions;
    actions.All = BindActions<TfrmTransEditor>(editor, kCommands);
    actions.ToolBar = {"acUndo",
                       "acRedo",
                       "",
                       "acNextUntranslated",
                       "acCopyBase",
                       "acConfirm",
                       "acTranslateEqual",
                       "",
                       "acAddID",
                       "acRenameID",
                       "acDeleteID",
                       "acJumpToSource",
                       "",
                       "acHelp"};
    actions.Popup = {"acUndo",
                     "acRedo",
                     "",
                     "acCopy",
                     "acPaste",
                     "acClear",
                     "",
                     "acNextUntranslated",
                     "acPreviousUntranslated",
                     "",
                     "acCopyBase",
                     "acConfirm",
                     "acFillFromBase",
                     "acFillFromDictionary",
                     "acTranslateEqual",
                     "",
                     "acMarkDone",
                     "acMarkTouched",
                     "acMarkStale",
                     "acMarkMissing",
                     "",
                     "acAddID",
                     "acRenameID",
                     "acDeleteID",
                     "acJumpToSource"};
    return actions;
}

}  // namespace tml
