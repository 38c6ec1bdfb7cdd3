#include "ide/Menus.h"

namespace tml {
namespace {

struct TMenuRow {
    const char* Section;  ///< component name of the section
    const char* Caption;
    const char* Items;  ///< captions, separated by "|"
};

/// Items that every IDE of the kind has; they do nothing here, add-ins find their places among them.
constexpr TMenuRow kMainMenu[] = {
    {"FileMenu", "&File", "&New...|&Open...|&Save|Save A&ll|&Close|-|E&xit"},
    {"EditMenu", "&Edit", "&Undo|&Redo|-|Cu&t|&Copy|&Paste"},
    {"SearchMenu", "&Search", "&Find...|&Replace...|&Go to Line..."},
    {"ViewsMenu", "&View", "&Project Manager|&Object Inspector|&Forms..."},
    {"ProjectMenu", "&Project", "&Add to Project...|&Remove from Project...|&Options..."},
    {"RunMenu", "&Run", "&Run|&Parameters...|&Step Over"},
    {"ComponentMenu", "&Component", "&New Component...|&Install Packages..."},
    {"ToolsMenu", "&Tools", "&Environment Options...|&Editor Options...|&Configure Tools..."},
    {"HelpMenu", "&Help", "&Contents|&Index|&About"},
};

constexpr const char* kEditorMenu = "Cu&t|&Copy|&Paste|-|&Toggle Bookmark|&Properties";

constexpr const char* kProjectManager = "ProjectManagerForm";
constexpr const char* kDockableForm = "TDockableForm";

/// The item's name is its caption's letters and a number, as a designer would name it.
std::string ItemName(const std::string& caption) {
    std::string name;
    for (const char c : caption)
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) name += c;
    return name.empty() ? "N1" : name + "1";
}

void AddItems(TMenuItem& menu, std::string captions) {
    captions += '|';
    for (std::size_t end = captions.find('|'); end != std::string::npos; end = captions.find('|')) {
        auto item = std::make_shared<TMenuItem>();
        item->Caption = captions.substr(0, end);
        item->Name = ItemName(item->Caption);
        menu.Items.push_back(std::move(item));
        captions.erase(0, end + 1);
    }
}

}  // namespace

TNativeServices::TNativeServices(bool dockableForms) : dockableForms_(dockableForms) {
    mainMenu_.Name = "MainMenu";
    for (const TMenuRow& row : kMainMenu) {
        auto section = std::make_shared<TMenuItem>();
        section->Name = row.Section;
        section->Caption = row.Caption;
        AddItems(*section, row.Items);
        mainMenu_.Items.push_back(std::move(section));
    }
    editorMenu_.Name = "EditorLocalMenu";
    AddItems(editorMenu_, kEditorMenu);
}

std::vector<std::string> TNativeServices::GetFormClasses(const std::string& formName) {
    if (formName != kProjectManager) return {};
    if (!dockableForms_) return {"TProjectManagerForm", "TForm"};
    return {"TProjectManagerForm", "TDockableToolbarForm", kDockableForm, "TForm"};
}

std::unique_ptr<TForm> TNativeServices::CreateDockHost(const std::string& className) {
    if (!dockableForms_ || className != kDockableForm) return nullptr;
    return std::make_unique<TForm>();
}

}  // namespace tml
