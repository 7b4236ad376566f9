#include "foundation/text/modHtmlText.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

struct EscapeRow {
    const char* Text;
    const char* Page;
};

constexpr EscapeRow kRows[] = {
    {"", ""},
    {"plain", "plain"},
    {"<script>alert(1)</script>", "&lt;script&gt;alert(1)&lt;/script&gt;"},
    {"a & b &lt; c", "a &amp; b &amp;lt; c"},
    {"\" onclick='x'", "&quot; onclick=&#39;x&#39;"},
    {"line\r\n\tnext", "line\r\n\tnext"},
    {"\x01\x1B[31m\x7F", "\xEF\xBF\xBD\xEF\xBF\xBD[31m\xEF\xBF\xBD"},
    {"gr\xC3\xBC\xC3\x9F dich", "gr\xC3\xBC\xC3\x9F dich"},
    {"broken \xC3 byte", "broken \xEF\xBF\xBD byte"},
    {"\xC2\x9B", "\xEF\xBF\xBD"},
};

}  // namespace

TEST(modHtmlText, EveryTextStandsInAPageAsItIsAndSteersNothing) {
    for (const EscapeRow& row : kRows) {
        EXPECT_EQ(modHtmlText::Escape(row.Text), row.Page);
    }
}

TEST(modHtmlText, AMarkupCharacterNeverComesOutBare) {
    std::string every;
    for (int byte = 1; byte < 256; ++byte) {
        every += static_cast<char>(byte);
    }
    EXPECT_EQ(modHtmlText::Escape(every).find_first_of("<>\"'"), std::string::npos);
}

}  // namespace dorvik
