#include "foundation/text/modHtmlText.h"

#include "base/modUtf8.h"

namespace dorvik::modHtmlText {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kLastControl = 0x9F;

struct EntityRow {
    char32_t Character;
    std::string_view Entity;
};

constexpr EntityRow kEntities[] = {
    {U'&', "&amp;"},
    {U'<', "&lt;"},
    {U'>', "&gt;"},
    {U'"', "&quot;"},
    {U'\'', "&#39;"},
};

bool MayStandInPage(char32_t codePoint) {
    if (codePoint < U' ') {
        return codePoint == U'\t' || codePoint == U'\n' || codePoint == U'\r';
    }
    return codePoint < kDelete || codePoint > kLastControl;
}

std::string_view EntityOf(char32_t codePoint) {
    for (const EntityRow& row : kEntities) {
        if (row.Character == codePoint) {
            return row.Entity;
        }
    }
    return {};
}

}  // namespace

std::string Escape(std::string_view text) {
    std::string page;
    page.reserve(text.size() + text.size() / 8);
    for (std::size_t position = 0; position < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, position);
        if (const std::string_view entity = EntityOf(character.CodePoint); !entity.empty()) {
            page += entity;
        } else if (character.Valid && MayStandInPage(character.CodePoint)) {
            page += text.substr(position, character.Size);
        } else {
            modUtf8::Append(page, kReplacement);
        }
        position += character.Size;
    }
    return page;
}

}  // namespace dorvik::modHtmlText
