#include "cli/Formfilecommands.h"

#include <iostream>
#include <memory>

#include "base/Errors.h"
#include "cli/Terminal.h"
#include "forms/Formtree.h"

namespace tml {
namespace {

struct TFormFileOptions {
    std::string File;
    std::string CodePage;
};

using TConversion = std::string (TFormTree::*)() const;

void AddConversion(CLI::App* command, TProgram& program, TConversion conversion) {
    const auto options = std::make_shared<TFormFileOptions>();
    command->add_option("FILE", options->File, "A form file, text or binary")->required();
    command->add_option("--code-page", options->CodePage, "Windows code page of its strings, such as 1251");
    command->callback([&program, options, conversion] {
        program.Run = [options, conversion](TProgram& shared) {
            const auto tree =
                TFormTree::Parse(shared.Files->Read(options->File), options->File, options->CodePage);
            const std::string bytes = (tree.get()->*conversion)();
            if (conversion == &TFormTree::Binary && IsTerminal(TStream::Output))
                throw EBadInput("", 0, "a binary form file would be written to the terminal",
                                "Say > FILE behind the command");
            std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
            return static_cast<int>(kDone);
        };
    });
}

}  // namespace

void AddFormTextCommand(CLI::App& app, TProgram& program) {
    AddConversion(AddCommand(app, "form-text", "Write a form file as text to standard output",
                             "  tmllang form-text Main.dfm > Main.txt\n"
                             "  tmllang form-text Old.dfm --code-page 1251 | less"),
                  program, &TFormTree::Text);
}

void AddFormBinaryCommand(CLI::App& app, TProgram& program) {
    AddConversion(AddCommand(app, "form-binary", "Write a form file in binary form to standard output",
                             "  tmllang form-binary Main.txt > Main.dfm"),
                  program, &TFormTree::Binary);
}

}  // namespace tml
