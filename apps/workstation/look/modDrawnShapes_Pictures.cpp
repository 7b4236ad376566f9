#include "modDrawnShapes.h"

namespace dorvik::modDrawnShapes {

namespace {

// clang-format off
constexpr Picture kPictures[] = {
    // Commands of the work bench.
    {"Open", "y M2 13V4H6L7.5 5.5H13V7.5; y M2 13L4.5 7.5H15L12.5 13Z"},
    {"GotoSource", "h M2 3H9M2 6H7M2 9H6M2 12H7; a M15 9H8.5M11 6L8 9L11 12"},
    {"StartReview", "k O 6.5 6.5 4.2; k M9.8 9.8L14 14; G M5.2 4.3L9 6.5L5.2 8.7Z"},
    {"CancelReview", "k O 6.5 6.5 4.2; k M9.8 9.8L14 14; r M5 5L8 8M8 5L5 8"},
    {"ShowWindow", "k M2 3H14V13H2Z; K M2 3H14V5H2Z; a M2 9.5H14M7 9.5V13"},
    {"ReviewSummary", "k M3 2H13V14H3Z; A M5 9H6.6V12H5Z M7.2 6H8.8V12H7.2Z M9.4 4H11V12H9.4Z"},
    {"Filter", "k M2 3H14L9.5 8.5V13L6.5 11.5V8.5Z"},
    {"Checked", "g M3 8.5L6.5 12L13 4.5"},
    {"Blank", "h M3 3H13V13H3Z"},
    {"HelpContents", "a M8 4Q5 2 2 3V12.5Q5 11.5 8 13.5; a M8 4Q11 2 14 3V12.5Q11 11.5 8 13.5; a M8 4V13.5"},
    {"HelpSearch", "a M2 3H9V5M2 3V13H6; k O 9.5 9 3; k M11.7 11.2L14 13.5"},
    {"HelpTechSupport", "k M3 9V7Q3 2.5 8 2.5Q13 2.5 13 7V9; A M2 8H4.5V12H2Z M11.5 8H14V12H11.5Z; k M13 12Q13 14 9 14"},
    {"ExpandAll", "k M2 2.5H8V8.5H2Z; a M5 4V7M3.5 5.5H6.5; h M10.5 4H14M10.5 7H14M5 10.5V13H8M10.5 13H14"},
    {"CollapseAll", "k M2 2.5H8V8.5H2Z; a M3.5 5.5H6.5; h M10.5 5.5H14M2 11H14M2 13.5H14"},

    // Items of boxes and lists.
    {"AllItems", "h M4.5 2H12.5V10.5; k M2.5 4.5H10V14H2.5Z"},
    {"PublicMethod", "A M8 1.5L14 4.8V11.2L8 14.5L2 11.2V4.8Z; p M2.6 5.2L8 8L13.4 5.2M8 8V14"},
    {"PrivateMethod", "a M8 1.5L14 4.8V11.2L8 14.5L2 11.2V4.8Z; a M2.4 5L8 8L13.6 5M8 8V14; R O 12.5 12.5 2.6"},
    {"FriendMethod", "a M8 1.5L14 4.8V11.2L8 14.5L2 11.2V4.8Z; a M2.4 5L8 8L13.6 5M8 8V14; G O 12.5 12.5 2.6"},
    {"GlobalMethod", "A M8 1.5L14 4.8V11.2L8 14.5L2 11.2V4.8Z; y O 8 8 3.4"},
    {"Method", "a M8 1.5L14 4.8V11.2L8 14.5L2 11.2V4.8Z; a M2.4 5L8 8L13.6 5M8 8V14"},
    {"PublicProperty", "k M2 13.5L7.5 8; Y O 10.5 5.5 4; P O 11.8 4.2 1.5"},
    {"PrivateProperty", "k M2 13.5L7.5 8; y O 10.5 5.5 3.5; R O 12.5 12.5 2.6"},
    {"FriendProperty", "k M2 13.5L7.5 8; y O 10.5 5.5 3.5; G O 12.5 12.5 2.6"},
    {"GlobalProperty", "k M2 13.5L7.5 8; Y O 10.5 5.5 4; k O 10.5 5.5 1.5"},
    {"Property", "k M2 13.5L7.5 8; y O 10.5 5.5 3.5"},
    {"Declarations", "a M5.5 2.5Q3.5 2.5 3.5 5V6.5Q3.5 8 2 8Q3.5 8 3.5 9.5V11Q3.5 13.5 5.5 13.5; a M10.5 2.5Q12.5 2.5 12.5 5V6.5Q12.5 8 14 8Q12.5 8 12.5 9.5V11Q12.5 13.5 10.5 13.5; K O 6 8 0.8 O 8 8 0.8 O 10 8 0.8"},
    {"Layout", "k M2 2.5H14V13.5H2Z; a M4 5H8V8H4Z; h M10 5.5H12.5M10 7.5H12.5M4 10.5H12"},
    {"Total", "k M12.5 4V2.5H3.5L8 8L3.5 13.5H12.5V12"},
    {"Review", "k M3 2H13V14H3Z; g M5.5 8.5L7.3 10.5L10.7 5.5"},
    {"ViolationCounts", "k M2 14H14; R M3 9H5.5V13H3Z; Y M6.8 5H9.3V13H6.8Z; A M10.6 2H13V13H10.6Z"},
    {"ViolationImpacts", "y M8 1.5L9.8 5.8L14.5 6.2L11 9.3L12 14L8 11.5L4 14L5 9.3L1.5 6.2L6.2 5.8Z; R O 8 8.3 1.6"},
    {"SeverityList", "R M8 1L10 4.5H6Z; y M8 6L10 8L8 10L6 8Z; A O 8 13 1.8"},
    {"CategoryList", "y M1.5 5.5V2.5H5L6 3.8H11.5V5.5; k M3.5 13.5V6H7.5L8.5 7.2H14.5V13.5Z"},
    {"CategoryItem", "y M2 12.5V4H6L7.2 5.3H14V12.5Z"},
    {"SortAscending", "K M8 4.5L13 10.5H3Z"},
    {"SortDescending", "K M8 11.5L13 5.5H3Z"},
    {"AuthorisedComponent", "k M2 5L8 2L14 5V11L8 14L2 11Z; g M5 8L7.3 10.3L11.5 5.5"},
    {"AuthorisedReference", "k M3 2H13V14H3Z; h M5 4.5H11; g M5 9L7.3 11.3L11.5 6.5"},
    {"CodingConvention", "a M5 4L1.5 8L5 12M11 4L14.5 8L11 12; k M9.3 3L6.7 13"},
    {"NamingConvention", "k M2 3.5H9.5L14.5 8L9.5 12.5H2Z; A O 9.8 8 1.2; h M4 8H7"},
    {"DocumentationConvention", "k M3 2H10L13 5V14H3Z; a M5.5 7H10.5M5.5 9.5H10.5M5.5 12H8.5"},
    {"UnauthorisedKeyword", "r O 8 8 6; r M3.8 3.8L12.2 12.2"},

    // Files.
    {"Form", "k M2 3H14V13H2Z; A M2 3H14V5.5H2Z; h M4.5 8H8M4.5 10.5H11.5"},
    {"MDIForm", "k M1.5 2H12V10H1.5Z; A M1.5 2H12V4H1.5Z; P M5 6.5H14.5V14H5Z; k M5 6.5H14.5V14H5Z; A M5 6.5H14.5V8.3H5Z"},
    {"Module", "k M3 1.5H10L13 4.5V14.5H3Z; a M6.5 7L4.8 9L6.5 11M9.5 7L11.2 9L9.5 11"},
    {"Code", "k M2 2.5H14V13.5H2Z; a M4 5.5H9M6 8H12M6 10.5H10"},
    {"Class", "k M2 2.5H9V6.5H2Z; a M10 9.5H14.5V13.5H10Z; h M4.5 6.5V11.5H10"},
    {"UserControl", "k M2 4.5H14V11.5H2Z; A M9.5 4.5H14V11.5H9.5Z; P M10.6 7L11.75 9.2L12.9 7Z"},
    {"PropertyPage", "k M2 5H14V14H2Z; A M2 2.5H7V5H2Z; h M5 8H11.5M5 10.7H11.5"},
    {"UserDocument", "k M3 1.5H10L13 4.5V14.5H3Z; A M5.2 7H10.8V12H5.2Z"},
    {"Designer", "k M2.5 13.5L3.2 10.3L11 2.5L13.5 5L5.7 12.8Z; a M9.4 4.1L11.9 6.6"},

    // Projects.
    {"STDEXE", "k M1.5 2.5H14.5V13.5H1.5Z; G M1.5 2.5H14.5V5.5H1.5Z; g M5 9.5H11"},
    {"AXEXE", "k M1.5 2.5H14.5V13.5H1.5Z; Y M1.5 2.5H14.5V5.5H1.5Z; y O 8 9.5 2.3"},
    {"AXDLL", "y M2 6L8 9L14 6L8 3Z; k M2 9L8 12L14 9M2 11.8L8 14.8L14 11.8"},
    {"AXCONTROL", "k M2 3H14V13H2Z; Y M5 6H11V10H5Z"},
    {"OTHER", "k M3 1.5H10L13 4.5V14.5H3Z; h M6.2 7.5Q6.2 5.6 8 5.6Q9.8 5.6 9.8 7.3Q9.8 8.6 8 9.4V10; H O 8 12 0.8"},

    // The window's own.
    {"OpenFile", "k M8 13.5H2.5V2H8.5L11.5 5V7; a M14 12H8.5M11.5 9L8.5 12L11.5 15"},
    {"Folder", "Y M1.5 13.5V3.5H6L7.5 5H14.5V13.5Z; p M1.5 6.8H14.5"},
    {"Save", "k M2 2H11.5L14 4.5V14H2Z; A M4.5 9H11.5V14H4.5Z; k M5 2V5.5H10V2"},
    {"SaveAll", "h M4.5 4.5V1.5H12L14.5 4V11.5H12; k M1.5 4.5H9.5L11.8 6.8V14.5H1.5Z; A M3.8 10.5H9.5V14.5H3.8Z"},
    {"Undo", "a M3 6.5H10Q13.5 6.5 13.5 10Q13.5 13 10 13H7; a M6 3.5L3 6.5L6 9.5"},
    {"Redo", "a M13 6.5H6Q2.5 6.5 2.5 10Q2.5 13 6 13H9; a M10 3.5L13 6.5L10 9.5"},
    {"Find", "k O 7 7 4.5; k M10.3 10.3L14 14"},
    {"Replace", "k M2 5H11M9 2.5L11.5 5L9 7.5; a M14 11H5M7 8.5L4.5 11L7 13.5"},
    {"Project", "y M1.5 13V4H6L7.5 5.5H14.5V13Z; A M5.5 8H11V11H5.5Z"},
    {"CloseProject", "y M1.5 13V4H6L7.5 5.5H14.5V13Z; r M6 7.5L10 11.5M10 7.5L6 11.5"},
    {"Export", "k M3 7V14H13V7; a M8 10.5V2M5 5L8 2L11 5"},
    {"Warning", "Y M8 1.5L15 14H1Z; P M7.2 5.5H8.8L8.5 10H7.5Z O 8 12 0.9"},
    {"Error", "R O 8 8 6.5; p M5.5 5.5L10.5 10.5M10.5 5.5L5.5 10.5"},
    {"Information", "A O 8 8 6.5; P O 8 4.8 1 M7.1 7H8.9V12H7.1Z"},
    {"Question", "A O 8 8 6.5; p M6 6.5Q6 4.5 8 4.5Q10 4.5 10 6.3Q10 7.6 8 8.4V9.3; P O 8 11.6 0.9"},
    {"Next", "a M8 2V12M4 8.5L8 12.5L12 8.5"},
    {"Previous", "a M8 14V4M4 7.5L8 3.5L12 7.5"},
    {"Palette", "k M2 2.5H14V13.5H2Z; a M4.5 6L6.8 8L4.5 10; k M8 10.5H11.5"},
    {"Theme", "k O 8 8 6; K M8 2Q14 2 14 8Q14 14 8 14Z"},
    {"Settings", "k O 8 8 4.5; k M8 1.5V3.5M8 12.5V14.5M1.5 8H3.5M12.5 8H14.5M3.4 3.4L4.8 4.8M11.2 11.2L12.6 12.6M3.4 12.6L4.8 11.2M11.2 4.8L12.6 3.4; a O 8 8 1.6"},
    {"ReviewAgain", "g M13 5Q11 2 8 2Q2.5 2.5 2.5 8Q3 13.5 8 13.5Q12.5 13.5 13.5 9.5; g M13.5 1.5V5.3H9.7"},
    {"New", "g M8 2.5V13.5M2.5 8H13.5"},
    {"Gone", "r M2.5 8H13.5"},
    {"Unchanged", "h M2.5 6H13.5M2.5 10H13.5"},
    {"Close", "k M4 4L12 12M12 4L4 12"},
    {"Recent", "k O 8 8 6; a M8 4.5V8L10.8 9.8"},
    {"Exit", "k M9 2.5H3V13.5H9; a M6.5 8H14M11 5L14 8L11 11"},
};
// clang-format on

}  // namespace

std::span<const Picture> Pictures() {
    return kPictures;
}

}  // namespace dorvik::modDrawnShapes
