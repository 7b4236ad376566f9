#include "base/modKyErrors.h"

#include "base/BasicError.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(modKyErrors, EveryNumberHasItsText) {
    using namespace modKyErrors;
    EXPECT_EQ(ErrorText(kyErrNoSuchItem), "No such item.");
    EXPECT_EQ(
        ErrorText(kyErrKeyInUse),
        "The item cannot be added, because the key '%KEY%' is already in use.");
    EXPECT_EQ(ErrorText(kyErrNoFilename), "No filename has been specified.");
    EXPECT_EQ(
        ErrorText(kyErrRegistryType), "Registry data type does not match the type requested.");
    EXPECT_EQ(ErrorText(kyErrRegistryKey), "An invalid registry key handle was supplied.");
    EXPECT_EQ(ErrorText(1), "");
    EXPECT_EQ(static_cast<std::uint32_t>(kyErrRegistryKey), 0x8004026BU);
}

TEST(modKyErrors, RaiseErrorPutsTheKeyIntoTheText) {
    try {
        modKyErrors::RaiseError(modKyErrors::kyErrKeyInUse, "KeyedArrayList::Add", "Form1");
        FAIL() << "nothing was raised";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), modKyErrors::kyErrKeyInUse);
        EXPECT_STREQ(
            error.what(), "The item cannot be added, because the key 'Form1' is already in use.");
        EXPECT_EQ(error.Source(), "KeyedArrayList::Add");
    }
}

TEST(BasicError, RuntimeErrorsCarryTheirOwnTextAndTheDetail) {
    EXPECT_EQ(RuntimeErrorText(runtimeerror::kFileNotFound), "File not found");
    EXPECT_EQ(RuntimeErrorText(12345), "Application-defined or object-defined error");
    try {
        RaiseRuntimeError(runtimeerror::kPathNotFound, "C:\\x");
        FAIL() << "nothing was raised";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), 76);
        EXPECT_STREQ(error.what(), "Path not found: 'C:\\x'");
        EXPECT_EQ(error.Source(), "");
    }
}

}  // namespace
}  // namespace dorvik
