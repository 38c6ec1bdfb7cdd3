#include "desktop/Projecttree.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include "base/Files.h"
#include "core/Formrows.h"
#include "desktop/Icons.h"
#include "desktop/Texts.h"
#include "platform/Projectmanager.h"

namespace tml {
namespace {

constexpr const char* kNoProject =
    "No project is open.\n\nOpen a project or a group of projects with \"File / Open...\" (Ctrl+O).";

enum TKind { Group = 1, Project, Form, Unit };

constexpr int kFileRole = Qt::UserRole;
constexpr int kKindRole = Qt::UserRole + 1;
constexpr int kProjectRole = Qt::UserRole + 2;  ///< index in the group

QTreeWidgetItem* NewItem(const QString& text, const char* picture, TKind kind, const std::string& file) {
    auto* item = new QTreeWidgetItem({text});
    item->setIcon(0, PictureOf(picture));
    item->setData(0, kKindRole, kind);
    item->setData(0, kFileRole, ToQt(file));
    item->setToolTip(0, ToQt(file));
    return item;
}

std::string FileOf(const QTreeWidgetItem& item) {
    return FromQt(item.data(0, kFileRole).toString());
}

/// What add-ins know the kind by.
std::string IdentOf(int kind) {
    return std::string(kind == Group     ? kGroupContainer
                       : kind == Project ? kProjectContainer
                                         : kFileContainer);
}

bool IsSource(const QTreeWidgetItem& item) {
    return item.data(0, kKindRole).toInt() >= Form;
}

}  // namespace

TProjectTree::TProjectTree(THeadlessIde& ide) : ide_(ide), hint_(new QLabel(kNoProject)) {
    setObjectName("projectTree");
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    hint_->setObjectName("noProject");
    hint_->setWordWrap(true);
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setMargin(hint_->fontMetrics().height());
    (new QVBoxLayout(viewport()))->addWidget(hint_);
    connect(this, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* item) {
        if (IsSource(*item)) OnOpen(FileOf(*item));
    });
}

void TProjectTree::Refresh() {
    const auto group = ide_.GetModuleServices()->GetMainProjectGroup();
    if (group != shown_.lock() || group == nullptr) {
        shown_ = group;
        Build();
    }
    MarkItems();
    hint_->setVisible(group == nullptr);
}

void TProjectTree::Build() {
    clear();
    const auto group = ide_.GetModuleServices()->GetMainProjectGroup();
    if (group == nullptr) return;
    const std::string file = group->GetFileName();
    QTreeWidgetItem* top = invisibleRootItem();
    if (!file.empty()) {
        addTopLevelItem(NewItem(ToQt(FileNameOf(file)), "group", Group, file));
        top = topLevelItem(0);
    }
    for (int i = 0; i < group->GetProjectCount(); ++i) {
        AddProject(*top, group->GetProject(i));
        top->child(i)->setData(0, kProjectRole, i);
        top->child(i)->setExpanded(true);
    }
    top->setExpanded(true);
}

void TProjectTree::AddProject(QTreeWidgetItem& group, const std::shared_ptr<IOTAProject>& project) {
    auto* item =
        NewItem(ToQt(FileNameOf(project->GetFileName())), "project", Project, project->GetFileName());
    for (int i = 0; i < project->GetModuleCount(); ++i) {
        const TOTAModuleInfo module = project->GetModule(i);
        const QString unit = ToQt(FileNameOf(module.FileName));
        // What a resource file calls its form is its compiled file.
        if (module.FormName.empty() || !IsSourceUnit(module.FileName))
            item->addChild(NewItem(unit, "unit", Unit, module.FileName));
        else
            item->addChild(NewItem(ToQt(module.FormName) + "   " + unit, "form", Form, module.FileName));
    }
    group.addChild(item);
}

void TProjectTree::MarkItems() {
    for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
        QTreeWidgetItem& item = **it;
        QFont font = item.font(0);
        const auto module = IsSource(item) ? ide_.GetModuleServices()->FindModule(FileOf(item)) : nullptr;
        font.setBold(IsActive(item));
        font.setItalic(module != nullptr && module->GetModified());
        item.setFont(0, font);
    }
}

std::shared_ptr<IOTAProject> TProjectTree::ProjectOf(const QTreeWidgetItem& item) {
    return ide_.GetModuleServices()->GetMainProjectGroup()->GetProject(item.data(0, kProjectRole).toInt());
}

bool TProjectTree::IsActive(const QTreeWidgetItem& item) {
    if (item.data(0, kKindRole).toInt() != Project) return false;
    const auto active = ide_.GetModuleServices()->GetActiveProject();
    return active != nullptr && active->GetFileName() == FileOf(item);
}

void TProjectTree::AddSettings(QMenu& menu) {
    const std::shared_ptr<TMenuItem> command = SettingsCommand();
    if (command == nullptr) return;
    QAction* action = menu.addAction(IconOf(command->Name), ToQt(command->Caption), this,
                                     [this, command] { OnCommand(*command); });
    action->setEnabled(command->Enabled);
}

void TProjectTree::AddEntries(QMenu& menu, const std::vector<std::shared_ptr<TMenuItem>>& entries) {
    for (const auto& entry : entries) {
        if (entry->Caption == "-") {
            menu.addSeparator();
        } else if (!entry->Items.empty()) {
            AddEntries(*menu.addMenu(ToQt(entry->Caption)), entry->Items);
        } else {
            QAction* action =
                menu.addAction(ToQt(entry->Caption), this, [this, entry] { OnCommand(*entry); });
            action->setEnabled(entry->Enabled);
        }
    }
}

void TProjectTree::contextMenuEvent(QContextMenuEvent* event) {
    const QTreeWidgetItem* item = itemAt(event->pos());
    if (item == nullptr) return;
    QMenu menu;
    menu.setObjectName("projectMenu");
    const int kind = item->data(0, kKindRole).toInt();
    const std::string file = FileOf(*item);
    if (IsSource(*item)) menu.addAction(PictureOf("open"), "&Open", this, [&] { OnOpen(file); });
    if (kind == Form) menu.addAction(PictureOf("form"), "&View Form", this, [&] { OnViewForm(file); });
    if (kind == Project)
        menu.addAction("Make &Active Project", this, [&] { OnMakeActive(ProjectOf(*item)); });
    if (IsActive(*item)) AddSettings(menu);
    AddEntries(menu, ide_.ProjectMenu(IdentOf(kind), kind == Project ? ProjectOf(*item) : nullptr));
    if (!menu.isEmpty()) menu.exec(event->globalPos());
}

}  // namespace tml
