#include "layout/Buttonkinds.h"

#include "base/Utf8.h"

namespace tml {
namespace {

struct TButtonKind {
    std::string_view Name;
    std::string_view Caption;
};

constexpr TButtonKind kButtonKinds[] = {
    {"bkOK", "&OK"},
    {"bkCancel", "Cancel"},
    {"bkHelp", "&Help"},
    {"bkYes", "&Yes"},
    {"bkNo", "&No"},
    {"bkClose", "&Close"},
    {"bkAbort", "Abort"},
    {"bkRetry", "&Retry"},
    {"bkIgnore", "&Ignore"},
    {"bkAll", "&All"},
    {"bkNoToAll", "No to all"},
    {"bkYesToAll", "Yes to &All"},
};

}  // namespace

std::string_view CaptionOfKind(std::string_view kind) {
    for (const TButtonKind& one : kButtonKinds)
        if (SameText(kind, one.Name)) return one.Caption;
    return {};
}

}  // namespace tml
