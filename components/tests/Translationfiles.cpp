// The same as Translationfiles.pas, with which it is compared:
// copy FROM TO [DELIMITER]  puts every form of one file into another, which may be new
// damage FILE               tells what becomes of every cut-off file and of every file with a changed byte
#include <fstream>
#include <iostream>
#include <iterator>

#include "base/Checksum.h"
#include "base/Errors.h"
#include "tables/Translationfile.h"

namespace tml {
namespace {

std::string TextOfFile(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void CopyForms(const ITranslationFile& source, ITranslationFile& target) {
    for (const TFormAddress& form : source.Forms())
        target.Put(*source.Read(form));
}

void CopyFile(const std::string& sourceName, const std::string& targetName, const std::string& delimiter) {
    const auto source = OpenTranslationFile(TextOfFile(sourceName), sourceName);
    const auto target = OpenTranslationFile(TextOfFile(targetName), targetName, delimiter);
    CopyForms(*source, *target);
    std::ofstream(targetName, std::ios::binary) << target->Bytes();
}

/// What the file becomes when its forms are put back, and when they are put into a new one.
std::string Outcome(const std::string& bytes, const std::string& fileName) {
    const auto target = OpenTranslationFile("", "new.mll", "|");
    try {
        const auto source = OpenTranslationFile(bytes, fileName);
        CopyForms(*source, *target);
        CopyForms(*source, *source);
        return std::to_string(Crc32(source->Bytes())) + ' ' + std::to_string(Crc32(target->Bytes()));
    } catch (const EBadInput& error) {
        return error.what();
    }
}

/// A binary file that is damaged so that its checksum does not tell.
std::string WithChecksum(std::string bytes) {
    const std::uint32_t checksum = Crc32(std::string_view(bytes).substr(14));
    for (std::size_t i = 0; i < 4; ++i)
        bytes[10 + i] = static_cast<char>(checksum >> (8 * i) & 0xFF);
    return bytes;
}

void Damage(const std::string& fileName) {
    const std::string whole = TextOfFile(fileName);
    for (std::size_t i = 1; i <= whole.size(); ++i) {
        std::cout << i << " cut: " << Outcome(whole.substr(0, i), fileName) << '\n';
        std::string damaged = whole;
        damaged[i - 1] = static_cast<char>(damaged[i - 1] ^ 1);
        std::cout << i << " changed: " << Outcome(damaged, fileName) << '\n';
        if (IsBinaryTranslation(fileName) && i > 14)
            std::cout << i << " unnoticed: " << Outcome(WithChecksum(damaged), fileName) << '\n';
    }
}

}  // namespace
}  // namespace tml

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.at(0) == "copy")
        tml::CopyFile(words.at(1), words.at(2), words.size() > 3 ? words[3] : "");
    else
        tml::Damage(words.at(1));
    return 0;
}
