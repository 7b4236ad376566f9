#include "basic/values/StringBody.h"

#include "CharacterIndex.h"
#include "WideText.h"
#include "basic/values/Characters.h"
#include "basic/values/MemoryMeter.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace dorvik::basic {

namespace {

/// What a string holds without memory of its own.
const std::size_t kInPlace = std::string().capacity();

/// The texts of one ASCII character. They belong to no script and are charged to none.
class CharacterBodies {
public:
    CharacterBodies() {
        const std::size_t before = MemoryMeter::Current().Used();
        for (std::size_t code = 0; code < m_bodies.size(); ++code) {
            m_bodies[code] = MakeRef<StringBody>(std::string(1, static_cast<char>(code)));
        }
        MemoryMeter::Current().Refund(MemoryMeter::Current().Used() - before);
    }
    StringBody* operator[](char character) const {
        return m_bodies[static_cast<unsigned char>(character)].Get();
    }

private:
    std::array<Ref<StringBody>, 128> m_bodies;
};

}  // namespace

StringBody::StringBody(std::string text) : m_text(std::move(text)) {
    Charge();
}

StringBody::StringBody(const char* text, std::size_t size) : m_text(text, size) {
    Charge();
}

void StringBody::Charge() {
    MemoryMeter& meter = MemoryMeter::Current();
    meter.CheckString(m_text.size());
    meter.Charge(Cost());
}

Ref<StringBody> StringBody::Of(std::string_view text) {
    return Ref<StringBody>(new StringBody(text.data(), text.size()));
}

Ref<StringBody> StringBody::Of(std::string_view text, std::size_t characters) {
    Ref<StringBody> body = Of(text);
    body->m_length = static_cast<std::int32_t>(characters);
    return body;
}

StringBody::~StringBody() {
    MemoryMeter::Current().Refund(Cost());
}

Ref<StringBody> StringBody::Joined(std::string_view left, std::string_view right) {
    MemoryMeter::Current().CheckString(left.size() + right.size());
    std::string text;
    text.reserve(left.size() + right.size());
    text.append(left).append(right);
    return MakeRef<StringBody>(std::move(text));
}

StringBody* StringBody::OfCharacter(char character) {
    thread_local const CharacterBodies bodies;
    return bodies[character];
}

void StringBody::Append(std::string_view text) {
    GrowTo(Text().size() + text.size());
    m_text.append(text);
    m_hash = 0;
    if (m_length >= 0) {
        m_length += static_cast<std::int32_t>(modCharacters::Count(text));
    }
}

/// Makes room for a text of that size.
void StringBody::GrowTo(std::size_t size) {
    MemoryMeter& meter = MemoryMeter::Current();
    meter.CheckString(size);
    if (size > m_text.capacity()) {
        const std::size_t before = Cost();
        const std::size_t grown = std::max(size, 2 * m_text.capacity());
        meter.Charge(sizeof(StringBody) + grown - before);
        m_text.reserve(grown);
    }
}

std::size_t StringBody::Overwrite(std::size_t first, std::size_t count, std::string_view part) {
    if (m_isWide && modWideText::Overwrite(m_text, first, count, part)) {
        return part.size();
    }
    const std::size_t from = OffsetOf(first);
    const std::size_t size = OffsetOf(first + count) - from;
    const std::size_t behind = m_text.size() - from - size;
    m_hash = 0;
    if (part.size() == size) {
        part.copy(m_text.data() + from, size);
    } else {
        GrowTo(m_text.size() - size + part.size());
        m_text.replace(from, size, part);
    }
    if (m_index) {
        const std::size_t shift = part.size() - size;  // may wrap around
        m_index->Overwritten(m_text, first, count, static_cast<std::ptrdiff_t>(shift));
    }
    if (part.size() == size) {
        return size;
    }
    if (m_index) {
        m_index->AddMove(behind);
        WidenIfWorthIt();
    }
    return part.size() + behind;
}

/// To change the form and back costs as much as some tens of moves do. Nothing that is done in the other form can pass
/// a limit that the text could not have passed already. REQUIRES: there is an index.
void StringBody::WidenIfWorthIt() {
    constexpr std::size_t kMoves = 32;
    if (m_index->BytesMoved() / kMoves < m_text.size()) {
        return;
    }
    m_index->ForgetMoves();
    const MemoryMeter& meter = MemoryMeter::Current();
    const std::size_t bytes = Length() * modWideText::kWidth;
    if (bytes > meter.StringLimit() || bytes > meter.Limit() ||
        meter.Used() > meter.Limit() - bytes) {
        return;
    }
    std::string wide = modWideText::Widened(m_text, Length());
    if (!wide.empty()) {
        Exchange(std::move(wide));
        m_isWide = true;
    }
}

void StringBody::Narrow() const {
    Exchange(modWideText::Narrowed(m_text, 0, Length()));
    m_isWide = false;
}

/// Takes the text in its other form; places in the old one mean nothing then. Raises nothing: a wider form was
/// compared with the limits before, and a narrower one takes no more than the wide one did, whatever the limits are
/// now.
void StringBody::Exchange(std::string text) const {
    const std::size_t before = Cost();
    m_text = std::move(text);
    m_index.reset();
    const std::size_t after = Cost();
    if (after > before) {
        MemoryMeter::Current().Charge(after - before);
    } else {
        MemoryMeter::Current().Refund(before - after);
    }
}

std::string_view StringBody::Part(std::size_t first, std::size_t count, std::string& buffer) const {
    if (m_isWide) {
        const std::size_t from = std::min(first, Length());
        buffer = modWideText::Narrowed(m_text, from, std::min(count, Length() - from));
        return buffer;
    }
    if (IsAscii()) {
        return std::string_view(m_text).substr(std::min(first, m_text.size()), count);
    }
    // The way through a short part is shorter than to find its end from elsewhere.
    constexpr std::size_t kShortPart = 64;
    const std::size_t from = OffsetOfMixed(first);
    const std::size_t end = count < kShortPart ? modCharacters::Skip(m_text, count, from)
                                               : OffsetOfMixed(first + count);
    return std::string_view(m_text).substr(from, end - from);
}

bool StringBody::IsWorthAnIndex() const {
    constexpr std::size_t kShortText = 128;
    if (m_text.size() <= kShortText) {
        return false;
    }
    if (!m_index) {
        m_index = std::make_unique<CharacterIndex>();
    }
    return true;
}

std::size_t StringBody::OffsetOfMixed(std::size_t character) const {
    return IsWorthAnIndex() ? m_index->OffsetOf(m_text, Length(), character)
                            : modCharacters::Skip(m_text, character);
}

std::size_t StringBody::CharactersBeforeMixed(std::size_t offset) const {
    return IsWorthAnIndex() ? m_index->CharactersBefore(m_text, Length(), offset)
                            : modCharacters::Count(std::string_view(m_text).substr(0, offset));
}

std::int32_t StringBody::CountCharacters() const {
    m_length = static_cast<std::int32_t>(modCharacters::Count(m_text));
    return m_length;
}

std::uint32_t StringBody::MakeHash() const {
    m_hash = std::max(1U, static_cast<std::uint32_t>(std::hash<std::string_view>()(Text())));
    return m_hash;
}

std::size_t StringBody::Cost() const {
    const std::size_t capacity = m_text.capacity();
    return sizeof(StringBody) + (capacity > kInPlace ? capacity : 0);
}

}  // namespace dorvik::basic
