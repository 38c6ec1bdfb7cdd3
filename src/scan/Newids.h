#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "tables/Table.h"

namespace tml {

/// Gives found texts IDs that the component does not hold yet. The component must outlive it.
class INewIDs {
  public:
    virtual ~INewIDs() = default;
    virtual std::string Next(const std::string& text) = 0;
};

/// The prefix and a number that goes up from 0 with every text.
class TCountedIDs : public INewIDs {
  public:
    TCountedIDs(std::string prefix, const TTable& existing)
        : prefix_(std::move(prefix)), existing_(existing) {}
    std::string Next(const std::string& text) override;

  private:
    std::string prefix_;
    const TTable& existing_;
    int counter_ = -1;
};

/// The prefix and the first words of the text: ASCII letters, digits and "_", short, the same for the same
/// text in every scan. A text whose words do not tell it from another one has its checksum behind them.
class TTextIDs : public INewIDs {
  public:
    TTextIDs(std::string prefix, const TTable& existing) : prefix_(std::move(prefix)), existing_(existing) {}
    std::string Next(const std::string& text) override;

  private:
    bool Take(const std::string& id, const std::string& text);

    std::string prefix_;
    const TTable& existing_;
    std::unordered_map<std::string, std::string> given_;  ///< the text of each ID that was given out
};

}  // namespace tml
