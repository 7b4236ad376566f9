// Finding a violation again in the environment.
#include "base/BasicError.h"
#include "base/modText.h"
#include "foundation/log/Trap.h"
#include "source/Location.h"
#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/host/IHostEnvironment.h"
#include "workstation/host/modViolationSearch.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "IDEHelper";

IHostComponent&
ComponentOf(IHostEnvironment* environment, std::string_view project, std::string_view sourceFile) {
    if (environment == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return environment->Project(project).Component(sourceFile);
}

/// Raises where the module has no such line.
void ShowCodeLine(IHostComponent& component, std::int32_t line) {
    ICodePane& pane = component.CodeModule().CodePane();
    pane.Show();
    pane.SetTopLine(line);
    pane.SetSelection({line, 1, line, 1});
    pane.Window().SetFocus();
}

void DeselectAll(IDesigner& form) {
    for (std::int32_t index = 1; index <= form.ControlCount(); ++index) {
        form.Control(index).SetSelected(false);
    }
}

/// `member` is the name of a control, with its index in brackets where it is one of an array.
void SelectControl(IDesigner& form, std::string_view member) {
    DeselectAll(form);
    const std::size_t bracket = member.find('(');
    std::optional<std::int32_t> index;
    if (bracket != std::string_view::npos) {
        const std::string_view number = member.substr(bracket + 1);
        index = modText::LeadingLong(number.substr(0, number.find(')')));
    }
    IDesignerControl* const control = form.FindControl(member.substr(0, bracket), index);
    if (control != nullptr) {
        control->SetSelected(true);
    }
}

}  // namespace

void IDEHelper::DisplayDesigner(
    std::string_view project, std::string_view sourceFile, const Violation& violation) {
    Trap({kModule, "DisplayDesigner"}, [&] {
        IHostComponent& component = ComponentOf(m_VBInstance, project, sourceFile);
        IHostWindow* const window = component.DesignerWindow();
        if (window == nullptr) {
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
        window->SetVisible(true);
        window->SetFocus();
        IDesigner* const designer = component.Designer();
        if (designer == nullptr || !designer->IsFormDesigner()) {
            return;
        }
        if (static_cast<Location>(violation.Location) == Location::Control) {
            SelectControl(*designer, violation.LocationMember);
        } else {
            DeselectAll(*designer);
        }
    });
}

void IDEHelper::SelectSourceLine(
    std::string_view project, std::string_view sourceFile, const Violation& violation) {
    Trap({kModule, "SelectSourceLine"}, [&] {
        IHostComponent& component = ComponentOf(m_VBInstance, project, sourceFile);
        const modViolationSearch::Result found = modViolationSearch::Find(
            component.CodeModule(),
            {violation.SourceLine,
             violation.SourceLineNumber,
             violation.Location,
             violation.LocationMember});
        if (found.Why == modViolationSearch::Failure::None) {
            ShowCodeLine(component, found.Line);
            return;
        }
        modWorkstationMessage::Show(
            MessageIcon::Information, std::string(modViolationSearch::MessageOf(found.Why)));
    });
}

void IDEHelper::SelectProcedureStartLine(
    std::string_view project,
    std::string_view sourceFile,
    std::string_view procedure,
    std::string_view procedureType) {
    Trap({kModule, "SelectProcedureStartLine"}, [&] {
        IHostComponent& component = ComponentOf(m_VBInstance, project, sourceFile);
        const std::int32_t line =
            procedure.empty()
                ? 1
                : component.CodeModule().ProcStartLine(procedure, ProcedureKindOf(procedureType));
        ShowCodeLine(component, line);
    });
}

}  // namespace dorvik
