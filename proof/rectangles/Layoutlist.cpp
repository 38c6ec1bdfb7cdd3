// Writes down where the layout engine puts the controls of forms, as proof/rectangles/Layoutdump.pas does of
// a running program; in the place of the client area's "visible" stands the kind of the control.
//
// usage: tml-layout-dump forms LIST        each form file of a list of paths by itself
//        tml-layout-dump project PROJECT   each form of a project, with what it inherits and its frames
// Before each form "form", its file and the name of its unit, separated by tabs.
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QtMath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "base/Diskfiles.h"
#include "base/Errors.h"
#include "forms/Formtree.h"
#include "ide/Headlesside.h"
#include "layout/Formlayout.h"
#include "runtime/Formparts.h"
#include "runtime/Partnodes.h"
#include "runtime/Runtime.h"

namespace {

/// The fonts of the machine at 96 dots per inch, measured as the toolkit of the programs does: in whole
/// pixels a character and a pair.
class TQtMeasure : public tml::ITextMeasure {
  public:
    int Width(std::string_view line, const tml::TLayoutFont& font) const override {
        const QFontMetricsF& metrics = Metrics(font);
        int width = 0;
        QChar before;
        for (const QChar one : QString::fromUtf8(line.data(), static_cast<int>(line.size()))) {
            const double own = metrics.horizontalAdvance(one);
            width += qRound(own);
            if (!before.isNull())
                width += qRound(metrics.horizontalAdvance(QString(before) + one) -
                                metrics.horizontalAdvance(before) - own);
            before = one;
        }
        return width;
    }
    int LineHeight(const tml::TLayoutFont& font) const override {
        return qCeil(Metrics(font).ascent()) + qCeil(Metrics(font).descent());
    }

  private:
    static constexpr double kPoints = 10;

    const QFontMetricsF& Metrics(const tml::TLayoutFont& font) const {
        const std::string key = font.Name + '\t' + std::to_string(font.Height) + (font.Bold ? "b" : "") +
                                (font.Italic ? "i" : "");
        const auto known = metrics_.find(key);
        if (known != metrics_.end()) return known->second;
        QFont made("DejaVu Sans");
        if (!font.Name.empty()) made.setFamily(QString::fromStdString(font.Name));
        made.setPointSizeF(font.Height > 0 ? font.Height * 72.0 / 96 : kPoints);
        made.setHintingPreference(QFont::PreferNoHinting);
        made.setBold(font.Bold);
        made.setItalic(font.Italic);
        return metrics_.emplace(key, QFontMetricsF(made)).first->second;
    }

    mutable std::map<std::string, QFontMetricsF> metrics_;
};

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

/// The owners' names from the form on.
std::string PathOf(const tml::TFormLayout& layout, const tml::TLayoutItem& item) {
    if (item.Parent < 0) return {};
    std::string path = item.Node->Name;
    if (item.Item >= 0)
        path += (item.Kind == tml::TLayoutKind::RadioButton ? ".RadioButton" : ".CheckBox") +
                std::to_string(item.Item);
    for (int around = item.Parent; around > 0;
         around = layout.Items[static_cast<std::size_t>(around)].Parent) {
        const tml::TLayoutNode& node = *layout.Items[static_cast<std::size_t>(around)].Node;
        if (node.IsFrame) path = node.Name + '.' + path;
    }
    return path;
}

void Print(const tml::TFormLayout& layout) {
    for (const tml::TLayoutItem& item : layout.Items) {
        const auto& bounds = item.Bounds;
        std::cout << layout.Items.front().Node->ClassName << '\t' << PathOf(layout, item) << '\t'
                  << item.Node->ClassName << '\t' << bounds.Left << '\t' << bounds.Top << '\t' << bounds.Width
                  << '\t' << bounds.Height << '\t' << item.Client.Width << '\t' << item.Client.Height << '\t'
                  << (item.Visible ? "visible" : "hidden") << '\t' << (item.AutoSize ? "auto" : "fixed")
                  << '\t' << tml::NameOf(item.Kind) << '\n';
    }
    for (const std::string& note : layout.Notes)
        std::cout << "note\t" << note << '\n';
}

/// The programs of the list are not scaled, as the one that shows their forms is not.
void PrintForm(const std::string& path, const tml::ITextMeasure& texts) {
    std::cout << "form\t" << path << "\t\n";
    try {
        const auto tree = tml::TFormTree::Parse(ReadAll(path), path);
        const tml::TLayoutNode root = tml::LayoutNodeOf(tree->Root());
        tml::TLayoutOptions options;
        options.Scaled = false;
        Print(tml::LayOutForm(root, texts, options));
    } catch (const tml::EBadInput& error) {
        std::cout << "left out\t" << path << '\t' << error.what() << '\n';
    }
}

/// "Application.Scaled := True" stands in the main source of a program that is scaled.
bool IsScaled(const std::string& project) {
    for (const char* const extension : {".lpr", ".pas", ".pp"}) {
        const auto source = std::filesystem::path(project).replace_extension(extension);
        std::string text = ReadAll(source.string());
        std::erase_if(text, [](char c) { return c == ' '; });
        if (text.find("Application.Scaled:=True") != std::string::npos) return true;
    }
    return false;
}

void PrintModule(tml::IOTAModuleServices& modules, const tml::TOTAModuleInfo& info,
                 const tml::ITextMeasure& texts, const tml::TLayoutOptions& options) {
    const auto editor = modules.OpenModule(info.FileName, false)->GetFormEditor();
    if (editor == nullptr) return;
    std::cout << "form\t" << editor->GetFileName() << '\t'
              << std::filesystem::path(info.FileName).stem().string() << '\n';
    const tml::TFormParts parts(editor->GetRootComponent(), tml::TFormParts::TFrames::Whole);
    const tml::TLayoutNode root = tml::LayoutNodeOf(parts.Items());
    Print(tml::LayOutForm(root, texts, options));
}

void PrintProject(const std::string& path, const tml::ITextMeasure& texts) {
    const auto files = tml::MakeDiskFileSystem();
    const auto runtime = tml::MakeMlRuntime();
    tml::THeadlessIde ide(*files, *runtime);
    ide.OpenProject(path);
    tml::TLayoutOptions options;
    options.Scaled = IsScaled(path);
    tml::IOTAModuleServices& modules = *ide.GetModuleServices();
    const auto project = modules.GetActiveProject();
    for (int i = 0; i < project->GetModuleCount(); ++i)
        try {
            PrintModule(modules, project->GetModule(i), texts, options);
        } catch (const tml::EBadInput& error) {
            std::cout << "left out\t" << project->GetModule(i).FileName << '\t' << error.what() << '\n';
        }
}

int Run(const std::string& mode, const std::string& path, const tml::ITextMeasure& texts) {
    if (mode == "project") {
        PrintProject(path, texts);
    } else {
        std::ifstream list(path);
        for (std::string form; std::getline(list, form);)
            PrintForm(form, texts);
    }
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");
    QGuiApplication program(count, arguments);
    if (count != 3) {
        std::cerr << "usage: tml-layout-dump forms LIST | project PROJECT\n";
        return 2;
    }
    try {
        return Run(arguments[1], arguments[2], TQtMeasure());
    } catch (const tml::EBadInput& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
