#include "desktop/Editortabs.h"

#include <QTabBar>
#include <QTimer>
#include <QToolButton>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "desktop/Codeeditor.h"
#include "desktop/Formview.h"
#include "desktop/Icons.h"
#include "desktop/Runner.h"
#include "desktop/Texts.h"
#include "forms/Formtree.h"
#include "ide/Module.h"

namespace tml {
namespace {

constexpr int kTypingPause = 500;  ///< ms; what is typed without one is one step of undo
constexpr int kCloseSize = 9;      ///< pixels

/// The editor of one of the module's files; that of the unit for a path that leads there some other way.
std::shared_ptr<IOTAEditor> EditorOf(IOTAModule& module, const std::string& fileName) {
    if (auto form = module.GetFormEditor(); form != nullptr && SameText(form->GetFileName(), fileName))
        return form;
    const auto header = module.GetSourceEditor(1);
    const bool isHeader = header != nullptr && SameText(header->GetFileName(), fileName);
    return isHeader ? header : module.GetSourceEditor(0);
}

}  // namespace

TEditorTabs::TEditorTabs(THeadlessIde& ide, IMlRuntime& runtime, TRunner& runner)
    : ide_(ide), runtime_(runtime), runner_(runner) {
    setObjectName("editorTabs");
    setDocumentMode(true);
    setMovable(true);
    connect(this, &QTabWidget::tabCloseRequested, this,
            [this](int index) { runner_.Run([&] { CloseTab(index); }); });
    connect(this, &QTabWidget::currentChanged, this, [this] { TellCurrent(); });
}

void TEditorTabs::TellCurrent() {
    const std::string file = CurrentFile();
    if (file.empty() || file == current_) return;
    current_ = file;
    runner_.Run([&] {
        if (TCodeEditor* editor = Current())
            editor->Source().Show();
        else if (const auto module = ide_.GetModuleServices()->FindModule(file))
            module->GetFormEditor()->Show();
    });
}

TFormView* TEditorTabs::FormAt(int index) const {
    return dynamic_cast<TFormView*>(widget(index));
}

TTextPage* TEditorTabs::Page(int index) const {
    const TFormView* form = FormAt(index);
    return form != nullptr ? &form->Text() : static_cast<TTextPage*>(widget(index));
}

TCodeEditor* TEditorTabs::Current() const {
    return dynamic_cast<TCodeEditor*>(currentWidget());
}

TTextPage* TEditorTabs::CurrentText() const {
    return Page(currentIndex());
}

TTextPage* TEditorTabs::ShowText() {
    if (TFormView* form = FormAt(currentIndex())) form->ShowText();
    return CurrentText();
}

std::string TEditorTabs::CurrentFile() const {
    const TTextPage* page = CurrentText();
    return page == nullptr ? std::string() : page->FileName();
}

int TEditorTabs::Find(const std::string& fileName) const {
    for (int i = 0; i < count(); ++i)
        if (SameText(Page(i)->FileName(), fileName)) return i;
    return -1;
}

void TEditorTabs::Commit() {
    for (int i = 0; i < count(); ++i)
        if (auto* editor = dynamic_cast<TCodeEditor*>(widget(i))) editor->Commit();
}

int TEditorTabs::AddTab(QWidget& page, const std::string& fileName, const char* picture) {
    const int index = addTab(&page, PictureOf(picture), ToQt(FileNameOf(fileName)));
    setTabToolTip(index, ToQt(fileName));
    auto* close = new QToolButton(tabBar());
    close->setIcon(PictureOf("cancel"));
    close->setIconSize({kCloseSize, kCloseSize});
    close->setAutoRaise(true);
    close->setToolTip("Close (Ctrl+F4)");
    connect(close, &QToolButton::clicked, &page, [this, &page] { Q_EMIT tabCloseRequested(indexOf(&page)); });
    tabBar()->setTabButton(index, QTabBar::RightSide, close);
    return index;
}

int TEditorTabs::AddSource(const std::shared_ptr<IOTAModule>& module,
                           const std::shared_ptr<IOTASourceEditor>& source) {
    auto* editor = new TCodeEditor(module, source);
    editor->OnLocalMenu = [this](const QPoint& at) { OnLocalMenu(at); };
    auto* pause = new QTimer(editor);
    pause->setSingleShot(true);
    pause->setInterval(kTypingPause);
    editor->OnTyped = [this, pause] {
        pause->start();
        RefreshTitles();
    };
    connect(pause, &QTimer::timeout, this, [this] { runner_.Run([] {}); });
    // The caret has been placed in a page that had not its size yet.
    QTimer::singleShot(0, editor, [editor] { editor->SendScintilla(QsciScintilla::SCI_SCROLLCARET); });
    return AddTab(*editor, source->GetFileName(), "unit");
}

int TEditorTabs::AddForm(const std::string& fileName) {
    return AddTab(*new TFormView(fileName, ide_, runtime_, runner_), fileName, "form");
}

void TEditorTabs::ShowFile(const std::string& fileName) {
    std::shared_ptr<IOTAModule> module;
    try {
        module = ide_.GetModuleServices()->OpenModule(fileName, true);
    } catch (const EBadInput& error) {
        if (!IsFormFile(fileName) || !SameText(error.File(), fileName)) throw;
        module = ide_.OpenText(fileName);
    }
    EditorOf(*module, fileName)->Show();
    Follow();
}

void TEditorTabs::ShowForm(const std::string& unitFile) {
    const auto form = ide_.GetModuleServices()->OpenModule(unitFile, false)->GetFormEditor();
    if (form != nullptr) form->Show();
}

void TEditorTabs::CloseTab(int index) {
    const auto module = ide_.GetModuleServices()->FindModule(Page(index)->FileName());
    if (module == nullptr) return;
    if (FormAt(index) != nullptr && Find(module->GetFileName()) >= 0)
        delete widget(index);
    else
        OnCloseModule(module);
}

void TEditorTabs::Follow() {
    DropClosed();
    FollowCurrent();
    ShowUnsaved();
    for (int i = 0; i < count(); ++i)
        if (auto* editor = dynamic_cast<TCodeEditor*>(widget(i))) editor->Follow();
    FollowForms();
    RefreshTitles();
}

void TEditorTabs::DropClosed() {
    for (int i = count() - 1; i >= 0; --i) {
        QWidget* page = widget(i);
        const auto open = ide_.GetModuleServices()->FindModule(Page(i)->FileName());
        const auto* editor = dynamic_cast<TCodeEditor*>(page);
        if (open != nullptr && (editor == nullptr || editor->Module().lock() == open)) continue;
        // Not at once: the signal of one of its own buttons may be on the way.
        removeTab(i);
        page->deleteLater();
    }
}

void TEditorTabs::FollowCurrent() {
    const auto shown = ide_.CurrentEditor();
    const std::string file = shown == nullptr ? std::string() : shown->GetFileName();
    if (file == current_ && (file.empty() || Find(file) >= 0)) return;
    current_ = file;
    if (shown == nullptr) return;
    int index = Find(file);
    if (index < 0) {
        const auto source = std::dynamic_pointer_cast<IOTASourceEditor>(shown);
        index =
            source == nullptr ? AddForm(file) : AddSource(ide_.GetModuleServices()->FindModule(file), source);
    }
    setCurrentIndex(index);
    widget(index)->setFocus();
}

void TEditorTabs::ShowUnsaved() {
    for (const auto& module : ide_.Modules())
        if (module->GetModified() && Find(module->GetFileName()) < 0)
            AddSource(module, module->GetSourceEditor(0));
}

void TEditorTabs::FollowForms() {
    for (int i = 0; i < count(); ++i) {
        TFormView* view = FormAt(i);
        if (view == nullptr) continue;
        const auto module =
            std::dynamic_pointer_cast<TModule>(ide_.GetModuleServices()->FindModule(Page(i)->FileName()));
        const bool hasForm = module != nullptr && module->Files().Form != nullptr;
        view->Follow(hasForm ? module->GetFormEditor() : nullptr,
                     hasForm ? module->Files().Form->ShownText() : std::string());
    }
}

void TEditorTabs::RefreshTitles() {
    for (int i = 0; i < count(); ++i) {
        auto* editor = dynamic_cast<TCodeEditor*>(widget(i));
        const std::string& file = Page(i)->FileName();
        const bool modified = (editor != nullptr && editor->IsModified()) || IsFormModified(file);
        setTabText(i, ToQt(FileNameOf(file)) + (modified ? " *" : ""));
    }
}

bool TEditorTabs::IsFormModified(const std::string& fileName) const {
    const auto module = std::dynamic_pointer_cast<TModule>(ide_.GetModuleServices()->FindModule(fileName));
    return module != nullptr && module->Files().Form != nullptr && module->Files().Form->IsModified();
}

}  // namespace tml
