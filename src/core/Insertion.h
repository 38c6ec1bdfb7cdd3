#pragma once

#include <memory>
#include <string>

#include "core/Langsetup.h"

namespace tml {

class TOpenedMeanwhile;

/// The localization component that a form has, or the one that an insertion will give it.
struct TLangPlan {
    std::string Name;                     ///< "" where the form can have none: the class is not registered
    std::shared_ptr<TmlCustomLang> Lang;  ///< nullptr while it is only planned
    std::string ClassName;                ///< of the component that is planned
};
/// "mlLang_Form1" for a TmlLang on Form1; outside forms, without a form's name, "mlLang".
std::string InsertedName(const std::string& className, const std::string& formName);
/// The plan for an open form whose component would be of the class. EBadInput for a class that is none of
/// localization components, and where the unit does not declare the form's class.
TLangPlan PlanOn(IMlRuntime& runtime, IOTAFormEditor& editor, const std::string& formName,
                 const std::string& className);
/// Opens the row's unit, shown unless that is unwanted, and brings the row up to date; nothing is inserted.
/// EmlLangSilent when the unit cannot be opened or the form is not the row's.
TLangPlan PlanTmlLang(TContext& context, TFormRow& row, bool show = true);
/// The planned component; it is inserted unless it is there. nullptr where the form takes none.
std::shared_ptr<TmlCustomLang> MakePlanned(TContext& context, TFormRow& row, const TLangPlan& plan);

/// Makes sure that the row's form has a localization component; its unit is then open and shown.
/// EmlLangSilent when the unit cannot be opened.
void InsertTmlLang(TContext& context, TFormRow& row);

/// The localization component of a form of the list, nullptr for none. The form must be open.
std::shared_ptr<TmlCustomLang> GetmlLang(TContext& context, const std::string& formName);
/// The same of the row's own unit, whatever other forms have its form's name.
std::shared_ptr<TmlCustomLang> GetmlLang(TContext& context, const TFormRow& row);

/// Creates a component on a form of the list, its unit shown; nullptr where there is no such row, form
/// or class. A localization component is named by its class and the form, or by name where one is given.
/// EmlLangSilent when the unit cannot be opened.
std::shared_ptr<IOTAComponent> InsertComponentOnForm(TContext& context, const std::string& formName,
                                                     const std::string& className,
                                                     const std::string& name = {});

/// Configures the component of one row. Its unit is saved and closed again unless it was open.
void ConfigureLangComponent(TContext& context, TFormRow* row, const TLangSetUp& setUp);
/// Configures the components of the row and of every selected row behind it. The first row that fails ends
/// it; what was done to the rows before stays.
void SetUpLang(TContext& context, TFormRow* row, const TLangSetUp& setUp, TOpenedMeanwhile& opened);

}  // namespace tml
