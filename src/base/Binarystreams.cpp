#include "base/Binarystreams.h"

#ifdef _WIN32
#include <cstdio>
#include <fcntl.h>
#include <initializer_list>
#include <io.h>
#endif

namespace tml {

void MakeStreamsBinary() {
#ifdef _WIN32
    for (std::FILE* stream : {stdin, stdout})
        _setmode(_fileno(stream), _O_BINARY);
#endif
}

}  // namespace tml
