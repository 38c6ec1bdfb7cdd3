#include "cli/Statenames.h"

#include <algorithm>
#include <array>

namespace tml {
namespace {

constexpr std::array kStates = {TTextState::Missing, TTextState::Stale, TTextState::Touched,
                                TTextState::Done};

const TTextState* FindState(const std::string& name) {
    return std::find_if(kStates.begin(), kStates.end(),
                        [&](TTextState state) { return NameOf(state) == name; });
}

}  // namespace

std::string CheckStateName(const std::string& name) {
    if (FindState(name) != kStates.end()) return {};
    return "a text is missing, stale, touched or done, not " + name;
}

TTextState TextStateOf(const std::string& name) {
    return *FindState(name);
}

}  // namespace tml
