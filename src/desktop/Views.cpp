#include "desktop/Views.h"

#include <stdexcept>

#include "desktop/Chooserview.h"
#include "desktop/Dictionaryview.h"
#include "desktop/Excludeview.h"
#include "desktop/Filenameview.h"
#include "desktop/Filldictionaryview.h"
#include "desktop/Findphraseview.h"
#include "desktop/Formslistview.h"
#include "desktop/Foundview.h"
#include "desktop/Langcomboview.h"
#include "desktop/Langconfigview.h"
#include "desktop/Optionsview.h"
#include "desktop/Projectsettingsview.h"
#include "desktop/Resultsview.h"
#include "desktop/Skippedview.h"
#include "desktop/Stringlistview.h"
#include "desktop/Strreplaceview.h"
#include "desktop/Transeditorview.h"
#include "desktop/Unitsview.h"
#include "desktop/Wizardview.h"

namespace tml {
namespace {

using TMakeView = std::unique_ptr<TView> (*)(TForm&, const TViewServices&);

template <typename Form, typename View>
std::unique_ptr<TView> Make(TForm& form, const TViewServices& services) {
    auto* state = dynamic_cast<Form*>(&form);
    return state == nullptr ? nullptr : std::make_unique<View>(*state, services);
}

constexpr TMakeView kViews[] = {
    Make<TfrmmlLang, TFormsListView>,
    Make<TfrmFound, TFoundView>,
    Make<TfrmLangConfig, TLangConfigView>,
    Make<TfrmNotTranslate, TChooserView>,
    Make<TfrmOptions, TOptionsView>,
    Make<TfrmProjectTranslationSettings, TProjectSettingsView>,
    Make<TfrmSkippedStrings, TSkippedView>,
    Make<TfrmTranslUnits, TUnitsView>,
    Make<TfrmAsk4FileName, TFileNameView>,
    Make<TfrmTransEditor, TTransEditorView>,
    Make<TfrmBadIDs, TBadIDsView>,
    Make<TfrmFoundPhrases, TFoundPhrasesView>,
    Make<TfrmFind, TFindPhraseView>,
    Make<TfrmReplConfirm, TReplConfirmView>,
    Make<TfrmStrReplace, TStrReplaceView>,
    Make<TfrmMlLangComboEditor, TLangComboView>,
    Make<TfrmStringList, TStringListView>,
    Make<TfrmDictionary, TDictionaryView>,
    Make<TfrmFillDictionary, TFillDictionaryView>,
    Make<TfrmDictionaryConflicts, TDictionaryConflictsView>,
    Make<TfrmExclude, TExcludeView>,
    Make<TfrmWizard, TWizardView>,
};

}  // namespace

std::unique_ptr<TView> MakeView(TForm& form, const TViewServices& services) {
    for (const TMakeView make : kViews)
        if (auto view = make(form, services)) return view;
    throw std::logic_error("The window \"" + form.Caption + "\" is not in the workbench yet");
}

}  // namespace tml
