#include "enforcement/NamingConventionHelper.h"

#include "base/BasicError.h"
#include "foundation/Trap.h"
#include "platform/modHost.h"
#include "source/VirtualSourceFile.h"
#include "source/modSource.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_NCHelper";

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
    return NameKind{};  // a file of unknown type is known by name, and is of no kind
}

}  // namespace

std::int32_t NamingConventionHelper::ExtractGlobalNames(VirtualSourceFile& file) {
    std::int32_t status = 0;
    Trap({kModule, "ExtractGlobalNames"}, [&] {
        m_nameTable.AddName(file.Name(), KindOfFile(file.FileType()), "", "");
        if (file.Connect() != SourceFileStatus::Good) {
            status = kNotConnected;
            return;
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
        file.Disconnect();
    });
    return status;
}

void NamingConventionHelper::AddTypeLibrary(
    std::string_view key, std::shared_ptr<VirtualTypeLibrary> library) {
    m_typeLibraries.Add(key, std::move(library), false, true);
}

}  // namespace dorvik
