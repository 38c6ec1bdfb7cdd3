#include <filesystem>
#include <fstream>
#include <iterator>

#include "expert/Mllangexp.h"
#include "expert/Mlmainform.h"
#include "forms/Formtree.h"
#include "host/Experthost.h"
#include "scan/Found.h"
#include "scan/Scansupport.h"
#include "source/Readcounts.h"
#include "support/Memoryfiles.h"
#include "support/Memoryregistry.h"
#include "support/Scripteduser.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

/// The common library of the build, which reads a handed text when it is first asked about it.
class TCountedLibrary : public ICommonLibrary, public ICommonLibraryLoader {
  public:
    std::shared_ptr<ICommonLibrary> a;
};

}  // namespace
}  // namespace tml
