#include "desktop/Help.h"

#include <QApplication>
#include <QListWidget>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>
#include <array>
#include <string_view>

#include "desktop/Places.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

struct TPage {
    std::string_view Topic;  ///< name of the window, "" for pages on none
    const char* File;
    const char* Title;
};

constexpr std::array kPages{
    TPage{"", "workbench", "The workbench"},
    TPage{"frmmlLang", "forms", "Project forms"},
    TPage{"frmFound", "review", "Reviewing found strings"},
    TPage{"frmSkippedStrings", "skipped", "Skipped strings"},
    TPage{"frmOptions", "options", "Options"},
    TPage{"frmProjectTranslationSettings", "projectsettings", "Settings of a project"},
    TPage{"", "designer", "The form designer"},
    TPage{"frmMlLangComboEditor", "langcombo", "Languages of a combo"},
    TPage{"frmStringList", "stringlist", "Lines of text"},
    TPage{"frmTransEditor", "translationeditor", "Translation editor"},
    TPage{"frmStrReplace", "ids", "String IDs"},
    TPage{"frmFind", "phrases", "Phrases in the tables"},
    TPage{"frmDictionary", "dictionary", "Dictionary"},
    TPage{"frmAsk4FileName", "translationfiles", "Translation files"},
    TPage{"frmLangConfig", "languages", "Configuring languages"},
    TPage{"frmExclude", "exclusion", "Excluding from translation"},
    TPage{"frmNotTranslate", "chooser", "Choosing names"},
    TPage{"frmWizard", "wizard", "Translation wizard"},
    TPage{"frmTranslUnits", "units", "Choosing units"},
    TPage{"", "tags", "Tags in source"},
    TPage{"", "keys", "Keys"},
};

constexpr int kMargin = 16;
constexpr int kSpacing = 3;

}  // namespace

THelp::THelp(QWidget* parent) : QDialog(parent), contents_(new QListWidget), page_(new QTextBrowser) {
    setObjectName("help");
    setWindowTitle("TmlLang Expert Help");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(QSize(820, 560).boundedTo(RoomFor(*this)));
    auto* splitter = new QSplitter(this);
    splitter->addWidget(contents_);
    splitter->addWidget(page_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({200, 620});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    contents_->setSpacing(kSpacing);
    contents_->setFrameShape(QFrame::NoFrame);
    page_->setFrameShape(QFrame::NoFrame);
    page_->document()->setDocumentMargin(kMargin);
    page_->setSearchPaths({":/manual"});
    for (const TPage& page : kPages)
        contents_->addItem(page.Title);
    connect(contents_, &QListWidget::currentRowChanged, this,
            [this](int row) { GoTo(kPages.at(static_cast<std::size_t>(row)).File); });
    connect(page_, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) {
        for (std::size_t i = 0; i < kPages.size(); ++i)
            if (url.fileName() == QString(kPages[i].File) + ".md") contents_->setCurrentRow(int(i));
    });
}

void THelp::GoTo(const QString& page) {
    const QUrl url("qrc:/manual/" + page + ".md");
    if (page_->source() != url) page_->setSource(url, QTextDocument::MarkdownResource);
}

void THelp::ShowTopic(const std::string& topic) {
    int row = 0;
    for (std::size_t i = 0; i < kPages.size(); ++i)
        if (!topic.empty() && kPages[i].Topic == topic) row = static_cast<int>(i);
    contents_->setCurrentRow(row);
    // A modal window bars every other one but a modal one that comes after it.
    if (QWidget* modal = QApplication::activeModalWidget(); modal != this) {
        hide();
        setWindowModality(modal == nullptr ? Qt::NonModal : Qt::ApplicationModal);
    }
    show();
    raise();
    activateWindow();
}

}  // namespace tml
