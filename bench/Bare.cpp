// bench-bare FOLDER: the whole of a program that runs the bare loop over every file of a folder.
#include <exception>
#include <iostream>

#include "Bareloop.h"
#include "Inputfiles.h"

int main(int argc, char** argv) {
    using namespace tml::bench;
    if (argc != 2) {
        std::cerr << "bench-bare FOLDER\n";
        return 2;
    }
    try {
        std::size_t count = 0;
        std::string text;
        for (const std::string& path : FilesBelow(argv[1])) {
            ReadInto(text, path);
            count += CountQuotedTexts(text);
        }
        std::cout << count << "\n";
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench-bare: " << error.what() << "\n";
        return 2;
    }
}
