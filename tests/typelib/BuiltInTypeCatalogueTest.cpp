#include "base/modTextCase.h"
#include "platform/host/modFiles.h"
#include "support/FilesystemPaths.h"
#include "typelib/TypeCatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace dorvik {

namespace {

using testing::IsEmpty;

const TypeCatalogue& Catalogue() {
    static const TypeCatalogue catalogue = [] {
        TypeCatalogue read;
        read.ReadFolder(test::ProgramPath(DORVIK_TYPE_CATALOGUE));
        return read;
    }();
    return catalogue;
}

/// The kind of a type of a library; -1 where either is missing.
std::int32_t
KindOf(std::string_view guid, std::int32_t major, std::int32_t minor, std::string_view name) {
    const CatalogueLibrary* const library = Catalogue().Find({guid, major, minor, 0});
    if (library != nullptr) {
        for (const auto& type : library->Facts.Contents.Types) {
            if (modTextCase::Equal(type.Name, name)) {
                return type.Kind;
            }
        }
    }
    return -1;
}

constexpr std::string_view kVBA = "{000204EF-0000-0000-C000-000000000046}";
constexpr std::string_view kVBRUN = "{EA544A21-C82D-11D1-A3E4-00A0C90AEA82}";
constexpr std::string_view kVB = "{FCFB3D2E-A0FA-1068-A738-08002B3371B5}";
constexpr std::string_view kStdole = "{00020430-0000-0000-C000-000000000046}";
constexpr std::int32_t kEnum = 0;
constexpr std::int32_t kRecord = 1;
constexpr std::int32_t kDispatch = 4;
constexpr std::int32_t kClass = 5;
constexpr std::int32_t kAlias = 6;

}  // namespace

TEST(BuiltInTypeCatalogue, EveryLineIsUnderstood) {
    for (const TypeCatalogueFault& fault : Catalogue().Faults()) {
        ADD_FAILURE() << fault.File << ":" << fault.Line << ": " << fault.What;
    }
    EXPECT_GE(Catalogue().Libraries().size(), 100U);
}

TEST(BuiltInTypeCatalogue, NoLibraryIsToldOfTwice) {
    std::map<std::string, std::string> files;
    for (const CatalogueLibrary& library : Catalogue().Libraries()) {
        const std::string key = library.Facts.Guid + " " +
                                std::to_string(library.Facts.MajorVersion) + "." +
                                std::to_string(library.Facts.MinorVersion);
        const auto [other, isNew] = files.emplace(key, library.CatalogueFile);
        EXPECT_TRUE(isNew) << library.CatalogueFile << " and " << other->second;
    }
}

TEST(BuiltInTypeCatalogue, EveryFactHasASourceAndEveryLibraryADescriptionAndAFile) {
    for (const CatalogueLibrary& library : Catalogue().Libraries()) {
        EXPECT_FALSE(library.Source.empty()) << library.CatalogueFile;
        EXPECT_FALSE(library.Facts.Description.empty()) << library.CatalogueFile;
        EXPECT_FALSE(library.Filename.empty()) << library.CatalogueFile;
    }
}

TEST(BuiltInTypeCatalogue, EveryFileGivesALibrary) {
    std::set<std::string> files;
    for (const CatalogueLibrary& library : Catalogue().Libraries()) {
        files.insert(library.CatalogueFile);
    }
    const auto entries = modFiles::FolderEntries(test::ProgramPath(DORVIK_TYPE_CATALOGUE));
    EXPECT_EQ(files.size(), entries.size());
}

TEST(BuiltInTypeCatalogue, LibrariesThatEveryProjectRefersToAreThereUnderTheirNames) {
    const std::map<std::string_view, std::string_view> names{
        {kVBA, "VBA"}, {kVBRUN, "VBRUN"}, {kVB, "VB"}};
    for (const auto& [guid, name] : names) {
        const CatalogueLibrary* const library = Catalogue().Find({guid, 6, 0, 9});
        ASSERT_NE(library, nullptr) << name;
        EXPECT_EQ(library->Facts.Contents.Name, name);
    }
    ASSERT_NE(Catalogue().Find({kStdole, 2, 0, 0}), nullptr);
    EXPECT_EQ(Catalogue().Find({kStdole, 2, 0, 0})->Facts.Contents.Name, "stdole");
}

