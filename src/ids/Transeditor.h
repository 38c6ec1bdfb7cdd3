#pragma once

#include <string>

#include "core/Context.h"
#include "platform/Mlruntime.h"
#include "scan/Scanmemory.h"

namespace tml {

/// Opens the translation editor on the component of a unit's form, with the ID change at hand. Where the
/// editor has changed the form, it is marked as modified; a unit that was closed is saved then and closed
/// again, unless a string was shown in its source. An error message where the unit has no designer.
void OpenTransEditor(TContext& context, const std::string& unitFile,
                     const std::function<TTransEditorPlace(TmlCustomLang&)>& place);

/// Notes, while it lives, for which form the translation editor has shown a string in the source: the form's
/// unit is in front then, and stays open.
class TShownInSource {
  public:
    explicit TShownInSource(IMlRuntime& runtime);
    ~TShownInSource();
    TShownInSource(const TShownInSource&) = delete;
    TShownInSource& operator=(const TShownInSource&) = delete;

    bool IsOf(const std::string& formName) const { return form_ == formName; }

  private:
    IMlRuntime& runtime_;
    decltype(IMlRuntime::NavigateToSource) navigate_;
    std::string form_;
};

/// The same at a string by its ID; of an ID that stands twice at the one of this index. Where
/// the component has no such string, a message and EmlLangSilent.
void EditStringID(TContext& context, const std::string& unitFile, const std::string& id, int index = -1);

/// The command of the code editor: opens the translation editor at the ID of the call at the cursor. A
/// message where there is no such call, or no component that has the ID.
void ViewTranslationByIDMenuClick(TContext& context, TScanMemory& memory);

}  // namespace tml
