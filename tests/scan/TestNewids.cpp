#include <gtest/gtest.h>

#include "scan/Newids.h"
#include "scan/Scansupport.h"

namespace tml {
namespace {

TEST(Newids, IDsThatAreMadeFromTexts) {
    const TTable existing = Strings({{"ids_close", "Shut"}, {"IDS_KEEP", "Keep"}});
    TTextIDs ids("IDS_", existing);
    const std::pair<std::string, std::string> cases[] = {
        {"Open orders...", "IDS_OPEN_ORDERS"},
        {"Open orders...", "IDS_OPEN_ORDERS"},
        {"&Open-Orders", "IDS_OPEN_ORDERS_NBYZV4"},  // another text of the same words
        {"Keep", "IDS_KEEP"},
        {"Close", "IDS_CLOSE_CXD5HM1"},  // the ID has another text
        {"Größe in m²", "IDS_GROSSE_IN_M"},
        {"Заказы", "IDS_ZAKAZY"},
        {"...", "IDS_ZYJCA7"},
        {"There are open orders. Close all the same?", "IDS_THERE_ARE_OPEN_ORDERS_RROQP4"},
        {"Donaudampfschifffahrtsgesellschaft", "IDS_DONAUDAMPFSCHIFFFAHRTSGE_"},
    };
    for (const auto& [text, id] : cases) {
        const std::string got = ids.Next(text);
        EXPECT_EQ(got.substr(0, id.size()), id) << text << " " << got;
        EXPECT_LE(got.size(), 4U + 24 + 8) << text;
        for (const char c : got)
            EXPECT_TRUE((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_') << got;
    }
    EXPECT_EQ(TTextIDs("IDS_", existing).Next("&Open-Orders"), "IDS_OPEN_ORDERS") << "nothing else has it";
}

TEST(Newids, TheScanUsesThemOnRequest) {
    TScanInput input =
        InputFor("Unit1.pas", "begin\r\n  A := 'Ready';\r\n  B := 'Steady';\r\n  C := 'Ready';\r\nend.\r\n");
    EXPECT_EQ(Dump(Scan(input)), "IDS_0=Ready IDS_1=Steady IDS_2=Ready |");
    input.IDsFromTexts = true;
    EXPECT_EQ(Dump(Scan(input)), "IDS_READY=Ready IDS_STEADY=Steady IDS_READY=Ready |");
}

}  // namespace
}  // namespace tml
