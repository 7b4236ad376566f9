#include "foundation/xml/KyXMLDoc.h"
#include "foundation/xml/KyXMLElement.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace dorvik {
namespace {

class KyXMLTransform : public testing::Test {
protected:
    /// The result for a style sheet of these templates.
    std::string Result(const std::string& templates) {
        return ResultOf(
            R"(<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform" xmlns:exsl="http://exslt.org/common" extension-element-prefixes="exsl">)" +
            templates + "</xsl:stylesheet>");
    }
    std::string ResultOf(const std::string& styleSheet) {
        KyXMLDoc sheet;
        EXPECT_TRUE(sheet.LoadFromString(styleSheet)) << styleSheet;
        EXPECT_TRUE(m_doc.LoadFromString(kRules));
        m_before = m_doc.XMLString();
        m_log.Clear();
        std::string text = m_doc.TransformDocument(sheet);
        EXPECT_EQ(m_doc.XMLString(), m_before) << "the document stays as it is";
        return text;
    }
    void ExpectFailure(const std::string& templates, std::string_view reason) {
        EXPECT_EQ(Result(templates), "");
        const auto entries = m_log.Entries();
        ASSERT_EQ(entries.size(), 1U) << templates;
        EXPECT_TRUE(entries[0].starts_with("Event #XML Parser Error: Number=-2147467259 Reason="))
            << entries[0];
        EXPECT_NE(entries[0].find(reason), std::string::npos) << entries[0];
        EXPECT_TRUE(entries[0].ends_with("#KyXMLDoc::TransformDocument")) << entries[0];
    }
    std::string FileUrl(const std::string& name) const {
        return "file://" + (m_folder.HostPath() / name).string();
    }

    static constexpr const char* kRules =
        "<Rules> <Rule Title='Größe'/> <Rule Title='a &lt; b'/> </Rules>";
    test::CapturedLog m_log;
    test::TemporaryFolder m_folder;
    KyXMLDoc m_doc;
    std::string m_before;
};

