#include "enforcement/NamingConventionHelper.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "parser/VB6ParserState.h"
#include "platform/host/modHost.h"
#include "source/VirtualSourceFile.h"
#include "source/modSource.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_NCHelper";
constexpr std::string_view kBasicLibrary = "VB";

NameKind KindOfFile(FileType type) {
    switch (type) {
        case FileType::Class: return NameKind::ClassFile;
        case FileType::Form: return NameKind::FormFile;
        case FileType::Designer: return NameKind::DesignerFile;
        case FileType::Module: return NameKind::ModuleFile;
        case FileType::PropertyPage: return NameKind::PropertyPageFile;
        case FileType::UserDocument: return NameKind::UserDocumentFile;
        case FileType::UserControl: return NameKind::UserControlFile;
        case FileType::MDIForm: return NameKind::MDIFormFile;
        case FileType::None: break;
    }
    return NameKind{};  // a file of unknown type is in the table, without a kind
}

}  // namespace

std::int32_t NamingConventionHelper::ExtractGlobalNames(VirtualSourceFile& file) {
    constexpr std::int32_t kSuccess = 0;
    return Trapped({kModule, "ExtractGlobalNames"}, kSuccess, [&] {
        m_nameTable.AddName(file.Name(), KindOfFile(file.FileType()), "", "");
        if (file.Connect() != SourceFileStatus::Good) {
            return kNotConnected;
        }
        SourceLine line;
        while (file.GetNextSourceLine(line)) {
            if (const auto type = modSource::IsTypeDef(line.Logical)) {
                m_nameTable.AddName(
                    type->Name, NameKind::UserDefinedType, file.Name(), type->Scope);
            } else if (const auto enumeration = modSource::IsEnumDef(line.Logical)) {
                m_nameTable.AddName(
                    enumeration->Name, NameKind::Enumeration, file.Name(), enumeration->Scope);
            } else if (modSource::IsProcedureDefinition(line.Logical)) {
                break;
            }
            modHost::YieldToInput();
        }
        const std::int32_t status = file.ReadingFailed() ? kNotConnected : kSuccess;
        file.Disconnect();
        return status;
    });
}

bool NamingConventionHelper::AddTypeLibrary(
    std::string_view key, std::shared_ptr<VirtualTypeLibrary> library) {
    return Trap({kModule, "AddTypeLibrary"}, [&] {
        m_typeLibraries.Add(key, std::move(library), false, true);
    });
}

TypeKind NamingConventionHelper::KindInLibrary(
    const VirtualTypeLibrary& library, std::string_view name) const {
    if (library.IsEnumItem(name)) {
        return TypeKind::Enumeration;
    }
    if (library.IsClassItem(name)) {
        const bool isControl =
            library.TLType() == VirtualTypeLibrary::Source::Component ||
            (modTextCase::Equal(library.Name(), kBasicLibrary) && IsIntrinsicVBControl(name));
        return isControl ? TypeKind::Control : TypeKind::Class;
    }
    return library.IsUDTItem(name) ? TypeKind::UserDefinedType : TypeKind::Unknown;
}

TypeKind NamingConventionHelper::DetermineTypeKind(
    std::string_view typeName, std::string& qualifiedName) const {
    const std::size_t dot = typeName.find('.');
    const bool isQualified = dot != std::string_view::npos;
    const std::string_view name = isQualified ? typeName.substr(dot + 1) : typeName;
    if (isQualified) {
        qualifiedName = typeName;
        if (const auto* library = m_typeLibraries.Find(typeName.substr(0, dot))) {
            return KindInLibrary(**library, name);
        }
    }
    for (const auto& library : m_typeLibraries) {
        const TypeKind kind = KindInLibrary(*library, name);
        if (kind == TypeKind::Class || kind == TypeKind::Control) {
            qualifiedName = library->Name() + "." + std::string(name);
        }
        if (kind != TypeKind::Unknown) {
            return kind;
        }
    }
    return TypeKind::Unknown;
}

NamingResult NamingConventionHelper::TestPattern(
    std::string_view text, std::string_view pattern, bool caseSensitive, std::string* match) {
    auto result = NamingResult::NoMatch;
    m_wasStopped = false;
    m_wasMalformed = false;
    const auto test = [&] {
        m_expression.SetPattern(pattern);
        m_expression.SetIgnoreCase(!caseSensitive);
        if (match == nullptr) {
            result = m_expression.Test(text) ? NamingResult::Success : NamingResult::NoMatch;
        } else if (std::optional<Match> found = m_expression.LongestMatch(text)) {
            *match = std::move(found->Value);
            result = NamingResult::Success;
        }
        m_expression.SetIgnoreCase(false);
    };
    const bool tested =
        Trap({kModule, "TestPattern"}, [&] { Explain(test, [&] { return DetailOfFailure(); }); });
    return tested ? result : NamingResult::TestFailed;
}

std::string NamingConventionHelper::DetailOfFailure() {
    m_wasMalformed = m_expression.IsMalformed();
    m_wasStopped = !m_wasMalformed;
    const std::string rule = m_state != nullptr ? m_state->CurrentRuleID() : std::string();
    return rule.empty() ? std::string() : " in rule " + rule;
}

}  // namespace dorvik
