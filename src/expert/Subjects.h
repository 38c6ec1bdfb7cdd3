#pragma once

#include "ids/Badidsform.h"
#include "scan/Scanmemory.h"
#include "setup/Dictionarymemory.h"
#include "translations/Filecommands.h"
#include "translations/Findphrase.h"

namespace tml {

/// What the subjects remember between their commands. It belongs to the expert, which hands it to them.
struct TSubjects {
    TScanMemory Scan;
    TFilesMemory Files;
    TIDsMemory IDs;
    TPhrasesMemory Phrases;
    TDictionaryMemory Dictionary;
};

}  // namespace tml
