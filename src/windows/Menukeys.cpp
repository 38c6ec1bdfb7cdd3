#include "windows/Menukeys.h"

#include <cctype>
#include <set>
#include <string>

namespace tml {
namespace {

bool IsLetter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 && static_cast<unsigned char>(c) < 0x80;
}

int Key(char c) {
    return std::tolower(static_cast<unsigned char>(c));
}

/// Index of the first letter that is free, at the beginnings of words alone or anywhere; npos without one.
std::size_t FreeLetter(const std::string& caption, const std::set<int>& taken, bool anywhere) {
    for (std::size_t i = 0; i < caption.size(); ++i) {
        const bool begins = i == 0 || !IsLetter(caption[i - 1]);
        if (IsLetter(caption[i]) && (anywhere || begins) && !taken.contains(Key(caption[i]))) return i;
    }
    return std::string::npos;
}

}  // namespace

void AddAccelerators(const std::vector<std::shared_ptr<TMenuItem>>& menu) {
    std::set<int> taken;
    std::vector<TMenuItem*> unmarked;
    for (const auto& item : menu) {
        AddAccelerators(item->Items);
        const std::size_t mark = item->Caption.find('&');
        if (mark + 1 < item->Caption.size() && mark != std::string::npos)
            taken.insert(Key(item->Caption[mark + 1]));
        else if (item->Visible && item->Caption != "-")
            unmarked.push_back(item.get());
    }
    for (TMenuItem* item : unmarked) {
        std::size_t place = FreeLetter(item->Caption, taken, false);
        if (place == std::string::npos) place = FreeLetter(item->Caption, taken, true);
        if (place == std::string::npos) continue;
        taken.insert(Key(item->Caption[place]));
        item->Caption.insert(place, 1, '&');
    }
}

}  // namespace tml
