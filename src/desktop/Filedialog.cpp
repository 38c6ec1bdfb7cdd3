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

/// With the filter that lets it be seen.
void Propose(QFileDialog& dialog, const QString& file) {
    const QStringList filters = dialog.nameFilters().filter("*." + QFileInfo(file).suffix() + ")");
    if (!filters.isEmpty()) dialog.selectNameFilter(filters.first());
    dialog.selectFile(file);
}

}  // namespace

TModalResult ShowFileDialog(TOpenDialog& form, const QString& startFolder, QWidget* parent) {
    QFileDialog dialog(parent, ToQt(form.Caption), startFolder);
    dialog.setObjectName(ToQt(form.Name));
    dialog.setFileMode(form.FileMustExist ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
    dialog.setNameFilters(FiltersOf(form.Filter));
    dialog.setDefaultSuffix(ToQt(form.DefaultExt));
    if (!form.Files.empty()) Propose(dialog, ToQt(form.Files.front()));
    form.ModalResult = dialog.exec() == QDialog::Accepted ? mrOk : mrCancel;
    if (form.ModalResult != mrOk) return form.ModalResult;
    form.Files.clear();
    for (const QString& file : dialog.selectedFiles())
        form.Files.push_back(FromQt(QDir::toNativeSeparators(file)));
    return form.ModalResult;
}

}  // namespace tml
