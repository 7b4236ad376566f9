#pragma once

#include "basic/values/ReferenceCounted.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik::basic {

class CharacterIndex;

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
    static Ref<StringBody> Of(std::string_view text, std::size_t characters);
    /// Both texts, one after the other, with a single allocation.
    static Ref<StringBody> Joined(std::string_view left, std::string_view right);
    /// The body, shared by all who ask, of a text of one ASCII character.
    static StringBody* OfCharacter(char character);

    /// May allocate after `Overwrite`, which keeps a text that it changes often in another form.
    const std::string& Text() const {
        if (m_isWide) [[unlikely]] {
            Narrow();
        }
        return m_text;
    }
    bool IsAscii() const { return Length() == Text().size(); }  // known after the first question
    std::size_t Length() const {                                // characters
        return static_cast<std::size_t>(m_length >= 0 ? m_length : CountCharacters());
    }
    /// Appends in place, growing ahead so that a long text can be built bit by bit. `text` must not be
    /// a part of this one. REQUIRES: !IsShared(). Raises 14 beyond the string limit, 7 beyond the memory limit.
    void Append(std::string_view text);

    /// The byte offset of a character, counted from 0; the size of the text if it has fewer. A question costs
    /// the same wherever the character is, but for the first queries of a text that is not ASCII.
    std::size_t OffsetOf(std::size_t character) const {
        if (IsAscii()) {
            return character < m_text.size() ? character : m_text.size();
        }
        return OffsetOfMixed(character);
    }
    /// As many characters as there are of those wanted, from `first` on. `buffer` may hold them then.
    std::string_view Part(std::size_t first, std::size_t count, std::string& buffer) const;
    /// How many characters are before a byte offset.
    std::size_t CharactersBefore(std::size_t offset) const {
        return IsAscii() ? offset : CharactersBeforeMixed(offset);
    }

    /// Overwrites `count` characters from `first` on with as many others, in place, and returns how many
    /// bytes that has moved. `part` must not be a part of this text. Where much had to be moved, the text is kept in
    /// a form in which nothing has to, until its bytes are requested.
    /// REQUIRES: !IsShared(), or that all who share it are meant; the characters are there. Raises 14 and 7 as above.
    std::size_t Overwrite(std::size_t first, std::size_t count, std::string_view part);

    /// Never 0; kept, since texts that are keys are looked up again and again.
    std::uint32_t Hash() const { return m_hash != 0 ? m_hash : MakeHash(); }

private:
    StringBody(const char* text, std::size_t size);
    void Charge();
    void GrowTo(std::size_t size);
    std::int32_t CountCharacters() const;
    std::size_t OffsetOfMixed(std::size_t character) const;
    std::size_t CharactersBeforeMixed(std::size_t offset) const;
    bool IsWorthAnIndex() const;
    void WidenIfWorthIt();
    void Narrow() const;
    void Exchange(std::string text) const;
    std::uint32_t MakeHash() const;
    std::size_t Cost() const;

    mutable std::int32_t m_length = -1;  // characters, -1 until asked
    mutable std::string m_text;
    mutable std::uint32_t m_hash = 0;  // 0 until asked
    mutable bool m_isWide = false;     // the form of m_text: modWideText or UTF-8
    mutable std::unique_ptr<CharacterIndex>
        m_index;  // of a long text that is not ASCII, once asked
};

}  // namespace dorvik::basic
