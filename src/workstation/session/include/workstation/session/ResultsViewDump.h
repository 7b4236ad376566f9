#pragma once

#include <rapidjson/document.h>

namespace dorvik {

class ResultsView;
struct WorkbenchControls;

/// What the work bench shows, as the dumps of a session have it. Each is an object whose first member is "dump".
namespace modResultsViewDump {

/// `reviewing` says whether a review runs.
rapidjson::Document
DumpState(const ResultsView& view, const WorkbenchControls& controls, bool reviewing);
rapidjson::Document DumpFiles(const WorkbenchControls& controls);
rapidjson::Document DumpProcedures(const WorkbenchControls& controls);
/// All data rows, also those in groups that are collapsed.
rapidjson::Document DumpList(WorkbenchControls& controls);
/// The group rows that show.
rapidjson::Document DumpGroups(WorkbenchControls& controls);
rapidjson::Document DumpDocument(const WorkbenchControls& controls);
rapidjson::Document DumpHotspot(const WorkbenchControls& controls);

}  // namespace modResultsViewDump

}  // namespace dorvik
