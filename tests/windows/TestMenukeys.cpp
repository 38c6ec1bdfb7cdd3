#include <gtest/gtest.h>

#include "windows/Menukeys.h"

namespace tml {
namespace {

using TMenu = std::vector<std::shared_ptr<TMenuItem>>;

TMenu MenuOf(const std::vector<std::string>& captions) {
    TMenu menu;
    for (const std::string& caption : captions) {
        menu.push_back(std::make_shared<TMenuItem>());
        menu.back()->Caption = caption;
    }
    return menu;
}

std::string CaptionsOf(const TMenu& menu) {
    std::string captions;
    for (const auto& item : menu)
        captions += (captions.empty() ? "" : "|") + item->Caption;
    return captions;
}

TEST(Menukeys, EveryEntryThatMarksNoneGetsALetterOfItsOwn) {
    const TMenu menu = MenuOf({"Edit...", "Edit source", "-", "&Delete", "Dos", "D", "Über", ""});
    menu[1]->Items = MenuOf({"Source", "CONST Declaration", "Sort"});
    AddAccelerators(menu);
    EXPECT_EQ(CaptionsOf(menu), "&Edit...|Edit &source|-|&Delete|D&os|D|Ü&ber|");
    EXPECT_EQ(CaptionsOf(menu[1]->Items), "&Source|&CONST Declaration|S&ort");
    AddAccelerators(menu);
    EXPECT_EQ(CaptionsOf(menu), "&Edit...|Edit &source|-|&Delete|D&os|D|Ü&ber|");
}

}  // namespace
}  // namespace tml
