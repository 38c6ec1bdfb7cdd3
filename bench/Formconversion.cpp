// bench-forms TEXTFORM BINARYFORM: converts a text form to binary and back through the form tree. Writes
// the binary form, and prints the processor time of each conversion in seconds, that of a second call.
#include <ctime>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "Inputfiles.h"
#include "forms/Formtree.h"

namespace tml::bench {
namespace {

std::string ToBinary(const std::string& text) {
    return TFormTree::Parse(text, "Form.dfm")->Binary();
}

std::string ToText(const std::string& binary) {
    return TFormTree::Parse(binary, "Form.dfm")->Text();
}

/// Prints the seconds of the second of two calls.
std::string Timed(std::string (*convert)(const std::string&), const std::string& input) {
    convert(input);
    const std::clock_t start = std::clock();
    std::string output = convert(input);
    std::cout << static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC << "\n";
    return output;
}

void Run(const std::string& textFile, const std::string& binaryFile) {
    std::string text;
    ReadInto(text, textFile);
    const std::string binary = Timed(ToBinary, text);
    const std::string back = Timed(ToText, binary);
    if (ToBinary(back) != binary) throw std::runtime_error(textFile + ": does not come back");
    std::ofstream file(binaryFile, std::ios::binary);
    file.write(binary.data(), static_cast<std::streamsize>(binary.size()));
    if (!file.flush()) throw std::runtime_error(binaryFile + ": cannot be written");
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "bench-forms TEXTFORM BINARYFORM\n";
        return 2;
    }
    try {
        tml::bench::Run(argv[1], argv[2]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench-forms: " << error.what() << "\n";
        return 2;
    }
}
