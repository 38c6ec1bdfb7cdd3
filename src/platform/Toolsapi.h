#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Formvalue.h"
#include "platform/Changes.h"
#include "source/Sourcetext.h"
#include "windows/Controls.h"

namespace tml {

/// The IDE's open tools interface, cut down to the operations that the system calls. Texts are UTF-8,
/// offsets into a source are bytes of its UTF-8 text with CR LF line ends, file names are full paths.

enum class TOTAFileNotification {
    ofnFileOpening,
    ofnFileOpened,
    ofnFileClosing,
    ofnActiveProjectChanged,
    ofnProjectDesktopLoad,
};

/// Identity of a component: equal for two interfaces on the same component.
using TComponentHandle = const void*;

class IOTANotifier {
  public:
    virtual ~IOTANotifier() = default;
    virtual void AfterSave() = 0;
    virtual void BeforeSave() = 0;
    virtual void Destroyed() = 0;
    virtual void Modified() = 0;
};

class IOTAIDENotifier : public IOTANotifier {
  public:
    virtual void FileNotification(TOTAFileNotification notifyCode, const std::string& fileName,
                                  bool& cancel) = 0;
    virtual void BeforeCompile(const std::string& project, bool& cancel) = 0;
    virtual void AfterCompile(bool succeeded) = 0;
    virtual void BeforeCompile(const std::string& project, bool isCodeInsight, bool& cancel) = 0;
    virtual void AfterCompile(bool succeeded, bool isCodeInsight) = 0;
    /// An undo, a redo, a command that was taken back or closing without saving has given these files (units
    /// and form files, full paths, open or not) other bytes than they had.
    virtual void FilesRestored(const std::vector<std::string>& /*fileNames*/) {}
};

class IOTAFormNotifier : public IOTANotifier {
  public:
    virtual void FormActivated() = 0;
    virtual void FormSaving() = 0;
    virtual void ComponentRenamed(TComponentHandle handle, const std::string& oldName,
                                  const std::string& newName) = 0;
};

enum class TWizardState { wsEnabled, wsChecked };

class IOTAWizard : public IOTANotifier {
  public:
    virtual std::string GetIDString() = 0;
    virtual std::string GetName() = 0;
    virtual std::vector<TWizardState> GetState() = 0;
    virtual void Execute() = 0;
};

/// Where a component comes from: the form itself, its ancestor, or a frame that stands on it (the frame's own
/// components are those that it owns).
enum class TComponentOrigin { coOwn, coInherited, coFrame };

/// A component on a form. It stays valid while its form is open; a component that has been deleted raises
/// EBadInput.
class IOTAComponent {
  public:
    virtual ~IOTAComponent() = default;
    virtual TComponentHandle GetComponentHandle() = 0;
    virtual std::string GetComponentType() = 0;  ///< class name
    virtual std::string GetName() = 0;
    /// The form or frame that owns it, nullptr for the form itself.
    virtual std::shared_ptr<IOTAComponent> GetOwner() = 0;
    /// The component whose block in the form file it stands in, nullptr for the form itself.
    virtual std::shared_ptr<IOTAComponent> GetParent() = 0;
    virtual TComponentOrigin GetOrigin() = 0;
    /// What this one repeats: the ancestor form of a form, the frame's own form of a frame, opened if need
    /// be, and the component there of one that they hold; nullptr for others and where the project has no
    /// such form.
    virtual std::shared_ptr<IOTAComponent> GetAncestor() = 0;
    /// Renames the component; its field in the form's class follows and the form's notifiers are told.
    virtual void SetName(const std::string& name) = 0;
    /// The components that this one owns, in form file order (those inside a frame belong to the frame).
    virtual int GetComponentCount() = 0;
    virtual std::shared_ptr<IOTAComponent> GetComponent(int index) = 0;
    /// One that the form or frame owns, by name without regard to case; also one that it inherits and the
    /// file does not repeat, which it does as soon as a property is set. nullptr when there is none.
    virtual std::shared_ptr<IOTAComponent> FindComponent(const std::string& name) = 0;
    /// What the form holds, names and values in file order; the rest has its default.
    virtual std::vector<TFormProperty> GetProperties() = 0;
    /// Of these the values that may hold texts, and the parts of objects ("Font.Height").
    virtual std::vector<TFormProperty> GetTextProperties() = 0;
    /// None when the form does not hold the property (it has its default then).
    virtual std::optional<TFormValue> GetPropValue(const std::string& name) = 0;
    /// The component that a reference names, on the same form or ("Form1.Name") on another form of the
    /// project; nullptr when it names none.
    virtual std::shared_ptr<IOTAComponent> GetPropComponent(const std::string& name) = 0;
    /// A property that the form does not hold yet is added where streaming writes it.
    virtual void SetPropValue(const std::string& name, const TFormValue& value) = 0;
    virtual void RemoveProp(const std::string& name) = 0;
    /// Deletes the component and its field. One that is inherited cannot go; where it has no properties, and
    /// no other stands in its block, the form's file repeats it no longer.
    virtual void Delete() = 0;
};

class IOTAEditor {
  public:
    virtual ~IOTAEditor() = default;
    virtual std::string GetFileName() = 0;
    virtual bool GetModified() = 0;
    virtual void Show() = 0;
};

/// The designer of a form, as component and property editors see it.
class IDesigner {
  public:
    virtual ~IDesigner() = default;
    virtual std::shared_ptr<IOTAComponent> GetRoot() = 0;
    /// In the order in which they were selected; deleted components are left out.
    virtual std::vector<std::shared_ptr<IOTAComponent>> GetSelections() = 0;
    /// EBadInput for a component that is not on this form.
    virtual void SetSelections(const std::vector<std::shared_ptr<IOTAComponent>>& components) = 0;
    /// Marks the form as modified.
    virtual void Modified() = 0;
};

class IOTAFormEditor : public virtual IOTAEditor {
  public:
    virtual IDesigner& GetDesigner() = 0;
    virtual std::shared_ptr<IOTAComponent> GetRootComponent() = 0;
    /// By name, without regard to case; also one that the form inherits and its file does not repeat, which
    /// it does as soon as a property is set. nullptr when there is none.
    virtual std::shared_ptr<IOTAComponent> FindComponent(const std::string& name) = 0;
    /// The name where it is free for a component of the type, else the name with the first number behind it
    /// that makes it so. It is taken by a component of the form or an ancestor and by a member of the form's
    /// class, but for a field of that type. EBadInput when the class cannot be found.
    virtual std::string FreeName(const std::string& name, const std::string& typeName) = 0;
    /// Creates a component on the form (container nullptr: the form itself) with the name, which must be
    /// free, or with one of its class and a number for ""; field, uses clause or include follow. nullptr for
    /// a class that is not registered.
    virtual std::shared_ptr<IOTAComponent> CreateComponent(IOTAComponent* container,
                                                           const std::string& typeName, int x, int y, int w,
                                                           int h, const std::string& name) = 0;
    virtual void MarkModified() = 0;
    virtual int AddNotifier(std::shared_ptr<IOTAFormNotifier> notifier) = 0;
    virtual void RemoveNotifier(int index) = 0;
};

/// 1-based line, 0-based column in bytes.
struct TOTACharPos {
    int Line = 0;
    int CharIndex = 0;

