#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/Formslist.h"
#include "ids/Idcalls.h"

namespace tml {

/// The forms of a project with a localization component, and which of them a call asks.
class TIDForms {
  public:
    explicit TIDForms(const TFormRows& rows);

    /// The component of a form asks another form's for what it has not.
    void AddLink(const std::string& formName, const std::string& containerForm);

    /// The form whose component is asked by "Form1.mlLang1", "Self.mlLang1" or "mlLang1" in the unit of a
    /// form ("" for another unit); "" where that cannot be told. No case counts.
    std::string FormAsked(const std::string& form, const std::string& component,
                          const std::string& unitForm) const;
    std::string FormAsked(const TIDCall& call, const std::string& unitForm) const;
    /// The form whose component a reference in a form's file names: "mlLang1", "Form2.mlLang1".
    std::string FormReferred(const std::string& reference, const std::string& formName) const;
    /// Whether a form inherits the component from the other one, over any number of steps, or is it.
    bool Descends(std::string formName, const std::string& from) const;

    /// The forms, by upper-cased names, whose calls have to do with a form's component.
    struct TAskers {
        std::unordered_set<std::string>
            Kin;  ///< itself, its ancestors and descendants: one's code runs in another
        std::unordered_set<std::string>
            All;  ///< with those that are linked to it, and "" for calls that cannot be told
    };
    const TAskers& AskersOf(const std::string& formName) const;
    /// Whether a form's component has the name.
    bool IsComponent(const std::string& name) const;

  private:
    struct TForm {
        std::string FormName;
        std::string ComponentName;
        std::string Ancestor;  ///< the form that it inherits the component from, "" for its own
    };

    void AddKin(const std::string& formName, std::unordered_set<std::string>& kin) const;

    std::unordered_map<std::string, TForm> forms_;                ///< by upper-cased name
    std::unordered_multimap<std::string, std::string> children_;  ///< of each form, by upper-cased names
    std::unordered_set<std::string> components_;                  ///< their upper-cased names
    std::unordered_multimap<std::string, std::string> links_;     ///< the forms that ask a form
    mutable std::unordered_map<std::string, TAskers> askers_;     ///< as far as they were asked for
};

}  // namespace tml
