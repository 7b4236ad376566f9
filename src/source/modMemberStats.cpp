#include "source/modMemberStats.h"

#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/VirtualProject.h"

namespace dorvik::modMemberStats {

namespace {

constexpr std::string_view kFileMembers[] = {
    propertyname::kComponentCount,
    propertyname::kConstCount,
    propertyname::kPublicConstCount,
    propertyname::kPrivateConstCount,
    propertyname::kVariableCount,
    propertyname::kPublicVariableCount,
    propertyname::kPrivateVariableCount,
    propertyname::kTypeCount,
    propertyname::kPublicTypeCount,
    propertyname::kPrivateTypeCount,
    propertyname::kEnumCount,
    propertyname::kPublicEnumCount,
    propertyname::kPrivateEnumCount,
    propertyname::kDeclareCount,
    propertyname::kPublicDeclareCount,
    propertyname::kPrivateDeclareCount,
    propertyname::kImplementsCount,
    propertyname::kProcedureCount,
    propertyname::kEventCount,
};

constexpr std::string_view kProcedureMembers[] = {
    propertyname::kConstCount, propertyname::kVariableCount};

struct FileCountRow {
    std::string_view Name;
    FileType Type;
};

constexpr FileCountRow kProjectFileCounts[] = {
    {propertyname::kFormFileCount, FileType::Form},
    {propertyname::kClassFileCount, FileType::Class},
    {propertyname::kDesignerFileCount, FileType::Designer},
    {propertyname::kModuleFileCount, FileType::Module},
    {propertyname::kPropertyPageFileCount, FileType::PropertyPage},
    {propertyname::kUserControlFileCount, FileType::UserControl},
    {propertyname::kUserDocumentFileCount, FileType::UserDocument},
};

/// One band of complexities, from `From` up to the next band.
struct ComplexityBand {
    std::int32_t From;
    std::string_view ToUnderstand;
    std::string_view ToTest;
    std::string_view ToChange;
};

constexpr ComplexityBand kBands[] = {
    // highest first
    {51, "Extremely difficult", "Untestable", "Extremely high risk"},
    {21, "Complex", "Very Difficult", "High risk"},
    {11, "Moderately easy", "Difficult", "Moderate risk"},
    {1, "Simple", "Easy", "Low risk"},
    {0, "N/A", "N/A", "N/A"},
};
constexpr ComplexityBand kNoBand{0, "", "", ""};

const ComplexityBand& BandOf(std::int32_t complexity) {
    for (const ComplexityBand& band : kBands) {
        if (complexity >= band.From) {
            return band;
        }
    }
    return kNoBand;
}

void AddCount(KeyedArrayList& properties, std::string_view name, std::int32_t count) {
    properties.Add(name, Variant(count), false);
}

}  // namespace

void InitialiseProjectMemberStats(VirtualProject& project) {
    KeyedArrayList& properties = project.Properties();
    AddCount(properties, propertyname::kRelatedDocCount, project.RelatedDocs().Count());
    AddCount(properties, propertyname::kComponentCount, project.Components().Count());
    AddCount(properties, propertyname::kReferenceCount, project.References().Count());
    // Required: the project file counts as a source file too.
    AddCount(properties, propertyname::kSourceFileCount, project.SourceFiles().Count() + 1);
    for (const FileCountRow& row : kProjectFileCounts) {
        AddCount(properties, row.Name, project.FileCount(row.Type));
    }
}

void InitialiseFileMemberStats(VirtualObject& object) {
    for (const std::string_view name : kFileMembers) {
        AddCount(object.Properties(), name, 0);
    }
}

void InitialiseProcedureMemberStats(VirtualObject& object) {
    for (const std::string_view name : kProcedureMembers) {
        AddCount(object.Properties(), name, 0);
    }
}

std::string_view CyclomaticComplexityToUnderstandText(std::int32_t value) {
    return BandOf(value).ToUnderstand;
}

std::string_view CyclomaticComplexityToTestText(std::int32_t value) {
    return BandOf(value).ToTest;
}

std::string_view CyclomaticComplexityToChangeText(std::int32_t value) {
    return BandOf(value).ToChange;
}

}  // namespace dorvik::modMemberStats
