#pragma once

#include "foundation/lists/IListItem.h"
#include "foundation/lists/ObjectArrayList.h"

namespace dorvik {

/// The definition of the document that a rulebase makes of itself: its sections, in order. A
/// section is a `CategoryItem`, which is a copy of a category of the rulebase whose `CategoryRules`
/// are the rules shown, or a `TableItem`. The rules are shared with the rulebase.
///
/// A rulebase has sections only when it was loaded for an edit.
class Report {
public:
    using SectionList = ObjectArrayList<IListItem>;

    /// The flag of the list of sections, of any table or of the rules of any category section.
    /// A write reaches all of them.
    bool Dirty() const;
    void SetDirty(bool dirty);

    const SectionList& Sections() const { return m_sections; }
    SectionList& Sections() { return m_sections; }
    void SetSections(SectionList sections);

    /// New sections with the contents of these, for an editor that may be cancelled. The rules
    /// stay shared, the lists of rules do not. The new list is dirty when `Sections` is.
    /// A failure is logged under module "Report"; what was copied before it is returned.
    SectionList CloneSections() const;

private:
    SectionList m_sections;
};

}  // namespace dorvik
