#include "source/Readcounts.h"

namespace tml {

TReadCounts& ReadCounts() {
    thread_local TReadCounts counts;
    return counts;
}

}  // namespace tml
