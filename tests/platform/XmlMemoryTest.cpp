#include "base/BasicError.h"
#include "platform/xml/XmlDocument.h"
#include "platform/xml/XmlNode.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <libxml/xmlmemory.h>

namespace dorvik {
namespace {

long g_left = 0;  // what the library still gets; negative for no limit

bool MayAllocate() {
    return g_left < 0 || g_left-- > 0;
}

void* Allocate(std::size_t size) {
    return MayAllocate() ? std::malloc(size) : nullptr;
}

void* Reallocate(void* block, std::size_t size) {
    return MayAllocate() ? std::realloc(block, size) : nullptr;
}

char* Duplicate(const char* text) {
    return MayAllocate() ? ::strdup(text) : nullptr;
}

/// As long as it lives the XML library gets so many pieces of memory and then no more.
class MemoryOfLibrary {
public:
    explicit MemoryOfLibrary(long pieces) {
        xmlMemGet(&m_free, &m_allocate, &m_reallocate, &m_duplicate);
        g_left = pieces;
        xmlMemSetup(std::free, &Allocate, &Reallocate, &Duplicate);
    }
    ~MemoryOfLibrary() {
        g_left = -1;
        xmlMemSetup(m_free, m_allocate, m_reallocate, m_duplicate);
    }
    MemoryOfLibrary(const MemoryOfLibrary&) = delete;
    MemoryOfLibrary& operator=(const MemoryOfLibrary&) = delete;

private:
    xmlFreeFunc m_free = nullptr;
    xmlMallocFunc m_allocate = nullptr;
    xmlReallocFunc m_reallocate = nullptr;
    xmlStrdupFunc m_duplicate = nullptr;
};

constexpr std::string_view kText =
    R"(<Rules><Rule Name="first &amp; long enough to be no short text" ID="1"/>)"
    R"(<Rule Name="second" ID="2"/><Rule Name="third" ID="3"/></Rules>)";

TEST(XmlMemory, AValueNeedsNoneOfTheLibrary) {
    XmlDocument document;
    ASSERT_TRUE(document.LoadText(kText));
    const XmlNode rule = document.DocumentElement().Child(0);
    const MemoryOfLibrary none(0);
    EXPECT_EQ(rule.Attribute("Name"), "first & long enough to be no short text");
}

TEST(XmlMemory, ANullNodeIsAnErrorAndNoCrash) {
    const XmlNode null;
    EXPECT_TRUE(null.IsNull());
    EXPECT_THROW(null.Type(), BasicError);
    EXPECT_THROW(null.BaseName(), BasicError);
    EXPECT_THROW(null.Attribute("Name"), BasicError);
}

}  // namespace
}  // namespace dorvik
