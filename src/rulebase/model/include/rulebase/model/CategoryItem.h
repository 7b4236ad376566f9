#pragma once

#include "foundation/lists/IListItem.h"
#include "foundation/lists/ObjectArrayList.h"
#include "rulebase/model/IRule.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace dorvik {

/// A category of rules. Its key follows its ID: category 7 has the key "7K".
class CategoryItem final : public IListItem {
public:
    std::string Key() const override { return m_key; }
    std::string Title() const override { return m_title; }
    void SetTitle(std::string title) { m_title = std::move(title); }
    std::string Description() const override { return m_description; }
    void SetDescription(std::string description) { m_description = std::move(description); }
    std::int32_t ID() const override { return m_id; }
    /// Also sets the key.
    void SetID(std::int32_t id);
    /// A hidden category is shown only where the administrator's program is installed.
    bool Hidden() const { return m_hidden; }
    void SetHidden(bool hidden) { m_hidden = hidden; }
    /// The rules of a section. Only the copies of categories in a report definition have any.
    const ObjectArrayList<IRule>& CategoryRules() const { return m_categoryRules; }
    ObjectArrayList<IRule>& CategoryRules() { return m_categoryRules; }

private:
    void SetKey(std::string_view key) override { m_key = key; }

    std::string m_key;
    std::string m_title;
    std::string m_description;
    ObjectArrayList<IRule> m_categoryRules;
    std::int32_t m_id = 0;
    bool m_hidden = false;
};

}  // namespace dorvik
