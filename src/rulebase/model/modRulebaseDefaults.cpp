#include "rulebase/model/modRulebaseDefaults.h"

#include "foundation/log/Trap.h"

#include <memory>
#include <span>
#include <string>

namespace dorvik::modRulebaseDefaults {

namespace {

struct ControlTagRow {
    std::string_view Name;
    std::string_view Value;
    std::string_view Description;
};

constexpr ControlTagRow kControlTags[] = {
    {"(Unknown ProgID)", "ctl", ""},
    {"VB.CheckBox", "chk", "VB Check Box Control"},
    {"VB.ComboBox", "cbo", "VB Combo Box Control"},
    {"VB.CommandButton", "cmd", "VB Command Button Control"},
    {"VB.Data", "data", "VB Data Control"},
    {"VB.DirListBox", "dir", "VB Directory List Box Control"},
    {"VB.DriveListBox", "drv", "VB Drive List Box Control"},
    {"VB.FileListBox", "file", "VB File List Box Control"},
    {"VB.Form", "frm", "VB Form"},
    {"VB.Frame", "fra", "VB Frame Control"},
    {"VB.HScrollBar", "hsb", "VB Horizontal Scroll Bar Control"},
    {"VB.Image", "img", "VB Image Control"},
    {"VB.Label", "lbl", "VB Label Control"},
    {"VB.Line", "lin", "VB Line Control"},
    {"VB.ListBox", "lst", "VB List Box Control"},
    {"VB.Menu", "mnu", "VB Menu Control"},
    {"VB.OLE", "ole", "VB OLE Control"},
    {"VB.OptionButton", "opt", "VB Option Button Control"},
    {"VB.PictureBox", "pic", "VB Picture Box Control"},
    {"VB.Shape", "shape", "VB Shape Control"},
    {"VB.TextBox", "txt", "VB Text Box Control"},
    {"VB.Timer", "tmr", "VB Timer Control"},
    {"VB.VScrollBar", "vsb", "VB Vertical Scroll Bar Control"},
};

constexpr std::string_view kDataTypeTags[] = {
    "(Classes)",
    "(Controls)",
    "(Designers)",
    "(Enumerations)",
    "(Forms)",
    "(MDI Forms)",
    "(Property Pages)",
    "(User Controls)",
    "(User-Defined Types)",
    "(User Documents)",
    "Any",
    "Byte",
    "Boolean",
    "Collection",
    "Control",
    "Currency",
    "Date",
    "Double",
    "Form",
    "Integer",
    "Long",
    "Single",
    "Object",
    "String",
    "Variant",
};

constexpr std::string_view kScopeTags[] = {
    "Public (Global)",
    "Friend",
    "Private (Module level)",
    "Local",
    "Local (Static)",
    "ByVal Argument",
    "ByRef Argument",
};

struct SeverityRow {
    std::int32_t Level;
    const char* Title;
    const char* LevelText;
    std::int32_t Colour;
    std::int16_t Impact;
    const char* Description;
};

// Required: the descriptions keep their misspellings.
constexpr SeverityRow kSeverities[] = {
    {1,
     "Critical",
     "Highest",
     14,
     900,
     "Items flagged with 'Critcial' severity are those items that may potentially cause your code "
     "to operate incorrectly, or be extremely difficult to modify and maintain in the future.  "
     "Either way, all 'Critical' violations must be corrected."},
    {2,
     "High",
     "High",
     16,
     750,
     "Items flagged with 'High' severity are those items that make your code extremely difficult "
     "to "
     "modify and maintain in the future. They must be fixed."},
    {3,
     "Medium",
     "Medium",
     2,
     500,
     "Items flagged with 'Medium' severity are those items make your code difficult to modify and "
     "maintain in the future. They should be fixed."},
    {4,
     "Low",
     "Low",
     11,
     250,
     "Items flagged with 'Low' severity are those items make your code non-compliant, however, it "
     "is accepted that they may have little impact with respect to future modification and "
     "maintainenance. They should however be fixed, time permitting."},
    {5,
     "Info",
     "Information",
     15,
     0,
     "Items flagged with 'Information' severity, are not necessarily standards violations, they "
     "could be just general information about projects, modules and methods, or they could be "
     "items "
     "that are flagged for close scrutiny during a manual code review."},
};

void AddLockedTag(TagTable& table, const ControlTagRow& row) {
    const auto item = std::make_shared<TagItem>();
    item->SetTagName(std::string(row.Name));
    item->SetTagValue(std::string(row.Value));
    item->SetTagDescription(std::string(row.Description));
    item->SetLocked(true);
    item->SetDirty(false);
    table.Add(row.Name, item, false, false);
}

void AddNamesOnly(TagTable& table, std::span<const std::string_view> names) {
    for (const std::string_view name : names) {
        AddLockedTag(table, {name, "", ""});
    }
    table.SetDirty(false);
}

void AddSeverity(SeverityTable& table, const SeverityRow& row) {
    const auto item = std::make_shared<SeverityItem>();
    item->SetKey(SeverityKeyOf(row.Level));
    item->SetTitle(row.Title);
    item->SetDescription(row.Description);
    item->SetSeverityLevelText(row.LevelText);
    item->SetSeverityLevel(row.Level);
    item->SetColour(row.Colour);
    item->SetImpact(row.Impact);
    table.Add(item->Key(), item, true, false);
}

}  // namespace

void DefaultControlTags(TagTable& table) {
    Trap({"Rulebase", "DefaultControlTags"}, [&] {
        for (const ControlTagRow& row : kControlTags) {
            AddLockedTag(table, row);
        }
        table.SetDirty(false);
    });
}

void DefaultDataTypeTags(TagTable& table) {
    Trap({"Rulebase", "DefaultDataTypeTags"}, [&] { AddNamesOnly(table, kDataTypeTags); });
}

void DefaultScopeTags(TagTable& table) {
    Trap({"Rulebase", "DefaultScopeTags"}, [&] { AddNamesOnly(table, kScopeTags); });
}

void DefaultSeverityList(SeverityTable& table) {
    Trap({"Rulebase", "DefaultSeverityList"}, [&] {
        for (const SeverityRow& row : kSeverities) {
            AddSeverity(table, row);
        }
        table.SetDirty(false);
    });
}

std::span<const std::string_view> ScopeTagNames() {
    return kScopeTags;
}

}  // namespace dorvik::modRulebaseDefaults
