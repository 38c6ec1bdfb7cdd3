#include "base/Clock.h"

#include <ctime>

namespace tml {
namespace {

std::tm LocalTime(std::time_t time) {
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &time);
#else
    localtime_r(&time, &local);
#endif
    return local;
}

class TSystemClock : public IClock {
  public:
    TDateTime Now() override {
        const std::tm local = LocalTime(std::time(nullptr));
        return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                local.tm_hour,        local.tm_min,     local.tm_sec};
    }
};

}  // namespace

std::unique_ptr<IClock> MakeSystemClock() {
    return std::make_unique<TSystemClock>();
}

}  // namespace tml
