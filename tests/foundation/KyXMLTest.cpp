#include "base/BasicError.h"
#include "foundation/xml/KyXMLDoc.h"
#include "foundation/xml/KyXMLElement.h"
#include "platform/xml/XmlDocument.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

class KyXML : public testing::Test {
protected:
    std::shared_ptr<KyXMLElement> RootOf(std::string_view text) {
        EXPECT_TRUE(m_doc.LoadFromString(text));
        return m_doc.RootElement();
    }

    test::CapturedLog m_log;
    test::TemporaryFolder m_folder;
    KyXMLDoc m_doc;
};

using KyXMLElementTest = KyXML;
using KyXMLDocTest = KyXML;

TEST_F(KyXMLElementTest, TabAndLessThanAreStoredAsTagsAndReadBackAsTheyWere) {
    const auto root = RootOf("<r/>");
    root->AddAttribute("v", "a\tb<c>d\r\ne&\"f");
    EXPECT_EQ(root->XMLNode().Attribute("v"), "a%TAB%b%LT%c%GT%d%CRLF%e&\"f");
    EXPECT_EQ(root->AttributeValueByName("v"), "a\tb<c>d\r\ne&\"f");
    EXPECT_EQ(root->AttributeValue(0), "a\tb<c>d\r\ne&\"f");
}

TEST_F(KyXMLElementTest, TagsRestoreInAnyCaseAndLoneLineEndsAreLeftAlone) {
    EXPECT_EQ(KyXMLElement::RestoreIllegalChars("a%crlf%b%Tab%c%lt%%GT%"), "a\r\nb\tc<>");
    EXPECT_EQ(KyXMLElement::ReplaceIllegalChars("a\nb\rc"), "a\nb\rc");
}

TEST_F(KyXMLElementTest, TextThatHoldsATagWordDoesNotSurvive) {
    const auto root = RootOf("<r/>");
    root->AddAttribute("v", "100%LT%");
    EXPECT_EQ(root->AttributeValueByName("v"), "100<");
}

TEST_F(KyXMLDocTest, NewDocHasTheNamedRoot) {
    m_doc.NewDoc("R");
    EXPECT_EQ(m_doc.XMLString(), "<R/>");
    EXPECT_EQ(m_doc.RootElement()->ElementName(), "R");
    EXPECT_EQ(m_doc.RootElement()->ElementCount(), 0);
}

TEST_F(KyXMLDocTest, RootElementOfANewDocumentIsCreated) {
    const auto root = m_doc.RootElement();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->ElementName(), "Root_Element");
    EXPECT_EQ(root->ElementType(), 1);
}

TEST_F(KyXMLElementTest, ElementByNameStartsAtZeroWhenTheStartNamesNoChild) {
    const auto root = RootOf("<r><x n='1'/><y/></r>");
    for (const std::int32_t start : {99, 2, -1}) {
        std::int32_t position = 7;
        const auto found = root->ElementByName("x", position, start);
        ASSERT_NE(found, nullptr) << start;
        EXPECT_EQ(position, 0);
        EXPECT_EQ(found->AttributeValueByName("n"), "1");
    }
}

TEST_F(KyXMLElementTest, ElementByNameDoesNotWrapAround) {
    const auto root = RootOf("<r><x/><y/></r>");
    std::int32_t position = 7;
    EXPECT_EQ(root->ElementByName("x", position, 1), nullptr);
    EXPECT_EQ(position, -1);
}

TEST_F(KyXMLElementTest, ElementByNameIgnoresCaseAndElementListByNameDoesNot) {
    const auto root = RootOf("<r><Rules/></r>");
    EXPECT_NE(root->ElementByName("RULES"), nullptr);
    EXPECT_EQ(root->ElementListByName("RULES").Count(), 0);
    EXPECT_EQ(root->ElementListByName("Rules").Count(), 1);
}

TEST_F(KyXMLElementTest, ElementListByNameFindsEveryDepthAndElementByNameChildrenOnly) {
    const auto root = RootOf("<r><a><x n='1'><x n='2'/></x></a><x n='3'/></r>");
    const ObjectArrayList<KyXMLElement> found = root->ElementListByName("x");
    std::string order;
    for (std::int32_t index = 1; index <= found.Count(); ++index) {
        order += found.Item(index)->AttributeValueByName("n");
    }
    EXPECT_EQ(order, "123");
    std::int32_t position = 0;
    EXPECT_EQ(root->ElementByName("x", position)->AttributeValueByName("n"), "3");
    EXPECT_EQ(position, 1);
}

