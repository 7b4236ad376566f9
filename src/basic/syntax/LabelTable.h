#pragma once

#include "ErrorList.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace dorvik::basic {

/// The labels of a procedure and the jumps to them.
class LabelTable {
public:
    explicit LabelTable(ErrorList& errors) : m_errors(errors) {}

    void Begin();
    void Define(const std::string& label, SourcePlace place);
    void Refer(const std::string& label, SourcePlace place);
    /// Reports jumps to labels that the procedure does not have.
    void Check();

private:
    struct Reference {
        std::string Label;
        SourcePlace Place;
    };

    ErrorList& m_errors;
    std::unordered_map<std::string, SourcePlace> m_places;  // by the lower-case label
    std::vector<Reference> m_references;
};

}  // namespace dorvik::basic
