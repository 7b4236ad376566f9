#include "modProjectScope.h"

#include "parser/ScopeName.h"
#include "source/PropertyName.h"
#include "source/modMemberStats.h"
#include "source/modVOSource.h"

#include <memory>
#include <string_view>

namespace dorvik::modProjectScope {

namespace {

constexpr std::string_view kObjectsOfAFile[] = {
    scopename::kLayout,
    scopename::kComponent,
    scopename::kLayoutProperties,
    scopename::kControl,
    scopename::kControlProperties,
    scopename::kEnum,
    scopename::kEnumElement,
    scopename::kType,
    scopename::kTypeElement,
    scopename::kDeclare,
    scopename::kEvent,
    scopename::kArgument,
    scopename::kImplements,
    scopename::kLineLabel,
    scopename::kProcedure,
    scopename::kConst,
    scopename::kVariable};

}  // namespace

void AttachProject(VB6ParserState& state, VirtualProject& project) {
    project.ProjectStats()->SetHasLSTATS(true);
    state.Attach(project.ProjectStats(), scopename::kProject);
    modMemberStats::InitialiseProjectMemberStats(project);
    const auto projectFile = std::make_shared<VirtualObject>();
    projectFile->Properties().Add(propertyname::kName, project.Name(), false);
    projectFile->Properties().Add(propertyname::kType, "Project", false);
    modVOSource::AddFilenameRelatedProperties(*projectFile, project.Filename());
    projectFile->SetParentViolations(scopename::kProject);
    projectFile->SetHasVLIST(true);
    state.Attach(projectFile, scopename::kProjectFile);
}

void DetachProject(VB6ParserState& state) {
    state.Detach(scopename::kProjectFile);
    state.Detach(scopename::kProject);
}

void AttachReference(VB6ParserState& state, const VirtualReference& reference, bool isAuthorised) {
    const auto object = std::make_shared<VirtualObject>();
    object->SetParentViolations(scopename::kProjectFile);
    state.Attach(object, scopename::kReference);
    KeyedArrayList& properties = object->Properties();
    properties.Add(propertyname::kGUID, reference.GUID, false);
    properties.Add(propertyname::kAuthorisedVersions, reference.AuthorisedVersions, false);
    properties.Add(propertyname::kDescription, reference.Description, false);
    properties.Add(propertyname::kDesignTime, reference.DesignTime, false);
    properties.Add(propertyname::kFilename, reference.Filename, false);
    properties.Add(propertyname::kIsAuthorised, isAuthorised, false);
    properties.Add(propertyname::kVersion, reference.Version, false);
}

void DetachReference(VB6ParserState& state) {
    state.Detach(scopename::kReference);
}

void AttachFile(VB6ParserState& state, VirtualSourceFile& file) {
    const std::shared_ptr<VirtualObject>& stats = file.FileStats();
    stats->SetHasLSTATS(true);
    stats->SetHasVLIST(true);
    stats->SetParentViolations(scopename::kProject);
    state.Attach(stats, scopename::kFile);
    modMemberStats::InitialiseFileMemberStats(*stats);
}

void DetachOpenObjects(VB6ParserState& state) {
    for (const std::string_view name : kObjectsOfAFile) {
        state.Detach(name);
    }
}

std::string DetachRemainingObjects(VB6ParserState& state) {
    std::string names;
    for (const std::string_view name : kObjectsOfAFile) {
        if (state.FindVirtualObject(name) != nullptr) {
            state.Detach(name);
            names.append(names.empty() ? "" : ", ").append(name);
        }
    }
    return names;
}

}  // namespace dorvik::modProjectScope