    bool operator==(const TOTACharPos&) const = default;
};

enum class TOTABlockType { btNonInclusive, btColumn, btLine, btInclusive };

class IOTAEditView {
  public:
    virtual ~IOTAEditView() = default;
    virtual TOTACharPos PosToCharPos(int linear) = 0;      ///< linear: 0-based byte offset
    virtual int CharPosToPos(const TOTACharPos& pos) = 0;  ///< clamped to the text
    virtual TOTACharPos GetCursorPos() = 0;
    virtual void SetCursorPos(const TOTACharPos& pos) = 0;
};

class IOTAEditReader {
  public:
    virtual ~IOTAEditReader() = default;
    /// At most count bytes from a 0-based position; "" behind the end.
    virtual std::string GetText(int position, int count) = 0;
};

/// Builds the new text from the old one, front to back; what was not copied by the end is copied then.
/// The change is made, as one undoable step, when the writer is destroyed.
class IOTAEditWriter {
  public:
    virtual ~IOTAEditWriter() = default;
    virtual void CopyTo(int position) = 0;
    virtual void DeleteTo(int position) = 0;
    virtual void Insert(const std::string& text) = 0;
};

class IOTASourceEditor : public virtual IOTAEditor {
  public:
    /// The whole text; shared, so that taking it costs nothing.
    virtual std::shared_ptr<const std::string> GetText() = 0;
    /// The same text as it was read; one object for all who ask, as long as the text stays.
    virtual TSharedSource GetSource() = 0;
    virtual std::unique_ptr<IOTAEditReader> CreateReader() = 0;
    virtual std::unique_ptr<IOTAEditWriter> CreateUndoableWriter() = 0;
    virtual int GetEditViewCount() = 0;
    virtual std::shared_ptr<IOTAEditView> GetEditView(int index) = 0;
    virtual TOTACharPos GetBlockStart() = 0;
    virtual TOTACharPos GetBlockAfter() = 0;
    virtual TOTABlockType GetBlockType() = 0;
    virtual void SetBlock(const TOTACharPos& start, const TOTACharPos& after, TOTABlockType type) = 0;
};

/// A unit with its form, open in the IDE.
class IOTAModule {
  public:
    virtual ~IOTAModule() = default;
    virtual std::string GetFileName() = 0;  ///< the unit's file
    virtual std::string GetFormName() = 0;  ///< "" for a unit without a form
    /// 0 is the implementation, 1 the header of a C++ unit.
    virtual int GetSourceEditorCount() = 0;
    virtual std::shared_ptr<IOTASourceEditor> GetSourceEditor(int index) = 0;
    virtual std::shared_ptr<IOTAFormEditor> GetFormEditor() = 0;  ///< nullptr for a unit without a form
    virtual bool GetModified() = 0;
    virtual void Save() = 0;
    /// Closes without saving.
    virtual void Close() = 0;
};

/// An entry of a project, whether open or not.
struct TOTAModuleInfo {
    std::string Name;      ///< last part of the unit's name
    std::string FileName;  ///< full path as on disk, or as the project names it where the file is missing
    std::string FormName;  ///< "" without a form
};

class IOTAProject {
  public:
    virtual ~IOTAProject() = default;
    virtual std::string GetFileName() = 0;
    virtual int GetModuleCount() = 0;
    virtual TOTAModuleInfo GetModule(int index) = 0;
    virtual bool IsCPPProject() = 0;
};

class IOTAProjectGroup {
  public:
    virtual ~IOTAProjectGroup() = default;
    virtual std::string GetFileName() = 0;
    virtual int GetProjectCount() = 0;
    virtual std::shared_ptr<IOTAProject> GetProject(int index) = 0;
    virtual std::shared_ptr<IOTAProject> GetActiveProject() = 0;
    virtual void SetActiveProject(const std::shared_ptr<IOTAProject>& project) = 0;
};

class IOTAModuleServices {
  public:
    virtual ~IOTAModuleServices() = default;
    /// The open module of a unit or form file (any letter case), nullptr when it is not open.
    virtual std::shared_ptr<IOTAModule> FindModule(const std::string& fileName) = 0;
    /// The open module whose form has this name.
    virtual std::shared_ptr<IOTAModule> FindFormModule(const std::string& formName) = 0;
    /// Opens a unit (with its form) or gives the open one; errors as EBadInput.
    virtual std::shared_ptr<IOTAModule> OpenModule(const std::string& fileName, bool show) = 0;
    virtual std::shared_ptr<IOTASourceEditor> GetCurrentSourceEditor() = 0;
    virtual std::shared_ptr<IOTAProject> GetActiveProject() = 0;
    virtual std::shared_ptr<IOTAProjectGroup> GetMainProjectGroup() = 0;