TEST_F(KyXMLElementTest, EmptyNamesAreLogged) {
    const auto root = RootOf("<r><x/></r>");
    std::int32_t position = 7;
    EXPECT_EQ(root->ElementByName("", position), nullptr);
    EXPECT_EQ(position, -1);
    EXPECT_EQ(root->ElementListByName("").Count(), 0);
    EXPECT_EQ(root->ElementByAttributeValue("", "v"), nullptr);
    EXPECT_EQ(
        m_log.Entries(),
        (std::vector<std::string>{
            "Event #An element name must be specified.#KyXMLElement::ElementByName",
            "Event #An element name must be specified.#KyXMLElement::ElementListByName",
            "Event #An attribute name must be specified.#KyXMLElement::ElementByAttributeValue"}));
}

TEST_F(KyXMLElementTest, AddElementBeyondTheChildrenAppends) {
    const auto root = RootOf("<r><a/><b/></r>");
    EXPECT_EQ(root->AddElement("x", 99)->ElementName(), "x");
    root->AddElement("y", -5);
    root->AddElement("z");
    EXPECT_EQ(m_doc.XMLString(), "<r><a/><b/><x/><y/><z/></r>");
}

TEST_F(KyXMLElementTest, AddElementInsertsBeforeTheChildAtThePosition) {
    const auto root = RootOf("<r><a/><b/></r>");
    root->AddElement("x", 1);
    EXPECT_EQ(m_doc.XMLString(), "<r><a/><x/><b/></r>");
    EXPECT_EQ(root->ElementCount(), 3);
}

TEST_F(KyXMLElementTest, NamesThatXmlForbidsAreLoggedAndAddNothing) {
    const auto root = RootOf("<r/>");
    EXPECT_EQ(root->AddElement("1 x"), nullptr);
    root->AddAttribute("a b", "v");
    EXPECT_EQ(root->ElementCount(), 0);
    EXPECT_EQ(root->AttributeCount(), 0);
    EXPECT_TRUE(m_log.Contains("Event #XML Parser Error: Number="));
    EXPECT_TRUE(m_log.Contains("#KyXMLElement::AddElement"));
    EXPECT_TRUE(m_log.Contains("#KyXMLElement::AddAttribute"));
}

TEST_F(KyXMLElementTest, ReadingAMissingAttributeIsAFailureForTheCallerAndWritingAddsIt) {
    const auto root = RootOf("<r Known='k'/>");
    EXPECT_THROW((void)root->AttributeValueByName("missing"), BasicError);
    EXPECT_THROW((void)root->AttributeValueByName("KNOWN"), BasicError);
    EXPECT_THROW((void)root->AttributeValue(1), BasicError);
    EXPECT_TRUE(m_log.Lines().empty());
    root->SetAttributeValueByName("missing", "1");
    EXPECT_EQ(root->AttributeValueByName("missing"), "1");
    root->SetAttributeValueByName("missing", "<2>");
    EXPECT_EQ(root->AttributeValueByName("missing"), "<2>");
    EXPECT_EQ(root->AttributeCount(), 2);
    EXPECT_EQ(root->AttributeName(1), "missing");
    EXPECT_EQ(m_doc.XMLString(), "<r Known=\"k\" missing=\"%LT%2%GT%\"/>");
}

TEST_F(KyXMLElementTest, AttributeIsWrittenByPosition) {
    const auto root = RootOf("<r a='1' b='2'/>");
    root->SetAttributeValue(1, "x\ty");
    EXPECT_EQ(root->XMLString(), "<r a=\"1\" b=\"x%TAB%y\"/>");
    root->SetAttributeValue(2, "z");
    EXPECT_TRUE(m_log.Contains("91 - Object variable or With block variable not set"));
    EXPECT_TRUE(m_log.Contains("KyXMLElement::AttributeValue"));
}

TEST_F(KyXMLElementTest, ElementAtAPositionOutsideIsLogged) {
    const auto root = RootOf("<r><a/></r>");
    EXPECT_EQ(root->ElementAtPosition(-1), nullptr);
    EXPECT_EQ(root->ElementAtPosition(1), nullptr);
    EXPECT_EQ(root->ElementAtPosition(0)->ElementName(), "a");
    EXPECT_EQ(
        m_log.Entries(),
        (std::vector<std::string>{
            "Event #No element at position -1#KyXMLElement::ElementAtPosition",
            "Event #No element at position 1#KyXMLElement::ElementAtPosition"}));
}

