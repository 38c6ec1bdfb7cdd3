#include "cli/Settingscommand.h"

#include <iostream>
#include <memory>
#include <optional>

#include "base/Errors.h"
#include "cli/Jsonlines.h"
#include "cli/Userregistry.h"
#include "cli/Workplace.h"
#include "core/Settings.h"

namespace tml {
namespace {

struct TSettingsOptions {
    std::string Name;
    std::optional<std::string> Value;
};

void Print(const TProgram& program, IRegistryReader& registry, const TSetting& setting, bool withName) {
    const std::string value = StoredSettingText(registry, setting);
    if (program.Json)
        TJsonLine(std::cout).Text("name", setting.Property).Text("value", value);
    else
        std::cout << (withName ? std::string(setting.Property) + " = " : std::string()) << value << "\n";
}

int RunSettings(TProgram& program, const TSettingsOptions& options) {
    const auto registry = options.Value ? OpenUserRegistry(program) : ReadUserRegistry(program);
    if (options.Name.empty()) {
        const auto stored = registry->OpenForReading();
        for (const TSetting& setting : AllSettings())
            Print(program, *stored, setting, true);
        return kDone;
    }
    const TSetting* setting = FindSetting(options.Name);
    if (setting == nullptr)
        throw EBadInput("", 0, "there is no setting " + options.Name, "\"tmllang settings\" lists them all");
    if (!options.Value) {
        Print(program, *registry, *setting, false);
        return kDone;
    }
    const TWorkplace workplace(program);
    const THost& host = workplace.Host();
    StoreSettingText(*registry, *setting, *options.Value,
                     {host.Runtime->NamesArray(), host.CommonLibrary->Load()});
    return kDone;
}

}  // namespace

void AddSettingsCommand(CLI::App& app, TProgram& program) {
    CLI::App* command = AddCommand(app, "settings", "List, read or set the options",
                                   "  tmllang settings\n"
                                   "  tmllang settings IgnorableLength 2\n"
                                   "  tmllang settings SkipWords 'OK\\nCancel'\n"
                                   "  tmllang settings AddFormName true");
    const auto options = std::make_shared<TSettingsOptions>();
    command->add_option("NAME", options->Name, "A setting, as the list names it");
    command->add_option("VALUE", options->Value, "Its new value; \\n stands between the lines of a list");
    command->callback([&program, options] {
        program.MakesConfig = options->Value.has_value();
        program.Run = [options](TProgram& shared) { return RunSettings(shared, *options); };
    });
}

}  // namespace tml
