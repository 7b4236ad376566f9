#include "base/modTextCase.h"
#include "basic/library/BuiltinLookup.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace dorvik::basic {

namespace {

struct NumberRow {
    std::string_view Name;
    std::int32_t Number;
};

constexpr NumberRow kNumbers[] = {
    // Comparison
    {"vbUseCompareOption", -1},
    {"vbBinaryCompare", 0},
    {"vbTextCompare", 1},
    {"vbDatabaseCompare", 2},
    // Types of values
    {"vbEmpty", 0},
    {"vbNull", 1},
    {"vbInteger", 2},
    {"vbLong", 3},
    {"vbSingle", 4},
    {"vbDouble", 5},
    {"vbCurrency", 6},
    {"vbDate", 7},
    {"vbString", 8},
    {"vbObject", 9},
    {"vbError", 10},
    {"vbBoolean", 11},
    {"vbVariant", 12},
    {"vbDataObject", 13},
    {"vbDecimal", 14},
    {"vbByte", 17},
    {"vbUserDefinedType", 36},
    {"vbArray", 8192},
    {"vbObjectError", -2147221504},
    // Dates
    {"vbUseSystem", 0},
    {"vbUseSystemDayOfWeek", 0},
    {"vbSunday", 1},
    {"vbMonday", 2},
    {"vbTuesday", 3},
    {"vbWednesday", 4},
    {"vbThursday", 5},
    {"vbFriday", 6},
    {"vbSaturday", 7},
    {"vbFirstJan1", 1},
    {"vbFirstFourDays", 2},
    {"vbFirstFullWeek", 3},
    {"vbGeneralDate", 0},
    {"vbLongDate", 1},
    {"vbShortDate", 2},
    {"vbLongTime", 3},
    {"vbShortTime", 4},
    {"vbCalGreg", 0},
    {"vbCalHijri", 1},
    // Choices of three
    {"vbUseDefault", -2},
    {"vbTrue", -1},
    {"vbFalse", 0},
    // Conversion of texts
    {"vbUpperCase", 1},
    {"vbLowerCase", 2},
    {"vbProperCase", 3},
    {"vbWide", 4},
    {"vbNarrow", 8},
    {"vbKatakana", 16},
    {"vbHiragana", 32},
    {"vbUnicode", 64},
    {"vbFromUnicode", 128},
    // Calls by name
    {"vbMethod", 1},
    {"vbGet", 2},
    {"vbLet", 4},
    {"vbSet", 8},
    // Message boxes
    {"vbOKOnly", 0},
    {"vbOKCancel", 1},
    {"vbAbortRetryIgnore", 2},
    {"vbYesNoCancel", 3},
    {"vbYesNo", 4},
    {"vbRetryCancel", 5},
    {"vbCritical", 16},
    {"vbQuestion", 32},
    {"vbExclamation", 48},
    {"vbInformation", 64},
    {"vbDefaultButton1", 0},
    {"vbDefaultButton2", 256},
    {"vbDefaultButton3", 512},
    {"vbDefaultButton4", 768},
    {"vbApplicationModal", 0},
    {"vbSystemModal", 4096},
    {"vbMsgBoxHelpButton", 16384},
    {"vbMsgBoxSetForeground", 65536},
    {"vbMsgBoxRight", 524288},
    {"vbMsgBoxRtlReading", 1048576},
    {"vbOK", 1},
    {"vbCancel", 2},
    {"vbAbort", 3},
    {"vbRetry", 4},
    {"vbIgnore", 5},
    {"vbYes", 6},
    {"vbNo", 7},
    // Files and windows, for the unsupported functions
    {"vbNormal", 0},
    {"vbReadOnly", 1},
    {"vbHidden", 2},
    {"vbSystem", 4},
    {"vbVolume", 8},
    {"vbDirectory", 16},
    {"vbArchive", 32},
    {"vbAlias", 64},
    {"vbHide", 0},
    {"vbNormalFocus", 1},
    {"vbMinimizedFocus", 2},
    {"vbMaximizedFocus", 3},
    {"vbNormalNoFocus", 4},
    {"vbMinimizedNoFocus", 6},
    // Colours
    {"vbBlack", 0x000000},
    {"vbRed", 0x0000FF},
    {"vbGreen", 0x00FF00},
    {"vbYellow", 0x00FFFF},
    {"vbBlue", 0xFF0000},
    {"vbMagenta", 0xFF00FF},
    {"vbCyan", 0xFFFF00},
    {"vbWhite", 0xFFFFFF},
};

struct TextRow {
    std::string_view Name;
    std::string_view Text;
};

constexpr TextRow kTexts[] = {
    {"vbCrLf", "\r\n"},
    {"vbNewLine", "\r\n"},
    {"vbCr", "\r"},
    {"vbLf", "\n"},
    {"vbTab", "\t"},
    {"vbBack", "\b"},
    {"vbFormFeed", "\f"},
    {"vbVerticalTab", "\v"},
    {"vbNullChar", std::string_view("\0", 1)},
    {"vbNullString", ""},
};

struct NameHash {
    std::size_t operator()(std::string_view name) const { return modTextCase::Hash(name); }
};
struct NameEqual {
    bool operator()(std::string_view left, std::string_view right) const {
        return modTextCase::Equal(left, right);
    }
};
using ConstantTable = std::unordered_map<std::string_view, Value, NameHash, NameEqual>;

ConstantTable MakeTable() {
    ConstantTable table;
    for (const NumberRow& row : kNumbers) {
        table.emplace(row.Name, Value::Long(row.Number));
    }
    for (const TextRow& row : kTexts) {
        table.emplace(row.Name, Value::Text(row.Text));
    }
    return table;
}

}  // namespace

const Value* FindBuiltinConstant(std::string_view name) {
    thread_local const ConstantTable table =
        MakeTable();  // the counts of the texts are a thread's own
    const auto found = table.find(name);
    return found == table.end() ? nullptr : &found->second;
}

}  // namespace dorvik::basic
