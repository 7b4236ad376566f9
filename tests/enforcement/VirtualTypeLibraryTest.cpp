#include "enforcement/VirtualTypeLibrary.h"

#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::CapturedLog;
using testing::ElementsAre;

/// One library under one GUID; notes what it was asked for.
class OneLibrary final : public ITypeLibraries {
public:
    std::optional<TypeLibraryContents> Open(
        std::string_view guid,
        std::int32_t majorVersion,
        std::int32_t minorVersion,
        std::int32_t lcid) const override {
        Asked.push_back(
            std::string(guid) + " " + std::to_string(majorVersion) + "." +
            std::to_string(minorVersion) + " " + std::to_string(lcid));
        if (guid != "{1}") {
            return std::nullopt;
        }
        return TypeLibraryContents{
            "Stock",
            {{"Sizes", 0},
             {"Point", 1},
             {"modHelp", 2},
             {"IShelf", 3},
             {"_Box", 4},
             {"Box", 5},
             {"Alias", 6},
             {"Union", 7}}};
    }

    mutable std::vector<std::string> Asked;
};

VirtualReference Reference(const std::string& guid, const std::string& version) {
    VirtualReference reference;
    reference.GUID = guid;
    reference.Version = version;
    reference.LCID = 9;
    return reference;
}

VirtualComponent Component(const std::string& guid, const std::string& version) {
    VirtualComponent component;
    component.GUID = guid;
    component.Version = version;
    component.LCID = 1033;
    return component;
}

TEST(VirtualTypeLibrary, ReferenceIsLoadedByGuidVersionAndLanguage) {
    const OneLibrary libraries;
    VirtualTypeLibrary library(&libraries);
    EXPECT_TRUE(library.LoadVirtualReferenceTypeLib(Reference("{1}", "2.10")));
    EXPECT_EQ(library.Name(), "Stock");
    EXPECT_EQ(library.TLType(), VirtualTypeLibrary::Source::Reference);
    EXPECT_THAT(libraries.Asked, ElementsAre("{1} 2.10 9"));
}

TEST(VirtualTypeLibrary, ComponentIsLoadedLikewiseAndSaysSo) {
    const OneLibrary libraries;
    VirtualTypeLibrary library(&libraries);
    EXPECT_TRUE(library.LoadVirtualComponentTypeLib(Component("{1}", "2.0")));
    EXPECT_EQ(library.TLType(), VirtualTypeLibrary::Source::Component);
    EXPECT_EQ(static_cast<int>(VirtualTypeLibrary::Source::Component), 1);
    EXPECT_EQ(static_cast<int>(VirtualTypeLibrary::Source::Reference), 2);
    EXPECT_THAT(libraries.Asked, ElementsAre("{1} 2.0 1033"));
}

TEST(VirtualTypeLibrary, TypesAreSortedByTheirKindAndOtherKindsAreDropped) {
    const OneLibrary libraries;
    VirtualTypeLibrary library(&libraries);
    library.LoadVirtualReferenceTypeLib(Reference("{1}", "1.0"));
    EXPECT_TRUE(library.IsEnumItem("Sizes"));
    EXPECT_TRUE(library.IsUDTItem("Point"));
    for (const char* const name : {"IShelf", "_Box", "Box"}) {
        EXPECT_TRUE(library.IsClassItem(name)) << name;
    }
    for (const char* const name : {"modHelp", "Alias", "Union", "Absent"}) {
        EXPECT_FALSE(
            library.IsEnumItem(name) || library.IsUDTItem(name) || library.IsClassItem(name))
            << name;
    }
    EXPECT_FALSE(library.IsClassItem("Sizes"));
    EXPECT_FALSE(library.IsEnumItem("Point"));
}

TEST(VirtualTypeLibrary, NamesCompareWithoutRegardToCase) {
    VirtualTypeLibrary library(nullptr);
    library.AddTypeKind("Sizes", 0);
    EXPECT_TRUE(library.IsEnumItem("SIZES"));
}

TEST(VirtualTypeLibrary, DesignTimeItemHasNoLibraryAndNoneIsOpened) {
    const OneLibrary libraries;
    VirtualTypeLibrary library(&libraries);
    VirtualReference reference = Reference("{1}", "1.0");
    reference.DesignTime = true;
    EXPECT_FALSE(library.LoadVirtualReferenceTypeLib(reference));
    EXPECT_EQ(library.TLType(), VirtualTypeLibrary::Source::Reference);
    VirtualComponent component = Component("{1}", "1.0");
    component.DesignTime = true;
    EXPECT_FALSE(library.LoadVirtualComponentTypeLib(component));
    EXPECT_EQ(library.TLType(), VirtualTypeLibrary::Source::Component);
    EXPECT_TRUE(libraries.Asked.empty());
    EXPECT_EQ(library.Name(), "");
}

TEST(VirtualTypeLibrary, UnknownLibraryIsNotLoadedAndNotLogged) {
    const CapturedLog log;
    const OneLibrary libraries;
    VirtualTypeLibrary library(&libraries);
    EXPECT_FALSE(library.LoadVirtualReferenceTypeLib(Reference("{2}", "1.0")));
    EXPECT_TRUE(log.Lines().empty());
}

TEST(VirtualTypeLibrary, WithoutAnyLibrariesNothingCanBeLoaded) {
    VirtualTypeLibrary library(nullptr);
    EXPECT_FALSE(library.LoadVirtualReferenceTypeLib(Reference("{1}", "1.0")));
}

TEST(VirtualTypeLibrary, VersionWithoutAPointIsLoggedAndNotLoaded) {
    const CapturedLog log;
    const OneLibrary libraries;
    VirtualTypeLibrary library(&libraries);
    EXPECT_FALSE(library.LoadVirtualReferenceTypeLib(Reference("{1}", "2")));
    EXPECT_TRUE(log.Contains("C_VirtualTypeLibrary::LoadVirtualReferenceTypeLib"));
    EXPECT_FALSE(library.LoadVirtualComponentTypeLib(Component("{1}", "")));
    EXPECT_TRUE(log.Contains("C_VirtualTypeLibrary::LoadVirtualComponentTypeLib"));
}

}  // namespace

}  // namespace dorvik
