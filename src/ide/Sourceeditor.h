#pragma once

#include <functional>
#include <memory>

#include "ide/Sourcebuffer.h"
#include "platform/Toolsapi.h"

namespace tml {

/// The code editor over a buffer. It stays usable as long as somebody holds it; a closed buffer is only
/// read from then on. show brings the editor to the front.
std::shared_ptr<IOTASourceEditor> MakeSourceEditor(std::shared_ptr<TSourceBuffer> buffer,
                                                   std::function<void()> show);

}  // namespace tml
