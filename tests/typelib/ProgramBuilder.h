#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace dorvik::test {

/// Puts a program of the PE format together: headers, a section of code, and one of resources.
class ProgramBuilder {
public:
    enum class Width { Bits32, Bits64 };

    explicit ProgramBuilder(Width width = Width::Bits32) : m_width(width) {}

    /// A resource with a number; `language` is an LCID.
    ProgramBuilder&
    Add(std::string_view type,
        std::uint32_t number,
        std::uint32_t language,
        std::string_view bytes);
    /// A resource with a name.
    ProgramBuilder& AddNamed(std::string_view type, std::string_view name, std::string_view bytes);

    std::string Build() const;

private:
    struct Key {  // names before numbers, as in the tree
        std::string Name;
        std::uint32_t Number = 0;
        bool operator<(const Key& other) const;
    };
    using Languages = std::map<std::uint32_t, std::string>;
    using Numbers = std::map<Key, Languages>;

    std::string ResourceSection(std::uint32_t address) const;
    static std::size_t
    AppendNumbers(std::string& section, const Numbers& numbers, std::uint32_t address);
    static std::size_t
    AppendLanguages(std::string& section, const Languages& languages, std::uint32_t address);

    Width m_width;
    std::map<Key, Numbers> m_types;
};

/// Puts 2 or 4 bytes in the order of Intel at that place.
void PutWord(std::string& bytes, std::size_t place, std::uint16_t value);
void PutDoubleWord(std::string& bytes, std::size_t place, std::uint32_t value);
std::uint32_t DoubleWordAt(std::string_view bytes, std::size_t place);

}  // namespace dorvik::test
