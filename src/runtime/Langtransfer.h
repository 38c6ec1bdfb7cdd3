#pragma once

#include <string>

#include "platform/Mlruntime.h"
#include "runtime/Langfiles.h"

namespace tml {

/// See TmlCustomLang::SaveAllToFile.
TTransferReport SaveTexts(TmlCustomLang& lang, TLangFiles& files, const std::string& fileName,
                          const std::string& delimiter);

/// See TmlCustomLang::SaveToFile.
TTransferReport SaveKinds(TmlCustomLang& lang, TLangFiles& files, const TPropertyKinds& kinds,
                          const std::string& fileName, const std::string& delimiter);

/// See TmlCustomLang::LoadAllFromFile. only: the one language that is taken, "" for all. onMove may be empty.
TTransferReport LoadTexts(TmlCustomLang& lang, TLangFiles& files, const std::string& fileName,
                          TTransferKind kind, const std::string& only, const TOnLanguagesMove& onMove);

}  // namespace tml
