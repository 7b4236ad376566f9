#pragma once

#include "foundation/lists/IListItem.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace dorvik {

/// One level of the severity scale. Its key is the level followed by "Key".
class SeverityItem final : public IListItem {
public:
    std::string Key() const override { return m_key; }
    void SetKey(std::string_view key) override { m_key = key; }
    std::string Title() const override { return m_title; }
    void SetTitle(std::string title) { m_title = std::move(title); }
    std::string Description() const override { return m_description; }
    void SetDescription(std::string description) { m_description = std::move(description); }
    std::int32_t ID() const override { return m_severityLevel; }

    const std::string& SeverityLevelText() const { return m_severityLevelText; }
    void SetSeverityLevelText(std::string text) { m_severityLevelText = std::move(text); }
    std::int32_t SeverityLevel() const { return m_severityLevel; }
    void SetSeverityLevel(std::int32_t level) { m_severityLevel = level; }
    /// As stored: a colour, or a small number in the default scale.
    std::int32_t Colour() const { return m_colour; }
    void SetColour(std::int32_t colour) { m_colour = colour; }
    std::int16_t Impact() const { return m_impact; }
    void SetImpact(std::int16_t impact) { m_impact = impact; }

private:
    std::string m_key;
    std::string m_title;
    std::string m_description;
    std::string m_severityLevelText;
    std::int32_t m_severityLevel = 0;
    std::int32_t m_colour = 0;
    std::int16_t m_impact = 0;
};

/// 1 gives "1Key".
std::string SeverityKeyOf(std::int32_t level);

}  // namespace dorvik
