#pragma once

#include "workstation/controls/ComboBox.h"
#include "workstation/controls/DocumentPane.h"
#include "workstation/controls/Grid.h"
#include "workstation/controls/ListTable.h"
#include "workstation/controls/Observable.h"
#include "workstation/controls/Splitter.h"
#include "workstation/view/ViolationColumn.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// What the work bench shows. The document of the work bench owns it, and `ResultsView` fills it.
struct WorkbenchControls {
    // The placeholder, in twips: how far inside the left edge of the list, how much narrower than it, and how high.
    static constexpr std::int32_t kPlaceholderIndent = 45;
    static constexpr std::int32_t kPlaceholderNarrower = 90;
    static constexpr std::int32_t kPlaceholderHeight = 940;

    ComboBox Files;
    ComboBox Procedures;
    Grid List{ViolationColumns()};
    DocumentPane Documentation;
    ListTable Hotspots;
    dorvik::Splitter Splitter;
    Observable<std::string> Panel;  // the text shown in place of results, else empty
    Observable<bool> Placeholder;   // over a list without rows
    Observable<bool> GroupByBox;    // above the list
};

}  // namespace dorvik
