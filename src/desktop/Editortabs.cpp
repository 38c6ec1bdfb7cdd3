#include "desktop/Editortabs.h"

#include <QTabBar>
#include <QTimer>
#include <QToolButton>

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

}  // namespace

TEditorTabs::TEditorTabs(THeadlessIde& ide, TRunner& runner) : ide_(ide), runner_(runner) {
    setObjectName("editorTabs");
    setDocumentMode(true);
    setMovable(true);
    connect(this, &QTabWidget::tabCloseRequested, this,
            [this](int index) { runner_.Run([&] { CloseTab(index); }); });
    connect(this, &QTabWidget::currentChanged, this, [this] {
        TCodeEditor* editor = Current();
        if (editor == nullptr || editor->FileName() == current_) return;
        current_ = editor->FileName();
        runner_.Run([&] { editor->Source().Show(); });
    });
}

TCodeEditor* TEditorTabs::Current() const {
    return dynamic_cast<TCodeEditor*>(currentWidget());
}

QsciScintilla* TEditorTabs::CurrentText() const {
    return dynamic_cast<QsciScintilla*>(currentWidget());
}

std::string TEditorTabs::CurrentFile() const {
    if (const TCodeEditor* editor = Current()) return editor->FileName();
    const auto* form = dynamic_cast<TFormTextView*>(currentWidget());
    return form == nullptr ? std::string() : form->FileName();
}

TCodeEditor* TEditorTabs::Find(const std::string& fileName) const {
    for (int i = 0; i < count(); ++i) {
        auto* editor = dynamic_cast<TCodeEditor*>(widget(i));
        if (editor != nullptr && SameText(editor->FileName(), fileName)) return editor;
    }
    return nullptr;
}

void TEditorTabs::Commit() {
    for (int i = 0; i < count(); ++i)
        if (auto* editor = dynamic_cast<TCodeEditor*>(widget(i))) editor->Commit();
}

void TEditorTabs::AddTab(QWidget& widget, const char* picture, const std::string& fileName) {
    const int index = addTab(&widget, PictureOf(picture), ToQt(FileNameOf(fileName)));
    setTabToolTip(index, ToQt(fileName));
    auto* close = new QToolButton(tabBar());
    close->setIcon(PictureOf("cancel"));
    close->setIconSize({kCloseSize, kCloseSize});
    close->setAutoRaise(true);
    close->setToolTip("Close (Ctrl+F4)");
    connect(close, &QToolButton::clicked, &widget,
            [this, &widget] { Q_EMIT tabCloseRequested(indexOf(&widget)); });
    tabBar()->setTabButton(index, QTabBar::RightSide, close);
}

void TEditorTabs::ShowSource(const std::shared_ptr<IOTAModule>& module, int index) {
    const auto source = module->GetSourceEditor(index);
    TCodeEditor* editor = Find(source->GetFileName());
    if (editor == nullptr) {
        editor = new TCodeEditor(module, source);
        editor->OnLocalMenu = [this](const QPoint& at) { OnLocalMenu(at); };
        auto* pause = new QTimer(editor);
        pause->setSingleShot(true);
        pause->setInterval(kTypingPause);
        editor->OnTyped = [this, pause] {
            pause->start();
            RefreshTitles();
        };
        connect(pause, &QTimer::timeout, this, [this] { runner_.Run([] {}); });
        AddTab(*editor, "unit", editor->FileName());
    }
    current_ = editor->FileName();
    source->Show();
    setCurrentWidget(editor);
    editor->setFocus();
}

std::string TEditorTabs::FormTextOf(const std::string& formFile) {
    const auto module = std::dynamic_pointer_cast<TModule>(ide_.GetModuleServices()->FindModule(formFile));
    if (module == nullptr || module->Files().Form == nullptr) return {};
    return module->Files().Form->ShownText();
}

void TEditorTabs::ShowFormText(const std::string& unitFile) {
    const auto module = ide_.GetModuleServices()->OpenModule(unitFile, false);
    const auto form = module->GetFormEditor();
    if (form == nullptr) return;
    TFormTextView* view = nullptr;
    for (int i = 0; i < count(); ++i) {
        auto* candidate = dynamic_cast<TFormTextView*>(widget(i));
        if (candidate != nullptr && candidate->FileName() == form->GetFileName()) view = candidate;
    }
    if (view == nullptr) {
        view = new TFormTextView(form->GetFileName());
        AddTab(*view, "form", view->FileName());
    }
    setCurrentWidget(view);
    FollowFormTexts();
}

void TEditorTabs::CloseTab(int index) {
    auto* editor = dynamic_cast<TCodeEditor*>(widget(index));
    if (editor == nullptr) {
        delete widget(index);
        return;
    }
    if (const auto module = editor->Module().lock()) OnCloseModule(module);
}

void TEditorTabs::Follow() {
    DropClosed();
    FollowCurrent();
    for (int i = 0; i < count(); ++i)
        if (auto* editor = dynamic_cast<TCodeEditor*>(widget(i))) editor->Follow();
    FollowFormTexts();
    RefreshTitles();
}

void TEditorTabs::DropClosed() {
    for (int i = count() - 1; i >= 0; --i) {
        std::shared_ptr<IOTAModule> open;
        bool isOpen = false;
        if (auto* editor = dynamic_cast<TCodeEditor*>(widget(i))) {
            open = ide_.GetModuleServices()->FindModule(editor->FileName());
            isOpen = open != nullptr && editor->Module().lock() == open;
        } else if (const auto* text = dynamic_cast<TFormTextView*>(widget(i))) {
            isOpen = ide_.GetModuleServices()->FindModule(text->FileName()) != nullptr;
        }
        if (isOpen) continue;
        // Not at once: the signal of one of its own buttons may be on the way.
        QWidget* closed = widget(i);
        removeTab(i);
        closed->deleteLater();
    }
}

void TEditorTabs::FollowCurrent() {
    const auto source = ide_.GetModuleServices()->GetCurrentSourceEditor();
    const std::string file = source == nullptr ? std::string() : source->GetFileName();
    if (file == current_ && (file.empty() || Find(file) != nullptr)) return;
    current_ = file;
    if (source == nullptr) return;
    const auto module = ide_.GetModuleServices()->FindModule(file);
    for (int i = 0; module != nullptr && i < module->GetSourceEditorCount(); ++i)
        if (module->GetSourceEditor(i)->GetFileName() == file) ShowSource(module, i);
}

void TEditorTabs::FollowFormTexts() {
    for (int i = 0; i < count(); ++i)
        if (auto* text = dynamic_cast<TFormTextView*>(widget(i)))
            text->SetContent(FormTextOf(text->FileName()));
}

void TEditorTabs::RefreshTitles() {
    for (int i = 0; i < count(); ++i) {
        auto* editor = dynamic_cast<TCodeEditor*>(widget(i));
        auto* form = dynamic_cast<TFormTextView*>(widget(i));
        if (editor == nullptr && form == nullptr) continue;
        const std::string file = editor == nullptr ? form->FileName() : editor->FileName();
        const bool modified = (editor != nullptr && editor->IsModified()) || IsFormModified(file);
        setTabText(i, ToQt(FileNameOf(file)) + (modified ? " *" : ""));
    }
}

bool TEditorTabs::IsFormModified(const std::string& fileName) const {
    const auto module = std::dynamic_pointer_cast<TModule>(ide_.GetModuleServices()->FindModule(fileName));
    return module != nullptr && module->Files().Form != nullptr && module->Files().Form->IsModified();
}

}  // namespace tml
