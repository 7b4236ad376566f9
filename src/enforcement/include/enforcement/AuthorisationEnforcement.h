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

    /// What the lists say of a reference.
    struct Verdict {
        bool Found = false;
        bool Authorised = false;
        std::string_view Advice;  // of the list's entry, which keeps it
    };

    /// Looks a reference up. A version list that is not blank is noted in its `AuthorisedVersions`.
    Verdict FindReference(VirtualReference& reference) const;
    /// Raises the violation that the verdict asks for, if any, and notes it in `IsAuthorised`.
    void EnforceAuthorisedReference(VirtualReference& reference, const Verdict& verdict);

    /// Looks the "Component" object in scope up, by its library first and then by its file name, adds
    /// what was found to its properties and raises the violation that it asks for.
    void EnforceAuthorisedComponents();

private:
    Verdict FindComponent(VirtualObject& component) const;

    const Rulebase& m_rulebase;
    const VB6ParserState& m_state;
    ViolationLog& m_violations;
};

}  // namespace dorvik
