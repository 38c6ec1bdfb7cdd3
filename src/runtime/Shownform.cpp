#include "runtime/Shownform.h"

#include <algorithm>

#include "base/Utf8.h"
#include "layout/Openpages.h"
#include "runtime/Buildlist.h"
#include "runtime/Partnodes.h"
#include "runtime/Showlanguage.h"
#include "runtime/Textdirection.h"

namespace tml {
namespace {

std::shared_ptr<TmlCustomLang> LangOn(IMlRuntime& runtime, IOTAComponent& form) {
    for (int i = 0; i < form.GetComponentCount(); ++i)
        if (auto lang = runtime.AsCustomLang(form.GetComponent(i))) return lang;
    return nullptr;
}

bool Mirrors(TmlCustomLang& lang) {
    const auto given = lang.GetComponent()->GetPropValue("MirrorLayout");
    return !given || !SameText(given->Text, "False");
}

void Set(std::vector<TFormProperty>& properties, const char* name, TFormValue value) {
    std::erase_if(properties, [name](const TFormProperty& one) { return SameText(one.Name, name); });
    properties.push_back({name, std::move(value)});
}

}  // namespace

TShownForm::TShownForm(IMlRuntime& runtime, const std::shared_ptr<IOTAComponent>& form, TmlCustomLang* lang)
    : parts_(form, TFormParts::TFrames::Whole), hasTexts_(lang != nullptr) {
    if (!hasTexts_) return;
    texts_ = ReadTexts(*lang);
    active_ = TEffectiveLanguages(*lang).Get().GetActiveLanguage();
    mirrors_ = Mirrors(*lang);
    ReadFrames(runtime);
}

void TShownForm::ReadFrames(IMlRuntime& runtime) {
    for (std::size_t i = 0; i < parts_.Items().size(); ++i) {
        const auto& form = parts_.Items()[i].FrameForm;
        const auto lang = form == nullptr ? nullptr : LangOn(runtime, *form);
        if (lang == nullptr) continue;
        const int active = TEffectiveLanguages(*lang).Get().GetActiveLanguage();
        frames_.push_back({i, ReadTexts(*lang), active, Mirrors(*lang)});
    }
}

int TShownForm::TFrame::PlaceOf(const std::string& language) const {
    const int index = Texts.Languages.IndexOf(language);
    return index < 0 ? Active : index + 1;
}

/// By properties as a form's file has them, the second of which the layout alone knows on a control.
void TShownForm::Turn(TFormPart& part, const TLangTexts& texts, int language, bool mirrors) {
    const bool isRightToLeft = IsRightToLeft(texts, language);
    const bool isTurned = isRightToLeft != IsRightToLeft(texts, 1);
    Set(part.Properties, "MirrorLayout", TFormValue::Boolean(isTurned && mirrors));
    if (isTurned)
        Set(part.Properties, "BiDiMode",
            TFormValue::Identifier(isRightToLeft ? "bdRightToLeft" : "bdLeftToRight"));
}

const TLayoutNode* TShownForm::BringToFront(TLayoutNode& form, std::string_view key) const {
    const TFormPart* const part = parts_.OfKey(key);
    return part == nullptr ? nullptr : OpenPagesTo(form, part->Path);
}

TLayoutNode TShownForm::In(int language) const {
    return hasTexts_ ? In(language, texts_) : LayoutNodeOf(parts_.Items());
}

TLayoutNode TShownForm::In(int language, const TLangTexts& edited) const {
    if (language == 0) language = active_;
    const std::string name = language <= texts_.Languages.Count() ? texts_.Languages[language - 1] : "";
    std::vector<TShownTexts> shown;
    // A frame's own component counts first, that of what it stands on second.
    for (auto frame = frames_.rbegin(); frame != frames_.rend(); ++frame)
        shown.push_back({parts_.Items()[frame->Part].Path, &frame->Texts, &frame->Texts, frame->Active,
                         frame->PlaceOf(name)});
    shown.push_back({"", &texts_, &edited, active_, language});
    std::vector<TFormPart> parts = PartsShowing(parts_, shown);
    Turn(parts.front(), texts_, language, mirrors_);
    for (const TFrame& frame : frames_)
        Turn(parts[frame.Part], frame.Texts, frame.PlaceOf(name), frame.Mirrors);
    return LayoutNodeOf(parts);
}

}  // namespace tml
