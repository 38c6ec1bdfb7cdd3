#include "cli/Completioncommand.h"

#include <iostream>
#include <memory>

namespace tml {
namespace {

using TCommands = std::vector<const CLI::App*>;
using TOptions = std::vector<const CLI::Option*>;

TCommands CommandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

/// The options with a long name; each has one.
TOptions OptionsOf(const CLI::App& command) {
    return command.get_options([](const CLI::Option* option) { return !option->get_lnames().empty(); });
}

std::string NameOf(const CLI::Option& option) {
    return option.get_lnames().front();
}

bool TakesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

/// A text between apostrophes as all three shells read it; the signs are those that the place cannot hold.
std::string Quoted(const std::string& text, const std::string& signs = {}) {
    std::string quoted = "'";
    for (const char c : text)
        if (c == '\'')
            quoted += "'\\''";
        else if (signs.find(c) != std::string::npos)
            quoted += std::string("\\") + c;
        else
            quoted += c;
    return quoted + "'";
}

void PrintBash(const CLI::App& app) {
    std::string names;
    std::cout << "_tmllang() {\n"
                 "    local word=${COMP_WORDS[COMP_CWORD]} each options=\n"
                 "    for each in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
                 "        case $each in\n";
    for (const CLI::App* command : CommandsOf(app)) {
        names += command->get_name() + " ";
        std::cout << "            " << command->get_name() << ") options='";
        for (const CLI::Option* option : OptionsOf(*command))
            std::cout << "--" << NameOf(*option) << " ";
        std::cout << "' ;;\n";
    }
    std::cout << "        esac\n"
                 "        [ -z \"$options\" ] || break\n"
                 "    done\n"
                 "    if [ -z \"$options\" ]; then\n"
                 "        COMPREPLY=($(compgen -W '"
              << names
              << "' -- \"$word\"))\n"
                 "    elif [[ $word == -* ]]; then\n"
                 "        COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))\n"
                 "    fi\n"
                 "}\n"
                 "complete -o default -o bashdefault -F _tmllang tmllang\n";
}

void PrintZsh(const CLI::App& app) {
    std::cout << "#compdef tmllang\n"
                 "if (( CURRENT == 2 )); then\n"
                 "    local -a commands=(\n";
    for (const CLI::App* command : CommandsOf(app))
        std::cout << "        " << Quoted(command->get_name() + ":" + command->get_description()) << "\n";
    std::cout << "    )\n"
                 "    _describe command commands\n"
                 "    return\n"
                 "fi\n"
                 "case $words[2] in\n";
    for (const CLI::App* command : CommandsOf(app)) {
        std::cout << "    " << command->get_name() << ") _arguments";
        for (const CLI::Option* option : OptionsOf(*command))
            std::cout << " "
                      << Quoted("*--" + NameOf(*option) + "[" + option->get_description() + "]" +
                                    (TakesValue(*option) ? ":value:" : ""),
                                "\\");
        std::cout << " '*:file:_files' ;;\n";
    }
    std::cout << "esac\n";
}

void PrintFish(const CLI::App& app) {
    for (const CLI::App* command : CommandsOf(app)) {
        const std::string& name = command->get_name();
        std::cout << "complete -c tmllang -n __fish_use_subcommand -f -a " << name << " -d "
                  << Quoted(command->get_description()) << "\n";
        for (const CLI::Option* option : OptionsOf(*command))
            std::cout << "complete -c tmllang -n '__fish_seen_subcommand_from " << name << "' -l "
                      << NameOf(*option) << (TakesValue(*option) ? " -r" : "") << " -d "
                      << Quoted(option->get_description()) << "\n";
    }
}

struct TShell {
    const char* Name;
    void (*Print)(const CLI::App&);
};
constexpr TShell kShells[] = {{"bash", PrintBash}, {"zsh", PrintZsh}, {"fish", PrintFish}};

}  // namespace

void AddCompletionCommand(CLI::App& app, TProgram& program) {
    CLI::App* command =
        AddCommand(app, "completion", "Print the script by which a shell completes commands",
                   "  tmllang completion bash > ~/.local/share/bash-completion/completions/tmllang\n"
                   "  tmllang completion fish > ~/.config/fish/completions/tmllang.fish");
    const auto name = std::make_shared<std::string>();
    std::vector<std::string> names;
    for (const TShell& shell : kShells)
        names.emplace_back(shell.Name);
    command->add_option("SHELL", *name, "bash, zsh or fish")->required()->check(CLI::IsMember(names));
    command->callback([&program, &app, name] {
        program.Run = [&app, name](TProgram&) {
            for (const TShell& shell : kShells)
                if (*name == shell.Name) shell.Print(app);
            return static_cast<int>(kDone);
        };
    });
}

}  // namespace tml