TEST(BuiltInTypeCatalogue, IntrinsicControlsAreClassesOfTheLibraryVB) {
    for (const char* const name :
         {"CheckBox",     "ComboBox",   "CommandButton", "DirListBox",  "DriveListBox",
          "FileListBox",  "Frame",      "HScrollBar",    "Label",       "ListBox",
          "OptionButton", "PictureBox", "TextBox",       "VScrollBar",  "Timer",
          "Shape",        "Line",       "Image",         "Data",        "OLE",
          "Form",         "MDIForm",    "Menu",          "UserControl", "PropertyPage",
          "UserDocument", "App",        "Screen",        "Clipboard",   "Printer"}) {
        EXPECT_EQ(KindOf(kVB, 6, 0, name), kClass) << name;
    }
}

TEST(BuiltInTypeCatalogue, WellKnownTypesHaveTheirKinds) {
    EXPECT_EQ(KindOf(kVB, 6, 0, "Control"), kDispatch);
    EXPECT_EQ(KindOf(kVBA, 6, 0, "Collection"), kClass);
    EXPECT_EQ(KindOf(kVBA, 6, 0, "ErrObject"), kClass);
    EXPECT_EQ(KindOf(kVBA, 6, 0, "VbMsgBoxResult"), kEnum);
    EXPECT_EQ(KindOf(kVBRUN, 6, 0, "MousePointerConstants"), kEnum);
    EXPECT_EQ(KindOf(kVBRUN, 6, 0, "DataObject"), kClass);
    EXPECT_EQ(KindOf(kVBRUN, 6, 0, "PropertyBag"), kClass);
    EXPECT_EQ(KindOf(kStdole, 2, 0, "StdFont"), kClass);
    EXPECT_EQ(KindOf(kStdole, 2, 0, "StdPicture"), kClass);
    EXPECT_EQ(KindOf(kStdole, 2, 0, "Picture"), kDispatch);
    EXPECT_EQ(KindOf(kStdole, 2, 0, "GUID"), kRecord);
    EXPECT_EQ(KindOf(kStdole, 2, 0, "OLE_COLOR"), kAlias);
    EXPECT_EQ(KindOf("{420B2830-E718-11CF-893D-00A0C9054228}", 1, 0, "Dictionary"), kClass);
    EXPECT_EQ(KindOf("{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}", 2, 2, "ListView"), kClass);
    EXPECT_EQ(KindOf("{F9043C88-F6F2-101A-A3C9-08002B2F49FB}", 1, 2, "CommonDialog"), kClass);
}

TEST(BuiltInTypeCatalogue, VersionsOfOneLibraryUnderOtherGuidsBorrowTheirTypes) {
    for (const char* const guid :
         {"{00000201-0000-0010-8000-00AA006D2EA4}",
          "{00000205-0000-0010-8000-00AA006D2EA4}",
          "{00000206-0000-0010-8000-00AA006D2EA4}",
          "{2A75196C-D9EB-4129-B803-931327F72D5C}"}) {
        for (const std::int32_t minor : {1, 5, 6, 8}) {
            EXPECT_EQ(KindOf(guid, 2, minor, "Recordset"), kClass) << guid << " " << minor;
        }
    }
    EXPECT_EQ(KindOf("{F5078F18-C551-11D3-89B9-0000F81FE221}", 4, 0, "DOMDocument40"), kClass);
    EXPECT_EQ(KindOf("{F5078F18-C551-11D3-89B9-0000F81FE221}", 5, 0, "DOMDocument50"), kClass);
}

}  // namespace dorvik
