// tmllang-draw-form: draws a form, whose file comes on standard input with all that it inherits, as a PNG on
// standard output; "tmllang form-picture" starts it. No display is needed. Notes on the picture come on
// standard error, a line each, and what keeps it from being drawn, with exit code 2.
#include <QBuffer>
#include <QCommandLineParser>
#include <QGuiApplication>
#include <iostream>
#include <iterator>

#include "base/Binarystreams.h"
#include "base/Errors.h"
#include "forms/Formtree.h"
#include "picture/Formmeasure.h"
#include "picture/Formpicture.h"
#include "picture/Palettes.h"

namespace tml {
namespace {

QByteArray PngOf(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) throw EBadInput("", 0, "the picture of the form", kNoMemory);
    return bytes;
}

void Draw(const TLayoutNode& form, const TLayoutOptions& options, const QPalette& palette, double scale) {
    if (!HasFonts())
        throw EBadInput("", 0, "there are no fonts on this machine",
                        "Install some, such as the package fonts-dejavu-core");
    const TFormLayout layout = LayOutForm(form, TFormMeasure(), options);
    const QByteArray png = PngOf(DrawnForm(layout, palette, scale));
    for (const QString& note : NotesOf(layout))
        std::cerr << note.toStdString() << "\n";
    std::cout.write(png.data(), png.size()).flush();
}

void DrawInput(const QCommandLineParser& arguments) {
    const std::string bytes(std::istreambuf_iterator<char>(std::cin), {});
    const auto tree = TFormTree::Parse(bytes, "standard input");
    TLayoutOptions options;
    options.Look = arguments.isSet("vcl") ? TLayoutLook::Vcl : TLayoutLook::Lcl;
    Draw(LayoutNodeOf(tree->Root()), options, MakePalette(arguments.isSet("dark")),
         arguments.value("scale").toDouble());
}

/// What the toolkit has to say of the machine does not concern the picture, unless there is none.
void TellFatal(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << text.toStdString() << "\n";
}

}  // namespace
}  // namespace tml

int main(int argc, char** argv) {
    tml::MakeStreamsBinary();
    qInstallMessageHandler(tml::TellFatal);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCommandLineParser arguments;
    arguments.addOptions({{"vcl", "Lay the form out as the VCL does, and not as the LCL"},
                          {"dark", "Draw in dark colours"},
                          {"scale", "So many times as large", "FACTOR", "1"}});
    arguments.process(application);
    try {
        tml::DrawInput(arguments);
        return std::cout ? 0 : 2;
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 2;
    }
}
