#pragma once

#include "workstation/controls/Event.h"

namespace dorvik {

/// The commands that the user gives by the menu, the toolbar and the popup of the violation list.
struct IDEMenuEvents {
    Event<> OpenClick;
    Event<> GotoSourceClick;
    Event<> ReviewClick;
    Event<> ShowDorvikWindowClick;
    Event<> ReviewSummary;
    Event<> FilterClick;
    Event<> GroupByCategoryClick;
    Event<> GroupByRuleClick;
    Event<> GroupBySeverityClick;
    Event<> GroupBySourceFileClick;
    Event<> GroupByNoneClick;
    Event<> ShowGroupByClick;
    Event<bool> ExpandCollapseGroups;  // true expands
    Event<> LaunchRulebaseDocument;
    Event<> OptionsClick;
    Event<> HelpContents;
    Event<> HelpSearch;
    Event<> GotoHomePage;
    Event<> GotoTechSupportPage;
    Event<> AboutClick;
    /// The top menu opens.
    Event<> DorvikClick;
};

}  // namespace dorvik
