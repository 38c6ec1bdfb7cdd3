#include "setup/Writablefile.h"

#include "base/Errors.h"

namespace tml {

void ExpectWritableFile(TContext& context, const std::string& file) {
    const auto info = context.Host.Files->Stat(file);
    if (info && info->ReadOnly)
        throw EBadInput(file, 0, "the file is read-only", "Make it writable, or leave the form out");
}

}  // namespace tml