    virtual std::unique_ptr<ICommandScope> BeginCommand(const std::string& title) = 0;
    virtual ICommandFiles& GetFiles() = 0;
    /// Checks the whole set, then makes it; a set that does not fit is refused with EBadInput and nothing
    /// is changed.
    virtual void ApplyChangeSet(const TChangeSet& changes) = 0;
};

class IOTAServices {
  public:
    virtual ~IOTAServices() = default;
    virtual int AddNotifier(std::shared_ptr<IOTAIDENotifier> notifier) = 0;
    virtual void RemoveNotifier(int index) = 0;
};

class INTAServices {
  public:
    virtual ~INTAServices() = default;
    /// The main menu; its Items are the sections ("FileMenu", "ToolsMenu" ...).
    virtual TMenuItem& GetMainMenu() = 0;
    /// The local menu of the code editor.
    virtual TMenuItem& GetEditorLocalMenu() = 0;
    /// Class names of an open form of the IDE, its own class first, then its ancestors; empty when no
    /// open form has the name.
    virtual std::vector<std::string> GetFormClasses(const std::string& formName) = 0;
    /// A new dock host of the given class.
    virtual std::unique_ptr<TForm> CreateDockHost(const std::string& className) = 0;
};

class IOTAProjectManager;

/// The IDE by interface; an IDE without one of them gives nullptr.
class IBorlandIDEServices {
  public:
    virtual ~IBorlandIDEServices() = default;
    virtual IOTAServices* GetServices() = 0;
    virtual INTAServices* GetNTAServices() = 0;
    virtual IOTAModuleServices* GetModuleServices() = 0;
    virtual IOTAProjectManager* GetProjectManager() = 0;
};

}  // namespace tml
