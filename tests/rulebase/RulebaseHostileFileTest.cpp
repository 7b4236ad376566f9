#include "platform/xml/XmlDocument.h"
#include "rulebase/RulebaseManagerFixture.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace dorvik {
namespace {

using test::Changed;
using test::FullRulebaseText;
using test::RulebaseText;
using RulebaseHostileFileTest = test::RulebaseManagerFixture;

/// A port of this machine that counts who knocks.
class ListeningPort {
public:
    ListeningPort() : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
        ::listen(m_socket, 1);
        socklen_t size = sizeof(address);
        ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &size);
        m_url = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/x.dtd";
    }
    ~ListeningPort() { ::close(m_socket); }
    ListeningPort(const ListeningPort&) = delete;
    ListeningPort& operator=(const ListeningPort&) = delete;

    const std::string& Url() const { return m_url; }
    bool WasCalled() const {
        const int caller = ::accept(m_socket, nullptr, nullptr);
        if (caller >= 0) {
            ::close(caller);
        }
        return caller >= 0;
    }

private:
    int m_socket;
    std::string m_url;
};

TEST_F(RulebaseHostileFileTest, ADocumentTypeOfAnyKindRefusesTheWholeFileAndReachesNothing) {
    const ListeningPort port;
    m_folder.Write("secret.txt", "s3cret");
    const std::string file = "file://" + (m_folder.HostPath() / "secret.txt").string();
    std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'boom'>";
    for (int level = 1; level < 30; ++level) {
        const std::string before = "&e" + std::to_string(level - 1) + ";";
        bomb +=
            "<!ENTITY e" + std::to_string(level) + " '" + before + before + before + before + "'>";
    }
    const std::string rules = FullRulebaseText().Text();
    const std::string use = Changed(rules, "Team rules", "&x;");
    const struct {
        const char* Name;
        std::string Text;
    } cases[] = {
        {"plain", "<!DOCTYPE Dorvik_Rulebase>" + rules},
        {"empty subset", "<!DOCTYPE Dorvik_Rulebase []>" + rules},
        {"behind a comment", "<?xml version='1.0'?><!-- c --><!DOCTYPE a>\n" + rules},
        {"external subset", "<!DOCTYPE a SYSTEM '" + port.Url() + "'>" + rules},
        {"public identifier", "<!DOCTYPE a PUBLIC 'p' '" + port.Url() + "'>" + rules},
        {"external file", "<!DOCTYPE a [<!ENTITY x SYSTEM '" + file + "'>]>" + use},
        {"external address", "<!DOCTYPE a [<!ENTITY x SYSTEM '" + port.Url() + "'>]>" + use},
        {"parameter entity", "<!DOCTYPE a [<!ENTITY % p SYSTEM '" + port.Url() + "'>%p;]>" + rules},
        {"entity bomb", bomb + "]>" + Changed(rules, "Team rules", "&e29;")},
        {"default attribute",
         "<!DOCTYPE a [<!ATTLIST Dorvik_Rulebase SchemaVersion CDATA '6.2'>]>" + rules},
        {"not closed", "<!DOCTYPE a [" + rules},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        ExpectRefused(row.Text, "A document type is not allowed.");
        EXPECT_FALSE(m_log.Contains("s3cret"));
    }
    EXPECT_FALSE(port.WasCalled());
}

TEST_F(RulebaseHostileFileTest, AnEntityThatNobodyDeclaresIsRefused) {
    ExpectRefused(
        Changed(FullRulebaseText().Text(), "Team rules", "&x;"), "Entity 'x' not defined");
}

TEST_F(RulebaseHostileFileTest, AFileBeyondTheLimitIsRefusedWithoutBeingRead) {
    m_criteria.SetRulebaseFile(m_folder.Write("team.dvk", FullRulebaseText().Text()));
    std::filesystem::resize_file(
        m_folder.HostPath() / "team.dvk",
        XmlDocument::kMaximumSize + 1);  // holds no more than before
    EXPECT_EQ(m_manager.LoadRulebase(m_criteria), nullptr);
    EXPECT_TRUE(
        m_log.Contains("The document is longer than 64 MB. (" + m_criteria.RulebaseFile() + ")"));
}

TEST_F(RulebaseHostileFileTest, DeepNestingIsRefused) {
    std::string open;
    std::string close;
    for (int depth = 0; depth < 100000; ++depth) {
        open += "<a>";
        close += "</a>";
    }
    ExpectRefused(open, "Excessive depth");
    ExpectRefused(open + close, "Excessive depth");
    RulebaseText text = FullRulebaseText();
    text.Report = "<Report/>" + open + close;
    ExpectRefused(text.Text(), "Excessive depth");
}

TEST_F(RulebaseHostileFileTest, UnknownElementsOfAnyDepthBelowTheLimitAreIgnored) {
    std::string unknown = "x";
    for (int depth = 0; depth < 200; ++depth) {
        unknown = "<New>" + unknown + "</New>";
    }
    RulebaseText text = FullRulebaseText();
    text.Report += unknown;
    EXPECT_NE(LoadForEdit(text.Text()), nullptr);
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseHostileFileTest, MoreAttributesThanAnybodyWritesAreRefusedAtOnce) {
    std::string attributes;
    for (int number = 0; number < 300000; ++number) {
        attributes += " a" + std::to_string(number) + " = '1'";
    }
    ExpectRefused(
        Changed(
            FullRulebaseText().Text(), "<RulebaseProperties", "<RulebaseProperties" + attributes),
        "An element has more than 10,000 attributes.");
}

TEST_F(RulebaseHostileFileTest, AThousandUnknownAttributesAreIgnored) {
    std::string attributes;
    for (int number = 0; number < 1000; ++number) {
        attributes += " a" + std::to_string(number) + "='1'";
    }
    EXPECT_NE(
        LoadForEdit(Changed(
            FullRulebaseText().Text(), "<RulebaseProperties", "<RulebaseProperties" + attributes)),
        nullptr);
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseHostileFileTest, AValueLongerThanTheLibraryAllowsIsRefused) {
    ExpectRefused(
        Changed(FullRulebaseText().Text(), "Team rules", std::string(10'000'100, 'x')),
        "AttValue length too long");
}

TEST_F(RulebaseHostileFileTest, ADirectoryADeviceOrAPipeInPlaceOfTheFileIsRefused) {
    for (const std::string& path : {m_folder.Path(), std::string("\\dev\\zero")}) {
        m_log.Clear();
        m_criteria.SetRulebaseFile(path);
        EXPECT_EQ(m_manager.LoadRulebase(m_criteria), nullptr) << path;
        EXPECT_TRUE(m_log.Contains("KyXMLDoc::LoadFromFile")) << path;
    }
}

TEST_F(RulebaseHostileFileTest, TruncatedFilesAreRefusedAtEveryLength) {
    const std::string full = FullRulebaseText().Text();
    const std::size_t end = full.rfind('>');
    for (std::size_t length = 0; length < end; length += 7) {
        m_box.Messages.clear();
        ASSERT_EQ(Load(full.substr(0, length)), nullptr) << length;
        ExpectOneWarning(
            "Unable to load the rulebase because of an unexpected error during parsing.");
    }
}

}  // namespace
}  // namespace dorvik
