// Draws properties from form files for a reader to judge whether the data on texts is right: as many that are
// entered in tables as ones that are left out. Prints, a property a line with tabs between: "in" or "out",
// the table, file, class, name, path and value. Forms of the same content count once.
//
// usage: bench-texts COUNT SEED FOLDER
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "Inputfiles.h"
#include "base/Errors.h"
#include "forms/Formtree.h"
#include "tables/Propertytexts.h"
#include "tables/Textrules.h"

namespace tml {
namespace {

struct TDrawn {
    std::vector<std::string> In;
    std::vector<std::string> Out;
};

std::string OneLine(std::string text) {
    for (std::size_t pos = 0; (pos = text.find_first_of("\t\r\n", pos)) != std::string::npos; pos += 3)
        text.replace(pos, 1, " | ");
    return text;
}

void Sort(const std::string& file, const TFormNode& node, TDrawn& drawn) {
    for (const TPropertyText& text : TextsOfProperties(node.Properties())) {
        // Fonts are settings, which nobody reads as texts.
        if (text.Shape == TTextShape::Font || text.Shape == TTextShape::CharSet) continue;
        const bool isList = text.Shape == TTextShape::List;
        const auto kind = KindOfText({node.ClassName(), node.Name(), text.Path, isList}, text.Text);
        const bool isIn = kind && kind->IsForReaders;
        (isIn ? drawn.In : drawn.Out)
            .push_back((isIn ? "in\t" + std::string(KindOf(kind->Table).Property) : "out\t-") + "\t" + file +
                       "\t" + node.ClassName() + "\t" + node.Name() + "\t" + text.Path + "\t" +
                       OneLine(text.Text));
    }
    for (const auto& child : node.Children())
        Sort(file, *child, drawn);
}

void Print(std::vector<std::string> lines, std::size_t count, unsigned seed) {
    std::shuffle(lines.begin(), lines.end(), std::mt19937(seed));
    lines.resize(std::min(count, lines.size()));
    for (const std::string& line : lines)
        std::cout << line << "\n";
}

void Draw(std::size_t count, unsigned seed, const std::string& folder) {
    TDrawn drawn;
    std::set<std::string> met;
    std::size_t forms = 0;
    for (const std::string& file : bench::FilesBelow(folder)) {
        std::string bytes;
        if (!file.ends_with(".lfm") && !file.ends_with(".dfm") && !file.ends_with(".fmx")) continue;
        bench::ReadInto(bytes, file);
        if (!met.insert(bytes).second) continue;
        try {
            Sort(file.substr(folder.size() + 1), TFormTree::Parse(bytes, file)->Root(), drawn);
            ++forms;
        } catch (const EBadInput& error) {
            std::cerr << error.what() << "\n";
        }
    }
    std::cerr << forms << " forms, " << drawn.In.size() << " entered, " << drawn.Out.size() << " left out\n";
    Print(drawn.In, count, seed);
    Print(drawn.Out, count, seed);
}

}  // namespace
}  // namespace tml

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: bench-texts COUNT SEED FOLDER\n";
        return 2;
    }
    tml::Draw(std::stoul(argv[1]), static_cast<unsigned>(std::stoul(argv[2])), argv[3]);
    return 0;
}