TEST_F(KyXMLElementTest, ElementByAttributeValueComparesStoredValuesWithoutRegardToCase) {
    const auto root = RootOf("<r>text<a/><b k='One'/><c k='x%TAB%Y'/></r>");
    EXPECT_EQ(root->ElementByAttributeValue("k", "ONE")->ElementName(), "b");
    EXPECT_EQ(root->ElementByAttributeValue("k", "X\ty")->ElementName(), "c");
    EXPECT_EQ(root->ElementByAttributeValue("K", "One"), nullptr);
    EXPECT_EQ(root->ElementByAttributeValue("k", "Two"), nullptr);
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(KyXMLElementTest, RemoveElementTakesTheChildAtThePosition) {
    const auto root = RootOf("<r><a/><b/></r>");
    EXPECT_TRUE(root->RemoveElement(0));
    EXPECT_EQ(m_doc.XMLString(), "<r><b/></r>");
    EXPECT_FALSE(root->RemoveElement(1));
    EXPECT_FALSE(root->RemoveElement(-1));
    EXPECT_EQ(
        m_log.Entries(),
        (std::vector<std::string>{
            "Event #No element to remove at position 1#KyXMLElement::RemoveElement",
            "Event #No element to remove at position -1#KyXMLElement::RemoveElement"}));
}

TEST_F(KyXMLElementTest, RemoveElementByAttributeValueFailsOnAMissingElement) {
    const auto root = RootOf("<r><a k='1'/><b k='%TAB%'/></r>");
    EXPECT_TRUE(root->RemoveElementByAttributeValue("k", "1"));
    EXPECT_TRUE(root->RemoveElementByAttributeValue("k", "\t"));
    EXPECT_EQ(root->ElementCount(), 0);
    EXPECT_FALSE(root->RemoveElementByAttributeValue("k", "1"));
    EXPECT_EQ(
        m_log.Entries(),
        std::vector<std::string>{"Error #91 - Object variable or With block variable not set"
                                 "#KyXMLElement::RemoveElementByAttributeValue"});
}

TEST_F(KyXMLElementTest, RemoveAllElementsLeavesNone) {
    const auto root = RootOf("<r a='1'><a/>text<b/><c><d/></c></r>");
    root->RemoveAllElements();
    EXPECT_EQ(root->ElementCount(), 0);
    EXPECT_EQ(m_doc.XMLString(), "<r a=\"1\"/>");
}

TEST_F(KyXMLElementTest, RemovedElementAndItsChildrenStayUsable) {
    std::shared_ptr<KyXMLElement> child;
    {
        KyXMLDoc doc;
        ASSERT_TRUE(doc.LoadFromString("<r><a><b n='1'/></a></r>"));
        const auto root = doc.RootElement();
        child = root->ElementByName("a")->ElementByName("b");
        root->RemoveAllElements();
        ASSERT_TRUE(doc.LoadFromString("<other/>"));
    }
    EXPECT_EQ(child->AttributeValueByName("n"), "1");
    EXPECT_NE(child->AddElement("c"), nullptr);
    EXPECT_EQ(child->ElementCount(), 1);
}

TEST_F(KyXMLElementTest, TextIsAChildWithoutAName) {
    const auto root = RootOf("<r>\r\n  <a/>  some text\r\n</r>");
    ASSERT_EQ(root->ElementCount(), 2);
    const auto text = root->ElementAtPosition(1);
    EXPECT_EQ(text->ElementType(), 3);
    EXPECT_EQ(text->ElementName(), "");
    EXPECT_EQ(text->ElementCount(), 0);
    EXPECT_EQ(text->AttributeCount(), 0);
    EXPECT_THROW((void)text->AttributeValueByName("n"), BasicError);
}

TEST_F(KyXMLElementTest, PrefixBelongsToTheNameOfALookUpButNotToTheBaseName) {
    const auto root = RootOf("<r xmlns:p='urn:p'><p:x p:k='1'/></r>");
    const auto child = root->ElementByName("X");
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(child->AttributeName(0), "k");
    EXPECT_EQ(child->AttributeValueByName("p:k"), "1");
    EXPECT_THROW((void)child->AttributeValueByName("k"), BasicError);
    EXPECT_EQ(root->ElementListByName("x").Count(), 0);
    EXPECT_EQ(root->ElementListByName("p:x").Count(), 1);
}

TEST_F(KyXMLElementTest, CharactersThatXmlCannotHoldAreReplacedSoThatTheFileStaysReadable) {
    const auto root = RootOf("<r/>");
    root->AddAttribute("v", std::string("a\0b\x01\xFF-\xC3\xA9\n", 9));
    const std::string mark = "\xEF\xBF\xBD";
    const std::string expected = "a" + mark + "b" + mark + mark + "-\xC3\xA9\n";
    EXPECT_EQ(root->AttributeValueByName("v"), expected);
    const std::string path = m_folder.Path("a.xml");
    ASSERT_TRUE(m_doc.SaveToFile(path));
    KyXMLDoc again;
    ASSERT_TRUE(again.LoadFromFile(path));
    EXPECT_EQ(again.RootElement()->AttributeValueByName("v"), expected);
}

TEST_F(KyXMLElementTest, ExistingElementRaisesWhereThereIsNone) {
    const auto root = RootOf("<r/>");
    EXPECT_EQ(&ExistingElement(root), root.get());
    EXPECT_THROW(ExistingElement(nullptr), BasicError);
}

TEST_F(KyXMLDocTest, SavedFileHasNoDeclarationAndLoadsAgain) {
    m_doc.NewDoc("R");
    m_doc.RootElement()->AddElement("a")->AddAttribute("k", "Gr\xC3\xB6\xC3\x9F\x65");
    const std::string path = m_folder.Path("out.dvk");
    EXPECT_TRUE(m_doc.SaveToFile(path));
    EXPECT_EQ(m_folder.Read("out.dvk"), "<R>\n  <a k=\"Gr\xC3\xB6\xC3\x9F\x65\"/>\n</R>\r\n");
    KyXMLDoc again;
    ASSERT_TRUE(again.LoadFromFile(path));
    EXPECT_EQ(again.XMLString(), m_doc.XMLString());
    EXPECT_EQ(again.LastError(), 0);
}

TEST_F(KyXMLDocTest, SaveWithoutANameTakesTheNameOfTheLastLoad) {
    const std::string path = m_folder.Write("in.xml", "<r><a/></r>");
    ASSERT_TRUE(m_doc.LoadFromFile(path));
    m_doc.RootElement()->RemoveAllElements();
    EXPECT_TRUE(m_doc.SaveToFile());
    EXPECT_EQ(m_folder.Read("in.xml"), "<r/>\r\n");
}

TEST_F(KyXMLDocTest, FailedSaveIsLoggedAndLeavesItsCode) {
    m_doc.NewDoc("R");
    EXPECT_FALSE(m_doc.SaveToFile(m_folder.Path("missing\\out.dvk")));
    EXPECT_EQ(m_doc.LastError(), static_cast<std::int32_t>(0x80070003));
    EXPECT_TRUE(m_log.Contains("XML Parser Error: Number=-2147024893 Reason=Path not found"));
    EXPECT_TRUE(m_log.Contains("#KyXMLDoc::SaveToFile"));
    m_folder.Write("folder\\x", "");
    EXPECT_FALSE(m_doc.SaveToFile(m_folder.Path("folder")));
    EXPECT_EQ(m_doc.LastError(), static_cast<std::int32_t>(0x80070005));
}

TEST_F(KyXMLDocTest, FailedLoadsAreLoggedUnderTheirNamesAndLeaveAnEmptyDocument) {
    EXPECT_FALSE(m_doc.LoadFromFile(m_folder.Path("missing.xml")));
    EXPECT_FALSE(m_doc.LoadFromString("<r><a></r>"));
    EXPECT_EQ(m_doc.XMLString(), "");
    const std::vector<std::string> entries = m_log.Entries();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_TRUE(entries[0].starts_with("Event #XML Parser Error: Number="));
    EXPECT_TRUE(entries[0].ends_with("#KyXMLDoc::LoadFromFile"));
    EXPECT_TRUE(entries[1].ends_with("#KyXMLDoc::LoadFromString"));
    EXPECT_EQ(m_doc.RootElement()->ElementName(), "Root_Element");
}

struct BadText {
    const char* Name;
    std::string Text;
};

TEST_F(KyXMLDocTest, BadTextIsRefused) {
    const std::string deep = [] {
        std::string text;
        for (int depth = 0; depth < 100000; ++depth) {
            text += "<a>";
        }
        return text;
    }();
    const BadText cases[] = {
        {"empty", ""},
        {"no element", "just text"},
        {"two roots", "<a/><b/>"},
        {"undefined entity", "<a>&x;</a>"},
        {"NUL", std::string("<a>\0</a>", 8)},
        {"broken UTF-8", "<a k='\xC3'/>"},
        {"too deep", deep},
        {"cut", "<a k='"},
    };
    for (const BadText& row : cases) {
        EXPECT_FALSE(m_doc.LoadFromString(row.Text)) << row.Name;
        EXPECT_EQ(m_doc.XMLString(), "") << row.Name;
    }
}

TEST_F(KyXMLDocTest, DocumentTypeIsRefusedAsAWhole) {
    const std::string secret = m_folder.Write("secret.txt", "secret");
    const std::string host = (m_folder.HostPath() / "secret.txt").string();
    const BadText cases[] = {
        {"plain", "<!DOCTYPE r><r/>"},
        {"external file", "<!DOCTYPE r [<!ENTITY x SYSTEM 'file://" + host + "'>]><r>&x;</r>"},
        {"external subset", "<!DOCTYPE r SYSTEM 'http://localhost/x.dtd'><r/>"},
        {"multiplying entities",
         "<!DOCTYPE r [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;'><!ENTITY c '&b;&b;&b;'>]>"
         "<r k='&c;'/>"},
    };
    for (const BadText& row : cases) {
        m_log.Clear();
        EXPECT_FALSE(m_doc.LoadFromString(row.Text)) << row.Name;
        EXPECT_EQ(m_doc.XMLString(), "") << row.Name;
        EXPECT_TRUE(m_log.Contains("A document type is not allowed.")) << row.Name;
    }
}

TEST_F(KyXMLDocTest, CommentsAndProcessingInstructionsAreNotKept) {
    const auto root = RootOf("<?xml version='1.0'?><?p i?><!-- c --><r><!-- c --><a/><?p i?></r>");
    EXPECT_EQ(root->ElementCount(), 1);
    EXPECT_EQ(m_doc.XMLString(), "<r><a/></r>");
}

TEST_F(KyXMLDocTest, FileIsReadInTheEncodingThatItDeclares) {
    const std::string path = m_folder.Write(
        "in.xml", "<?xml version='1.0' encoding='windows-1252'?><r k='Gr\xF6\xDF\x65 \x80'/>");
    ASSERT_TRUE(m_doc.LoadFromFile(path));
    EXPECT_EQ(
        m_doc.RootElement()->AttributeValueByName("k"), "Gr\xC3\xB6\xC3\x9F\x65 \xE2\x82\xAC");
    // A text is UTF-8 already.
    EXPECT_TRUE(
        m_doc.LoadFromString("<?xml version='1.0' encoding='windows-1252'?><r k='\xC3\xB6'/>"));
    EXPECT_EQ(m_doc.RootElement()->AttributeValueByName("k"), "\xC3\xB6");
}

TEST_F(KyXMLDocTest, ElementsOfAWideDocumentAreFoundByPosition) {
    constexpr int kCount = 200000;
    std::string text = "<r>";
    for (int number = 0; number < kCount; ++number) {
        text += "<a/>";
    }
    const auto root = RootOf(text + "</r>");
    ASSERT_EQ(root->ElementCount(), kCount);
    std::size_t length = 0;
    for (std::int32_t position = 0; position < kCount; ++position) {
        length += root->ElementAtPosition(position)->ElementName().size();
    }
    EXPECT_EQ(length, static_cast<std::size_t>(kCount));
}

TEST_F(KyXMLElementTest, ManyElementsAddedAtTheEndStandAtTheirPositions) {
    constexpr int kCount = 50000;
    const auto root = RootOf("<r><first/></r>");
    for (int number = 1; number <= kCount; ++number) {
        root->AddElement("a")->AddAttribute("n", std::to_string(number));
    }
    ASSERT_EQ(root->ElementCount(), kCount + 1);
    EXPECT_EQ(root->ElementAtPosition(kCount)->AttributeValueByName("n"), "50000");
    root->AddElement("b", 0);
    EXPECT_EQ(root->ElementAtPosition(0)->ElementName(), "b");
    EXPECT_EQ(root->ElementAtPosition(1)->ElementName(), "first");
}

TEST_F(KyXMLElementTest, ThePlaceTellsNameLineAndFileAsFarAsTheyAreKnown) {
    const auto root = RootOf("<r>\n<Rules/></r>");
    EXPECT_EQ(root->ElementAtPosition(0)->PlaceText(), "the element Rules (line 2)");
    EXPECT_EQ(root->AddElement("New")->PlaceText(), "the element New");
    const std::string path = m_folder.Write("in.xml", "<r>text</r>");
    ASSERT_TRUE(m_doc.LoadFromFile(path));
    EXPECT_EQ(m_doc.RootElement()->PlaceText(), "the element r (line 1 of " + path + ")");
    EXPECT_EQ(
        m_doc.RootElement()->ElementAtPosition(0)->PlaceText(),
        "a piece of text (line 1 of " + path + ")");
    EXPECT_EQ(m_doc.RootElement()->AddElement("x")->PlaceText(), "the element x (" + path + ")");
}

}  // namespace
}  // namespace dorvik
