#include "cli/Progressline.h"

#include <iostream>

#include "cli/Interrupt.h"
#include "cli/Terminal.h"

namespace tml {
namespace {

constexpr auto kDelay = std::chrono::milliseconds(100);
constexpr auto kPeriod = std::chrono::milliseconds(50);

}  // namespace

TProgressLine::TProgressLine() : terminal_(IsTerminal(TStream::Error)), next_(TClock::now() + kDelay) {}

bool TProgressLine::Show(const std::string& text, int position, int maximum) {
    // A full bar announces what may take long by itself.
    const bool isLast = begun_ && maximum > 0 && position == maximum;
    if (terminal_ && (isLast || TClock::now() >= next_)) {
        std::cerr << "\r\x1b[K" << text;
        if (maximum > 0) std::cerr << " " << position << "/" << maximum;
        std::cerr.flush();
        shown_ = begun_ = true;
        next_ = TClock::now() + kPeriod;
    }
    return !Interrupted();
}

void TProgressLine::Hide() {
    if (shown_) std::cerr << "\r\x1b[K" << std::flush;
    shown_ = false;
}

}  // namespace tml
