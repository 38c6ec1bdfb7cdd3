#pragma once

#include <memory>

namespace tml {

/// A date and a time in the user's time zone; months and days count from 1.
struct TDateTime {
    int Year = 1970;
    int Month = 1;
    int Day = 1;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;

    auto operator<=>(const TDateTime&) const = default;
};

class IClock {
  public:
    virtual ~IClock() = default;
    virtual TDateTime Now() = 0;
};

/// The clock of the machine.
std::unique_ptr<IClock> MakeSystemClock();

}  // namespace tml
