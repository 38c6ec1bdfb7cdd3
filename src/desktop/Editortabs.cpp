#include "desktop/Editortabs.h"

#include <QTabBar>
#include <QTimer>
#include <QToolButton>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "desktop/Codeeditor.h"
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

TEditorTabs::TEditorTabs(THeadlessIde& ide, TRunner& runner) : ide_(ide), runner_(runner) {
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

TTextPage* TEditorTabs::Page(int index) const {
    return static_cast<TTextPage*>(widget(index));
}

TCodeEditor* TEditorTabs::Current() const {
    return dynamic_cast<TCodeEditor*>(currentWidget());
}

TTextPage* TEditorTabs::CurrentText() const {
    return static_cast<TTextPage*>(currentWidget());
}

std::string TEditorTabs::CurrentFile() const {
    const TTextPage* page = CurrentText();
    return page == nullptr ? std::string() : page->FileName();
}

TTextPage* TEditorTabs::Find(const std::string& fileName) const {
    for (int i = 0; i < count(); ++i)
        if (SameText(Page(i)->FileName(), fileName)) return Page(i);
    return nullptr;
}

void TEditorTabs::Commit() {
    for (int i = 0; i < count(); ++i)
        if (auto* editor = dynamic_cast<TCodeEditor*>(widget(i))) editor->Commit();
}

void TEditorTabs::AddTab(TTextPage& page, const char* picture) {
    const int index = addTab(&page, PictureOf(picture), ToQt(FileNameOf(page.FileName())));
    setTabToolTip(index, ToQt(page.FileName()));
    auto* close = new QToolButton(tabBar());
    close->setIcon(PictureOf("cancel"));
    close->setIconSize({kCloseSize, kCloseSize});
    close->setAutoRaise(true);
    close->setToolTip("Close (Ctrl+F4)");
    connect(close, &QToolButton::clicked, &page, [this, &page] { Q_EMIT tabCloseRequested(indexOf(&page)); });
    tabBar()->setTabButton(index, QTabBar::RightSide, close);
}

TTextPage* TEditorTabs::AddSource(const std::shared_ptr<IOTAModule>& module,
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
    AddTab(*editor, "unit");
    return editor;
}

TTextPage* TEditorTabs::AddForm(const std::string& fileName) {
    auto* view = new TFormTextView(fileName);
    AddTab(*view, "form");
    return view;
}

std::string TEditorTabs::FormTextOf(const std::string& formFile) {
    const auto module = std::dynamic_pointer_cast<TModule>(ide_.GetModuleServices()->FindModule(formFile));
    if (module == nullptr || module->Files().Form == nullptr) return {};
    return module->Files().Form->ShownText();
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
    const bool isForm = dynamic_cast<TFormTextView*>(widget(index)) != nullptr;
    if (isForm && Find(module->GetFileName()) != nullptr)
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
    FollowFormTexts();
    RefreshTitles();
}

void TEditorTabs::DropClosed() {
    for (int i = count() - 1; i >= 0; --i) {
        TTextPage* page = Page(i);
        const auto open = ide_.GetModuleServices()->FindModule(page->FileName());
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
    if (file == current_ && (file.empty() || Find(file) != nullptr)) return;
    current_ = file;
    if (shown == nullptr) return;
    TTextPage* page = Find(file);
    if (page == nullptr) {
        const auto source = std::dynamic_pointer_cast<IOTASourceEditor>(shown);
        page =
            source == nullptr ? AddForm(file) : AddSource(ide_.GetModuleServices()->FindModule(file), source);
    }
    setCurrentWidget(page);
    page->setFocus();
}

void TEditorTabs::ShowUnsaved() {
    for (const auto& module : ide_.Modules())
        if (module->GetModified() && Find(module->GetFileName()) == nullptr)
            AddSource(module, module->GetSourceEditor(0));
}

void TEditorTabs::FollowFormTexts() {
    for (int i = 0; i < count(); ++i)
        if (auto* text = dynamic_cast<TFormTextView*>(widget(i)))
            text->SetContent(FormTextOf(text->FileName()));
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
