#include "parser/VB6ParserState.h"

#include "base/modKyErrors.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "parser/ScopeName.h"
#include "parser/VBParserEvents.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/modSource.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6ParserState";

/// In any case; scripts nearly always write a name as it is, which is told faster.
bool IsNamed(std::string_view name, std::string_view wanted) {
    return name == wanted || modTextCase::Equal(name, wanted);
}

/// The row of a table that has the name in any case, or null.
template <typename Rows>
const typename Rows::value_type* FindRow(const Rows& rows, std::string_view name) {
    const auto find = [&](auto isName) -> const typename Rows::value_type* {
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& candidate) {
            return isName(candidate.Name, name);
        });
        return row == rows.end() ? nullptr : &*row;
    };
    const auto* const exact = find(std::equal_to<std::string_view>());
    return exact != nullptr ? exact : find(&modTextCase::Equal);
}

/// Whether line statistics answer for properties that the bag of the object lacks.
bool AnswersWithLineStatistics(std::string_view objectName) {
    constexpr std::array kNames = {
        scopename::kEnum,
        scopename::kFile,
        scopename::kProcedure,
        scopename::kProject,
        scopename::kType,
    };
    return std::any_of(kNames.begin(), kNames.end(), [&](std::string_view name) {
        return IsNamed(name, objectName);
    });
}

std::string Concatenate(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
}

/// The value of an entry of the object's lists; null if it has none of that name.
const Variant* FindEntryOf(VirtualObject& object, std::string_view propertyName) {
    if (modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix)) {
        return object.Workfields().Find(propertyName.substr(scopename::kWorkfieldPrefix.size()));
    }
    return object.Properties().Find(propertyName);
}

}  // namespace

void VB6ParserState::SetSourceStatement(std::string_view statement) {
    m_statement = statement;
    m_isStatementStripped = false;
}

const std::string& VB6ParserState::StrippedSourceStatement() const {
    if (!m_isStatementStripped) {
        m_strippedStatement = modSource::StripSourceLine(m_statement);
        m_isStatementStripped = true;
    }
    return m_strippedStatement;
}

const std::string& VB6ParserState::StrippedLine() const {
    if (!m_isLineStripped) {
        m_strippedLine = modSource::StripSourceLine(m_line);
        m_isLineStripped = true;
    }
    return m_strippedLine;
}

std::string_view VB6ParserState::CommentBlock() const {
    if (m_commentBlock == nullptr) {
        return {};
    }
    return std::string_view(*m_commentBlock).substr(0, m_commentBlockSize);
}

void VB6ParserState::SetCurrentSourceLine(const CurrentSourceLine& line) {
    m_physicalLine = line.PhysicalText;
    m_physicalLineCount = line.PhysicalLineCount;
    m_line = line.LogicalText;
    m_sourceLineNumber = line.LineNumber;
    m_lineType = line.Type;
    m_isMultiStatement = line.IsMultiStatement;
    if (m_commentBlock != line.CommentBlock) {
        m_commentBlock = line.CommentBlock;
    }
    m_commentBlockSize = m_commentBlock == nullptr ? 0 : m_commentBlock->size();
    m_statement.clear();
    m_isLineStripped = false;
    m_isStatementStripped = false;
}

void VB6ParserState::ResetCurrentSourceLine() {
    SetCurrentSourceLine({});
}

void VB6ParserState::SetObjectStartLine(std::int32_t lineNumber, std::string_view physicalText) {
    m_objectStartLineNumber = lineNumber;
    m_objectStartSourceLine = physicalText;
}

void VB6ParserState::ResetCurrentProcedure() {
    m_currentProcedureName.clear();
    m_objectStartLineNumber = 0;
}

std::string_view VB6ParserState::GetParserEventText() const {
    return VBParserEvents::ParserEventText(static_cast<std::int32_t>(m_parserEvent));
}

const VB6ParserState::ScopeEntry* VB6ParserState::FindEntry(std::string_view name) const {
    return FindRow(m_scope, name);
}

void VB6ParserState::Attach(std::shared_ptr<VirtualObject> object, std::string_view name) {
    if (FindEntry(name) != nullptr) {
        modKyErrors::RaiseError(modKyErrors::kyErrKeyInUse, "KeyedArrayList::Add", name);
    }
    m_scope.push_back({std::string(name), std::move(object)});
}

void VB6ParserState::Detach(std::string_view name) {
    Trap({kModule, "Detach"}, [&] {
        const ScopeEntry* entry = FindEntry(name);
        if (entry == nullptr) {
            modKyErrors::RaiseError(modKyErrors::kyErrNoSuchItem, "KeyedArrayList::Remove");
        }
        m_scope.erase(m_scope.begin() + (entry - m_scope.data()));
    });
}

std::shared_ptr<VirtualObject> VB6ParserState::GetVirtualObject(std::string_view name) const {
    const ScopeEntry* entry = FindEntry(name);
    return entry == nullptr ? nullptr : entry->Object;
}

VirtualObject* VB6ParserState::FindVirtualObject(std::string_view name) const {
    const ScopeEntry* entry = FindEntry(name);
    return entry == nullptr ? nullptr : entry->Object.get();
}

std::vector<std::string> VB6ParserState::ScopeNames() const {
    std::vector<std::string> names;
    names.reserve(m_scope.size());
    for (const ScopeEntry& entry : m_scope) {
        names.push_back(entry.Name);
    }
    return names;
}

