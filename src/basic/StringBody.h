#pragma once

#include "basic/ReferenceCounted.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik::basic {

/// The text of a string value, UTF-8. A lone half of a surrogate pair (from `ChrW`) is kept in its
/// three-byte form. What a script sees as lengths and positions counts characters; `IsAscii` says
/// that bytes are characters. Its bytes are charged to the memory meter.
class StringBody final : public ReferenceCounted {
public:
    /// Raises 14 beyond the string limit and 7 beyond the memory limit.
    explicit StringBody(std::string text);
    ~StringBody() override;

    /// A body with a text of its own.
    static Ref<StringBody> Of(std::string_view text);
    /// Both texts, one behind the other, with a single allocation.
    static Ref<StringBody> Joined(std::string_view left, std::string_view right);
    /// The body, shared by all who ask, of a text of one ASCII character.
    static StringBody* OfCharacter(char character);

    const std::string& Text() const { return m_text; }
    bool IsAscii() const { return Length() == m_text.size(); }  // known after the first question
    std::size_t Length() const {                                // characters
        return static_cast<std::size_t>(m_length >= 0 ? m_length : CountCharacters());
    }
    /// Appends in place, growing ahead so that a long text can be built bit by bit. `text` must not be
    /// a part of this one. REQUIRES: !IsShared(). Raises 14 beyond the string limit, 7 beyond the memory limit.
    void Append(std::string_view text);

    /// Never 0; kept, since texts that are keys are asked again and again.
    std::uint32_t Hash() const { return m_hash != 0 ? m_hash : MakeHash(); }

private:
    StringBody(const char* text, std::size_t size);
    void Charge();
    std::int32_t CountCharacters() const;
    std::uint32_t MakeHash() const;
    std::size_t Cost() const;

    mutable std::int32_t m_length = -1;  // characters, -1 until asked
    std::string m_text;
    mutable std::uint32_t m_hash = 0;  // 0 until asked
};

}  // namespace dorvik::basic
