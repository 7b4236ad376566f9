#include "cli/commands/events/EventsCommand.h"

#include "EventStreamWriter.h"
#include "cli/commands/review/ProjectStatusText.h"
#include "cli/output/Console.h"
#include "cli/output/Interrupt.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "platform/host/modHostPath.h"
#include "review/ProjectTraversal.h"
#include "source/ProjectFinder.h"
#include "source/modDorvikUtils.h"

namespace dorvik {

ExitCode RunEvents(const EventsOptions& options) {
    modHostPath::SetNameCodePage(options.CodePage);
    modLog::Log().SetLogFilePath({});  // the command prints its output and writes no file
    if (!modDorvikUtils::IsVBPFile(options.Path)) {
        modConsole::PrintError("'" + options.Path + "' is not a project file (.vbp)");
        return ExitCode::NothingDone;
    }
    const FoundProjects found = modProjectFinder::FindProjects({options.Path}, options.CodePage);
    for (const std::string& error : found.Errors) {
        modConsole::PrintError(error);
    }
    if (found.Filenames.empty()) {
        return ExitCode::NothingDone;
    }
    VirtualProject project(options.CodePage);
    if (project.LoadProject(found.Filenames.front()) != ProjectLoadStatus::Good) {
        modConsole::PrintError(ProjectStatusText(found.Filenames.front(), project));
        return ExitCode::NothingDone;
    }
    const Interrupt interrupt;
    EventStreamWriter writer(interrupt);
    ReviewCriteria criteria;
    criteria.SetKeepsKnownFaults(options.KeepKnownFaults);
    if (!ProjectTraversal(project, criteria, writer).Run()) {
        return ExitCode::Interrupted;
    }
    return writer.IsComplete() ? ExitCode::Passed : ExitCode::Incomplete;
}

}  // namespace dorvik
