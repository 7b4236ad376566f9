#include "basic/values/CharacterIndex.h"

#include "basic/values/Characters.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/StringBody.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace dorvik::basic {
namespace {

/// Characters of one to four bytes, and a half of a surrogate pair.
const std::vector<std::string> kCharacters = {"a", "\n", "ä", "€", "😀", "\xED\xA0\xBD"};

std::vector<std::string> MixedCharacters(std::size_t count, std::mt19937& random) {
    std::vector<std::string> characters;
    for (std::size_t i = 0; i < count; ++i) {
        characters.push_back(kCharacters[random() % kCharacters.size()]);
    }
    return characters;
}

std::string Joined(const std::vector<std::string>& characters) {
    std::string text;
    for (const std::string& character : characters) {
        text += character;
    }
    return text;
}

/// Whether a body finds the places of all characters, in any order and in both directions.
void ExpectPlaces(
    const StringBody& body, const std::vector<std::string>& characters, std::mt19937& random) {
    std::vector<std::size_t> offsets;
    std::size_t offset = 0;
    for (const std::string& character : characters) {
        offsets.push_back(offset);
        offset += character.size();
    }
    offsets.push_back(offset);
    ASSERT_EQ(body.Text(), Joined(characters));
    ASSERT_EQ(body.Length(), characters.size());
    for (int i = 0; i < 40; ++i) {
        const std::size_t character = random() % offsets.size();
        ASSERT_EQ(body.OffsetOf(character), offsets[character]);
        const std::size_t other = random() % offsets.size();
        ASSERT_EQ(body.CharactersBefore(offsets[other]), other);
    }
    EXPECT_EQ(body.OffsetOf(characters.size() + 1), offset);
}

/// The same as `modCharacters::Skip`, byte by byte.
std::size_t SkipByteByByte(std::string_view text, std::size_t count, std::size_t from) {
    const auto begins = [&](std::size_t offset) {
        return (static_cast<unsigned char>(text[offset]) & 0xC0U) != 0x80;
    };
    for (std::size_t passed = 0; count > 0 && from < text.size(); ++from) {
        if (begins(from) && passed++ == count) {
            break;
        }
    }
    return from;
}

TEST(CharacterIndex, CharactersAreSkippedInWordsAsInBytes) {
    std::mt19937 random(9);
    for (int round = 0; round < 2'000; ++round) {
        std::string text(random() % 40, '\0');
        const std::uint32_t continuations = random() % 4;  // of four bytes; no text has so many
        for (char& byte : text) {
            byte = static_cast<char>(
                random() % 4 < continuations ? 0x80 + random() % 0x40 : random() % 0x80);
        }
        for (std::size_t from = 0; from <= text.size(); ++from) {
            for (std::size_t count = 0; count < 24; ++count) {
                ASSERT_EQ(modCharacters::Skip(text, count, from), SkipByteByByte(text, count, from))
                    << "round " << round << ", " << count << " from " << from;
            }
        }
    }
}

TEST(CharacterIndex, FindsCharactersOfAnyWidthAnywhere) {
    std::mt19937 random(1);
    for (const std::size_t size : {0, 1, 50, 63, 64, 65, 128, 129, 1000}) {
        const auto characters = MixedCharacters(size, random);
        ExpectPlaces(StringBody(Joined(characters)), characters, random);
    }
}

TEST(CharacterIndex, FindsCharactersOfATextThatGrows) {
    std::mt19937 random(2);
    StringBody body("");
    std::vector<std::string> characters;
    for (int round = 0; round < 60; ++round) {
        const auto more = MixedCharacters(random() % 50, random);
        characters.insert(characters.end(), more.begin(), more.end());
        body.Append(Joined(more));
        ExpectPlaces(body, characters, random);
    }
}

TEST(CharacterIndex, FindsCharactersOfATextThatIsOverwritten) {
    std::mt19937 random(3);
    auto characters = MixedCharacters(700, random);
    StringBody body(Joined(characters));
    for (int round = 0; round < 500; ++round) {
        const std::size_t first = random() % characters.size();
        const std::size_t most = std::min<std::size_t>(characters.size() - first, 200);
        const auto part = MixedCharacters(random() % (most + 1), random);
        std::copy(
            part.begin(), part.end(), characters.begin() + static_cast<std::ptrdiff_t>(first));
        body.Overwrite(first, part.size(), Joined(part));
        ExpectPlaces(body, characters, random);
    }
}

TEST(CharacterIndex, GivesPartsOfAllLengths) {
    std::mt19937 random(7);
    const auto characters = MixedCharacters(300, random);
    const StringBody body(Joined(characters));
    for (int question = 0; question < 2000; ++question) {
        const std::size_t first = random() % 310;
        const std::size_t count = random() % 140;
        const std::size_t from = std::min(first, characters.size());
        const std::size_t end = std::min(first + count, characters.size());
        std::string buffer;
        ASSERT_EQ(
            body.Part(first, count, buffer),
            Joined(
                {characters.begin() + static_cast<std::ptrdiff_t>(from),
                 characters.begin() + static_cast<std::ptrdiff_t>(end)}))
            << first << ", " << count;
    }
}

TEST(CharacterIndex, ATextThatIsOverwrittenAgainAndAgainIsReadRight) {
    std::mt19937 random(6);
    auto characters = MixedCharacters(400, random);
    StringBody body(Joined(characters));
    for (int round = 0; round < 30; ++round) {
        const std::size_t memory = MemoryMeter::Current().Used();
        for (int change = 0; change < 400; ++change) {
            const std::size_t first = random() % (characters.size() - 3);
            const auto part = MixedCharacters(1 + random() % 3, random);
            std::copy(
                part.begin(), part.end(), characters.begin() + static_cast<std::ptrdiff_t>(first));
            body.Overwrite(first, part.size(), Joined(part));
        }
        std::string buffer;
        const std::size_t first = random() % characters.size();
        ASSERT_EQ(
            body.Part(first, 2, buffer),
            Joined(
                {characters.begin() + static_cast<std::ptrdiff_t>(first),
                 characters.begin() +
                     static_cast<std::ptrdiff_t>(std::min(first + 2, characters.size()))}));
        ASSERT_EQ(body.Length(), characters.size());
        ASSERT_EQ(body.Text(), Joined(characters));
        EXPECT_EQ(body.Hash(), StringBody(Joined(characters)).Hash());
        EXPECT_LE(MemoryMeter::Current().Used(), memory + 4 * characters.size());
        ExpectPlaces(body, characters, random);
    }
}

TEST(CharacterIndex, ATextThatIsOverwrittenOftenIsNoLongerMoved) {
    StringBody body(std::string(1000, 'x') + "\xC3\xA4" + std::string(1, '\0'));
    std::size_t moved = 0;
    for (int change = 0; change < 10'000; ++change) {
        moved += body.Overwrite(0, 1, change % 2 == 0 ? "\xC3\xA4" : "x");
    }
    EXPECT_LE(moved, 40 * body.Text().size() + 20'000);
    EXPECT_EQ(body.Text(), std::string(1000, 'x') + "\xC3\xA4" + std::string(1, '\0'));
    // What is no character ends the form.
    for (int change = 0; change < 1'001; ++change) {
        body.Overwrite(0, 1, change % 2 == 0 ? "\xC3\xA4" : "x");
    }
    body.Overwrite(0, 1, "\xF4\x80\x80\x80\x80");
    EXPECT_EQ(body.Text().substr(0, 6), "\xF4\x80\x80\x80\x80x");
}

TEST(CharacterIndex, ATextThatWasOverwrittenIsReadUnderALimitThatIsReachedAlready) {
    MemoryMeter& meter = MemoryMeter::Current();
    const std::size_t limit = meter.Limit();
    const std::size_t before = meter.Used();
    const std::string end = std::string(1000, 'x') + "ä";
    {
        StringBody body(std::string(1, 'x') + end);
        for (int change = 0; change < 10'000; ++change) {
            body.Overwrite(0, 1, change % 2 == 0 ? "x" : "ä");
        }
        const std::size_t held = meter.Used();
        meter.SetLimit(1);
        EXPECT_EQ(body.Text(), "ä" + end);
        meter.SetLimit(limit);
        EXPECT_LT(meter.Used(), held);  // it was in the other form
    }
    EXPECT_EQ(meter.Used(), before);
}

TEST(CharacterIndex, ATextThatBecomesAsciiIsOneAndBack) {
    StringBody body(std::string(200, 'x') + "ä");
    EXPECT_FALSE(body.IsAscii());
    EXPECT_EQ(body.OffsetOf(201), 202U);
    body.Overwrite(200, 1, "a");
    EXPECT_TRUE(body.IsAscii());
    EXPECT_EQ(body.OffsetOf(201), 201U);
    body.Overwrite(0, 2, "öö");
    EXPECT_EQ(body.OffsetOf(2), 4U);
    EXPECT_EQ(body.CharactersBefore(203), 201U);
}

constexpr std::size_t kLength = 100'000;

TEST(CharacterIndex, AScanReadsTheTextAFewTimesWhateverItsLength) {
    std::mt19937 random(4);
    const std::string text = Joined(MixedCharacters(kLength, random));
    CharacterIndex index;
    for (std::size_t character = 0; character < kLength; ++character) {
        const std::size_t offset = index.OffsetOf(text, kLength, character);
        ASSERT_EQ(index.CharactersBefore(text, kLength, offset), character);
    }
    EXPECT_LE(index.BytesRead(), 3 * text.size());
    const std::size_t forward = index.BytesRead();
    for (std::size_t character = kLength; character-- > 0;) {
        index.OffsetOf(text, kLength, character);
    }
    EXPECT_LE(index.BytesRead() - forward, kLength * 64 * 4);
}

TEST(CharacterIndex, AQuestionAnywhereReadsAShortStretch) {
    std::mt19937 random(5);
    const std::string text = Joined(MixedCharacters(kLength, random));
    CharacterIndex index;
    constexpr std::size_t kQuestions = 10'000;
    for (std::size_t question = 0; question < kQuestions; ++question) {
        const std::size_t offset = index.OffsetOf(text, kLength, random() % kLength);
        index.CharactersBefore(text, kLength, offset);
    }
    constexpr std::size_t kStretch = std::size_t{64} * 4;
    EXPECT_LE(index.BytesRead(), text.size() + 2 * kQuestions * kStretch);
}

TEST(CharacterIndex, OneCharacterIsOverwrittenWithoutMovingOthers) {
    StringBody body(std::string(10'000, 'x') + "ä");
    EXPECT_EQ(body.Overwrite(5000, 1, "y"), 1U);
    EXPECT_EQ(body.Overwrite(10'000, 1, "ö"), 2U);
    EXPECT_EQ(body.Overwrite(10'000, 1, "€"), 3U);
    EXPECT_EQ(body.Overwrite(9'999, 1, "ä"), 2U + 3U);
}

}  // namespace
}  // namespace dorvik::basic
