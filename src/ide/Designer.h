#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ide/Formdocument.h"
#include "ide/Journal.h"
#include "ide/Notifierlist.h"
#include "ide/Unitsource.h"
#include "platform/Mlruntime.h"
#include "platform/Toolsapi.h"

namespace tml {

/// The form editor of a module. It keeps the form's class and its units in step with the form: every
/// change of both is one command.
class TDesigner : public IOTAFormEditor, public IDesigner, private IComponentDesigner {
  public:
    struct TServices {
        TJournal* Journal = nullptr;
        IMlRuntime* Runtime = nullptr;
        /// The root of another form of the project, opened if need be; nullptr when there is none.
        std::function<std::shared_ptr<IOTAComponent>(const std::string& formName)> FindForm;
        std::function<void()> Show;
        std::function<void()> FormRenamed;
    };

    TDesigner(std::shared_ptr<TFormDocument> form, TUnitSource source, TServices services);
    ~TDesigner() override;
    TDesigner(const TDesigner&) = delete;
    TDesigner& operator=(const TDesigner&) = delete;

    std::string GetFileName() override { return form_->FileName(); }
    bool GetModified() override { return form_->IsModified(); }
    void Show() override;
    std::shared_ptr<IOTAComponent> GetRootComponent() override;
    std::shared_ptr<IOTAComponent> FindComponent(const std::string& name) override;
    /// EBadInput for what is no name in the unit's language, too.
    std::string FreeName(const std::string& name, const std::string& typeName) override;
    std::shared_ptr<IOTAComponent> CreateComponent(IOTAComponent* container, const std::string& typeName,
                                                   int x, int y, int w, int h,
                                                   const std::string& name) override;
    IDesigner& GetDesigner() override { return *this; }
    std::shared_ptr<IOTAComponent> GetRoot() override { return GetRootComponent(); }
    std::vector<std::shared_ptr<IOTAComponent>> GetSelections() override;
    void SetSelections(const std::vector<std::shared_ptr<IOTAComponent>>& components) override;
    void Modified() override { MarkModified(); }
    void MarkModified() override { form_->MarkModified(); }
    int AddNotifier(std::shared_ptr<IOTAFormNotifier> notifier) override;
    void RemoveNotifier(int index) override { notifiers_.Remove(index); }

    TFormDocument& Form() { return *form_; }
    const TNotifierList<IOTAFormNotifier>& Notifiers() const { return notifiers_; }
    /// Tells the notifiers that the module is gone and forgets them.
    void Destroyed();

  private:
    void Rename(TFormNode& node, const std::string& name) override;
    void Delete(TFormNode& node) override;
    std::shared_ptr<IOTAComponent> FindReference(const std::string& reference) override;
    std::shared_ptr<IOTAComponent> FindAncestor(const TFormNode& node) override;
    bool InheritsFrame(const TFormNode& node) override;
    std::shared_ptr<IOTAComponent> FindOwned(TFormNode& owner, const std::string& name) override;
    std::shared_ptr<IOTAComponent> FindInherited(const TFormNode& owner, const std::string& name) override;
    void NameRestored() override;

    void Forget(TFormNode& node);
    bool IsFree(const std::string& name, const std::string& typeName);
    std::string NewName(const std::string& name, const std::string& className);
    void CheckName(const std::string& name);
    void CheckNamesake(const std::string& name, const TFormNode* own);
    void CheckOwn(const TFormNode& node);
    /// Whether it is on this form, be it inherited, and has not been deleted.
    bool HasComponent(const IOTAComponent* component) const;
    template <typename Change>
    void ForEachReference(const std::string& name, Change change);
    void TellRenamed(TComponentHandle handle, const std::string& oldName, const std::string& newName);

    std::shared_ptr<TFormDocument> form_;
    TUnitSource source_;
    TServices services_;
    TNotifierList<IOTAFormNotifier> notifiers_;
    std::vector<std::shared_ptr<IOTAComponent>> selection_;
    /// What was asked for of the components that the file does not repeat, by owner and upper-cased name.
    std::map<std::pair<TComponentHandle, std::string>, std::shared_ptr<IOTAComponent>> inherited_;
};

}  // namespace tml
