#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// Where a review stands in a series of them; 1-based.
struct TSeriesPlace {
    int Number = 1;
    int Count = 1;
};

/// Runs over several units, one behind another. What there is to say of each is told at the end, in one
/// message.
class TSeries {
  public:
    explicit TSeries(int count) : place_{0, count} {}

    /// The next unit.
    void Begin() { ++place_.Number; }
    TSeriesPlace Place() const { return place_; }
    /// Of the unit: it was changed, and whether it calls a component now.
    void NoteChange(bool writesCalls);
    void Note(std::string text) { notes_.push_back(std::move(text)); }
    /// The person goes no further than to this unit; what is done stays.
    void Stop() { stopped_ = true; }
    bool IsStopped() const { return stopped_; }

    /// done: the message for a unit that calls a component now. "" where there is nothing to say.
    std::string Summary(std::string_view done) const;

  private:
    TSeriesPlace place_;
    int changed_ = 0;
    bool writesCalls_ = false;
    bool stopped_ = false;
    std::vector<std::string> notes_;
};

}  // namespace tml
