#include "cli/Progressline.h"

#include <iostream>

#include "cli/Interrupt.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace tml {
namespace {

constexpr auto kDelay = std::chrono::milliseconds(100);
constexpr auto kPeriod = std::chrono::milliseconds(50);

bool IsTerminal() {
#ifdef _WIN32
    return _isatty(2) != 0;
#else
    return ::isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace

TProgressLine::TProgressLine() : terminal_(IsTerminal()), next_(TClock::now() + kDelay) {}

bool TProgressLine::Show(const std::string& text, int position, int maximum) {
    if (terminal_ && TClock::now() >= next_) {
        std::cerr << "\r\x1b[K" << text;
        if (maximum > 0) std::cerr << " " << position << "/" << maximum;
        std::cerr.flush();
        shown_ = true;
        next_ = TClock::now() + kPeriod;
    }
    return !Interrupted();
}

void TProgressLine::Hide() {
    if (shown_) std::cerr << "\r\x1b[K" << std::flush;
    shown_ = false;
}

}  // namespace tml
