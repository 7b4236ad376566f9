#include "workstation/look/modPictures.h"

#include "workstation/look/modTheme.h"

#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>

namespace dorvik::test {

namespace {

constexpr int kSmall = 16;
constexpr int kLarge = 48;

QImage Picture(std::string_view name, int size) {
    return modPictures::Icon(name)
        .pixmap(QSize(size, size), 1.0)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// How many pixels something is drawn in.
int Drawn(const QImage& picture) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += qAlpha(picture.pixel(x, y)) > 0 ? 1 : 0;
        }
    }
    return count;
}

std::string Bytes(const QImage& picture) {
    return {
        reinterpret_cast<const char*>(picture.constBits()),
        static_cast<std::size_t>(picture.sizeInBytes())};
}

/// Every name that a model uses: faces of commands, images of items, icons of rows.
constexpr std::array kNamesOfModels = {
    "Open",
    "GotoSource",
    "StartReview",
    "CancelReview",
    "ShowWindow",
    "ReviewSummary",
    "Filter",
    "Checked",
    "Blank",
    "HelpContents",
    "HelpSearch",
    "HelpTechSupport",
    "ExpandAll",
    "CollapseAll",
    "AllItems",
    "Review",
    "SeverityList",
    "CategoryList",
    "CategoryItem",
    "ViolationCounts",
    "ViolationImpacts",
    "PublicMethod",
    "PrivateMethod",
    "FriendMethod",
    "GlobalMethod",
    "Method",
    "PublicProperty",
    "PrivateProperty",
    "FriendProperty",
    "GlobalProperty",
    "Property",
    "Declarations",
    "Layout",
    "Total",
    "SortAscending",
    "SortDescending",
    "AuthorisedComponent",
    "AuthorisedReference",
    "CodingConvention",
    "NamingConvention",
    "UnauthorisedKeyword",
    "Class",
    "Form",
    "Designer",
    "Module",
    "PropertyPage",
    "UserDocument",
    "UserControl",
    "MDIForm",
    "AXDLL",
    "AXEXE",
    "STDEXE",
    "AXCONTROL",
    "OTHER",
};

TEST(Pictures, EveryNameOfAModelHasAPictureOfItsOwn) {
    const auto names = modPictures::Names();
    for (const std::string_view name : kNamesOfModels) {
        EXPECT_NE(std::ranges::find(names, name), names.end()) << name;
    }
}

TEST(Pictures, EachIsDrawnAndNoTwoAreAlike) {
    for (const ThemeName theme : {ThemeName::Light, ThemeName::Dark, ThemeName::HighContrast}) {
        modTheme::Apply(theme);
        std::map<std::string, std::string_view> seen;
        for (const std::string_view name : modPictures::Names()) {
            const QImage picture = Picture(name, kLarge);
            EXPECT_GT(Drawn(picture), kLarge) << name;
            EXPECT_GT(Drawn(Picture(name, kSmall)), kSmall / 2) << name;
            const auto [other, isNew] = seen.emplace(Bytes(picture), name);
            EXPECT_TRUE(isNew) << name << " is " << other->second;
        }
    }
    modTheme::Apply(ThemeName::Light);
}

TEST(Pictures, APictureTakesTheColoursOfTheTheme) {
    modTheme::Apply(ThemeName::Light);
    const QImage light = Picture("Open", kLarge);
    modTheme::Apply(ThemeName::Dark);
    EXPECT_NE(light, Picture("Open", kLarge));
    modTheme::Apply(ThemeName::Light);
    EXPECT_EQ(light, Picture("Open", kLarge));
}

TEST(Pictures, NamesAreFoundWithoutRegardToCase) {
    EXPECT_EQ(Picture("stdexe", kLarge), Picture("STDEXE", kLarge));
}

TEST(Pictures, AnUnknownNameIsAPlainSheetAndAnEmptyOneNothing) {
    EXPECT_GT(Drawn(Picture("NoSuchPicture", kLarge)), kLarge);
    EXPECT_TRUE(modPictures::Icon("").isNull());
}

TEST(Pictures, EachSeverityHasAShapeOfItsOwn) {
    std::map<std::string, int> seen;
    for (int severity = 1; severity <= 5; ++severity) {
        const QImage mark = modPictures::SeverityIcon(severity)
                                .pixmap(QSize(kLarge, kLarge), 1.0)
                                .toImage()
                                .convertToFormat(QImage::Format_Alpha8);
        EXPECT_TRUE(seen.emplace(Bytes(mark), severity).second) << severity;
    }
}

}  // namespace

}  // namespace dorvik::test
