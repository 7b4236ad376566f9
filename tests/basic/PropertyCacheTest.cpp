#include "basic/program/PropertyCache.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik::basic {
namespace {

class PropertyCacheTest : public testing::Test {
protected:
    PropertyCache m_cache;
    const Value m_source = Value::Text("Source");
    const Value m_line = Value::Text("Line");
    const Value m_answer = Value::Text("x = 1");
};

TEST_F(PropertyCacheTest, AnAnswerIsFoundByCallbackAndArguments) {
    m_cache.Keep(4, m_source, m_line, m_answer);
    ASSERT_NE(m_cache.Find(4, m_source, m_line), nullptr);
    EXPECT_EQ(m_cache.Find(4, m_source, m_line)->AsText(), "x = 1");
    EXPECT_EQ(m_cache.Find(5, m_source, m_line), nullptr);
    EXPECT_EQ(m_cache.Find(4, m_line, m_source), nullptr);
    EXPECT_EQ(m_cache.Find(4, m_source, Value()), nullptr);
}

TEST_F(PropertyCacheTest, AnAnswerWithoutArgumentsIsFound) {
    m_cache.Keep(6, Value(), Value(), Value::Text("Statement"));
    ASSERT_NE(m_cache.Find(6, Value(), Value()), nullptr);
    EXPECT_EQ(m_cache.Find(6, m_source, Value()), nullptr);
}

TEST_F(PropertyCacheTest, AnotherTextOfTheSameCharactersIsNotFound) {
    m_cache.Keep(4, m_source, m_line, m_answer);
    EXPECT_EQ(m_cache.Find(4, Value::Text("Source"), m_line), nullptr);
}

TEST_F(PropertyCacheTest, ArgumentsThatAreNoTextsAreNeitherKeptNorFound) {
    m_cache.Keep(4, Value::Long(1), m_line, m_answer);
    EXPECT_EQ(m_cache.Find(4, Value::Long(1), m_line), nullptr);
}

TEST_F(PropertyCacheTest, OnlyTextsAndNumbersAreKept) {
    m_cache.Keep(1, m_source, m_line, Value::Null());
    m_cache.Keep(2, m_source, m_line, Value());
    m_cache.Keep(3, m_source, m_line, Value::Long(7));
    EXPECT_EQ(m_cache.Find(1, m_source, m_line), nullptr);
    EXPECT_EQ(m_cache.Find(2, m_source, m_line), nullptr);
    EXPECT_NE(m_cache.Find(3, m_source, m_line), nullptr);
}

TEST_F(PropertyCacheTest, ClearForgetsAll) {
    m_cache.Keep(4, m_source, m_line, m_answer);
    m_cache.Clear();
    EXPECT_EQ(m_cache.Find(4, m_source, m_line), nullptr);
}

TEST_F(PropertyCacheTest, ThereIsABoundToWhatIsKept) {
    constexpr std::size_t kAsked = 1000;
    std::size_t kept = 0;
    for (std::size_t member = 0; member < kAsked; ++member) {
        m_cache.Keep(member, m_source, m_line, m_answer);
        kept += m_cache.Find(member, m_source, m_line) != nullptr ? 1 : 0;
    }
    EXPECT_GT(kept, 30U);
    EXPECT_LT(kept, 100U);
}

}  // namespace
}  // namespace dorvik::basic
