#include "editors/Mlreg.h"

#include "editors/Mlpropeditors.h"

namespace tml {
namespace {

constexpr const char* kPage = "Velmora";
constexpr const char* kStrings = "TStrings";
constexpr const char* kLang = "TmlCustomLang";
constexpr const char* kDispatcherClass = "TmlLangDispatcher";
constexpr const char* kCombo = "TmlLangCombo";

/// The tables that every localization component has, in the order of their registration.
constexpr const char* kTables[] = {"Captions", "Hints",      "DisplayLabels", "Strings",
                                   "Fonts",    "MultiLines", "DlgsCaptions",  "OtherStrings",
                                   "Locales",  "CharSets",   "Collections"};

template <typename TEditor>
TComponentEditorClass ComponentEditor(const TEditorHostPtr& host) {
    return [host](const std::shared_ptr<IOTAComponent>& component, IDesigner& designer) {
        return std::make_unique<TEditor>(TEdited{host, component, designer});
    };
}

/// For an editor that serves one property.
template <typename TEditor>
TPropertyEditorClass PropertyEditor(const TEditorHostPtr& host) {
    return [host](const std::shared_ptr<IOTAComponent>& component, const std::string&, IDesigner& designer) {
        return std::make_unique<TEditor>(TEdited{host, component, designer});
    };
}

/// For an editor that goes by the property's name.
template <typename TEditor>
TPropertyEditorClass NamedPropertyEditor(const TEditorHostPtr& host) {
    return [host](const std::shared_ptr<IOTAComponent>& component, const std::string& name,
                  IDesigner& designer) {
        return std::make_unique<TEditor>(TEdited{host, component, designer}, name);
    };
}

}  // namespace

void RegisterMlreg(IRegistration& registration, const TEditorHostPtr& host,
                   const std::function<void()>& expRegister) {
    registration.RegisterComponents(kPage, {"TmlLang", "TmlLangRTSE", "TmlLangRT", "TmlLangLinked",
                                            "TmlLangTLV", "TmlLangDispatcher", "TmlLabel", "TmlFormStorage"});
    registration.RegisterComponentEditor(kLang, ComponentEditor<TTranslationsEditor>(host));
    for (const char* const table : kTables)
        registration.RegisterPropertyEditor(kStrings, kLang, table,
                                            NamedPropertyEditor<TmlStringsProperty>(host));
    registration.RegisterPropertyEditor(kStrings, "TmlLangTLV", "ListView_TreeView_Items",
                                        NamedPropertyEditor<TmlStringsProperty>(host));
    expRegister();
    registration.RegisterPropertyEditor(kLang, "TmlLangLinked", "CommonContainer",
                                        PropertyEditor<TCommonContainerProperty>(host));
    for (const TExclusionList list : kExclusionLists)
        registration.RegisterPropertyEditor(kStrings, kLang, std::string(PropertyOf(list)),
                                            PropertyEditor<TExcludePropertyEditor>(host));
    registration.RegisterActions("mlLang", {"TmlLangChangeLanguage"});
    registration.RegisterComponentEditor(kDispatcherClass, ComponentEditor<TDispatcherEditor>(host));
    registration.RegisterPropertyEditor("TCollection", kLang, "ExtendedTranslations",
                                        PropertyEditor<TExtendedTranslationsProperty>(host));
    for (const char* const component : {kLang, kDispatcherClass})
        registration.RegisterPropertyEditor("string", component, "Language",
                                            PropertyEditor<TActiveLanguageProperty>(host));
    registration.RegisterComponents(kPage, {kCombo});
    registration.RegisterPropertyEditor("TLanguageInfos", kCombo, "LanguageInfos",
                                        PropertyEditor<TComboConfigurationProperty>(host));
    registration.RegisterComponentEditor(kCombo, ComponentEditor<TDispatcherEditor>(host));
    registration.RegisterSelectionEditor("TComponent", [host](IDesigner& designer) {
        return std::make_unique<TExcludeComponentEditor>(host, designer);
    });
}

}  // namespace tml
