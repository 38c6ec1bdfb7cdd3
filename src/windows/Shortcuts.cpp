#include "windows/Shortcuts.h"

#include <array>

#include "base/Utf8.h"

namespace tml {
namespace {

struct TNamedKey {
    std::string_view Name;
    TShortCut Key;
};

/// In the order in which the modifiers are written.
constexpr std::array kModifiers{TNamedKey{"Shift+", kShift}, TNamedKey{"Ctrl+", kCtrl},
                                TNamedKey{"Alt+", kAlt}};

constexpr std::array kNamedKeys{
    TNamedKey{"BkSp", 0x08},  TNamedKey{"Tab", 0x09},  TNamedKey{"Enter", 0x0D}, TNamedKey{"Esc", 0x1B},
    TNamedKey{"Space", 0x20}, TNamedKey{"PgUp", 0x21}, TNamedKey{"PgDn", 0x22},  TNamedKey{"End", 0x23},
    TNamedKey{"Home", 0x24},  TNamedKey{"Left", 0x25}, TNamedKey{"Up", 0x26},    TNamedKey{"Right", 0x27},
    TNamedKey{"Down", 0x28},  TNamedKey{"Ins", 0x2D},  TNamedKey{"Del", 0x2E},   TNamedKey{";", 0xBA},
    TNamedKey{"=", 0xBB},     TNamedKey{",", 0xBC},    TNamedKey{"-", 0xBD},     TNamedKey{".", 0xBE},
    TNamedKey{"/", 0xBF},     TNamedKey{"`", 0xC0},    TNamedKey{"[", 0xDB},     TNamedKey{"\\", 0xDC},
    TNamedKey{"]", 0xDD},     TNamedKey{"'", 0xDE},
};

constexpr TShortCut kF1 = 0x70;
constexpr int kFunctionKeys = 24;

bool IsLetterOrDigit(int key) {
    return (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
}

std::string KeyName(TShortCut key) {
    if (IsLetterOrDigit(key)) return {static_cast<char>(key)};
    if (key >= kF1 && key < kF1 + kFunctionKeys) return "F" + std::to_string(key - kF1 + 1);
    for (const TNamedKey& named : kNamedKeys)
        if (named.Key == key) return std::string(named.Name);
    return {};
}

TShortCut KeyByName(std::string_view name) {
    for (TShortCut key = 0; key <= 0xFF; ++key)
        if (const std::string candidate = KeyName(key); !candidate.empty() && SameText(candidate, name))
            return key;
    return 0;
}

/// Takes a modifier from the front of the text; 0 when there is none.
TShortCut TakeModifier(std::string_view& text) {
    if (text.size() > 1 && text.front() == '^') {
        text.remove_prefix(1);
        return kCtrl;
    }
    for (const TNamedKey& modifier : kModifiers) {
        if (!SameText(text.substr(0, modifier.Name.size()), modifier.Name)) continue;
        text.remove_prefix(modifier.Name.size());
        return modifier.Key;
    }
    return 0;
}

}  // namespace

std::string ShortCutToText(TShortCut shortCut) {
    const std::string key = KeyName(shortCut & 0xFF);
    if (key.empty()) return {};
    std::string text;
    for (const TNamedKey& modifier : kModifiers)
        if ((shortCut & modifier.Key) != 0) text += modifier.Name;
    return text + key;
}

TShortCut TextToShortCut(std::string_view text) {
    unsigned modifiers = 0;
    while (const TShortCut modifier = TakeModifier(text))
        modifiers |= modifier;
    const TShortCut key = KeyByName(text);
    return key == 0 ? TShortCut{0} : static_cast<TShortCut>(modifiers | key);
}

}  // namespace tml
