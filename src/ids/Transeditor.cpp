#include "ids/Transeditor.h"

#include "base/Errors.h"
#include "base/Format.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "ids/Idforms.h"
#include "ids/Stridrepl.h"

namespace tml {
namespace {

void Inform(TContext& context, const std::string& text, TMsgDlgType type) {
    context.Dialogs().MessageDlg(text, type, {mrOk});
}

/// The call around a place of a source, else the first one of its line.
const TIDCall* CallAt(const std::vector<TIDCall>& calls, std::size_t place, int line) {
    const TIDCall* found = nullptr;
    for (const TIDCall& call : calls) {
        if (call.Line != line) continue;
        if (found == nullptr || call.Place <= place) found = &call;
    }
    return found;
}

}  // namespace

void OpenTransEditor(TContext& context, const std::string& unitFile,
                     const std::function<TTransEditorPlace(TmlCustomLang&)>& place) {
    const TFormRow* row = nullptr;
    for (TFormRows* list : context.Rows.Both())
        if (row == nullptr) row = list->FindFile(unitFile);
    const bool wasOpen = IsFileOpen(context, unitFile);
    const bool isOpen = row != nullptr && OpenFile(context, unitFile, false);
    TModuleLease lease(context, unitFile, wasOpen || !isOpen);
    const auto lang = isOpen ? GetmlLang(context, *row) : nullptr;
    if (lang == nullptr) return Inform(context, "Nil designer", TMsgDlgType::mtError);
    const std::string formName = row->FormName;
    const TShownInSource shown(*context.Host.Runtime);
    const bool isChanged = context.Host.Runtime->TransEditorDlg(*lang, place(*lang), ChangeStrIDOf(context));
    if (shown.IsOf(formName)) lease.Keep();
    if (!isChanged) return;
    MarkModifiedForm(context, formName);
    lease.SaveOrKeep();
}

TShownInSource::TShownInSource(IMlRuntime& runtime) : runtime_(runtime), navigate_(runtime.NavigateToSource) {
    if (!navigate_) return;
    runtime_.NavigateToSource = [this](const std::string& formName, const std::string& id) {
        navigate_(formName, id);
        form_ = formName;
    };
}

/// An expert that has gone meanwhile has taken its callback back.
TShownInSource::~TShownInSource() {
    if (runtime_.NavigateToSource) runtime_.NavigateToSource = navigate_;
}

void EditStringID(TContext& context, const std::string& unitFile, const std::string& id, int index) {
    OpenTransEditor(context, unitFile, [&](TmlCustomLang& lang) {
        TTransEditorPlace place;
        const TTable strings = lang.GetTable(place.Table);
        const auto& entries = strings.Entries();
        const bool isThere = index >= 0 && index < static_cast<int>(entries.size()) &&
                             entries[static_cast<std::size_t>(index)].Key == id;
        place.Entry = isThere ? index : strings.Find(id);
        place.Field = -1;
        if (place.Entry >= 0) return place;
        const std::string form = lang.GetComponent()->GetOwner()->GetName();
        Inform(context, Format("%s.%s has no string '%s'!", form, lang.GetName(), id),
               TMsgDlgType::mtInformation);
        throw EmlLangSilent();
    });
}

void ViewTranslationByIDMenuClick(TContext& context, TScanMemory& /*memory*/) {
    const auto editor = GetCurrentSourceEditor(context);
    if (editor == nullptr || editor->GetEditViewCount() == 0) return;
    const auto view = editor->GetEditView(0);
    const TOTACharPos cursor = view->GetCursorPos();
    const std::vector<TIDCall> calls = ReadIDCalls(*editor->GetSource());
    const TIDCall* call = CallAt(calls, static_cast<std::size_t>(view->CharPosToPos(cursor)), cursor.Line);
    if (call == nullptr || call->Argument != TIDArgument::Whole)
        return Inform(context, "There is no call with a string ID at the cursor!",
                      TMsgDlgType::mtInformation);
    const std::vector<TFormRow*> own = context.Rows.FormNames.FindUnitOrForm(editor->GetFileName());
    const std::string unitForm = own.empty() ? std::string() : own.front()->FormName;
    const std::string form = TIDForms(context.Rows.FormNames).FormAsked(*call, unitForm);
    const TFormRow* row = form.empty() ? nullptr : context.Rows.FormNames.FindForm(form);
    if (row == nullptr)
        return Inform(context, Format("It cannot be told which component is asked for %s!", call->ID),
                      TMsgDlgType::mtInformation);
    EditStringID(context, row->FileName, call->ID);
}

}  // namespace tml
