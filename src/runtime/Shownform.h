#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "layout/Layoutnode.h"
#include "platform/Mlruntime.h"
#include "runtime/Formparts.h"
#include "tables/Langtexts.h"

namespace tml {

/// A form with what it inherits and its frames, as a running program shows it in any of its languages: turned
/// and mirrored where the language is written from the other side than the base language. Read once; the form
/// itself does not change.
class TShownForm {
  public:
    /// lang is the form's localization component, nullptr for a form without one.
    TShownForm(IMlRuntime& runtime, const std::shared_ptr<IOTAComponent>& form, TmlCustomLang* lang);

    /// As a layout takes it, in a language (1-based place, 0 for the active one).
    TLayoutNode In(int language) const;
    /// With texts of the form that have been edited: the same entries in the same order, new ones behind.
    TLayoutNode In(int language, const TLangTexts& edited) const;
    /// The component in a tree of In that a key of the form's tables is of, with the pages open that it
    /// stands on; nullptr for none.
    const TLayoutNode* BringToFront(TLayoutNode& form, std::string_view key) const;

  private:
    /// A frame with a localization component of its own.
    struct TFrame {
        std::size_t Part;
        TLangTexts Texts;
        int Active;
        bool Mirrors;

        /// Of the language that has the same name, else the active one's.
        int PlaceOf(const std::string& language) const;
    };

    void ReadFrames(IMlRuntime& runtime);
    static void Turn(TFormPart& part, const TLangTexts& texts, int language, bool mirrors);

    TFormParts parts_;
    bool hasTexts_;
    TLangTexts texts_;
    int active_ = 1;
    bool mirrors_ = false;
    std::vector<TFrame> frames_;  ///< outer ones first
};

}  // namespace tml
