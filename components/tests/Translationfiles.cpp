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
        target.Put(form, *source.Read(form));
}

void CopyFile(const std::string& sourceName, const std::string& targetName, const std::string& delimiter) {
    const auto source = OpenTranslationFile(TextOfFile(sourceName), sourceName);
    const auto target = OpenTranslationFile(TextOfFile(targetName), targetName, delimiter);
    CopyForms(*source, *target);
    std::ofstream(targetName, std::ios::binary) << target->Bytes();
}

struct TNamedFile {
    std::string Bytes;
    std::string Name;
};

/// What a file becomes when the forms of another one are put into it.
std::string Outcome(const TNamedFile& from, const TNamedFile& to) {
    try {
        const auto source = OpenTranslationFile(from.Bytes, from.Name);
        const auto target = OpenTranslationFile(to.Bytes, to.Name, to.Bytes.empty() ? "|" : "");
        CopyForms(*source, *target);
        return std::to_string(Crc32(target->Bytes()));
    } catch (const EBadInput& error) {
        return error.what();
    }
}

/// The damaged file on its way into a new one, and under the forms of the whole one.
void Tell(const std::string& what, const TNamedFile& whole, const std::string& bytes) {
    const TNamedFile damaged{bytes, whole.Name};
    std::cout << what << ": " << Outcome(damaged, {"", "new.mll"}) << '\n';
    std::cout << what << ", then saved: " << Outcome(whole, damaged) << '\n';
}

/// A binary file that is damaged so that its checksum does not tell.
std::string WithChecksum(std::string bytes) {
    const std::uint32_t checksum = Crc32(std::string_view(bytes).substr(14));
    for (std::size_t i = 0; i < 4; ++i)
        bytes[10 + i] = static_cast<char>(checksum >> (8 * i) & 0xFF);
    return bytes;
}

void Damage(const std::string& fileName) {
    const TNamedFile whole{TextOfFile(fileName), fileName};
    for (std::size_t i = 1; i <= whole.Bytes.size(); ++i) {
        const std::string number = std::to_string(i);
        Tell(number + " cut", whole, whole.Bytes.substr(0, i));
        std::string damaged = whole.Bytes;
        damaged[i - 1] = static_cast<char>(damaged[i - 1] ^ 1);
        Tell(number + " changed", whole, damaged);
        if (IsBinaryTranslation(fileName) && i > 14)
            Tell(number + " unnoticed", whole, WithChecksum(damaged));
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
