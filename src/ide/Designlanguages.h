#pragma once

#include <memory>
#include <string>

#include "platform/Mlruntime.h"
#include "platform/Toolsapi.h"

namespace tml {

/// Changes the languages of a localization component or dispatcher as a person does it property by property:
/// what the forms show and the tables hold follows. To be called within a scope; what is refused with
/// EBadInput may have changed things before.
class TDesignLanguages {
  public:
    /// services and runtime must outlive it.
    TDesignLanguages(IOTAModuleServices& services, IMlRuntime& runtime, std::string formFile)
        : services_(services), runtime_(runtime), formFile_(std::move(formFile)) {}

    /// False for a component, or a property, of another kind.
    bool SetText(const std::shared_ptr<IOTAComponent>& component, const std::string& property,
                 const std::string& text);
    bool SetLines(const std::shared_ptr<IOTAComponent>& component, const std::string& property,
                  const TStringList& lines);

    /// A component has no languages without the property.
    bool IsNeeded(const std::shared_ptr<IOTAComponent>& component, const std::string& property);
    /// Shows the first language, where the property is the active one.
    void Reset(const std::shared_ptr<IOTAComponent>& component, const std::string& property);

  private:
    using TLangPtr = std::shared_ptr<TmlCustomLang>;
    struct TOwner {
        TLangPtr Lang;
        std::shared_ptr<TmlLangDispatcher> Dispatcher;
        ILanguages* Languages = nullptr;  ///< one of the two; nullptr for neither
    };
    TOwner OwnerOf(const std::shared_ptr<IOTAComponent>& component);
    void SetLanguage(const TOwner& owner, const std::string& name);
    void SetCount(const TOwner& owner, const std::string& text);
    void SetNames(const TOwner& owner, const TStringList& names);
    void ShowOnLinked(TmlLangDispatcher& dispatcher, int from, int to);
    void ShowOnForm(const std::string& unitFile, TmlLangDispatcher& dispatcher, int from, int to);
    [[noreturn]] void Refuse(const std::string& why) const;

    IOTAModuleServices& services_;
    IMlRuntime& runtime_;
    std::string formFile_;
};

}  // namespace tml
