#include "base/modText.h"
#include "base/modTextCase.h"
#include "enforcement/NamingConventionHelper.h"
#include "enforcement/ReviewLog.h"
#include "foundation/log/Trap.h"
#include "parser/ScopeName.h"
#include "parser/VB6ParserState.h"
#include "rulebase/model/Rulebase.h"
#include "source/PropertyName.h"

#include <array>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_NCHelper";
constexpr std::string_view kUnknownProgId = "(Unknown ProgId)";
constexpr std::string_view kControlsRow = "(Controls)";
constexpr std::string_view kFixedLengthMark = " * ";

const std::string* FindTag(const TagTable& tags, std::string_view row) {
    const auto* item = tags.Find(row);
    return item != nullptr ? &(*item)->TagValue() : nullptr;
}

/// The row of the data type tags for what the project itself declares.
std::string_view RowOf(NameKind kind) {
    switch (kind) {
        case NameKind::ClassFile: return "(Classes)";
        case NameKind::DesignerFile: return "(Designers)";
        case NameKind::Enumeration: return "(Enumerations)";
        case NameKind::FormFile: return "(Forms)";
        case NameKind::MDIFormFile: return "(MDI Forms)";
        case NameKind::ModuleFile: return "(Modules)";
        case NameKind::PropertyPageFile: return "(Property Pages)";
        case NameKind::UserDefinedType: return "(User-Defined Types)";
        case NameKind::UserControlFile: return "(User Controls)";
        case NameKind::UserDocumentFile: return "(User Documents)";
    }
    return {};
}

std::string_view RowOf(TypeKind kind) {
    switch (kind) {
        case TypeKind::Enumeration: return "(Enumerations)";
        case TypeKind::Class: return "(Classes)";
        case TypeKind::UserDefinedType: return "(User-Defined Types)";
        case TypeKind::Control: return kControlsRow;
        case TypeKind::Unknown: break;
    }
    return {};
}

bool IsArgumentEvent(ParserEvent event) {
    return event == ParserEvent::DeclareArgument || event == ParserEvent::EventArgument ||
           event == ParserEvent::ProcedureArgument;
}

}  // namespace

NamingResult NamingConventionHelper::ComputePrefixSuffixPattern(
    const ObjectArrayList<PrefixSuffixItem>& items,
    ParserEvent event,
    std::string_view objectName,
    std::string& pattern) {
    return Trapped({kModule, "ComputePrefixSuffixPattern"}, NamingResult::TestFailed, [&] {
        std::string composed;
        for (const auto& item : items) {
            std::string text;
            const NamingResult result = TextOfItem(*item, event, objectName, text);
            if (result != NamingResult::Success) {
                return result;
            }
            // Alternatives stay one part of the pattern.
            const bool hasAlternatives = text.find('|') != std::string::npos;
            composed.append(hasAlternatives ? "(" + text + ")" : text);
        }
        pattern = std::move(composed);
        return NamingResult::Success;
    });
}

NamingResult NamingConventionHelper::TextOfItem(
    const PrefixSuffixItem& item,
    ParserEvent event,
    std::string_view objectName,
    std::string& text) {
    switch (static_cast<PrefixSuffixType>(item.PSType)) {
        case psText: text = item.Value; break;
        case psControlTag: return GetAppropriateControlTag(objectName, text);
        case psDataTypeTag: return GetAppropriateDataTypeTag(objectName, text);
        case psScopeTag: return GetAppropriateScopeTag(event, objectName, text);
        case psArrayTag: return GetAppropriateArrayTag(objectName, text);
        case psProperty: {
            const std::size_t dot = item.Value.find('.');
            const std::string_view value = item.Value;
            text = m_log->PropertyText(
                value.substr(0, dot),
                dot == std::string_view::npos ? std::string_view() : value.substr(dot + 1));
            break;
        }
        case psNone: break;
    }
    return NamingResult::Success;
}

NamingResult
NamingConventionHelper::GetAppropriateControlTag(std::string_view objectName, std::string& tag) {
    return Trapped({kModule, "GetAppropriateControlTag"}, NamingResult::TestFailed, [&] {
        const std::string programId = m_log->PropertyText(objectName, "ProgId");
        m_state->SetControlTag("");
        const TagTable& tags = m_rulebase->ControlTags();
        if (!tags.Contains(programId) && m_rulebase->UnknownControlViolation()) {
            return NamingResult::UnknownControl;
        }
        // The default row is spelt "(Unknown ProgID)"; keys ignore case. A rulebase without it fails here.
        tag = tags.Item(tags.Contains(programId) ? std::string_view(programId) : kUnknownProgId)
                  ->TagValue();
        m_state->SetControlTag(tag);
        return NamingResult::Success;
    });
}

