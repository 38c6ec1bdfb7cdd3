#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ide/Designer.h"
#include "ide/Sourcebuffer.h"
#include "platform/Toolsapi.h"

namespace tml {

class TModules;

/// The files of an open unit.
struct TModuleFiles {
    std::shared_ptr<TSourceBuffer> Unit;
    std::shared_ptr<TSourceBuffer> Header;  ///< nullptr without one
    std::shared_ptr<TFormDocument> Form;    ///< nullptr without one
};

/// An open unit with its header and form.
class TModule : public IOTAModule, public std::enable_shared_from_this<TModule> {
  public:
    TModule(TModules& modules, TModuleFiles files) : modules_(modules), files_(std::move(files)) {}
    void SetDesigner(std::shared_ptr<TDesigner> designer) { designer_ = std::move(designer); }

    std::string GetFileName() override { return files_.Unit->FileName(); }
    std::string GetFormName() override;
    int GetSourceEditorCount() override { return files_.Header ? 2 : 1; }
    std::shared_ptr<IOTASourceEditor> GetSourceEditor(int index) override;
    std::shared_ptr<IOTAFormEditor> GetFormEditor() override { return designer_; }
    bool GetModified() override;
    void Save() override;
    void Close() override;

    const TModuleFiles& Files() const { return files_; }
    TDesigner* Designer() const { return designer_.get(); }
    /// The unit, the header and the form file, as far as they are there.
    std::vector<TDocument*> Documents() const;
    /// The buffer of this file (any letter case), nullptr when it is not one of the module's sources.
    TSourceBuffer* FindSource(const std::string& fileName) const;
    /// Under what form name the module services know it.
    std::string IndexedFormName;
    /// The module for whose sake alone it was opened; it closes with that one unless it is modified.
    std::weak_ptr<TModule> OpenedFor;

    /// Adds what is modified to the running command's save, with the form's notifiers told around it.
    void SaveDocuments();
    void CloseDocuments();

  private:
    TModules& modules_;
    TModuleFiles files_;
    std::shared_ptr<TDesigner> designer_;
};

}  // namespace tml
