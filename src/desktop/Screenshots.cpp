#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>

#include "desktop/Editortabs.h"
#include "desktop/Help.h"
#include "desktop/Mainwindow.h"
#include "desktop/Resources.h"
#include "desktop/Texts.h"
#include "desktop/Theme.h"
#include "editors/Mllangcomboeditor.h"
#include "expert/Mllangexp.h"
#include "expert/Mlmainform.h"
#include "platform/Projectoptions.h"
#include "scan/Dntcedit.h"
#include "translations/Projmngsaskfilename.h"
#include "windows/Stringlisteditor.h"

// Takes a picture of every window on a copy of a sample project, without a screen.
namespace tml {
namespace {

constexpr int kSettle = 60;  ///< ms that a window gets to draw itself

/// What the dictionary has for texts of the form that is translated otherwise.
constexpr std::pair<const char*, const char*> kOtherWords[] = {
    {"%d ships, %d tons in port", "%d Schiffe mit %d Tonnen im Hafen"},
    {"&Language", "&Sprache w\u00e4hlen"},
    {"&Save the log...", "Protokoll &sichern..."},
    {"The log is in %s.", "Das Protokoll liegt in %s."},
    {"Ship", "Seeschiff"},
    {"Berth 1", "Anleger 1"},
};

/// Pictures of one theme.
class TPictures {
  public:
    TPictures(const std::string& sample, QString folder, QString theme)
        : folder_(std::move(folder)), theme_(std::move(theme)) {
        const auto recursive = std::filesystem::copy_options::recursive;
        std::filesystem::remove_all(work_);
        std::filesystem::create_directory(work_);
        std::filesystem::copy(sample, Path("orchard"), recursive);
        std::filesystem::copy(sample + "/../harbour", Path("harbour"), recursive);
        window_ = std::make_unique<TMainWindow>(
            TDeskFolders{Path("settings"), FromQt(QApplication::applicationDirPath())});
        window_->resize(1280, 820);
        window_->show();
        window_->OpenProject(ToQt(Path("orchard/Orchard.dproj")));
        Watch();
    }
    ~TPictures() {
        window_.reset();
        std::filesystem::remove_all(work_);
    }

    void TakeAll();
    void TakeChoosers();

