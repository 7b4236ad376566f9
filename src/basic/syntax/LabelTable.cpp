#include "LabelTable.h"

#include "base/modTextCase.h"

namespace dorvik::basic {

void LabelTable::Begin() {
    m_places.clear();
    m_references.clear();
}

void LabelTable::Define(const std::string& label, SourcePlace place) {
    const auto [entry, isNew] = m_places.emplace(modTextCase::ToLower(label), place);
    if (!isNew) {
        m_errors.Add(
            parseerror::kNameRedefined,
            place,
            "the label '" + label + "' is in line " + std::to_string(entry->second.Line) +
                " already");
    }
}

void LabelTable::Refer(const std::string& label, SourcePlace place) {
    m_references.push_back({label, place});
}

void LabelTable::Check() {
    for (const Reference& reference : m_references) {
        if (!m_places.contains(modTextCase::ToLower(reference.Label))) {
            m_errors.AddText(
                parseerror::kSyntax,
                reference.Place,
                "The label '" + reference.Label + "' does not exist in this procedure");
        }
    }
}

}  // namespace dorvik::basic