TEST_F(KyXMLTransform, TextComesOutAsTheStyleSheetSays) {
    EXPECT_EQ(
        Result(
            R"(<xsl:output method="text"/><xsl:template match="/"><xsl:for-each select="Rules/Rule"><xsl:value-of select="@Title"/><xsl:text> </xsl:text></xsl:for-each></xsl:template>)"),
        "Größe a < b ")
        << "the blank in a text element is kept";
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(KyXMLTransform, TheResultIsUtf8WhateverEncodingTheStyleSheetAsksFor) {
    for (const char* const encoding : {"iso-8859-1", "UTF-16", "us-ascii"}) {
        EXPECT_EQ(
            Result(
                "<xsl:output method='xml' omit-xml-declaration='yes' encoding='" +
                std::string(encoding) +
                "'/><xsl:template match='/'><r k='{Rules/Rule/@Title}'/></xsl:template>"),
            "<r k=\"Größe\"/>\n")
            << encoding;
    }
}

TEST_F(KyXMLTransform, HtmlHasItsTextsEscaped) {
    const std::string html = Result(
        R"(<xsl:output method="html"/><xsl:template match="/"><p><xsl:value-of select="Rules/Rule[2]/@Title"/></p></xsl:template>)");
    EXPECT_NE(html.find("<p>a &lt; b</p>"), std::string::npos) << html;
}

TEST_F(KyXMLTransform, AnEmptyResultIsNoFailure) {
    EXPECT_EQ(Result("<xsl:output method='text'/><xsl:template match='/'/>"), "");
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(KyXMLTransform, AStyleSheetCanStripWhiteSpaceWithoutTouchingTheDocument) {
    EXPECT_EQ(
        Result("<xsl:strip-space elements='*'/><xsl:output method='text'/><xsl:template match='/'>"
               "<xsl:value-of select='count(Rules/node())'/></xsl:template>"),
        "2");
}

TEST_F(KyXMLTransform, AnElementOfAKnownDocumentStaysUsable) {
    ASSERT_TRUE(m_doc.LoadFromString(kRules));
    const auto rule = m_doc.RootElement()->ElementAtPosition(1);
    KyXMLDoc sheet;
    ASSERT_TRUE(sheet.LoadFromString(
        R"x(<r xsl:version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"><xsl:value-of select="count(//Rule)"/></r>)x"));
    EXPECT_NE(m_doc.TransformDocument(sheet).find("<r>2</r>"), std::string::npos);
    EXPECT_EQ(rule->AttributeValueByName("Title"), "a < b");
}

TEST_F(KyXMLTransform, ADocumentCanBeItsOwnStyleSheet) {
    ASSERT_TRUE(m_doc.LoadFromString(
        R"x(<r xsl:version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"><xsl:value-of select="count(r)"/></r>)x"));
    EXPECT_NE(m_doc.TransformDocument(m_doc).find("<r>1</r>"), std::string::npos);
}

TEST_F(KyXMLTransform, WhatIsNoStyleSheetIsAFailure) {
    EXPECT_EQ(ResultOf("<Rules/>"), "");
    EXPECT_TRUE(m_log.Contains("#KyXMLDoc::TransformDocument"));
    ExpectFailure("<xsl:template match='['/>", "");
    ExpectFailure(
        "<xsl:template match='/'><xsl:value-of select='$unknown'/></xsl:template>", "unknown");
    ExpectFailure("<xsl:template match='/'><xsl:value-of select='no()'/></xsl:template>", "no");
    KyXMLDoc empty;
    ASSERT_TRUE(m_doc.LoadFromString(kRules));
    EXPECT_EQ(m_doc.TransformDocument(empty), "");
}

TEST_F(KyXMLTransform, AMessageThatEndsTheTransformationIsTheReason) {
    ExpectFailure(
        "<xsl:template match='/'><xsl:message terminate='yes'>not like "
        "this</xsl:message></xsl:template>",
        "not like this");
    EXPECT_EQ(
        Result("<xsl:output method='text'/><xsl:template match='/'><xsl:message>just "
               "so</xsl:message>x</xsl:template>"),
        "x");
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(KyXMLTransform, NoFileIsReadByTheDocumentFunction) {
    m_folder.Write("secret.xml", "<s>s3cret</s>");
    for (const std::string& address :
         {FileUrl("secret.xml"),
          (m_folder.HostPath() / "secret.xml").string(),
          std::string("http://127.0.0.1:9/x.xml"),
          std::string("secret.xml")}) {
        ExpectFailure(
            "<xsl:template match='/'><xsl:value-of select=\"document('" + address +
                "')\"/></xsl:template>",
            "but it must not use other documents");
        EXPECT_TRUE(m_log.Contains(address));
        EXPECT_FALSE(m_log.Contains("s3cret"));
    }
}

TEST_F(KyXMLTransform, TheStyleSheetCanNameItself) {
    EXPECT_EQ(
        Result("<xsl:output method='text'/><xsl:template match='/'><xsl:value-of "
               "select=\"count(document('')//*[local-name() = 'template'])\"/></xsl:template>"),
        "1");
    EXPECT_TRUE(m_log.Entries().empty()) << m_log.Entries()[0];
}

TEST_F(KyXMLTransform, NoOtherStyleSheetIsTakenIn) {
    m_folder.Write(
        "other.xsl",
        R"(<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"><xsl:template match="/">s3cret</xsl:template></xsl:stylesheet>)");
    for (const char* const element : {"include", "import"}) {
        ExpectFailure(
            "<xsl:" + std::string(element) + " href='" + FileUrl("other.xsl") + "'/>",
            "but it must not use other documents");
    }
}

TEST_F(KyXMLTransform, NoFileIsWritten) {
    for (const char* const element : {"exsl:document", "xsl:document"}) {
        const std::string name(element);
        ExpectFailure(
            "<xsl:template match='/'><" + name + " href='" + FileUrl("out.txt") +
                "' method='text'>x</" + name + "></xsl:template>",
            "");
    }
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.HostPath()));
}

TEST_F(KyXMLTransform, EndlessRecursionAndEndlessWorkAreStopped) {
    ExpectFailure(
        "<xsl:template match='/'><xsl:call-template name='n'/></xsl:template>"
        "<xsl:template name='n'><xsl:call-template name='n'/></xsl:template>",
        "");
    ExpectFailure(
        "<xsl:template match='/'><xsl:call-template name='n'><xsl:with-param name='d' "
        "select='0'/></xsl:call-template></xsl:template>"
        "<xsl:template name='n'><xsl:param name='d'/><xsl:if test='$d &lt; 60'>"
        "<xsl:call-template name='n'><xsl:with-param name='d' select='$d + 1'/></xsl:call-template>"
        "<xsl:call-template name='n'><xsl:with-param name='d' select='$d + 1'/></xsl:call-template>"
        "</xsl:if></xsl:template>",
        "");
}

TEST_F(KyXMLTransform, AnErrorOfOneTransformationIsNotThatOfTheNext) {
    ExpectFailure("<xsl:template match='['/>", "");
    EXPECT_EQ(Result("<xsl:output method='text'/><xsl:template match='/'>x</xsl:template>"), "x");
    EXPECT_TRUE(m_log.Entries().empty());
    EXPECT_EQ(m_doc.LastError(), 0) << "that is the error of a save";
}

}  // namespace
}  // namespace dorvik
