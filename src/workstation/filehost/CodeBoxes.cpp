#include "workstation/filehost/CodeBoxes.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "workstation/filehost/FileComponent.h"

#include <algorithm>
#include <cstddef>

namespace dorvik {

namespace {

bool IsLess(const std::string& left, const std::string& right) {
    return modTextCase::Compare(left, right) < 0;
}

std::string_view KindText(ProcedureKind kind) {
    switch (kind) {
        case ProcedureKind::PropertyGet: return " [PropertyGet]";
        case ProcedureKind::PropertyLet: return " [PropertyLet]";
        case ProcedureKind::PropertySet: return " [PropertySet]";
        case ProcedureKind::SubOrFunction: break;
    }
    return "";
}

std::string_view OwnObject(FileType type) {
    switch (type) {
        case FileType::Form: return "Form";
        case FileType::MDIForm: return "MDIForm";
        case FileType::Class: return "Class";
        case FileType::PropertyPage: return "PropertyPage";
        case FileType::UserDocument: return "UserDocument";
        case FileType::UserControl: return "UserControl";
        case FileType::None:
        case FileType::Designer:
        case FileType::Module: break;
    }
    return "";
}

/// The word after `keyword` where that is in the line as a word; empty otherwise.
std::string_view WordAfter(std::string_view line, std::string_view keyword) {
    const std::size_t place = modTextCase::Find(line, keyword);
    if (place == std::string_view::npos || (place > 0 && line[place - 1] != ' ')) {
        return {};
    }
    const std::string_view rest = modText::TrimLeft(line.substr(place + keyword.size()));
    return rest.substr(0, rest.find_first_of(" (.,'"));
}

void AddDeclared(const std::string& line, std::vector<std::string>& names) {
    if (line.find_first_not_of(' ') == std::string::npos ||
        modText::TrimLeft(line).front() == '\'') {
        return;
    }
    for (const std::string_view keyword : {"WithEvents ", "Implements "}) {
        const std::string_view name = WordAfter(line, keyword);
        if (!name.empty()) {
            names.emplace_back(name);
        }
    }
}

}  // namespace

CodeBoxes::CodeBoxes(const ProcedureList& procedures, const std::vector<std::string>& objectNames)
    : m_objects(objectNames) {
    std::erase(m_objects, std::string());
    std::ranges::sort(m_objects, IsLess);
    const auto repeated =
        std::unique(m_objects.begin(), m_objects.end(), [](const auto& left, const auto& right) {
            return modTextCase::Equal(left, right);
        });
    m_objects.erase(repeated, m_objects.end());
    for (const CodeProcedure& procedure : procedures.Procedures()) {
        Owned owned;
        owned.Object = OwnerOf(procedure);
        owned.Text = owned.Object == kGeneral ? procedure.Name
                                              : procedure.Name.substr(owned.Object.size() + 1);
        owned.Text += KindText(procedure.Kind);
        owned.Procedure = procedure;
        m_procedures.push_back(std::move(owned));
    }
    m_objects.insert(m_objects.begin(), std::string(kGeneral));
}

std::string_view CodeBoxes::OwnerOf(const CodeProcedure& procedure) const {
    // A control's name may have an underscore of its own: the longest name that fits has the procedure.
    for (std::size_t line = procedure.Name.rfind('_'); line != std::string::npos && line > 0;
         line = procedure.Name.rfind('_', line - 1)) {
        const std::string name = procedure.Name.substr(0, line);
        const auto found = std::ranges::lower_bound(m_objects, name, IsLess);
        if (found != m_objects.end() && modTextCase::Equal(*found, name)) {
            return *found;
        }
    }
    return kGeneral;
}

std::vector<CodeBoxes::Entry> CodeBoxes::ProceduresOf(std::string_view object) const {
    std::vector<Entry> entries;
    for (const Owned& owned : m_procedures) {
        if (modTextCase::Equal(owned.Object, object)) {
            entries.push_back({owned.Text, owned.Procedure.DefinitionLine});
        }
    }
    std::ranges::stable_sort(entries, IsLess, &Entry::Text);
    if (object == kGeneral) {
        entries.insert(entries.begin(), {std::string(kDeclarations), 1});
    }
    return entries;
}

CodeBoxes::Place CodeBoxes::PlaceOf(std::int32_t line) const {
    for (const Owned& owned : m_procedures) {
        if (line >= owned.Procedure.StartLine && line <= owned.Procedure.EndLine) {
            return {owned.Object, owned.Text};
        }
    }
    return {std::string(kGeneral), std::string(kDeclarations)};
}

std::vector<std::string> ObjectNamesOf(FileComponent& component) {
    std::vector<std::string> names;
    names.emplace_back(OwnObject(component.FileType()));
    if (FileDesigner* designer = component.Designer()) {
        for (std::int32_t number = 1; number <= designer->ControlCount(); ++number) {
            names.push_back(designer->Control(number).Name());
        }
    }
    const FileCodeModule& module = component.CodeModule();
    for (std::int32_t line = 0; line < module.CountOfDeclarationLines(); ++line) {
        AddDeclared(module.Texts()[static_cast<std::size_t>(line)], names);
    }
    return names;
}

}  // namespace dorvik
