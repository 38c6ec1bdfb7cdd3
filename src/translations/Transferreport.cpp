#include "translations/Transferreport.h"

#include <algorithm>

#include "base/Format.h"
#include "base/Utf8.h"

namespace tml {
namespace {

/// Nobody reads more of a line. How many lines are shown at once is the window's to say, which counts the
/// rest.
constexpr std::size_t kMostCharacters = 120;

std::string InOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text;
}

std::string Shortened(const std::string& text) {
    const std::string_view begin = LeftCodePoints(text, kMostCharacters);
    return begin.size() == text.size() ? text : std::string(begin) + "...";
}

}  // namespace

TStringList LinesOf(const TTransferReport& report) {
    TStringList lines;
    const auto add = [&](const char* what, const TStringList& list) {
        for (const std::string& line : list)
            lines.Add(Format("%s%s", what, InOneLine(line)));
    };
    add("", report.Notes);
    add("added: ", report.Added);
    add("dropped: ", report.Dropped);
    add("overwritten: ", report.Overwritten);
    add("not in the form: ", report.Unknown);
    if (report.Kept > 0) lines.Add(Format("kept, for the file has no text: %d", report.Kept));
    if (report.InDoubt > 0) lines.Add(Format("in doubt, for the base text is another: %d", report.InDoubt));
    return lines;
}

void ShowReports(IDialogs& dialogs, const TFormReports& reports, const TStringList& unsaved) {
    std::string text;
    for (const auto& [form, report] : reports)
        for (const std::string& line : LinesOf(report))
            text += Format("%s: %s\r\n", form, Shortened(line));
    if (!unsaved.Empty())
        text +=
            Format("Open, and with changes that are not saved yet: %s\r\n", Shortened(unsaved.CommaText()));
    if (!text.empty()) dialogs.MessageDlg(text, TMsgDlgType::mtInformation, {mrOk});
}

}  // namespace tml
