#include "translations/Filedelimiter.h"

#include "core/Modules.h"
#include "tables/Mllfile.h"

namespace tml {
namespace {

constexpr const char* kNoDelimiter = "You cannot use empty delimiter!";

/// Options stand in front where a program has written them: more of the file is read where they do not, but
/// nothing of a large file that is another one.
std::string DelimiterInFile(TContext& context, const std::string& fileName) {
    IOTAModuleServices* services = GetModuleServices(context);
    if (services == nullptr) return {};
    std::string bytes;
    std::string delimiter;
    services->GetFiles().ReadParts(fileName, [&](std::string_view part) {
        if (bytes.empty() && !MayBeMll(part)) return false;
        if (bytes.empty()) delimiter = DelimiterOfMll(part.substr(0, part.rfind('\n') + 1));
        bytes += part;
        return delimiter.empty();
    });
    return delimiter.empty() ? DelimiterOfMll(bytes) : delimiter;
}

bool IsThere(TContext& context, const std::string& fileName) {
    IOTAModuleServices* services = GetModuleServices(context);
    return services != nullptr &&
           services->GetFiles().ReadParts(fileName, [](std::string_view) { return false; });
}

}  // namespace

std::string GetMLLFileDelimiter(TContext& context, const std::string& fileName) {
    const std::string delimiter = DelimiterInFile(context, fileName);
    return delimiter.empty() ? context.Settings.Get().Delimiter : delimiter;
}

bool AskForDelimiter(TContext& context, const std::string& oldDelimiter, const std::string& fileName,
                     std::string& delimiter, const char* otherDelimiter) {
    if (!context.Dialogs().InputQuery("Saving to file", "Input delimeter:", delimiter)) return false;
    if (delimiter.empty()) {
        context.Dialogs().MessageDlg(kNoDelimiter, TMsgDlgType::mtError, {mrOk});
        return false;
    }
    return delimiter == oldDelimiter || !IsThere(context, fileName) ||
           context.Dialogs().MessageDlg(otherDelimiter, TMsgDlgType::mtWarning, {mrYes, mrNo}) == mrYes;
}

}  // namespace tml
