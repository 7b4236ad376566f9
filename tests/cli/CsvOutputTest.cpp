#include "cli/output/CsvOutput.h"

#include "cli/ResultsCommandFixture.h"

namespace dorvik::test {

namespace {

TEST(CsvOutput, QuotesWhatHoldsACommaAQuoteOrALineEnd) {
    CsvOutput csv;
    csv.AddLine({"plain", "a,b", "say \"x\"", "two\r\nlines", "", " blanks "});
    EXPECT_EQ(csv.Result(), "plain,\"a,b\",\"say \"\"x\"\"\",\"two\r\nlines\",, blanks \r\n");
}

TEST(CsvOutput, AnyTextComesBackAsItWas) {
    const std::vector<std::vector<std::string>> lines{
        {"name", "text"},
        {"\"", "\"\""},
        {",", "x\r\n"},
        {"\n", "a\nb"},
        {"", ""},
        {"Gr\xC3\xBC\xC3\x9F"
         "e",
         "1,5"},
        {"\",\"", "end"}};
    CsvOutput csv;
    for (const std::vector<std::string>& line : lines) {
        csv.AddLine(line);
    }
    EXPECT_EQ(ReadCsv(csv.Result()), lines);
}

TEST(CsvOutput, ALineOfOneEmptyValueIsNoEmptyLine) {
    CsvOutput csv;
    csv.AddLine({""});
    EXPECT_EQ(csv.Result(), "\"\"\r\n");
}

}  // namespace

}  // namespace dorvik::test