void VB6ParserState::IncrementLineStats(LineType lineType) {
    for (const ScopeEntry& entry : m_scope) {
        if (entry.Object->HasLSTATS()) {
            entry.Object->LineStats().IncrementCount(lineType);
        }
    }
}

void VB6ParserState::IncrementMemberStats(
    std::string_view objectName, std::string_view memberName) {
    VirtualObject* object = FindVirtualObject(objectName);
    if (object == nullptr) {
        modKyErrors::RaiseError(modKyErrors::kyErrNoSuchItem, "KeyedArrayList::Item");
    }
    object->IncrementMemberCount(memberName);
}

Variant VB6ParserState::GetObjectProperty(
    std::string_view objectName,
    std::string_view propertyName,
    bool& ok,
    std::string& errorText) const {
    Answer answer = AnswerOf(objectName, propertyName);
    ok = !answer.Error.has_value();
    errorText = std::move(answer.Error).value_or(std::string());
    return std::move(answer.Value);
}

VB6ParserState::Answer
VB6ParserState::AnswerOf(std::string_view objectName, std::string_view propertyName) const {
    if (IsNamed(objectName, scopename::kNamingConvention)) {
        return NamingConventionProperty(propertyName);
    }
    if (IsNamed(objectName, scopename::kSource)) {
        return SourceProperty(propertyName);
    }
    VirtualObject* object = FindVirtualObject(objectName);
    if (object == nullptr) {
        return {
            std::string(),
            Concatenate({"Unknown virtual object '", objectName, "' or object not in scope."})};
    }
    if (const Variant* value = FindEntryOf(*object, propertyName)) {
        return {*value, std::nullopt};
    }
    const bool isWorkfield = modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix);
    std::int32_t count = 0;
    if (!isWorkfield && AnswersWithLineStatistics(objectName) &&
        object->LineStats().SourceLineStatByName(propertyName, count)) {
        return {count, std::nullopt};
    }
    return {
        std::string(),
        Concatenate(
            {"Virtual object ",
             isWorkfield ? "workfield" : "property",
             " '",
             objectName,
             ".",
             propertyName,
             "' not found."})};
}

VB6ParserState::Answer
VB6ParserState::NamingConventionProperty(std::string_view propertyName) const {
    struct Row {
        std::string_view Name;
        std::string VB6ParserState::*Tag;
    };
    static constexpr std::array kTags = {
        Row{propertyname::kArrayTag, &VB6ParserState::m_arrayTag},
        Row{propertyname::kControlTag, &VB6ParserState::m_controlTag},
        Row{propertyname::kScopeTag, &VB6ParserState::m_scopeTag},
        Row{propertyname::kDataTypeTag, &VB6ParserState::m_dataTypeTag},
    };
    if (const Row* row = FindRow(kTags, propertyName)) {
        return {this->*row->Tag, std::nullopt};
    }
    return {
        std::string(),
        Concatenate({"Invalid NamingConvention property '", propertyName, "' specified."})};
}

const std::string* VB6ParserState::FindSourceText(std::string_view propertyName) const {
    using State = VB6ParserState;
    struct Row {
        std::string_view Name;
        const std::string& (*Text)(const State&);
    };
    static constexpr std::array kTexts = {
        Row{propertyname::kStrippedStatement,
            [](const State& s) -> const std::string& {
                return s.StrippedSourceStatement();
            }},
        Row{propertyname::kStatement,
            [](const State& s) -> const std::string& {
                return s.m_statement;
            }},
        Row{propertyname::kStrippedLine,
            [](const State& s) -> const std::string& {
                return s.StrippedLine();
            }},
        Row{propertyname::kLine,
            [](const State& s) -> const std::string& {
                return s.m_line;
            }},
        Row{propertyname::kPhysicalLine,
            [](const State& s) -> const std::string& {
                return s.m_physicalLine;
            }},
    };
    const Row* row = FindRow(kTexts, propertyName);
    return row == nullptr ? nullptr : &row->Text(*this);
}

VB6ParserState::Answer VB6ParserState::SourceProperty(std::string_view propertyName) const {
    using State = VB6ParserState;
    struct Row {
        std::string_view Name;
        Variant (*Value)(const State&);
    };
    static constexpr std::array kProperties = {
        Row{propertyname::kIsBlank,
            [](const State& s) {
                return Variant(s.m_lineType == LineType::Blank);
            }},
        Row{propertyname::kIsCode,
            [](const State& s) {
                return Variant(
                    s.m_lineType == LineType::Code || s.m_lineType == LineType::CodeWithComment);
            }},
        Row{propertyname::kIsComment,
            [](const State& s) {
                return Variant(s.m_lineType == LineType::CommentOnly);
            }},
        Row{propertyname::kIsMultiStatement,
            [](const State& s) {
                return Variant(s.m_isMultiStatement);
            }},
        Row{propertyname::kPhysicalLineCount,
            [](const State& s) {
                return Variant(s.m_physicalLineCount);
            }},
        Row{propertyname::kLineNumber,
            [](const State& s) {
                return Variant(s.m_sourceLineNumber);
            }},
        Row{propertyname::kCommentBlock,
            [](const State& s) {
                return Variant(s.CommentBlock());
            }},
    };
    if (const std::string* text = FindSourceText(propertyName)) {
        return {*text, std::nullopt};
    }
    if (const Row* row = FindRow(kProperties, propertyName)) {
        return {row->Value(*this), std::nullopt};
    }
    // Required: this value is empty, where those of other objects are the empty text.
    return {Variant(), Concatenate({"Invalid Source property '", propertyName, "' specified."})};
}

}  // namespace dorvik
