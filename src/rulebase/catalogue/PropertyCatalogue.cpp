#include "rulebase/catalogue/PropertyCatalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace dorvik::modPropertyCatalogue {

namespace {

constexpr std::string_view kProperty = "Property";
constexpr std::string_view kStatistic = "Statistic";

// In the order of the numbers; 4, 10, 11, 36 and 42 are not in use.
// clang-format off
constexpr std::array kProperties = {
    PropertyRow{PropertyNumber::Alias, "Alias", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ArgumentCount, "ArgumentCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::ArgumentList, "ArgumentList", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::AuthorisedVersions, "AuthorisedVersions", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Class, "Class", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ExeName32, "ExeName32", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ThreadingModel, "ThreadingModel", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::DataType, "DataType", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::DefaultValue, "DefaultValue", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Description, "Description", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ElementCount, "ElementCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::Extension, "Extension", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Filename, "Filename", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::DesignTime, "DesignTime", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::FullFilename, "FullFilename", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::GUID, "GUID", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::HasValue, "HasValue", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::HelpFile, "HelpFile", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Instancing, "Instancing", PropertyType::None, kProperty},
    PropertyRow{PropertyNumber::Interface, "Interface", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::IsArray, "IsArray", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::IsAuthorised, "IsAuthorised", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::StrippedStatement, "StrippedStatement", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::IsComment, "IsComment", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::IsMDIChild, "IsMDIChild", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::IsMDIParent, "IsMDIParent", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::IsOptional, "IsOptional", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::IsStatic, "IsStatic", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::Lib, "Lib", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Library, "Library", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Line, "Line", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Startup, "Startup", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Name, "Name", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Optional, "Optional", PropertyType::None, kProperty},
    PropertyRow{PropertyNumber::ParentObject, "ParentObject", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::PassBy, "PassBy", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Path, "Path", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ProcedureType, "ProcedureType", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::VersionProductName, "VersionProductName", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::DataTypeTag, "DataTypeTag", PropertyType::String, "DataTypeTag"},
    PropertyRow{PropertyNumber::Scope, "Scope", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Title, "Title", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Type, "Type", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Value, "Value", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Version, "Version", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::VersionComments, "VersionComments", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::VersionCompanyName, "VersionCompanyName", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::VersionFileDescription, "VersionFileDescription", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::VersionLegalCopyright, "VersionLegalCopyright", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::VersionLegalTrademarks, "VersionLegalTrademarks", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ResFile32, "ResFile32", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::HelpContextID, "HelpContextID", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::NoControlUpgrade, "NoControlUpgrade", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Command32, "Command32", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::CompatibleMode, "CompatibleMode", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::CompatibleEXE32, "CompatibleEXE32", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::VersionCompatible32, "VersionCompatible32", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::MajorVer, "MajorVer", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::MinorVer, "MinorVer", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::RevisionVer, "RevisionVer", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::AutoIncrementVer, "AutoIncrementVer", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ServerSupportFiles, "ServerSupportFiles", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::CompilationType, "CompilationType", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::OptimizationType, "OptimizationType", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::FavorPentiumPro, "FavorPentiumPro", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::CodeViewDebugInfo, "CodeViewDebugInfo", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::NoAliasing, "NoAliasing", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::BoundsCheck, "BoundsCheck", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::OverflowCheck, "OverflowCheck", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::FlPointCheck, "FlPointCheck", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::FDIVCheck, "FDIVCheck", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::UnroundedFP, "UnroundedFP", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::StartMode, "StartMode", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Unattended, "Unattended", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::Retained, "Retained", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ThreadPerObject, "ThreadPerObject", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::MaxNumberOfThreads, "MaxNumberOfThreads", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::LineNumber, "LineNumber", PropertyType::Long, kProperty},
    PropertyRow{PropertyNumber::CondComp, "CondComp", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::DllBaseAddress, "DllBaseAddress", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::RemoveUnusedControlInfo, "RemoveUnusedControlInfo", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::IconForm, "IconForm", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::UseExistingBrowser, "UseExistingBrowser", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::RequireLicenseKey, "RequireLicenseKey", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::DebugStartupOption, "DebugStartupOption", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::DebugStartupComponent, "DebugStartupComponent", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::StrippedLine, "StrippedLine", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::IsCode, "IsCode", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::IsMultiStatement, "IsMultiStatement", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::PhysicalLine, "PhysicalLine", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::PhysicalLineCount, "PhysicalLineCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::IsMultiItem, "IsMultiItem", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::Statement, "Statement", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::IsEventProcedure, "IsEventProcedure", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::ArraySize, "ArraySize", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::IsWithEvents, "IsWithEvents", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::ControlCount, "ControlCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::Container, "Container", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::ProgID, "ProgID", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::TotalLineCount, "TotalLineCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::BlankLineCount, "BlankLineCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::CodeLineCount, "CodeLineCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::CommentLineCount, "CommentLineCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::InLineCommentCount, "InLineCommentCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::IsLocal, "IsLocal", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::RelatedDocCount, "RelatedDocCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::SourceFileCount, "SourceFileCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::ComponentCount, "ComponentCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::ReferenceCount, "ReferenceCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::Index, "Index", PropertyType::LongOrString, kProperty},
    PropertyRow{PropertyNumber::IsAsNew, "IsAsNew", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::ControlTag, "ControlTag", PropertyType::String, "ControlTag"},
    PropertyRow{PropertyNumber::ScopeTag, "ScopeTag", PropertyType::String, "ScopeTag"},
    PropertyRow{PropertyNumber::FormFileCount, "FormFileCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::ClassFileCount, "ClassFileCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::DesignerFileCount, "DesignerFileCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::ModuleFileCount, "ModuleFileCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PropertyPageFileCount, "PropertyPageFileCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::UserControlFileCount, "UserControlFileCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::UserDocumentFileCount, "UserDocumentFileCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::CyclomaticComplexity, "CyclomaticComplexity", PropertyType::Long, kProperty},
    PropertyRow{PropertyNumber::ProcedureCount, "ProcedureCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::ConstCount, "ConstCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PublicConstCount, "PublicConstCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PrivateConstCount, "PrivateConstCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::VariableCount, "VariableCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PublicVariableCount, "PublicVariableCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PrivateVariableCount, "PrivateVariableCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::AverageCyclomatic, "AverageCyclomatic", PropertyType::Long, kProperty},
    PropertyRow{PropertyNumber::ImplementsCount, "ImplementsCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::DeclareCount, "DeclareCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PublicDeclareCount, "PublicDeclareCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PrivateDeclareCount, "PrivateDeclareCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::TypeCount, "TypeCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PublicTypeCount, "PublicTypeCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PrivateTypeCount, "PrivateTypeCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::EnumCount, "EnumCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PublicEnumCount, "PublicEnumCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::PrivateEnumCount, "PrivateEnumCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::EventCount, "EventCount", PropertyType::Long, kStatistic},
    PropertyRow{PropertyNumber::IsParamArray, "IsParamArray", PropertyType::Boolean, kProperty},
    PropertyRow{PropertyNumber::MaximumCyclomatic, "MaximumCyclomatic", PropertyType::Long, kProperty},
    PropertyRow{PropertyNumber::ArrayTag, "ArrayTag", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::HeaderComment, "HeaderComment", PropertyType::String, kProperty},
    PropertyRow{PropertyNumber::CommentBlock, "CommentBlock", PropertyType::String, kProperty},
};
// clang-format on

constexpr bool AreNumbersRising() {
    return std::ranges::adjacent_find(
               kProperties, std::ranges::greater_equal{}, &PropertyRow::Number) ==
           kProperties.end();
}
static_assert(AreNumbersRising());

constexpr std::size_t kUnusedNumbers = 5;
static_assert(kProperties.size() == kLastProperty - kUnusedNumbers);
static_assert(kProperties.front().Number == PropertyNumber{kFirstProperty});
static_assert(kProperties.back().Number == PropertyNumber{kLastProperty});

constexpr bool IsStatisticWhatCounts() {
    return std::ranges::all_of(kProperties, [](const PropertyRow& row) {
        return row.Name.ends_with("Count") == (row.Icon == kStatistic);
    });
}
static_assert(IsStatisticWhatCounts());

}  // namespace

std::span<const PropertyRow> Rows() {
    return kProperties;
}

const PropertyRow* Find(std::int32_t propertyNumber) {
    const PropertyNumber number{propertyNumber};
    const auto* row =
        std::ranges::lower_bound(kProperties, number, std::ranges::less{}, &PropertyRow::Number);
    return row == kProperties.end() || row->Number != number ? nullptr : row;
}

std::string_view TypeText(PropertyType type) {
    switch (type) {
        case PropertyType::None: return {};
        case PropertyType::String: return "String";
        case PropertyType::Long: return "Long";
        case PropertyType::Boolean: return "Boolean";
        case PropertyType::LongOrString: return "Long/String";
    }
    return {};
}

}  // namespace dorvik::modPropertyCatalogue
