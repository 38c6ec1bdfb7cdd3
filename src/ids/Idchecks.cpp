#include "ids/Idchecks.h"

#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"

namespace tml {

const TIDHolder* TFormIDs::Find(const std::string& formName) {
    const auto [place, isNew] = read_.try_emplace(UpperCase(formName));
    std::optional<TIDHolder>& holder = place->second;
    const TFormRow* row = isNew ? context_.Rows.FormNames.FindForm(formName) : nullptr;
    if (row != nullptr && row->HasComponent()) {
        const TModuleLease opened(context_, row->FileName);
        if (const auto lang = GetmlLang(context_, *row))
            holder = TIDHolder{lang->GetName(), lang->GetTable(TStringsType::stStrings)};
    }
    return holder ? &*holder : nullptr;
}

std::vector<TBadID> CheckIDInFile(TContext& context, TFormIDs& forms, const std::string& formName,
                                  const std::string& fileName) {
    const TModuleLease opened(context, fileName);
    const auto text = GetModuleFromFileName(context, fileName)->GetSourceEditor(0)->GetText();
    return CheckIDs(*text, LanguageOf(fileName), formName, fileName,
                    [&forms](const std::string& name) { return forms.Find(name); });
}

}  // namespace tml
