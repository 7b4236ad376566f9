#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "rulebase/model/AuthorisedComponents.h"
#include "rulebase/model/AuthorisedReferences.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace dorvik {
namespace {

constexpr const char* kGrid = "{5E9E78A0-531B-11CF-91F6-C2863C385E30}";

void ExpectNoSuchItem(const std::function<void()>& body, const std::string& source) {
    try {
        body();
        FAIL() << "nothing was raised";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), modKyErrors::kyErrNoSuchItem);
        EXPECT_STREQ(error.what(), "No such item.");
        EXPECT_EQ(error.Source(), source);
    }
}

TEST(AuthorisedComponents, AnUnknownLibIDRaisesNoSuchItem) {
    const AuthorisedComponents list;
    ExpectNoSuchItem([&] { list.Item("{UNKNOWN}"); }, "AuthorisedComponents::Item");
    ExpectNoSuchItem([&] { list.Item(1); }, "AuthorisedComponents::Item");
    const AuthorisedReferences references;
    ExpectNoSuchItem([&] { references.Item("{UNKNOWN}"); }, "AuthorisedReferences::Item");
}

TEST(AuthorisedComponents, AddingALibIDInAnotherCaseGivesAnEmptyItemOutsideTheList) {
    AuthorisedComponents list;
    list.Add("{abc}", "a.ocx", "1.0", "advice");
    list.SetDirty(false);
    const auto second = list.Add("{ABC}", "b.ocx", "2.0", "other");
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->LibID(), "");
    EXPECT_EQ(second->Filename(), "");
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Item(1)->Filename(), "a.ocx");
    EXPECT_FALSE(list.Dirty());
}

TEST(AuthorisedComponents, RemovingOutsideTheListRaisesAndAnUnknownKeyDoesNot) {
    AuthorisedComponents list;
    list.Add(kGrid, "MSFLXGRD.OCX", "", "");
    ExpectNoSuchItem([&] { list.Remove(0); }, "AuthorisedComponents::Remove");
    ExpectNoSuchItem([&] { list.Remove(2); }, "AuthorisedComponents::Remove");
    list.RemoveByLibID("{UNKNOWN}");
    EXPECT_EQ(list.Count(), 1);
    list.SetDirty(false);
    list.RemoveByLibID(kGrid);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(list.Dirty());
    AuthorisedReferences references;
    ExpectNoSuchItem([&] { references.Remove(0); }, "AuthorisedReferences::Remove");
}

TEST(AuthorisedComponents, SelectedCountIsThatOfTheItems) {
    AuthorisedComponents list;
    const auto item = list.Add(kGrid, "MSFLXGRD.OCX", "", "");
    EXPECT_TRUE(item->Selected());
    EXPECT_EQ(list.SelectedCount(), 1);
    item->SetSelected(false);
    EXPECT_EQ(list.SelectedCount(), 0);
}

TEST(AuthorisedComponents, AFileNameIsFoundInAnyCase) {
    AuthorisedComponents list;
    list.Add("{1}", "MSCOMCTL.OCX", "", "");
    list.Add("{2}", "MSFLXGRD.OCX", "", "");
    EXPECT_EQ(list.FindByFilename("msflxgrd.ocx"), 2);
    EXPECT_EQ(list.FindByFilename("other.ocx"), -1);
    EXPECT_EQ(list.FindByLibID("{2}"), 2);
    EXPECT_EQ(list.FindByLibID("{3}"), -1);
}

TEST(AuthorisedComponents, AnItemIsAddedOnceUnderItsLibID) {
    AuthorisedComponents list;
    const auto item = std::make_shared<AuthorisedComponent>();
    item->SetLibID("{1}");
    EXPECT_TRUE(list.AddComponent(item));
    list.SetDirty(false);
    EXPECT_FALSE(list.AddComponent(item));
    EXPECT_FALSE(list.Dirty());
    EXPECT_TRUE(list.Contains("{1}"));
}

TEST(AuthorisedItem, TheTitleIsTheFileNameOfAComponentAndTheDescriptionOfAReference) {
    AuthorisedComponent component;
    IAuthorisedItem& componentItem = component;
    componentItem.SetTitle("grid.ocx");
    componentItem.SetTypeLibGuid("{1}");
    componentItem.SetVersions("1.0");
    EXPECT_EQ(component.Filename(), "grid.ocx");
    EXPECT_EQ(component.LibID(), "{1}");
    EXPECT_EQ(component.VersionList(), "1.0");

    AuthorisedReference reference;
    reference.SetFilename("ado.tlb");
    IAuthorisedItem& referenceItem = reference;
    referenceItem.SetTitle("Data objects");
    EXPECT_EQ(reference.Description(), "Data objects");
    EXPECT_EQ(reference.Filename(), "ado.tlb");
}

TEST(AuthorisedReferences, AddSetsAllFields) {
    AuthorisedReferences list;
    const auto item = list.Add("{1}", "Data objects", "msado15.dll", "2.8", "Ask first.");
    EXPECT_EQ(list.Item("{1}"), item);
    EXPECT_EQ(item->Description(), "Data objects");
    EXPECT_EQ(item->Filename(), "msado15.dll");
    EXPECT_EQ(item->VersionList(), "2.8");
    EXPECT_EQ(item->Advice(), "Ask first.");
    EXPECT_TRUE(list.Dirty());
    EXPECT_FALSE(list.AddReference(item));
}

}  // namespace
}  // namespace dorvik
