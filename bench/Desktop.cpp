// bench-desktop open PROJECT: opens it in the workbench with its list of forms.
// bench-desktop review ROWS: opens the review with so many rows and works on all of them.
// bench-desktop translate PROJECT: opens the translation editor on all its forms and works in it.
// bench-desktop plain ROWS: the same texts in the toolkit's own table, which does nothing with them.
// Prints the seconds of processor time for each step: opening, paging to the end and, for rows, sorting by
// text, selecting all, filtering by a text and showing all again; for translations, behind paging: going to
// the last text, looking for a text, showing all again and typing one.
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <ctime>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

#include "desktop/Mainwindow.h"
#include "desktop/Resources.h"
#include "desktop/Texts.h"
#include "expert/Mllangexp.h"
#include "expert/Mlmainform.h"
#include "scan/Found.h"

namespace tml::bench {
namespace {

constexpr int kPages = 200;
constexpr int kTextColumn = 2;

class TWatch {
  public:
    double Seconds() const { return static_cast<double>(std::clock() - start_) / CLOCKS_PER_SEC; }

  private:
    std::clock_t start_ = std::clock();
};

TmlFoundSourceStrings Rows(int count) {
    TmlFoundSourceStrings rows;
    for (int i = 0; i < count; ++i) {
        TmlFoundSourceString& row = rows.AddItem();
        row.StrID = "IDS_" + std::to_string(i);
        row.StrContent = "text number " + std::to_string(i);
        row.Replacement = "mlLang1.GetTextOrDefault('" + row.StrID + "' (* '" + row.StrContent + "' *) )";
        row.Line = i;
        row.Position = i * 10 + 1;
        row.SpanLength = 3;
    }
    return rows;
}

void PageThrough(QAbstractItemView& table) {
    QScrollBar& bar = *table.verticalScrollBar();
    for (int page = 0; page <= kPages; ++page) {
        bar.setValue(static_cast<int>(static_cast<long long>(bar.maximum()) * page / kPages));
        table.viewport()->repaint();
    }
}

/// Prints the seconds of a step, and of the drawing of what it changed.
void Measure(QTableView& table, const std::function<void()>& step) {
    const TWatch watch;
    step();
    QApplication::processEvents();
    table.viewport()->repaint();
    std::cout << " " << watch.Seconds();
}

void MeasureRows(QTableView& table, const std::function<void(const QString&)>& filter) {
    Measure(table, [&] { PageThrough(table); });
    Measure(table, [&] { table.sortByColumn(kTextColumn, Qt::DescendingOrder); });
    Measure(table, [&] { table.selectAll(); });
    Measure(table, [&] { filter("R 1999"); });
    Measure(table, [&] { filter({}); });
}

/// Calls back once a modal window in front of another one has drawn itself.
void WhenModal(QObject& owner, const QWidget* behind, std::function<void(QWidget&)> work) {
    QTimer::singleShot(0, &owner, [&owner, behind, work = std::move(work)]() mutable {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || modal == behind || !modal->isVisible() ||
            qobject_cast<QProgressDialog*>(modal) != nullptr)
            return WhenModal(owner, behind, std::move(work));
        QApplication::processEvents();  // it is laid out
        modal->repaint();
        work(*modal);
    });
}

void OpenProject(TMainWindow& window, const QString& project) {
    const TWatch watch;
    window.OpenProject(project);
    QApplication::processEvents();
    std::cout << watch.Seconds();
    auto& table = *window.findChild<QTableView*>("lvFormNames");
    Measure(table, [&] { PageThrough(table); });
}

void Review(TMainWindow& window, int count) {
    TContext& context = window.Host().Expert()->Context();
    TFoundInput input;
    input.FileName = "Large.pas";
    input.Source = std::make_shared<std::string>([count] {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "f('x');  \r\n";
        return text;
    }());
    input.Style.Language = &LanguageOf(input.FileName);
    input.Found = Rows(count);
    const TWatch watch;
    TScanMemory memory;
    TfrmFound form(context, memory, std::move(input));
    WhenModal(window, nullptr, [&](QWidget& review) {
        std::cout << watch.Seconds();
        MeasureRows(*review.findChild<QTableView*>("sgStrings"),
                    [&](const QString& text) { review.findChild<QLineEdit*>("filter")->setText(text); });
        WhenModal(window, &review,
                  [](QWidget& question) { dynamic_cast<QMessageBox&>(question).defaultButton()->click(); });
        review.close();
    });
    context.Dialogs().ShowModal(form);
}

void Search(QLineEdit& search, const char* text) {
    search.setText(text);
    emit search.returnPressed();
}

void Translate(TMainWindow& window, const QString& project) {
    window.OpenProject(project);
    QApplication::processEvents();
    window.findChild<QTableView*>("lvFormNames")->selectAll();
    const TWatch watch;
    WhenModal(window, nullptr, [&](QWidget& editor) {
        std::cout << watch.Seconds();
        auto& cells = *editor.findChild<QTableView*>("grTexts");
        auto& search = *editor.findChild<QLineEdit*>("filter");
        const QAbstractItemModel& rows = *cells.model();
        const QModelIndex last = rows.index(rows.rowCount() - 1, rows.columnCount() - 1);
        Measure(cells, [&] { PageThrough(cells); });
        Measure(cells, [&] { cells.setCurrentIndex(last); });
        Measure(cells, [&] { Search(search, "text 99"); });
        Measure(cells, [&] { Search(search, ""); });
        Measure(cells, [&] { cells.model()->setData(last, "Typed", Qt::EditRole); });
        WhenModal(window, &editor,
                  [](QWidget& question) { dynamic_cast<QMessageBox&>(question).defaultButton()->click(); });
        editor.close();
    });
    TfrmmlLang& expert = *window.Host().ExpertWindow();
    window.Runner().Run([&] { expert.Run("Translate"); });
}

void HideOthers(QTableWidget& table, const QString& text) {
    for (int row = 0; row < table.rowCount(); ++row) {
        bool contained = false;
        for (int column = 0; column < table.columnCount() && !contained; ++column)
            contained = table.item(row, column)->text().contains(text, Qt::CaseInsensitive);
        table.setRowHidden(row, !contained);
    }
}

void PlainTable(int count) {
    const TmlFoundSourceStrings rows = Rows(count);
    const TWatch watch;
    QDialog window;
    window.resize(960, 620);
    QTableWidget table(count, 4, &window);
    table.resize(window.size());
    int line = 0;
    for (const TmlFoundSourceString& row : rows) {
        const std::string cells[] = {std::to_string(row.Line + 1), row.StrID, row.StrContent,
                                     row.Replacement};
        for (int column = 0; column < 4; ++column)
            table.setItem(line, column, new QTableWidgetItem(ToQt(cells[column])));
        ++line;
    }
    window.show();
    QApplication::processEvents();
    window.repaint();
    std::cout << watch.Seconds();
    MeasureRows(table, [&](const QString& text) { HideOthers(table, text); });
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const std::string what = argc == 3 ? argv[1] : "";
    try {
        if (what == "plain") {
            tml::bench::PlainTable(std::stoi(argv[2]));
            return 0;
        }
        ::LoadResources();
        const QTemporaryDir settings;
        tml::TMainWindow window(
            tml::TDeskFolders{tml::FromQt(settings.path()), tml::FromQt(QApplication::applicationDirPath())});
        window.resize(1280, 820);
        window.show();
        QApplication::processEvents();
        if (what == "open") {
            tml::bench::OpenProject(window, argv[2]);
            return 0;
        }
        if (what == "translate") {
            tml::bench::Translate(window, argv[2]);
            return 0;
        }
        if (what == "review") {
            tml::bench::Review(window, std::stoi(argv[2]));
            return 0;
        }
        std::cerr << "bench-desktop open PROJECT | translate PROJECT | review ROWS | plain ROWS\n";
    } catch (const std::exception& error) {
        std::cerr << "bench-desktop: " << error.what() << "\n";
    }
    return 2;
}
