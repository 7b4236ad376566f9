#include "base/modTextCase.h"
#include "enforcement/NamingEnforcement.h"
#include "foundation/Trap.h"
#include "parser/ScopeName.h"

#include <array>
#include <span>

namespace dorvik {

namespace {

/// An event that always stands for the same kinds of object.
struct EventObjects {
    ParserEvent Event;
    std::string_view ObjectName;
    ObjectType First;
    ObjectType Second;  // the same as the first: there is no second
    bool EndEvent;
};

constexpr EventObjects
One(ParserEvent event, std::string_view name, ObjectType type, bool endEvent = false) {
    return {event, name, type, type, endEvent};
}

constexpr EventObjects Argument(ParserEvent event, ObjectType second) {
    return {event, scopename::kArgument, ObjectType::Argument, second, false};
}

constexpr std::array kPlainEvents{
    One(ParserEvent::Control, scopename::kControl, ObjectType::Control),
    One(ParserEvent::Declare, scopename::kDeclare, ObjectType::Declare),
    Argument(ParserEvent::DeclareArgument, ObjectType::DeclareArgument),
    One(ParserEvent::EnumElement, scopename::kEnumElement, ObjectType::EnumElement),
    One(ParserEvent::EndEnum, scopename::kEnum, ObjectType::Enum, true),
    One(ParserEvent::Event, scopename::kEvent, ObjectType::Event),
    Argument(ParserEvent::EventArgument, ObjectType::EventArgument),
    One(ParserEvent::TypeElement, scopename::kTypeElement, ObjectType::TypeElement),
    One(ParserEvent::EndType, scopename::kType, ObjectType::Type, true),
    Argument(ParserEvent::ProcedureArgument, ObjectType::ProcedureArgument),
    EventObjects{
        ParserEvent::LocalConst,
        scopename::kConst,
        ObjectType::Const,
        ObjectType::LocalConst,
        false},
    One(ParserEvent::LineLabel, scopename::kLineLabel, ObjectType::LineLabel),
    One(ParserEvent::EndProject, scopename::kProject, ObjectType::Project, true),
};

struct FileObjects {
    std::string_view Type;
    ObjectType Object;
};

constexpr std::array kFileObjects{
    FileObjects{"Form", ObjectType::FormFile},
    FileObjects{"MDIForm", ObjectType::FormFile},
    FileObjects{"MDIForm", ObjectType::MDIFormFile},
    FileObjects{"Module", ObjectType::ModuleFile},
    FileObjects{"Class", ObjectType::ClassFile},
    FileObjects{"Designer", ObjectType::DesignerFile},
    FileObjects{"UserControl", ObjectType::UserControlFile},
    FileObjects{"PropertyPage", ObjectType::PropertyPageFile},
    FileObjects{"UserDocument", ObjectType::UserDocumentFile},
};

}  // namespace

void NamingEnforcement::EnforceNamingConventions(const EventPlace& place) {
    Trap({"C_VB6ProjectReview", "EnforceNamingConventions"}, [&] {
        if (place.Event == ParserEvent::EndLayout) {
            ApplyToForm(place);
        } else if (place.Event == ParserEvent::Const) {
            ApplyToConst(place);
        } else if (place.Event == ParserEvent::Variable) {
            ApplyToVariable(place);
        } else if (place.Event == ParserEvent::LocalVariable) {
            ApplyToLocalVariable(place);
        } else if (place.Event == ParserEvent::EndProcedure) {
            ApplyToProcedure(place);
        } else if (place.Event == ParserEvent::EndFile) {
            ApplyToFile(place);
        } else if (const auto* row =
                       std::ranges::find(kPlainEvents, place.Event, &EventObjects::Event);
                   row != kPlainEvents.end()) {
            ApplyObjectNamingConventions(place, row->ObjectName, row->First, row->EndEvent);
            if (row->Second != row->First) {
                ApplyObjectNamingConventions(place, row->ObjectName, row->Second, row->EndEvent);
            }
        }
    });
}

bool NamingEnforcement::PropertyIs(
    std::string_view objectName, std::string_view propertyName, std::string_view text) {
    return modTextCase::Equal(PropertyText(objectName, propertyName), text);
}

bool NamingEnforcement::IsPublic(std::string_view objectName) {
    const std::string scope = PropertyText(objectName, "Scope");
    return modTextCase::Equal(scope, "Global") || modTextCase::Equal(scope, "Public");
}

void NamingEnforcement::ApplyToConst(const EventPlace& place) {
    ApplyObjectNamingConventions(place, scopename::kConst, ObjectType::Const, false);
    const ObjectType second =
        IsPublic(scopename::kConst) ? ObjectType::PublicConst : ObjectType::PrivateConst;
    ApplyObjectNamingConventions(place, scopename::kConst, second, false);
}

void NamingEnforcement::ApplyToVariable(const EventPlace& place) {
    const bool withEvents = PropertyIs(scopename::kVariable, "IsWithEvents", "True");
    const bool isPublic = IsPublic(scopename::kVariable);
    const auto apply = [&](ObjectType type) {
        ApplyObjectNamingConventions(place, scopename::kVariable, type, false);
    };
    apply(ObjectType::Variable);
    if (withEvents) {
        apply(ObjectType::WithEventsVariable);
        apply(
            isPublic ? ObjectType::PublicWithEventsVariable
                     : ObjectType::PrivateWithEventsVariable);
    } else {
        apply(ObjectType::NoWithEventsVariable);
        apply(isPublic ? ObjectType::PublicVariable : ObjectType::PrivateVariable);
    }
}

void NamingEnforcement::ApplyToLocalVariable(const EventPlace& place) {
    const bool isStatic = PropertyIs(scopename::kVariable, "IsStatic", "True");
    for (const ObjectType type :
         {ObjectType::Variable,
          ObjectType::NoWithEventsVariable,
          isStatic ? ObjectType::LocalStaticVariable : ObjectType::LocalVariable}) {
        ApplyObjectNamingConventions(place, scopename::kVariable, type, false);
    }
}

void NamingEnforcement::ApplyToProcedure(const EventPlace& place) {
    const std::string type = PropertyText(scopename::kProcedure, "ProcedureType");
    ObjectType second = ObjectType::PropertyProcedure;
    if (modTextCase::Equal(type, "Sub")) {
        second = ObjectType::SubProcedure;
    } else if (modTextCase::Equal(type, "Function")) {
        second = ObjectType::FunctionProcedure;
    }
    ApplyObjectNamingConventions(place, scopename::kProcedure, ObjectType::Procedure, true);
    ApplyObjectNamingConventions(place, scopename::kProcedure, second, true);
}

void NamingEnforcement::ApplyToFile(const EventPlace& place) {
    ApplyObjectNamingConventions(place, scopename::kFile, ObjectType::File, true);
    const std::string type = PropertyText(scopename::kFile, "Type");
    for (const FileObjects& row : kFileObjects) {
        if (modTextCase::Equal(row.Type, type)) {
            ApplyObjectNamingConventions(place, scopename::kFile, row.Object, true);
        }
    }
}

void NamingEnforcement::ApplyToForm(const EventPlace& place) {
    const std::string type = PropertyText(scopename::kFile, "Type");
    const bool isForm = modTextCase::Equal(type, "Form") || modTextCase::Equal(type, "MDIForm");
    if (!isForm || PropertyIs(scopename::kLayout, "IsMDIParent", "True")) {
        return;
    }
    EventPlace ofTheFile = place;
    ofTheFile.LocationMember = "(Declarations)";
    const ObjectType object = PropertyIs(scopename::kLayout, "IsMDIChild", "True")
                                  ? ObjectType::MDIChildFormFile
                                  : ObjectType::NonMDIFormFile;
    ApplyObjectNamingConventions(ofTheFile, scopename::kFile, object, false);
}

}  // namespace dorvik
