#include "translations/Propexport.h"

#include "base/Errors.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "scan/Dntcedit.h"
#include "tables/Translationfile.h"
#include "translations/Formtrans.h"

namespace tml {

TModalResult PropListDialog(TContext& context, TPropertyKinds& kinds) {
    TfrmNotTranslate window(*context.Host.Registry, PropertyKindNames(), {});
    window.Caption = "Selecting Properties";
    window.lblInstruction = "Please select properties that will be saved to file.";
    window.lblComps = "&Available properties:";
    window.lblSelected = "&Selected properties:";
    const TModalResult result = context.Dialogs().ShowModal(window);
    if (result == mrOk) kinds = PropertyKindsOf(window.lbSelected.Items);
    return result;
}

void ExpectTextKind(const std::string& fileName) {
    if (IsBinaryTranslation(fileName))
        throw EBadInput(fileName, 0, "chosen properties are saved as text only",
                        "Give the file the extension .mll");
}

TTransferReport SavePropsToFile(TContext& context, TFormRow& row, const std::string& fileName,
                                const std::string& delimiter, const TPropertyKinds& kinds) {
    if (row.FileName.empty() || row.Component.ClassName.empty()) return {};
    ExpectNoNamesakeOf(context, row);
    TModuleLease lease(context, row.FileName);
    const auto lang = GetmlLang(context, row);
    // A file that was opened for this is left open then, on purpose.
    if (lang == nullptr) lease.Keep();
    return lang == nullptr ? TTransferReport() : lang->SaveToFile(kinds, fileName, delimiter);
}

}  // namespace tml
