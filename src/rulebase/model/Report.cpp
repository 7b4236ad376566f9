#include "rulebase/model/Report.h"

#include "foundation/log/Trap.h"
#include "rulebase/model/CategoryItem.h"
#include "rulebase/model/TableItem.h"

#include <utility>

namespace dorvik {

namespace {

std::shared_ptr<TableItem> CopyOf(const TableItem& table) {
    return std::make_shared<TableItem>(table);
}

std::shared_ptr<CategoryItem> CopyOf(const CategoryItem& category) {
    auto copy = std::make_shared<CategoryItem>();
    copy->SetDescription(category.Description());
    copy->SetID(category.ID());
    copy->SetTitle(category.Title());
    const ObjectArrayList<IRule>& rules = category.CategoryRules();
    for (const auto& rule : rules) {
        copy->CategoryRules().Add(rule);
    }
    return copy;
}

bool IsSectionDirty(const IListItem* section) {
    if (const auto* table = dynamic_cast<const TableItem*>(section)) {
        return table->Dirty();
    }
    const auto* category = dynamic_cast<const CategoryItem*>(section);
    return category != nullptr && category->CategoryRules().Dirty();
}

void SetSectionDirty(IListItem* section, bool dirty) {
    if (auto* table = dynamic_cast<TableItem*>(section)) {
        table->SetDirty(dirty);
    } else if (auto* category = dynamic_cast<CategoryItem*>(section)) {
        category->CategoryRules().SetDirty(dirty);
    }
}

}  // namespace

bool Report::Dirty() const {
    if (m_sections.Dirty()) {
        return true;
    }
    for (const auto& section : m_sections) {
        if (IsSectionDirty(section.get())) {
            return true;
        }
    }
    return false;
}

void Report::SetDirty(bool dirty) {
    m_sections.SetDirty(dirty);
    for (const auto& section : m_sections) {
        SetSectionDirty(section.get(), dirty);
    }
}

void Report::SetSections(SectionList sections) {
    m_sections = std::move(sections);
}

Report::SectionList Report::CloneSections() const {
    SectionList clone;
    Trap({"Report", "CloneSections"}, [&] {
        for (const auto& section : m_sections) {
            if (const auto* table = dynamic_cast<const TableItem*>(section.get())) {
                clone.Add(CopyOf(*table));
            } else if (const auto* category = dynamic_cast<const CategoryItem*>(section.get())) {
                clone.Add(CopyOf(*category));
            }
        }
        clone.SetDirty(m_sections.Dirty());
    });
    return clone;
}

}  // namespace dorvik
