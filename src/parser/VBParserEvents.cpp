#include "parser/VBParserEvents.h"

#include "parser/ParserEventTable.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

// Required: "Reference" follows "begin Project", and "Line Label" follows "Variable (local)".
constexpr std::array kEventsInListOrder = {
    ParserEvent::BeginProject,
    ParserEvent::Reference,
    ParserEvent::BeginSourceFiles,
    ParserEvent::BeginFile,
    ParserEvent::SourceLine,
    ParserEvent::Component,
    ParserEvent::BeginLayout,
    ParserEvent::Control,
    ParserEvent::EndLayout,
    ParserEvent::BeginDeclarations,
    ParserEvent::Declaration,
    ParserEvent::Const,
    ParserEvent::Declare,
    ParserEvent::DeclareArgument,
    ParserEvent::BeginEnum,
    ParserEvent::EnumBody,
    ParserEvent::EnumElement,
    ParserEvent::EndEnum,
    ParserEvent::Event,
    ParserEvent::EventArgument,
    ParserEvent::Implements,
    ParserEvent::BeginType,
    ParserEvent::TypeBody,
    ParserEvent::TypeElement,
    ParserEvent::EndType,
    ParserEvent::Variable,
    ParserEvent::EndDeclarations,
    ParserEvent::BeginProcedure,
    ParserEvent::ProcedureArgument,
    ParserEvent::ProcedureBody,
    ParserEvent::LocalConst,
    ParserEvent::LocalVariable,
    ParserEvent::LineLabel,
    ParserEvent::EndProcedure,
    ParserEvent::EndFile,
    ParserEvent::EndSourceFiles,
    ParserEvent::EndProject,
};

constexpr std::array kEndEventsInListOrder = {
    ParserEvent::EndProject,
    ParserEvent::EndSourceFiles,
    ParserEvent::EndFile,
    ParserEvent::EndLayout,
    ParserEvent::EndDeclarations,
    ParserEvent::EndEnum,
    ParserEvent::EndType,
    ParserEvent::EndProcedure,
};

constexpr bool IsEveryEndEventListed() {
    return std::ranges::all_of(kParserEvents, [](const ParserEventRow& row) {
        return CanEndScope(row) == (std::ranges::count(kEndEventsInListOrder, row.Event) == 1);
    });
}
static_assert(IsEveryEndEventListed());

constexpr bool IsEveryEventListed() {
    return std::ranges::all_of(kParserEvents, [](const ParserEventRow& row) {
        return std::ranges::count(kEventsInListOrder, row.Event) == 1;
    });
}
static_assert(IsEveryEventListed());

}  // namespace

std::string VBParserEvents::ParserEventKey(std::int32_t eventNumber) {
    return std::to_string(eventNumber) + "Key";
}

std::string_view VBParserEvents::ParserEventText(std::int32_t eventNumber) {
    const ParserEventRow* row = FindParserEvent(eventNumber);
    return row == nullptr ? "Unknown Event" : row->Text;
}

std::string VBParserEvents::ParserEventHelp(std::int32_t eventNumber) {
    const ParserEventRow* row = FindParserEvent(eventNumber);
    if (row == nullptr) {
        return "Unknown Parser Event";
    }
    std::string help = "The parser fires this event ";
    return help.append(row->Fired).append("\r\n\r\n").append(row->InScope);
}

std::string_view VBParserEvents::ParserEventIcon(std::int32_t eventNumber) {
    const ParserEventRow* row = FindParserEvent(eventNumber);
    return row == nullptr ? "Event" : row->IconKey;
}

void VBParserEvents::PopulateCCEventsImageCombo(IImageCombo& combo) {
    combo.Clear();
    for (const ParserEvent event : kEventsInListOrder) {
        AddImageComboItem(combo, event, RowOf(event).TreeLevel);
    }
}

void VBParserEvents::PopulateCCEndEventsImageCombo(IImageCombo& combo) {
    combo.Clear();
    for (const ParserEvent event : kEndEventsInListOrder) {
        AddImageComboItem(combo, event, RowOf(event).EndLevel);
    }
}

void VBParserEvents::AddImageComboItem(IImageCombo& combo, ParserEvent event, std::int32_t level) {
    const auto number = static_cast<std::int32_t>(event);
    combo.AddItem(
        {ParserEventKey(number), ParserEventText(number), ParserEventIcon(number), level});
}

}  // namespace dorvik
