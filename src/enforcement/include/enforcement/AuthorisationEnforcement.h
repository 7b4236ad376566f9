#pragma once

#include <string_view>

namespace dorvik {

class Rulebase;
class VB6ParserState;
class ViolationLog;
class VirtualObject;
struct VirtualReference;

/// Compares the references and components of a project with the lists of authorised ones.
///
/// Required: a version counts as listed wherever its text occurs in the list of versions, "1.2" in
/// "11.2;3.0" too, and a reference or component of the design environment is never looked up, so
/// that it counts as not listed.
class AuthorisationEnforcement {
public:
    /// REQUIRES: all three outlive this object.
    AuthorisationEnforcement(
        const Rulebase& rulebase, const VB6ParserState& state, ViolationLog& violations)
        : m_rulebase(rulebase), m_state(state), m_violations(violations) {}

    /// The result of looking a reference or component up in the lists.
    struct Verdict {
        bool Found = false;
        bool Authorised = false;
        std::string_view Advice;  // of the entry in the list; valid as long as the rulebase
    };

    /// Looks a reference up. If its entry lists versions, they are stored in its `AuthorisedVersions`.
    Verdict FindReference(VirtualReference& reference) const;
    /// Raises a violation unless the reference is authorised, and then sets its `IsAuthorised` to false.
    void EnforceAuthorisedReference(VirtualReference& reference, const Verdict& verdict);

    /// Looks the "Component" object in scope up, by its library first and then by its file name, adds the result
    /// to its properties, and raises a violation unless it is authorised.
    void EnforceAuthorisedComponents();

private:
    Verdict FindComponent(VirtualObject& component) const;

    const Rulebase& m_rulebase;
    const VB6ParserState& m_state;
    ViolationLog& m_violations;
};

}  // namespace dorvik
