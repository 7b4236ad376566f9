#pragma once

#include "workstation/filehost/ProcedureList.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class FileComponent;

/// The two boxes over a code window: the objects that have procedures of their own, and the procedures of one of them.
class CodeBoxes {
public:
    struct Entry {
        std::string Text;       // "Click", "Total [PropertyGet]"
        std::int32_t Line = 0;  // of its definition; 1 for the declarations
    };
    /// What the boxes show for a line.
    struct Place {
        std::string Object;
        std::string Procedure;

        friend bool operator==(const Place&, const Place&) = default;
    };

    static constexpr std::string_view kGeneral = "(General)";
    static constexpr std::string_view kDeclarations = "(Declarations)";

    /// `objectNames` are those whose event procedures are theirs: "Text1_Change" belongs to "Text1".
    CodeBoxes(const ProcedureList& procedures, const std::vector<std::string>& objectNames);

    /// "(General)" first, then by name.
    const std::vector<std::string>& Objects() const { return m_objects; }
    /// By name, for "(General)" after the declarations; nothing for an object without procedures.
    std::vector<Entry> ProceduresOf(std::string_view object) const;
    Place PlaceOf(std::int32_t line) const;

private:
    struct Owned {
        std::string Object;
        std::string Text;
        CodeProcedure Procedure;
    };

    std::string_view OwnerOf(const CodeProcedure& procedure) const;

    std::vector<std::string> m_objects;
    std::vector<Owned> m_procedures;  // in the order of the module
};

/// The objects of a component: itself, its controls, and the variables and interfaces that its declarations name. Raises
/// as `FileComponent::CodeModule`.
std::vector<std::string> ObjectNamesOf(FileComponent& component);

}  // namespace dorvik
