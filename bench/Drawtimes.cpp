// bench-draw CONTROLS: draws a form with so many controls of many kinds, as the form view does at each
// change: lays it out and paints it. Prints the milliseconds of processor time, the median of nine drawings.
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <ctime>
#include <exception>
#include <iostream>
#include <string>

#include "forms/Formtree.h"
#include "picture/Formmeasure.h"
#include "picture/Formpicture.h"
#include "picture/Palettes.h"

namespace tml::bench {
namespace {

constexpr int kColumns = 20;

/// Controls side by side, a hundred on a page or panel.
std::string FormOf(int controls) {
    constexpr std::array kClasses = {"TLabel", "TButton", "TEdit", "TCheckBox", "TComboBox", "TRadioButton"};
    std::string text = "object Form1: TForm1\n  Width = 1900\n  Height = 1000\n";
    for (int i = 0; i < controls; ++i) {
        const std::string number = std::to_string(i);
        if (i % 100 == 0)
            text += std::string(i == 0 ? "" : "  end\n") + "  object Panel" + number +
                    ": TPanel\n    Align = alTop\n    Top = " + number + "\n    Height = 100\n";
        text +=
            "    object Control" + number + ": " + kClasses[static_cast<std::size_t>(i) % kClasses.size()] +
            "\n      Left = " + std::to_string(i % kColumns * 94) +
            "\n      Top = " + std::to_string(i % 100 / kColumns * 20) +
            "\n      Caption = 'Control number " + number + "'\n      Anchors = [akTop, akRight]\n    end\n";
    }
    return text + "  end\nend\n";
}

double MillisecondsOf(const TLayoutNode& form, const QPalette& palette) {
    const std::clock_t begin = std::clock();
    const TFormLayout layout = LayOutForm(form, TFormMeasure());
    DrawnForm(layout, palette, 1);
    return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

void Draw(int controls) {
    const auto tree = TFormTree::Parse(FormOf(controls), "Form1.lfm");
    const TLayoutNode form = LayoutNodeOf(tree->Root());
    std::array<double, 9> times{};
    for (double& time : times)
        time = MillisecondsOf(form, MakePalette(false));
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    std::cout << times[times.size() / 2] << "\n";
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    try {
        if (argc != 2) throw std::invalid_argument("bench-draw CONTROLS");
        tml::bench::Draw(std::stoi(argv[1]));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 2;
    }
}
