#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::basic {

class ScriptContext;

/// Looks for one text in another, from left to right. The time grows with the length of the text and
/// not with the product of both lengths, and the host is polled now and then whether to continue.
/// REQUIRES: both texts outlive this.
class TextSearch {
public:
    struct Match {
        std::size_t Start = std::string_view::npos;  // byte offset; npos: not found
        std::size_t Size = 0;                        // bytes

        bool IsFound() const { return Start != std::string_view::npos; }
    };

    /// REQUIRES: sought is not empty.
    TextSearch(
        ScriptContext& context, std::string_view text, std::string_view sought, bool ignoreCase);

    /// The first match at or after `from`. REQUIRES: no call with a smaller `from` came before.
    Match Next(std::size_t from);

    /// The first match at or after `from`, for a single search.
    static Match First(
        ScriptContext& context,
        std::string_view text,
        std::string_view sought,
        bool ignoreCase,
        std::size_t from);

    /// The last match that ends at or before `end`.
    static Match Last(
        ScriptContext& context,
        std::string_view text,
        std::string_view sought,
        bool ignoreCase,
        std::size_t end);

private:
    void MakeTable(std::string_view sought);
    std::size_t FindByTable(std::string_view text, std::string_view sought, std::size_t from);
    std::size_t FindExact(std::string_view text, std::string_view sought, std::size_t from);
    Match FindShort(std::size_t from);
    Match FindLowered(std::size_t from);

    ScriptContext& m_context;
    std::string_view m_text;
    std::string_view m_sought;
    bool m_ignoreCase;
    // A long text sought without case is sought in the lower-case forms. Their characters are those of
    // the text one by one, but may have other lengths.
    std::string m_loweredText;
    std::string m_loweredSought;
    /// For each length of a beginning of a long text that is sought, the length of its longest shorter
    /// end that is a beginning too: where to go on after a mismatch.
    std::vector<std::uint32_t> m_table;
    std::size_t m_textAt = 0;     // the same character
    std::size_t m_loweredAt = 0;  // in both texts
};

}  // namespace dorvik::basic
