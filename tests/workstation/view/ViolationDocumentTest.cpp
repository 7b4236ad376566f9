#include "WorkbenchFixture.h"
#include "support/ScriptedInput.h"

namespace dorvik {
namespace {

class ViolationDocument : public test::WorkbenchFixture {
protected:
    void SetUp() override { OpenBench(); }

    const std::string& Document() const { return m_controls.Documentation.InnerHTML(); }

    static std::string Part(std::string_view heading, std::string_view text) {
        return "<P STYLE='font: bold 9pt \"Tahoma\"; margin: 0'>" + std::string(heading) +
               "</P><P STYLE='font: 9pt \"Tahoma\"; margin: 0'>" + std::string(text) + "</P>";
    }
    static std::string Title(std::string_view text) {
        return "\r\n<H3 ALIGN=left STYLE='font: bold 12pt \"Tahoma\"; color: #c33'>" +
               std::string(text) + "</H3>";
    }
};

TEST_F(ViolationDocument, AViolationInTheSourceHasRuleCategoryTitleLineDescriptionAndAdvice) {
    m_view.DisplayViolationDocumentation(4);
    EXPECT_EQ(
        Document(),
        "\r\n<SMALL STYLE='font: bold 8pt'>[5012]Jumps</SMALL>" + Title("High goto used") +
            Part("Source Line:", "    GoTo Failed") + "<br>" +
            Part("Description:", "About goto used") + "<br>" + Part("Advice:", "Mend it"));
}

TEST_F(ViolationDocument, TheNumberOfTheRuleHasFourDigits) {
    m_view.DisplayViolationDocumentation(3);
    EXPECT_EQ(
        Document(),
        "\r\n<SMALL STYLE='font: bold 8pt'>[0007]clarity</SMALL>" + Title("Medium Too long") +
            Part("Source Line:", "Dim x") + "<br>" + Part("Description:", "About Too long") +
            "<br>" + Part("Advice:", "Mend it"));
}

TEST_F(ViolationDocument, WithoutRuleAndCategoryItBeginsWithTheTitle) {
    m_view.DisplayViolationDocumentation(1);
    EXPECT_EQ(
        Document(),
        Title("Low Reference") + Part("Description:", "About Reference") + "<br>" +
            Part("Advice:", "Mend it"));
}

TEST_F(ViolationDocument, AViolationOfAControlNamesIt) {
    m_view.DisplayViolationDocumentation(8);
    EXPECT_EQ(
        Document(),
        "\r\n<SMALL STYLE='font: bold 8pt'>[5012]clarity</SMALL>" + Title("High Name") +
            Part("Control:", "Text1(3)") + "<br>" + Part("Description:", "About Name") + "<br>" +
            Part("Advice:", "Mend it"));
}

TEST_F(ViolationDocument, TheRowThatBecomesCurrentIsShown) {
    ChooseViolation(8);
    EXPECT_THAT(Document(), testing::HasSubstr("About Name"));
    m_controls.List.SetCurrentRow(std::nullopt);
    EXPECT_EQ(Document(), "");
    EXPECT_EQ(m_controls.Documentation.Address(), "about:blank");
}

TEST_F(ViolationDocument, WithoutResultsATraceIsLogged) {
    m_view.CloseResults();
    m_view.DisplayViolationDocumentation(4);
    EXPECT_EQ(
        m_log.Entries().back(),
        "Debug #m_objResults is nothing#ResultsView::DisplayViolationDocumentation");
    EXPECT_EQ(Document(), "");
}

TEST_F(ViolationDocument, APaneThatIsLoadingIsWaitedForWhileInputGetsItsTurn) {
    test::ScriptedInput input;
    int rounds = 0;
    input.OnYield = [&] {
        m_controls.Documentation.SetLoading(++rounds < 3);
    };
    m_controls.Documentation.SetLoading(true);
    m_view.DisplayViolationDocumentation(4);
    EXPECT_EQ(rounds, 3);
    EXPECT_THAT(Document(), testing::HasSubstr("About goto used"));
}

TEST_F(ViolationDocument, ARowSelectedDuringTheWaitIsTheOneThatIsShown) {
    test::ScriptedInput input;
    input.OnYield = [&] {
        m_controls.Documentation.SetLoading(false);
        input.OnYield = nullptr;
        ChooseViolation(8);
    };
    m_controls.Documentation.SetLoading(true);
    ChooseViolation(4);
    EXPECT_EQ(m_controls.List.CurrentKey(), 8);
    EXPECT_THAT(Document(), testing::HasSubstr("About Name"));
}

}  // namespace
}  // namespace dorvik
