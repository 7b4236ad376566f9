#include "rulebase/catalogue/modNamingEvents.h"

#include "parser/ScopeName.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace dorvik::modNamingEvents {

namespace {

using O = ObjectType;
using P = ParserEvent;
using namespace scopename;

constexpr NamingEventRow kRows[] = {
    {P::Control, O::Control, kControl},
    {P::EndLayout, O::NonMDIFormFile, kFile},
    {P::EndLayout, O::MDIChildFormFile, kFile},
    {P::Const, O::Const, kConst},
    {P::Const, O::PublicConst, kConst},
    {P::Const, O::PrivateConst, kConst},
    {P::Declare, O::Declare, kDeclare},
    {P::DeclareArgument, O::Argument, kArgument},
    {P::DeclareArgument, O::DeclareArgument, kArgument},
    {P::EnumElement, O::EnumElement, kEnumElement},
    {P::EndEnum, O::Enum, kEnum},
    {P::Event, O::Event, kEvent},
    {P::EventArgument, O::Argument, kArgument},
    {P::EventArgument, O::EventArgument, kArgument},
    {P::TypeElement, O::TypeElement, kTypeElement},
    {P::EndType, O::Type, kType},
    {P::Variable, O::Variable, kVariable},
    {P::Variable, O::NoWithEventsVariable, kVariable},
    {P::Variable, O::PublicVariable, kVariable},
    {P::Variable, O::PrivateVariable, kVariable},
    {P::Variable, O::WithEventsVariable, kVariable},
    {P::Variable, O::PublicWithEventsVariable, kVariable},
    {P::Variable, O::PrivateWithEventsVariable, kVariable},
    {P::ProcedureArgument, O::Argument, kArgument},
    {P::ProcedureArgument, O::ProcedureArgument, kArgument},
    {P::LocalConst, O::Const, kConst},
    {P::LocalConst, O::LocalConst, kConst},
    {P::LineLabel, O::LineLabel, kLineLabel},
    {P::LocalVariable, O::Variable, kVariable},
    {P::LocalVariable, O::NoWithEventsVariable, kVariable},
    {P::LocalVariable, O::LocalVariable, kVariable},
    {P::LocalVariable, O::LocalStaticVariable, kVariable},
    {P::EndProcedure, O::Procedure, kProcedure},
    {P::EndProcedure, O::SubProcedure, kProcedure},
    {P::EndProcedure, O::FunctionProcedure, kProcedure},
    {P::EndProcedure, O::PropertyProcedure, kProcedure},
    {P::EndFile, O::File, kFile},
    {P::EndFile, O::FormFile, kFile},
    {P::EndFile, O::MDIFormFile, kFile},
    {P::EndFile, O::ModuleFile, kFile},
    {P::EndFile, O::ClassFile, kFile},
    {P::EndFile, O::DesignerFile, kFile},
    {P::EndFile, O::UserControlFile, kFile},
    {P::EndFile, O::PropertyPageFile, kFile},
    {P::EndFile, O::UserDocumentFile, kFile},
    {P::EndProject, O::Project, kProject},
};

/// The position of each event's first row, by event number; one past the last event, the end of the rows.
constexpr auto kFirstRows = [] {
    std::array<std::size_t, kLastParserEvent + 2> first{};
    for (std::size_t event = 0; event < first.size(); ++event) {
        while (first[event] < std::size(kRows) &&
               static_cast<std::size_t>(kRows[first[event]].Event) < event) {
            ++first[event];
        }
    }
    return first;
}();

}  // namespace

std::span<const NamingEventRow> At(ParserEvent event) {
    const auto number = static_cast<std::size_t>(event);
    const std::size_t first = kFirstRows.at(number);
    return std::span(kRows).subspan(first, kFirstRows.at(number + 1) - first);
}

std::span<const NamingEventRow> Rows() {
    return kRows;
}

std::vector<NamingEventRow> Of(std::int32_t objectType) {
    std::vector<NamingEventRow> rows;
    std::copy_if(
        std::begin(kRows),
        std::end(kRows),
        std::back_inserter(rows),
        [&](const NamingEventRow& row) {
            return static_cast<std::int32_t>(row.Type) == objectType;
        });
    return rows;
}

}  // namespace dorvik::modNamingEvents
