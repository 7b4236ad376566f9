#include "NamingEnforcement.h"
#include "base/modTextCase.h"
#include "enforcement/ReviewLog.h"
#include "foundation/log/Trap.h"
#include "parser/ParserEventTable.h"
#include "parser/ScopeName.h"
#include "rulebase/catalogue/modNamingEvents.h"
#include "rulebase/model/Rulebase.h"
#include "source/PropertyName.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

struct FileKind {
    std::string_view Type;
    ObjectType Object;
};

constexpr std::array kFileKinds{
    FileKind{"Form", ObjectType::FormFile},
    FileKind{"MDIForm", ObjectType::FormFile},
    FileKind{"MDIForm", ObjectType::MDIFormFile},
    FileKind{"Module", ObjectType::ModuleFile},
    FileKind{"Class", ObjectType::ClassFile},
    FileKind{"Designer", ObjectType::DesignerFile},
    FileKind{"UserControl", ObjectType::UserControlFile},
    FileKind{"PropertyPage", ObjectType::PropertyPageFile},
    FileKind{"UserDocument", ObjectType::UserDocumentFile},
};

}  // namespace

void NamingEnforcement::EnforceNamingConventions(const EventLocation& location) {
    Trap({"C_VB6ProjectReview", "EnforceNamingConventions"}, [&] {
        EventLocation reported = location;
        if (location.Event == ParserEvent::EndLayout) {
            reported.LocationMember = "(Declarations)";
        }
        for (const NamingEventRow& row : modNamingEvents::At(location.Event)) {
            if (HasRulesFor(row.Type) && IsOfType(location.Event, row.Type)) {
                ApplyObjectNamingConventions(
                    reported,
                    row.ObjectName,
                    row.Type,
                    RowOf(location.Event).Rules.EndsNamedObject);
            }
        }
    });
}

bool NamingEnforcement::HasRulesFor(ObjectType type) const {
    const RuleLists& rules = std::as_const(m_review.Rulebase).RuleLists();
    return rules.ObjectNCList(static_cast<std::int32_t>(type)) != nullptr;
}

bool NamingEnforcement::IsOfType(ParserEvent event, ObjectType type) {
    if (event == ParserEvent::EndLayout) {
        return IsFormOfType(type);
    }
    if (event == ParserEvent::Const) {
        return type == ObjectType::Const ||
               IsPublic(scopename::kConst) == (type == ObjectType::PublicConst);
    }
    if (event == ParserEvent::Variable) {
        return IsVariableOfType(type);
    }
    if (event == ParserEvent::LocalVariable) {
        return IsLocalVariableOfType(type);
    }
    if (event == ParserEvent::EndProcedure) {
        return IsProcedureOfType(type);
    }
    return event != ParserEvent::EndFile || IsFileOfType(type);
}

bool NamingEnforcement::PropertyIs(
    std::string_view objectName, std::string_view propertyName, std::string_view text) {
    return modTextCase::Equal(m_review.Log.PropertyText(objectName, propertyName), text);
}

bool NamingEnforcement::IsPublic(std::string_view objectName) {
    const std::string scope = m_review.Log.PropertyText(objectName, propertyname::kScope);
    return modTextCase::Equal(scope, "Global") || modTextCase::Equal(scope, "Public");
}

bool NamingEnforcement::IsVariableOfType(ObjectType type) {
    if (type == ObjectType::Variable) {
        return true;
    }
    const bool withEvents = PropertyIs(scopename::kVariable, propertyname::kIsWithEvents, "True");
    const bool isOfEvents = type == ObjectType::WithEventsVariable ||
                            type == ObjectType::PublicWithEventsVariable ||
                            type == ObjectType::PrivateWithEventsVariable;
    if (withEvents != isOfEvents || type == ObjectType::WithEventsVariable ||
        type == ObjectType::NoWithEventsVariable) {
        return withEvents == isOfEvents;
    }
    const bool isOfPublic =
        type == ObjectType::PublicVariable || type == ObjectType::PublicWithEventsVariable;
    return IsPublic(scopename::kVariable) == isOfPublic;
}

bool NamingEnforcement::IsLocalVariableOfType(ObjectType type) {
    const bool isOfScope =
        type == ObjectType::LocalVariable || type == ObjectType::LocalStaticVariable;
    return !isOfScope || PropertyIs(scopename::kVariable, propertyname::kIsStatic, "True") ==
                             (type == ObjectType::LocalStaticVariable);
}

bool NamingEnforcement::IsProcedureOfType(ObjectType type) {
    if (type == ObjectType::Procedure) {
        return true;
    }
    const std::string text =
        m_review.Log.PropertyText(scopename::kProcedure, propertyname::kProcedureType);
    if (modTextCase::Equal(text, "Sub")) {
        return type == ObjectType::SubProcedure;
    }
    return type == (modTextCase::Equal(text, "Function") ? ObjectType::FunctionProcedure
                                                         : ObjectType::PropertyProcedure);
}

bool NamingEnforcement::IsFileOfType(ObjectType type) {
    if (type == ObjectType::File) {
        return true;
    }
    const std::string text = m_review.Log.PropertyText(scopename::kFile, propertyname::kType);
    return std::ranges::any_of(kFileKinds, [&](const FileKind& row) {
        return row.Object == type && modTextCase::Equal(row.Type, text);
    });
}

bool NamingEnforcement::IsFormOfType(ObjectType type) {
    const std::string text = m_review.Log.PropertyText(scopename::kFile, propertyname::kType);
    const bool isForm = modTextCase::Equal(text, "Form") || modTextCase::Equal(text, "MDIForm");
    if (!isForm || PropertyIs(scopename::kLayout, propertyname::kIsMDIParent, "True")) {
        return false;
    }
    return PropertyIs(scopename::kLayout, propertyname::kIsMDIChild, "True") ==
           (type == ObjectType::MDIChildFormFile);
}

}  // namespace dorvik
