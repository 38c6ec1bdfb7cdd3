#include "scan/Scansettings.h"

namespace tml {

TScanInput ScanInputOf(const TSettingValues& settings, ICommonLibrary* common) {
    TScanInput input;
    input.Skip = {.SkipWords = settings.SkipWords,
                  .SkipLines = settings.SkipLines,
                  .ExcludeChars = settings.ExcludeChars,
                  .IgnorableLength = settings.IgnorableLength,
                  .UseRegExpForSkip = settings.UseRegExpForSkip};
    input.HCPrefix = settings.HCPrefix;
    input.ReplaceMethod = settings.ReplaceMethod;
    input.CommentsLength = settings.CommentsLength;
    input.NoCommentsInSources = settings.NoCommentsInSources;
    input.Component.WithForm = settings.AddFormName;
    input.Common = common;
    return input;
}

}  // namespace tml
