#pragma once

#include <chrono>
#include <string>

namespace tml {

/// One line on a terminal's standard error that is written over as work goes on: shown after 100 ms, at
/// most 20 times a second but for a full bar, and wiped out at the end. Silent where standard error is no
/// terminal.
class TProgressLine {
  public:
    TProgressLine();
    ~TProgressLine() { Hide(); }
    TProgressLine(const TProgressLine&) = delete;
    TProgressLine& operator=(const TProgressLine&) = delete;

    /// A bar's numbers stand behind the text where maximum is above 0. False when Ctrl+C was pressed.
    bool Show(const std::string& text, int position = 0, int maximum = 0);
    void Hide();

  private:
    using TClock = std::chrono::steady_clock;

    bool terminal_;
    bool shown_ = false;
    bool begun_ = false;  ///< something has been shown
    TClock::time_point next_;
};

}  // namespace tml
