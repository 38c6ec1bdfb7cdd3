#pragma once

#include "base/Clock.h"
#include "base/Files.h"
#include "platform/Dialogs.h"
#include "platform/Mlcommon.h"
#include "platform/Mlruntime.h"
#include "platform/Registry.h"
#include "platform/Toolsapi.h"

namespace tml {

/// Everything that a host puts at the system's disposal. All parts outlive the expert; an IDE without its
/// services gives nullptr for them.
struct THost {
    IBorlandIDEServices* Services = nullptr;
    IMlRuntime* Runtime = nullptr;
    IRegistry* Registry = nullptr;
    IDialogs* Dialogs = nullptr;
    IFileSystem* Files = nullptr;
    ICommonLibraryLoader* CommonLibrary = nullptr;
    IClock* Clock = nullptr;
};

}  // namespace tml
