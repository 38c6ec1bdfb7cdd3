#include "desktop/Filedialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "desktop/Texts.h"

namespace tml {
namespace {

/// "A (*.a)|*.a;*.b|All|*.*" as "A (*.a *.b)" and "All (*)".
QStringList FiltersOf(const std::string& filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString text = parts[i];
        // The masks are put behind the text anyway.
        if (text.endsWith(')')) text.truncate(text.lastIndexOf('('));
        QStringList masks = parts[i + 1].split(';');
        masks.replaceInStrings("*.*", "*");
        filters += text.trimmed() + " (" + masks.join(' ') + ")";
    }
    return filters;
}

/// The proposed file, and the filter that lets it be seen; else the proposed filter.
void Propose(QFileDialog& dialog, const TFileDialog& form) {
    const QStringList filters = dialog.nameFilters();
    if (form.FilterIndex >= 1 && form.FilterIndex <= filters.size())
        dialog.selectNameFilter(filters[form.FilterIndex - 1]);
    if (form.Files.empty()) return;
    const QString file = ToQt(form.Files.front());
    const QString mask = "*." + QFileInfo(file).suffix();
    const QStringList fitting = filters.filter(mask + ")") + filters.filter(mask + " ");
    if (!fitting.isEmpty() && !fitting.contains(dialog.selectedNameFilter()))
        dialog.selectNameFilter(fitting.first());
    dialog.selectFile(file);
}

bool Execute(QFileDialog& dialog, TForm& form) {
    dialog.setObjectName(ToQt(form.Name));
    form.ModalResult = dialog.exec() == QDialog::Accepted ? mrOk : mrCancel;
    return form.ModalResult == mrOk;
}

std::vector<std::string> Chosen(const QFileDialog& dialog) {
    std::vector<std::string> files;
    for (const QString& file : dialog.selectedFiles())
        files.push_back(FromQt(QDir::toNativeSeparators(file)));
    return files;
}

/// "mlb" for "Binary files (*.mlb *.x)"; otherwise where the filter takes any file.
QString SuffixOf(const QString& filter, const QString& otherwise) {
    const qsizetype mask = filter.lastIndexOf("(*.");
    if (mask < 0) return otherwise;
    const QString suffix = filter.mid(mask + 3);
    return suffix.left(suffix.indexOf(suffix.contains(' ') ? ' ' : ')'));
}

/// A name without an extension gets the default one, or that of the filter which a person has chosen.
void ExecuteFiles(QFileDialog& dialog, TFileDialog& form) {
    const auto follow = [&] {
        dialog.setDefaultSuffix(SuffixOf(dialog.selectedNameFilter(), ToQt(form.DefaultExt)));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    dialog.setNameFilters(FiltersOf(form.Filter));
    dialog.setDefaultSuffix(ToQt(form.DefaultExt));
    Propose(dialog, form);
    if (form.FilterIndex != 1) follow();
    if (!Execute(dialog, form)) return;
    form.Files = Chosen(dialog);
    form.FilterIndex = static_cast<int>(dialog.nameFilters().indexOf(dialog.selectedNameFilter())) + 1;
}

void Show(TOpenDialog& form, QFileDialog& dialog) {
    const auto existing = form.AllowMultiSelect ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
    dialog.setFileMode(form.FileMustExist ? existing : QFileDialog::AnyFile);
    ExecuteFiles(dialog, form);
}

void Show(TSaveDialog& form, QFileDialog& dialog) {
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !form.OverwritePrompt);
    ExecuteFiles(dialog, form);
}

void Show(TSelectDirectory& form, QFileDialog& dialog) {
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (!form.Folder.empty()) dialog.setDirectory(ToQt(form.Folder));
    if (Execute(dialog, form)) form.Folder = Chosen(dialog).front();
}

template <typename Form>
bool ShowAs(TForm& form, const QString& startFolder, QWidget* parent) {
    auto* own = dynamic_cast<Form*>(&form);
    if (own == nullptr) return false;
    QFileDialog dialog(parent, ToQt(form.Caption), startFolder);
    Show(*own, dialog);
    return true;
}

}  // namespace

bool ShowFileDialog(TForm& form, const QString& startFolder, QWidget* parent) {
    return ShowAs<TOpenDialog>(form, startFolder, parent) || ShowAs<TSaveDialog>(form, startFolder, parent) ||
           ShowAs<TSelectDirectory>(form, startFolder, parent);
}

}  // namespace tml
