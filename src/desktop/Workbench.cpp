#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>
#include <iostream>

#include "desktop/Mainwindow.h"
#include "desktop/Resources.h"
#include "desktop/Texts.h"
#include "desktop/Theme.h"

namespace {

constexpr int kUsage = 2;

/// What the program prints and ends with needs no display.
void AnswerWithoutDisplay(int argc, char** argv, QCommandLineParser& arguments) {
    const QCoreApplication application(argc, argv);
    arguments.parse(QCoreApplication::arguments());
    if (arguments.isSet("help")) arguments.showHelp();
    if (arguments.isSet("version")) arguments.showVersion();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace tml;
    QCoreApplication::setApplicationName("tmllang-workbench");
    QCoreApplication::setApplicationVersion(TML_VERSION);

    QCommandLineParser arguments;
    arguments.setApplicationDescription("The TmlLang Expert in windows.");
    arguments.addHelpOption();
    arguments.addVersionOption();
    const QString settings =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/tmllang";
    const QCommandLineOption config("config", "Folder of the settings instead of the user's.", "DIR",
                                    settings);
    const QCommandLineOption theme("theme", "light, dark, or desktop (as the desktop is).", "NAME",
                                   "desktop");
    arguments.addOptions({config, theme});
    arguments.addPositionalArgument("PROJECT", "A project or a group of projects to open.", "[PROJECT]");
    AnswerWithoutDisplay(argc, argv, arguments);
    QApplication application(argc, argv);
    LoadResources();
    arguments.process(application);
    const QStringList projects = arguments.positionalArguments();
    if (projects.size() > 1) {
        std::cerr << "tmllang-workbench: " << FromQt(projects.at(1))
                  << " is one project too many; usage: tmllang-workbench [options] [PROJECT]\n";
        return kUsage;
    }

    const QString side = arguments.value(theme);
    SetTheme(application, side == "light" ? TTheme::Light : side == "dark" ? TTheme::Dark : TTheme::Desktop);
    const QString settingsFolder = QFileInfo(arguments.value(config)).absoluteFilePath();
    TMainWindow window({FromQt(settingsFolder), FromQt(QApplication::applicationDirPath())});
    window.show();
    if (!projects.isEmpty()) QTimer::singleShot(0, &window, [&] { window.OpenProject(projects.first()); });
    return QApplication::exec();
}
