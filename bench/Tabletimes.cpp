// bench-tables COUNT: prints the processor time in milliseconds in which a table of COUNT entries in three
// languages is read and written back as it is, and that in which it is read and every entry written anew.
#include <ctime>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tables/Table.h"

namespace tml::bench {
namespace {

constexpr std::string_view kDelimiter = "\x01";

TStringList MakeLines(int count) {
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        lines.push_back("IDS_" + number + "\x01The price of order " + number + "\x01" +
                        "Der Preis der Bestellung " + number + "\x01" + "Le prix de la commande " + number);
    }
    return TStringList(std::move(lines));
}

template <typename Change>
double Milliseconds(const TStringList& lines, Change change) {
    const std::clock_t begin = std::clock();
    TTable table(TStringsType::stStrings, lines, kDelimiter);
    change(table);
    if (table.Lines(kDelimiter).Count() != lines.Count()) throw std::logic_error("entries are lost");
    return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    using namespace tml;
    try {
        const TStringList lines = bench::MakeLines(std::stoi(argc == 2 ? argv[1] : ""));
        const auto keep = [](TTable&) {};
        const auto swap = [](TTable& table) { table.MoveLanguages({1, 3, 2}); };
        bench::Milliseconds(lines, swap);  // warms up
        std::cout << bench::Milliseconds(lines, keep) << " " << bench::Milliseconds(lines, swap) << "\n";
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench-tables: " << error.what() << "\n";
        return 2;
    }
}
