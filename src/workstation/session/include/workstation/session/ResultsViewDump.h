#pragma once

#include <string>

namespace dorvik {

class ResultsView;
struct WorkbenchControls;

/// What the work bench shows, as the dumps of a session have it. Each is a line of JSON.
namespace modResultsViewDump {

/// `reviewing` says whether a review runs.
std::string DumpState(const ResultsView& view, const WorkbenchControls& controls, bool reviewing);
std::string DumpFiles(const WorkbenchControls& controls);
std::string DumpProcedures(const WorkbenchControls& controls);
/// All data rows, also those in groups that are collapsed.
std::string DumpList(WorkbenchControls& controls);
/// The group rows that show.
std::string DumpGroups(WorkbenchControls& controls);
std::string DumpDocument(const WorkbenchControls& controls);
std::string DumpHotspot(const WorkbenchControls& controls);

}  // namespace modResultsViewDump

}  // namespace dorvik
