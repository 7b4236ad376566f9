#pragma once

#include "foundation/lists/LongArrayList.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace dorvik {

/// What a load of a rulebase is to take, and what it found. All fields begin empty, false or 0.
/// A write that changes a value sets `Dirty`; a write of the same value does not.
class RulebaseLoadCriteria {
public:
    /// Path of the file; a change of case alone is not a change.
    const std::string& RulebaseFile() const { return m_rulebaseFile; }
    void SetRulebaseFile(std::string file);
    /// Title and version of the loaded rulebase, for the user.
    const std::string& RulebaseTitle() const { return m_rulebaseTitle; }
    void SetRulebaseTitle(std::string title);
    const std::string& RulebaseVersion() const { return m_rulebaseVersion; }
    void SetRulebaseVersion(std::string version);

    /// Which kinds of rule to take.
    bool AuthorisedComponents() const { return Flag(Section::AuthorisedComponents); }
    void SetAuthorisedComponents(bool take) { SetFlag(Section::AuthorisedComponents, take); }
    bool AuthorisedReferences() const { return Flag(Section::AuthorisedReferences); }
    void SetAuthorisedReferences(bool take) { SetFlag(Section::AuthorisedReferences, take); }
    bool UnauthorisedKeywords() const { return Flag(Section::UnauthorisedKeywords); }
    void SetUnauthorisedKeywords(bool take) { SetFlag(Section::UnauthorisedKeywords, take); }
    bool CodingConventions() const { return Flag(Section::CodingConventions); }
    void SetCodingConventions(bool take) { SetFlag(Section::CodingConventions, take); }
    bool NamingConventions() const { return Flag(Section::NamingConventions); }
    void SetNamingConventions(bool take) { SetFlag(Section::NamingConventions, take); }
    /// Nothing in a rulebase file belongs to this one.
    bool DocumentationConventions() const { return Flag(Section::DocumentationConventions); }
    void SetDocumentationConventions(bool take) {
        SetFlag(Section::DocumentationConventions, take);
    }

    /// Loads everything, unfiltered.
    bool LoadForEdit() const { return m_loadForEdit; }
    void SetLoadForEdit(bool loadForEdit);

    /// Whether rules of a level 1 to 5 are taken. Other levels read false and ignore writes.
    bool SeverityLevel(std::int32_t level) const;
    void SetSeverityLevel(std::int32_t level, bool take);

    bool IsExcludedCategoryID(std::int32_t id) const { return m_excluded.ContainsValue(id); }
    /// `index` is 1-based.
    std::int32_t ExcludedCategoryID(std::int32_t index) const { return m_excluded.Item(index); }
    std::int32_t ExcludedCategoryIDCount() const { return m_excluded.Count(); }
    /// Ignores an ID that is already there.
    void AddExcludedCategoryID(std::int32_t id);
    void RemoveExcludedCategoryID(std::int32_t id);

    /// How many elements the file last loaded has, whatever was taken of them.
    std::int32_t NumAuthComps = 0;
    std::int32_t NumAuthRefs = 0;
    std::int32_t NumUnauthKeywords = 0;
    std::int32_t NumCodingConventions = 0;
    std::int32_t NumNamingConventions = 0;
    std::int32_t NumDocConventions = 0;

    bool Dirty() const { return m_dirty; }
    void SetDirty(bool dirty) { m_dirty = dirty; }

private:
    enum class Section : std::size_t {
        AuthorisedComponents,
        AuthorisedReferences,
        UnauthorisedKeywords,
        CodingConventions,
        NamingConventions,
        DocumentationConventions,
    };
    static constexpr std::size_t kSections = 6;
    static constexpr std::int32_t kLevels = 5;

    bool Flag(Section section) const { return m_sections[static_cast<std::size_t>(section)]; }
    void SetFlag(Section section, bool take);

    std::string m_rulebaseFile;
    std::string m_rulebaseTitle;
    std::string m_rulebaseVersion;
    std::array<bool, kSections> m_sections{};
    std::array<bool, kLevels> m_levels{};
    LongArrayList m_excluded;
    bool m_loadForEdit = false;
    bool m_dirty = false;
};

}  // namespace dorvik
