// bench-desktop open PROJECT: opens it in the workbench with its list of forms.
// bench-desktop review ROWS: opens the review with so many rows and pages through them.
// bench-desktop plain ROWS: the same texts in the toolkit's own table, which does nothing with them.
// Prints the seconds of processor time for opening and, for rows, for paging to the end.
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
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
#include "scan/Found.h"

namespace tml::bench {
namespace {

constexpr int kPages = 200;

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

/// Seconds to page through a table, every page drawn.
double PageThrough(QAbstractItemView& table) {
    const TWatch watch;
    QScrollBar& bar = *table.verticalScrollBar();
    for (int page = 0; page <= kPages; ++page) {
        bar.setValue(static_cast<int>(static_cast<long long>(bar.maximum()) * page / kPages));
        table.viewport()->repaint();
    }
    return watch.Seconds();
}

/// Calls back once a modal window in front of another one has drawn itself.
void WhenModal(QObject& owner, const QWidget* behind, std::function<void(QWidget&)> work) {
    QTimer::singleShot(0, &owner, [&owner, behind, work = std::move(work)]() mutable {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || modal == behind || !modal->isVisible())
            return WhenModal(owner, behind, std::move(work));
        QApplication::processEvents();  // it is laid out
        modal->repaint();
        work(*modal);
    });
}

void Print(double opening, double paging) {
    std::cout << opening << " " << paging << "\n";
}

void OpenProject(TMainWindow& window, const QString& project) {
    const TWatch watch;
    window.OpenProject(project);
    QApplication::processEvents();
    const double opening = watch.Seconds();
    Print(opening, PageThrough(*window.findChild<QTableView*>("lvFormNames")));
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
    TfrmFound form(context, std::move(input));
    WhenModal(window, nullptr, [&](QWidget& review) {
        const double opening = watch.Seconds();
        Print(opening, PageThrough(*review.findChild<QTableView*>("sgStrings")));
        WhenModal(window, &review,
                  [](QWidget& question) { dynamic_cast<QMessageBox&>(question).defaultButton()->click(); });
        review.close();
    });
    context.Dialogs().ShowModal(form);
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
    const double opening = watch.Seconds();
    Print(opening, PageThrough(table));
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
        if (what == "review") {
            tml::bench::Review(window, std::stoi(argv[2]));
            return 0;
        }
        std::cerr << "bench-desktop open PROJECT | review ROWS | plain ROWS\n";
    } catch (const std::exception& error) {
        std::cerr << "bench-desktop: " << error.what() << "\n";
    }
    return 2;
}
