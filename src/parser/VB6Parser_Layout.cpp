#include "base/BasicError.h"
#include "base/modText.h"
#include "parser/ScopeName.h"
#include "parser/VB6Parser.h"
#include "parser/VB6ParserState.h"
#include "source/FileType.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/modKeyword.h"

#include <utility>

// The parser's states from the begin of a file to the end of its layout, and the end of the file.

namespace dorvik {

namespace {

struct LayoutStart {
    FileType Type;
    std::string_view Text;
};

constexpr LayoutStart kLayoutStarts[] = {
    {FileType::Form, "Begin VB.Form "},
    {FileType::Form, "Begin VB.MDIForm "},
    {FileType::Designer, "Begin {"},
    {FileType::PropertyPage, "Begin VB.PropertyPage "},
    {FileType::UserDocument, "Begin VB.UserDocument "},
    {FileType::UserControl, "Begin VB.UserControl "},
    {FileType::MDIForm, "Begin VB.MDIForm "},
};

bool IsLayoutDefinitionStart(std::string_view line, FileType fileType) {
    for (const LayoutStart& start : kLayoutStarts) {
        if (start.Type == fileType && modKeyword::StartsWith(line, start.Text)) {
            return true;
        }
    }
    return false;
}

bool IsMDIParentFormDefinition(std::string_view line) {
    return IsLayoutDefinitionStart(line, FileType::MDIForm);
}

bool IsLayoutDefinitionEnd(std::string_view line) {
    return modKeyword::Equal(line, "End");
}

std::string_view ClassOf(std::string_view controlType) {
    const std::size_t point = controlType.find('.');
    return point == std::string_view::npos ? controlType : controlType.substr(point + 1);
}

/// Required: a type without "." is an error, which ends the file.
std::string_view LibraryOf(std::string_view controlType) {
    const std::size_t point = controlType.find('.');
    if (point == std::string_view::npos) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    return controlType.substr(0, point);
}

}  // namespace

FileParserState VB6Parser::State_BeginSourceFile() {
    m_parserState->SetCurrentLocation(Location::Declarations);
    m_line.PhysicalLines = 0;
    m_sourceLineNumber = 1;
    if (m_sourceFile->FileType() == FileType::Form) {
        m_sourceFile->AddEventItem("Form");
    } else if (m_sourceFile->FileType() == FileType::MDIForm) {
        m_sourceFile->AddEventItem("MDIForm");
    }
    auto declarations = std::make_shared<VirtualObject>();
    declarations->SetParentViolations(scopename::kFile);
    declarations->SetHasVLIST(true);
    m_parserState->Attach(std::move(declarations), scopename::kDeclarations);
    FireParserEvent(ParserEvent::BeginFile);
    if (!m_sourceFile->HasHeader() && !m_sourceFile->HasLayout()) {
        return State_BeginDeclarations();
    }
    return FileParserState::SourceFileHeader;
}

FileParserState VB6Parser::State_SourceFileHeader() {
    m_parserState->SetCurrentLocation(Location::Declarations);
    if (IsLayoutDefinitionStart(m_line.Logical, m_sourceFile->FileType())) {
        return State_BeginLayout();
    }
    if (modSource::IsOCXObjectDefinition(m_line.Logical)) {
        State_Component();
    }
    return FileParserState::SourceFileHeader;
}

void VB6Parser::State_Component() {
    auto component = std::make_shared<VirtualObject>();
    if (!modVOSource::ComponentFromObjectDefinition(m_line.Logical, *component)) {
        return;
    }
    LayoutObject();
    m_parserState->SetCurrentLocation(Location::Layout);
    component->SetParentViolations(scopename::kLayout);
    m_parserState->Attach(std::move(component), scopename::kComponent);
    m_parserState->IncrementMemberStats(scopename::kFile, propertyname::kComponentCount);
    FireParserEvent(ParserEvent::Component);
    m_parserState->Detach(scopename::kComponent);
}

VirtualObject& VB6Parser::LayoutObject() {
    if (VirtualObject* layout = m_parserState->FindVirtualObject(scopename::kLayout)) {
        return *layout;
    }
    auto layout = std::make_shared<VirtualObject>();
    layout->SetHasVLIST(true);
    layout->SetParentViolations(scopename::kFile);
    m_parserState->Attach(layout, scopename::kLayout);
    return *layout;
}

FileParserState VB6Parser::State_BeginLayout() {
    CollectLayoutLines();
    VirtualObject& layout = LayoutObject();
    auto layoutProperties = std::make_shared<VirtualObject>();
    layoutProperties->SetParentViolations(scopename::kFile);
    m_parserState->Attach(layoutProperties, scopename::kLayoutProperties);
    FireLayoutEvent(*layoutProperties, layout);
    m_controlOrdinal = 1;
    return FileParserState::Layout;
}

void VB6Parser::CollectLayoutLines() {
    m_layoutReader.reset();
    m_layoutLines.clear();
    m_layoutLineNumbers.clear();
    AppendLayoutLine();
    m_controlOrdinal = 0;
    if (IsMDIParentFormDefinition(m_line.Logical)) {
        m_sourceFile->SetFileType(FileType::MDIForm);
    }
    std::int32_t nesting = 1;
    m_layoutCharacters = 0;
    bool isLineRead = true;
    while (isLineRead) {
        std::int32_t characters = 0;
        isLineRead = ReadLineFromSourceFile(characters);
        m_layoutCharacters += characters;
        // Required: at the end of the file the last line is appended and tested once more.
        AppendLayoutLine();
        if (modKeyword::StartsWith(modText::TrimLeft(m_line.Logical), "Begin ")) {
            ++nesting;
        }
        if (modKeyword::Equal(modText::Trim(m_line.Logical), "End")) {
            ++m_objectCount;
            --nesting;
        }
        if (nesting == 0 && IsLayoutDefinitionEnd(m_line.Logical)) {
            break;
        }
    }
    m_layoutReader.emplace(m_layoutLines);
}

void VB6Parser::AppendLayoutLine() {
    m_layoutLines.push_back(m_line.Logical);
    m_layoutLineNumbers.push_back(m_sourceFile->PhysicalLine());
}

void VB6Parser::RecordLayoutFault(std::size_t lineIndex, std::string reason) {
    if (reason.empty()) {
        reason = "an unexpected error occurred";
    }
    m_sourceFile->SetLayoutFault({m_layoutLineNumbers.at(lineIndex), std::move(reason)});
}

void VB6Parser::FireLayoutEvent(VirtualObject& layoutProperties, VirtualObject& layout) {
    modVOSource::LayoutControl found;
    if (m_layoutReader->Extract(1, layoutProperties, found)) {
        layoutProperties.Properties().Add(propertyname::kName, found.Name, false);
    } else {
        RecordLayoutFault(m_layoutReader->LastFault().Line, m_layoutReader->LastFault().Reason);
    }
    KeyedArrayList& bag = layout.Properties();
    bag.Add(propertyname::kControlCount, m_objectCount - 1, false);
    bag.Add(propertyname::kName, found.Name, false);
    bag.Add(propertyname::kIsMDIParent, m_sourceFile->FileType() == FileType::MDIForm, false);
    bag.Add(propertyname::kIsMDIChild, layoutProperties.Properties().Contains("MDIChild"), false);
    m_layoutName = found.Name;
    m_parserState->SetCurrentControlName(found.Name);
    m_parserState->SetCurrentLocation(Location::Layout);
    FireParserEvent(ParserEvent::BeginLayout);
}

FileParserState VB6Parser::State_Layout() {
    ++m_controlOrdinal;
    if (m_controlOrdinal > m_objectCount) {
        return State_EndLayout();
    }
    auto control = std::make_shared<VirtualObject>();
    control->SetParentViolations(scopename::kLayout);
    m_parserState->Attach(control, scopename::kControl);
    auto properties = std::make_shared<VirtualObject>();
    modVOSource::LayoutControl found;
    if (!m_layoutReader->Extract(m_controlOrdinal, *properties, found)) {
        // Required: "Control" stays in scope to the end of the file.
        RecordLayoutFault(m_layoutReader->LastFault().Line, m_layoutReader->LastFault().Reason);
        return State_EndLayout();
    }
    FireControlEvent(*control, std::move(properties), found);
    return FileParserState::Layout;
}

void VB6Parser::FireControlEvent(
    VirtualObject& control,
    std::shared_ptr<VirtualObject> properties,
    const modVOSource::LayoutControl& found) {
    if (found.ControlType.find('.') == std::string::npos) {
        RecordLayoutFault(
            m_layoutReader->BeginLine(),
            "the type '" + found.ControlType + "' of '" + found.Name + "' names no library");
    }
    KeyedArrayList& bag = control.Properties();
    bag.Add(propertyname::kName, found.Name, false);
    bag.Add(propertyname::kProgID, found.ControlType, false);
    bag.Add(propertyname::kClass, ClassOf(found.ControlType), false);
    bag.Add(propertyname::kLibrary, LibraryOf(found.ControlType), false);
    bag.Add(propertyname::kContainer, found.Container, false);
    bag.Add(propertyname::kIndex, found.Index, false);
    m_sourceFile->AddEventItem(found.Name);
    properties->SetParentViolations(scopename::kControl);
    m_parserState->Attach(std::move(properties), scopename::kControlProperties);
    m_parserState->SetCurrentControlName(
        found.Index.empty() ? found.Name : found.Name + "(" + found.Index + ")");
    m_parserState->SetCurrentLocation(Location::Control);
    FireParserEvent(ParserEvent::Control);
    m_parserState->Detach(scopename::kControlProperties);
    m_parserState->Detach(scopename::kControl);
}

FileParserState VB6Parser::State_EndLayout() {
    m_parserState->SetCurrentControlName(m_layoutName);
    m_parserState->SetCurrentLocation(Location::Layout);
    FireParserEvent(ParserEvent::EndLayout);
    m_parserState->Detach(scopename::kLayout);
    m_parserState->Detach(scopename::kLayoutProperties);
    m_layoutReader.reset();
    m_layoutLines = {};
    m_layoutLineNumbers = {};
    m_controlOrdinal = 0;
    m_objectCount = 0;
    return State_BeginDeclarations();
}

FileParserState VB6Parser::State_EndSourceFile() {
    const std::int32_t average =
        m_procedureCount == 0
            ? 0
            : modText::RoundToLong(static_cast<double>(m_complexityTotal) / m_procedureCount);
    VirtualObject& file = ObjectInScope(scopename::kFile);
    file.IncrementMemberCount(propertyname::kAverageCyclomatic, average);
    file.IncrementMemberCount(propertyname::kMaximumCyclomatic, m_complexityMaximum);
    file.Properties().Add(
        propertyname::kReviewStatus,
        static_cast<std::int32_t>(m_sourceFile->ReviewStatus()),
        false);
    FireParserEvent(ParserEvent::EndFile);
    m_parserState->SetCurrentLocation(Location::File);
    return FileParserState::Finished;
}

}  // namespace dorvik