std::string_view NamingConventionHelper::ScopeRow(ParserEvent event, std::string_view objectName) {
    if (IsArgumentEvent(event)) {
        return modTextCase::Equal(m_log->PropertyText(objectName, propertyname::kPassBy), "ByVal")
                   ? "ByVal Argument"
                   : "ByRef Argument";
    }
    if (event == ParserEvent::LocalConst) {
        return "Local";
    }
    if (event == ParserEvent::LocalVariable) {
        return modTextCase::Equal(m_log->PropertyText(objectName, propertyname::kIsStatic), "True")
                   ? "Local (Static)"
                   : "Local";
    }
    const std::string scope = m_log->PropertyText(objectName, propertyname::kScope);
    if (modTextCase::Equal(scope, "Public") || modTextCase::Equal(scope, "Global")) {
        return "Public (Global)";
    }
    return modTextCase::Equal(scope, "Friend") ? "Friend" : "Private (Module level)";
}

NamingResult NamingConventionHelper::GetAppropriateScopeTag(
    ParserEvent event, std::string_view objectName, std::string& tag) {
    return Trapped({kModule, "GetAppropriateScopeTag"}, NamingResult::TestFailed, [&] {
        const std::string* found = FindTag(m_rulebase->ScopeTags(), ScopeRow(event, objectName));
        if (found != nullptr) {
            tag = *found;
        }
        m_state->SetScopeTag(found != nullptr ? *found : std::string());
        return found != nullptr ? NamingResult::Success : NamingResult::UnknownScope;
    });
}

NamingResult
NamingConventionHelper::GetAppropriateDataTypeTag(std::string_view objectName, std::string& tag) {
    return Trapped({kModule, "GetAppropriateDataTypeTag"}, NamingResult::TestFailed, [&] {
        std::string dataType = m_log->PropertyText(objectName, propertyname::kDataType);
        const std::string file = m_log->PropertyText(scopename::kFile, propertyname::kName);
        if (dataType.empty()) {
            dataType = "Variant";
        }
        dataType.resize(std::min(dataType.size(), dataType.find(kFixedLengthMark)));
        if (const std::string* found = DataTypeTag(dataType, file)) {
            tag = *found;
            m_state->SetDataTypeTag(tag);
            return NamingResult::Success;
        }
        m_state->SetDataTypeTag("");
        m_log->DumpDebugPrint("Data type '" + dataType + "' undefined.", true);
        return NamingResult::UnknownDataType;
    });
}

const std::string*
NamingConventionHelper::DataTypeTag(const std::string& dataType, std::string_view file) const {
    const TagTable& tags = m_rulebase->DataTypeTags();
    if (const std::string* tag = FindTag(tags, dataType)) {
        return tag;
    }
    if (const std::optional<NameKind> kind = m_nameTable.FindName(dataType, file)) {
        return FindTag(tags, RowOf(*kind));
    }
    std::string programId = dataType;
    const TypeKind kind = DetermineTypeKind(dataType, programId);
    return kind == TypeKind::Unknown ? nullptr : TagOfKind(kind, programId);
}

const std::string*
NamingConventionHelper::TagOfKind(TypeKind kind, const std::string& programId) const {
    if (kind == TypeKind::Control && m_rulebase->UseCTagsAsDTTags()) {
        if (const std::string* tag = FindTag(m_rulebase->ControlTags(), programId)) {
            return tag;
        }
    }
    return FindTag(m_rulebase->DataTypeTags(), RowOf(kind));
}

NamingResult
NamingConventionHelper::GetAppropriateArrayTag(std::string_view objectName, std::string& tag) {
    Trap({kModule, "GetAppropriateArrayTag"}, [&] {
        const bool isArray =
            modTextCase::Equal(m_log->PropertyText(objectName, propertyname::kIsArray), "True");
        tag = isArray ? m_rulebase->ArrayTag() : std::string();
        m_state->SetArrayTag(tag);
    });
    return NamingResult::Success;
}

bool NamingConventionHelper::IsIntrinsicVBControl(std::string_view name) {
    static constexpr std::array<std::string_view, 20> kControls{
        "CheckBox",     "ComboBox",   "CommandButton", "DirListBox", "DriveListBox",
        "FileListBox",  "Frame",      "HScrollBar",    "Label",      "ListBox",
        "OptionButton", "PictureBox", "TextBox",       "VScrollBar", "Timer",
        "Shape",        "Line",       "Image",         "Data",       "OLE"};
    return std::ranges::any_of(
        kControls, [name](std::string_view control) { return modTextCase::Equal(control, name); });
}

}  // namespace dorvik
