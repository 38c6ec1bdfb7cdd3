#include "translations/Filedelimiter.h"

#include "core/Modules.h"
#include "tables/Mllfile.h"

namespace tml {
namespace {

constexpr const char* kNoDelimiter = "You cannot use empty delimiter!";

std::optional<std::string> BytesOf(TContext& context, const std::string& fileName) {
    IOTAModuleServices* services = GetModuleServices(context);
    return services == nullptr ? std::nullopt : services->GetFiles().ReadFile(fileName);
}

}  // namespace

std::string GetMLLFileDelimiter(TContext& context, const std::string& fileName) {
    const auto bytes = BytesOf(context, fileName);
    const std::string delimiter = bytes ? DelimiterOfMll(*bytes) : std::string();
    return delimiter.empty() ? context.Settings.Get().Delimiter : delimiter;
}

bool AskForDelimiter(TContext& context, const std::string& oldDelimiter, const std::string& fileName,
                     std::string& delimiter, const char* otherDelimiter) {
    if (!context.Dialogs().InputQuery("Saving to file", "Input delimeter:", delimiter)) return false;
    if (delimiter.empty()) {
        context.Dialogs().MessageDlg(kNoDelimiter, TMsgDlgType::mtError, {mrOk});
        return false;
    }
    return delimiter == oldDelimiter || !BytesOf(context, fileName) ||
           context.Dialogs().MessageDlg(otherDelimiter, TMsgDlgType::mtWarning, {mrYes, mrNo}) == mrYes;
}

}  // namespace tml