  private:
    void TakeWorkbench();
    void TakeReview();
    void TakeRewritten();
    void TakeHelp();
    void TakeMessages();
    void TakeWizard();
    void TakeOptions();
    void TakeProjectSettings();
    void TakeExternalFiles();
    void TakeFormViews();
    void TakeDesigner();
    void TakeTranslations();
    void TakeIDs();
    void TakeTranslationFiles();
    void TakeExclusions();
    void TakeDictionary();
    std::string Path(const std::string& name) const { return work_ + "/" + name; }
    void Take(QWidget& window, const char* name) {
        Settle();
        window.grab().save(folder_ + "/" + name + "-" + theme_ + ".png");
    }
    /// Answers a question as it is proposed.
    static void Accept(QWidget& question) {
        QApplication::sendEvent(&question, new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
    }
    static void Answer(QWidget& question, const QString& caption) {
        for (QAbstractButton* button : dynamic_cast<QMessageBox&>(question).buttons())
            if (button->text().remove('&') == caption) return button->click();
    }
    /// Runs a command of the translation editor on a row and answers its question for an ID.
    void GiveID(QWidget& editor, int row, const char* command, const QString& id) {
        auto& table = *editor.findChild<QTableView*>("grTexts");
        table.setCurrentIndex(table.model()->index(row, 0));
        steps_.push_front([id](QWidget& question) {
            question.findChild<QLineEdit*>()->setText(id);
            Accept(question);
        });
        editor.findChild<QAction*>(command)->trigger();
    }
    static void Settle() {
        QEventLoop loop;
        QTimer::singleShot(kSettle, &loop, &QEventLoop::quit);
        loop.exec();
    }
    /// What is done with the modal windows that come, in this order; others are closed.
    void Watch() {
        QTimer::singleShot(kSettle, window_.get(), [this] {
            Watch();
            QPointer<QWidget> modal = QApplication::activeModalWidget();
            if (modal == nullptr || modal == seen_) return;
            if (qobject_cast<QProgressDialog*>(modal.get()) != nullptr) return;
            seen_ = modal;
            if (steps_.empty()) {
                modal->close();
                return;
            }
            const auto step = std::move(steps_.front());
            steps_.pop_front();
            step(*modal);
        });
    }
    void RunCommand(const char* name) {
        window_->Runner().Run([&] { window_->Host().ExpertWindow()->Run(name); });
    }
    void SelectForm(const QString& form) {
        auto& table = *window_->findChild<QTableView*>("lvFormNames");
        for (int row = 0; row < table.model()->rowCount(); ++row)
            if (table.model()->index(row, 0).data() == form) table.selectRow(row);
        Settle();
    }

    QString folder_;
    QString theme_;
    /// Of one name: a picture that shows a path is the same as the one that was taken before.
    const std::string work_ = FromQt(QDir::tempPath()) + "/tmllang-screenshots";
    std::unique_ptr<TMainWindow> window_;
    std::deque<std::function<void(QWidget&)>> steps_;
    QPointer<QWidget> seen_;
};

void TPictures::TakeChoosers() {
    steps_.push_back([this](QWidget& units) {
        units.findChild<QListWidget*>("lbUnits")->setCurrentRow(3);
        units.findChild<QComboBox*>("cbForm")->setCurrentText("MainForm");
        Take(units, "units");
        units.close();
    });
    RunCommand("SourceWithoutForm");
    steps_.push_back([this](QWidget& chooser) {
        chooser.findChild<QListWidget*>("lbComps")->setCurrentRow(1);
        Take(chooser, "chooser");
        chooser.close();
    });
    TfrmNotTranslate names(*window_->Host().Host().Registry,
                           TStringList({"CloseButton", "DateEdit", "HintPanel", "OrderGrid", "StatusBar"}),
                           TStringList({"LogMemo"}));
    window_->Host().Host().Dialogs->ShowModal(names);
}

/// Nothing is changed: the plan is looked at, and the window closed.
void TPictures::TakeWizard() {
    steps_.push_back([this](QWidget& wizard) {
        const auto press = [&](const char* button) {
            wizard.findChild<QAbstractButton*>(button)->click();
            Settle();
        };
        wizard.findChild<QTableView*>("sgForms")->selectRow(1);
        Take(wizard, "wizard-forms");
        press("btNext");
        press("btNext");
        press("btNext");
        wizard.findChild<QComboBox*>("cbDispatcher")->setCurrentText("OrchardData");
        press("btNext");
        wizard.findChild<QPlainTextEdit*>("memExcludedProperties")->setPlainText("TEdit\nTMemo.Lines");
        wizard.findChild<QPlainTextEdit*>("memSmartExcludeProps")->setPlainText("Number");
        Take(wizard, "wizard-exclusions");
        press("btNext");
        press("ckbStrings");
        press("btScan");
        wizard.findChild<QTableView*>("sgStrings")->selectRow(4);
        Take(wizard, "wizard-strings");
        press("btNext");
        wizard.findChild<QTableView*>("sgPlan")->selectRow(2);
        Take(wizard, "wizard");
        press("btShowChange");
        Take(wizard, "wizard-change");
        wizard.close();
    });
    RunCommand("Wizards");
}

void TPictures::TakeOptions() {
    TExpertSettings& settings = window_->Host().Expert()->Settings();
    settings.SetDefaultLangNames("English\r\nGerman\r\nFrench\r\nGreek\r\n");
    settings.SetSkipLines(TStringList({"RegisterClass", "LoadCursor"}));
    settings.SetSkipWords(TStringList({"%d", "%s", "MS Sans Serif"}));
    steps_.push_back([this](QWidget& dialog) {
        dialog.findChild<QListWidget*>("lbLanguages")->item(1)->setSelected(true);
        for (const char* name : {"options-general", "options-source", "options-exclude"}) {
            Take(dialog, name);
            auto& pages = *dialog.findChild<QTabWidget*>();
            pages.setCurrentIndex((pages.currentIndex() + 1) % pages.count());
        }
        dialog.close();
    });
    RunCommand("Options");
}

void TPictures::TakeProjectSettings() {
    const std::string dictionary = "Orchard.dix";
    std::ofstream(dictionary) << "<HEAD>\n<LANGUAGE>English</LANGUAGE>\n</HEAD>\n";
    const auto settings = window_->Host().Host().Runtime->mlLangProjectSettings;
    settings->SetOptionValue("DefaultDictionary", dictionary);
    settings->SetOptionValue("DictionaryBaseLanguage", std::string("German"));
    settings->SetOptionValue("DefaultFormForUnits", std::string("MainForm"));
    steps_.push_back([this](QWidget& dialog) {
        Take(dialog, "projectsettings-dictionary");
        dialog.findChild<QAbstractButton*>("sbProject")->click();
        Take(dialog, "projectsettings-project");
        dialog.close();
    });
    RunCommand("ProjectSettings");
}

void TPictures::TakeExternalFiles() {
    TfrmmlLang& expert = *window_->Host().ExpertWindow();
    for (const char* unit : {"library/Baskets.pas", "library/Scales.pas"}) {
        std::filesystem::create_directory(Path("library"));
        std::ofstream(Path(unit)) << "unit " << std::filesystem::path(unit).stem().string()
                                  << ";\n\ninterface\n\nimplementation\n\nend.\n";
        window_->Runner().Run([&] { expert.AddExternalFile(Path(unit)); });
    }
    window_->Runner().Run([&] { expert.pcFormsListChange(TFormsPage::ExternalFiles); });
    auto& table = *window_->findChild<QTableView*>("lvExternalFiles");
    table.selectRow(0);
    Take(*window_, "externalfiles");
    window_->Runner().Run([&] { expert.pcFormsListChange(TFormsPage::ProjectForms); });
}

void TPictures::TakeFormViews() {
    window_->OpenProject(ToQt(Path("harbour/Harbour.lpi")));
    const auto show = [this](const char* unit) {
        window_->Runner().Run([&] { window_->Tabs().ShowForm(Path(unit)); });
    };
    show("harbour/forms/Shipwindow.pas");
    Take(*window_, "formview");
    show("harbour/forms/Mainwindow.pas");
    for (const char* language : {"german", "hebrew"}) {
        auto& languages = *window_->Tabs().currentWidget()->findChild<QComboBox*>("formLanguages");
        languages.setCurrentIndex(languages.currentIndex() + 1);
        Take(*window_, (std::string("formview-") + language).c_str());
    }
    show("harbour/forms/Portmodule.pas");
    Take(*window_, "formview-module");
}

void TPictures::TakeDesigner() {
    window_->Runner().Run([&] { window_->Tabs().ShowForm(Path("harbour/forms/Shipwindow.pas")); });
    auto& tree = *window_->Tabs().currentWidget()->findChild<QTreeWidget*>("componentTree");
    tree.setCurrentItem(tree.findItems("edtTons", Qt::MatchExactly | Qt::MatchRecursive).first());
    Take(*window_, "designer");
    steps_.push_back([this](QWidget& dialog) {
        Take(dialog, "langcombo");
        dialog.close();
    });
    TfrmMlLangComboEditor combo({{"English", {}, {}, {}, 0},
                                 {"German", "Deutsch", "Noto Sans", "DEFAULT_CHARSET", 1},
                                 {"Hebrew", {}, {}, {}, -1}});
    combo.lbLanguagesClick(1);
    window_->Host().Host().Dialogs->ShowModal(combo);
    steps_.push_back([this](QWidget& dialog) {
        Take(dialog, "stringlist");
        dialog.close();
    });
    TfrmStringList lines("lstServices.Items", TStringList({"Pilot", "Tug", "Fresh water", "Fuel"}));
    window_->Host().Host().Dialogs->ShowModal(lines);
}

/// What the forms have teaches a dictionary, which fills them with what is changed in it.
void TPictures::TakeDictionary() {
    steps_.push_back([this](QWidget& dictionary) {
        auto& table = *dictionary.findChild<QTableView*>("grEntries");
        dictionary.findChild<QAction*>("acLearn")->trigger();
        for (const auto& [text, translation] : kOtherWords)
            for (int row = 0; row < table.model()->rowCount(); ++row)
                if (table.model()->index(row, 0).data() == QString(text))
                    table.model()->setData(table.model()->index(row, 1), translation, Qt::EditRole);
        table.setCurrentIndex(table.model()->index(6, 1));
        Take(dictionary, "dictionary");
        steps_.push_back([this](QWidget& fill) {
            fill.findChild<QAbstractButton*>("ckbOverwriteExisting")->click();
            fill.findChild<QTableView*>("grFills")->selectRow(2);
            fill.findChild<QAction*>("acLeaveOut")->trigger();
            Take(fill, "filldictionary");
            fill.close();
        });
        dictionary.findChild<QAction*>("acFill")->trigger();
        steps_.push_back([](QWidget& question) { Answer(question, "No"); });
        dictionary.close();
    });
    RunCommand("Dictionary");
}

void TPictures::TakeTranslations() {
    SelectForm("MainForm");
    steps_.push_back([this](QWidget& editor) {
        auto& table = *editor.findChild<QTableView*>("grTexts");
        const auto set = [&](int row, int column, const char* text) {
            table.model()->setData(table.model()->index(row, column), text, Qt::EditRole);
        };
        set(2, 1, "&Log of the day");
        set(4, 1, "&New ship...");
        set(6, 1, "&quit");
        set(8, 3, "");
        table.setCurrentIndex(table.model()->index(2, 3));
        editor.resize(1280, 820);
        Take(editor, "translations");
        steps_.push_back([](QWidget& question) { Answer(question, "Yes"); });
        editor.close();
    });
    RunCommand("Translate");
    steps_.push_back([this](QWidget& find) {
        find.findChild<QLineEdit*>("edFindText")->insert("Hafen");
        Take(find, "find");
        find.findChild<QAbstractButton*>("btOK")->click();
    });
    RunCommand("FindPhrase");
    auto& found = *window_->findChild<QDialog*>("frmFoundPhrases");
    Take(found, "phrases");
    found.close();
    TakeDictionary();
}

void TPictures::TakeIDs() {
    steps_.push_back([this](QWidget& editor) {
        auto& filter = *editor.findChild<QLineEdit*>("filter");
        filter.setText("IDS_");
        Accept(filter);
        steps_.push_back([this](QWidget& units) {
            units.findChild<QAbstractButton*>("btAddAll")->click();
            Take(units, "replacement");
            seen_ = nullptr;  // it comes again, with the lines
            units.findChild<QAbstractButton*>("btReplace")->click();
        });
        steps_.push_back([this](QWidget& lines) {
            Take(lines, "replacement-lines");
            lines.close();
        });
        GiveID(editor, 0, "acRenameID", "IDS_SHIPS");
        GiveID(editor, 0, "acAddID", "IDS_TOMORROW");
        editor.findChild<QAbstractButton*>("btnOK")->click();
    });
    RunCommand("Translate");
    RunCommand("CheckBadIDs");
    auto& bad = *window_->findChild<QDialog*>("frmBadIDs");
    Take(bad, "badids");
    bad.close();
    steps_.push_back([this](QWidget& replace) {
        replace.findChild<QLineEdit*>("edFindText")->insert("Hafen");
        replace.findChild<QLineEdit*>("edReplace")->insert("Port");
        replace.findChild<QAbstractButton*>("ckbDoPrompt")->click();
        Take(replace, "replace");
        replace.findChild<QAbstractButton*>("btOK")->click();
    });
    steps_.push_back([this](QWidget& confirm) {
        Take(confirm, "replace-confirm");
        confirm.close();
    });
    RunCommand("ReplacePhrase");
}

void TPictures::TakeExclusions() {
    steps_.push_back([this](QWidget& dialog) {
        auto& tree = *dialog.findChild<QTreeView*>("tree");
        const auto row = [&](int place, const QModelIndex& parent) {
            const QModelIndex index = tree.model()->index(place, 0, parent);
            tree.expand(index);
            return index;
        };
        const auto exclude = [&](const QModelIndex& index) {
            tree.model()->setData(index, Qt::Checked, Qt::CheckStateRole);
        };
        const QModelIndex form = row(0, {});
        const QModelIndex labels = row(0, form);
        exclude(row(0, row(1, form)));
        exclude(row(0, row(2, form)));
        dialog.findChild<QAbstractButton*>("smartIdentifier")->click();
        tree.setCurrentIndex(row(0, row(0, labels)));
        Take(dialog, "exclude");
        dialog.close();
    });
    RunCommand("Exclude");
}

void TPictures::TakeTranslationFiles() {
    TExpertSettings& settings = window_->Host().Expert()->Settings();
    settings.SetMultiProjFolder("translations");
    settings.SetMultiProjUseTemplate(true);
    steps_.push_back([this](QWidget& dialog) {
        Take(dialog, "filename");
        dialog.close();
    });
    TfrmAsk4FileName names(window_->Host().Expert()->Context(), true);
    window_->Host().Host().Dialogs->ShowModal(names);
    steps_.push_back([this](QWidget& chooser) {
        for (const char* kind : {"Captions", "Hints"}) {
            auto& kinds = *chooser.findChild<QListWidget*>("lbComps");
            kinds.setCurrentItem(kinds.findItems(kind, Qt::MatchExactly).first());
            chooser.findChild<QAbstractButton*>("btAdd")->click();
        }
        Take(chooser, "properties");
        chooser.close();
    });
    RunCommand("SaveProjectProperties");
}

void TPictures::TakeWorkbench() {
    SelectForm("MainForm");
    window_->Runner().Run([this] { window_->GoTo(Path("orchard/Main.pas"), 30); });
    Take(*window_, "workbench");
    steps_.push_back([this](QWidget& dialog) {
        Take(dialog, "languages");
        dialog.close();
    });
    RunCommand("Languages");
}

/// The replace is confirmed.
void TPictures::TakeReview() {
    steps_.push_back([this](QWidget& review) {
        auto& table = *review.findChild<QTableView*>("sgStrings");
        table.setCurrentIndex(table.model()->index(4, 1));
        table.selectionModel()->select(table.model()->index(2, 1),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
        Take(review, "review");
        steps_.push_back([this](QWidget& skipped) {
            skipped.findChild<QTableView*>("lvStrings")->selectRow(1);
            Take(skipped, "skipped");
            skipped.close();
        });
        review.findChild<QAction*>("acViewSkipped")->trigger();
        review.findChild<QAction*>("acShowChange")->trigger();
        Take(review, "change");
        review.findChild<QAction*>("acRemoveSelection")->trigger();
        steps_.push_back([this](QWidget& question) {
            Take(question, "question");
            Accept(question);
        });
        steps_.push_back([](QWidget& message) { message.close(); });
        review.findChild<QAction*>("ModifySource")->trigger();
    });
    SelectForm("MainForm");
    RunCommand("SourceWithForm");
}

void TPictures::TakeRewritten() {
    window_->Runner().Run([this] { window_->GoTo(Path("orchard/Main.pas"), 78); });
    Take(*window_, "rewritten");
    window_->Runner().Run([this] { window_->Tabs().ShowForm(Path("orchard/Main.pas")); });
    window_->findChild<QAction*>("showText")->trigger();
    Take(*window_, "formtext");
}

void TPictures::TakeHelp() {
    window_->HelpContents();
    auto& help = *window_->findChild<THelp*>("help");
    Take(help, "help");
    help.close();
}

void TPictures::TakeMessages() {
    window_->SaveAll();
    std::filesystem::remove(Path("orchard/units/Pricing.pas"));
    window_->ReloadProject();
    window_->Runner().Run([this] { window_->GoTo(Path("orchard/forms/About.pas"), 1); });
    window_->Find();
    Take(*window_, "messages");
    auto& find = *window_->findChild<QWidget*>("Findbar");
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&find, &escape);
}

/// In this order: what is changed for one picture is seen in those behind it.
void TPictures::TakeAll() {
    TakeWorkbench();
    TakeWizard();
    TakeChoosers();
    TakeReview();
    TakeRewritten();
    TakeOptions();
    TakeProjectSettings();
    TakeExternalFiles();
    TakeTranslationFiles();
    TakeHelp();
    TakeMessages();
    TakeFormViews();
    TakeDesigner();
    TakeTranslations();
    TakeIDs();
    TakeExclusions();
}

}  // namespace
}  // namespace tml

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    LoadResources();
    if (argc != 3) {
        std::cerr << "Usage: tmllang-screenshots SAMPLE FOLDER\n";
        return 2;
    }
    // The pictures are taken in the folder of the copy.
    const std::string sample = std::filesystem::absolute(argv[1]);
    const QString folder = QDir(argv[2]).absolutePath();
    for (const bool dark : {false, true}) {
        tml::SetTheme(application, dark ? tml::TTheme::Dark : tml::TTheme::Light);
        tml::TPictures(sample, folder, dark ? "dark" : "light").TakeAll();
    }
    return 0;
}
