#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/Context.h"

namespace tml {

// What the expert asks of the IDE. Each gives nullptr (false) where the IDE has no such service.

IOTAModuleServices* GetModuleServices(TContext& context);
/// Begins a command that is one step of undo. EmlLangSilent in an IDE without modules: nothing can be opened
/// there.
std::unique_ptr<ICommandScope> BeginCommand(TContext& context, const std::string& title);
std::shared_ptr<IOTAProject> GetActiveProject(TContext& context);
std::shared_ptr<IOTAProjectGroup> GetActiveProjectGroup(TContext& context);
std::shared_ptr<IOTASourceEditor> GetCurrentSourceEditor(TContext& context);
/// The open module of a unit or form file.
std::shared_ptr<IOTAModule> GetModuleFromFileName(TContext& context, const std::string& fileName);
/// nullptr for no module and for one without a form.
std::shared_ptr<IOTAFormEditor> GetFormEditorFromModule(const std::shared_ptr<IOTAModule>& module);
/// The editor of an open form by the form's name.
std::shared_ptr<IOTAFormEditor> GetFormEditor(TContext& context, const std::string& formName);

bool IsFileOpen(TContext& context, const std::string& fileName);
/// Opens a unit with its form, or brings the open one up when show is set. False when it cannot be opened.
bool OpenFile(TContext& context, const std::string& fileName, bool show);
/// Saves or closes (without saving) an open file; nothing when it is not open.
void SaveFile(TContext& context, const std::string& fileName);
void CloseFile(TContext& context, const std::string& fileName);
void MarkModifiedForm(TContext& context, const std::string& formName);
/// True when the IDE has the module of the row's form, whose unit is open. An error message when it has none
/// under that name. EBadInput when the name is that of another unit's form, too.
bool TestForCorrectForm(TContext& context, const TFormRow& row);

class TOpenedMeanwhile;

/// Opens a file for a command, unless it is open, and closes it when it goes. Where the file cannot be
/// opened the constructor throws EmlLangSilent.
class TModuleLease {
  public:
    TModuleLease(TContext& context, std::string fileName);
    /// For a command that leases several forms at a time: one that an heir of it has opened counts as closed
    /// before, and is the lease's to save and close.
    TModuleLease(TContext& context, std::string fileName, TOpenedMeanwhile& opened);
    /// Over a file that is open already; wasOpen tells whether it was before the command.
    TModuleLease(TContext& context, std::string fileName, bool wasOpen)
        : context_(context), fileName_(std::move(fileName)), wasOpen_(wasOpen) {}
    ~TModuleLease();
    TModuleLease(const TModuleLease&) = delete;
    TModuleLease& operator=(const TModuleLease&) = delete;

    bool WasOpen() const { return wasOpen_; }
    /// Saves a file that the lease opened; one that was open stays the person's to save.
    void Save();
    /// The same; what cannot be saved stays open with all that has changed, and the error goes on.
    void SaveOrKeep();
    /// The file stays open.
    void Keep() { wasOpen_ = true; }

  private:
    TContext& context_;
    std::string fileName_;
    bool wasOpen_;
};

/// The files of rows that a command opens on its way, such as ancestors of forms: when it goes they are
/// closed again, but for those with changes that are not saved.
class TOpenedMeanwhile {
  public:
    explicit TOpenedMeanwhile(TContext& context);
    ~TOpenedMeanwhile();
    TOpenedMeanwhile(const TOpenedMeanwhile&) = delete;
    TOpenedMeanwhile& operator=(const TOpenedMeanwhile&) = delete;

    /// Saves those of them that the command has changed.
    void Save();
    /// One that is open now stays open, and the person's to save.
    void Leave(const std::string& file);
    /// Whether the file was closed when the command began; who asks has to close it from now on.
    bool Take(const std::string& file) { return closed_.erase(file) > 0; }

  private:
    TContext& context_;
    std::set<std::string> closed_;  ///< when the command began
};

using TComponentTest = std::function<bool(IOTAComponent&)>;
/// The first component in the form's file that fits, else the first of what the form inherits; nullptr when
/// there is none.
std::shared_ptr<IOTAComponent> FindComponentOf(IOTAFormEditor& editor, const TComponentTest& fits);
/// The localization component of that name, which is found faster; else the first one of the form. nullptr
/// when there is none.
std::shared_ptr<TmlCustomLang> FindCustomLang(IMlRuntime& runtime, IOTAFormEditor& editor,
                                              const std::string& name = {});
/// Reads the open form of a file; 0 languages when it has no component or is not open.
TFormAnalysis AnalyzeFile(TContext& context, const std::string& fileName);

}  // namespace tml
