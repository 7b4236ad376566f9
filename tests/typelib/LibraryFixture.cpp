#include "typelib/LibraryFixture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace dorvik::test {

std::string LibraryBytes(std::string_view name) {
    const std::string path = std::string(DORVIK_TYPE_LIBRARIES) + "/" + std::string(name) + ".tlb";
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

TypeLibraryFacts OnlyLibrary(std::string_view bytes) {
    const TypeLibraryFile file = modTypeLibraryFile::ReadBytes(bytes, "test.tlb");
    EXPECT_EQ(file.Faults, std::vector<std::string>{});
    EXPECT_EQ(file.Libraries.size(), 1U);
    return file.Libraries.empty() ? TypeLibraryFacts{} : file.Libraries.front().Facts;
}

std::string OnlyFault(std::string_view bytes) {
    const TypeLibraryFile file = modTypeLibraryFile::ReadBytes(bytes, "test.tlb");
    EXPECT_TRUE(file.Libraries.empty());
    EXPECT_EQ(file.Faults.size(), 1U);
    return file.Faults.empty() ? "" : file.Faults.front();
}

std::vector<std::string> TypesOf(const TypeLibraryFacts& facts) {
    std::vector<std::string> texts;
    for (const TypeLibraryContents::TypeEntry& type : facts.Contents.Types) {
        texts.push_back(type.Name + " " + std::to_string(type.Kind));
    }
    return texts;
}

std::string WithText(std::string bytes, std::string_view from, std::string_view to) {
    EXPECT_EQ(from.size(), to.size());
    std::size_t place = bytes.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    for (; place != std::string::npos; place = bytes.find(from, place + to.size())) {
        bytes.replace(place, from.size(), to);
    }
    return bytes;
}

TypeLibraryFile ReadDamaged(std::string_view bytes, const std::string& what) {
    TypeLibraryFile file = modTypeLibraryFile::ReadBytes(bytes, "damaged.tlb");
    EXPECT_FALSE(file.Libraries.empty() && file.Faults.empty()) << what;
    for (const std::string& fault : file.Faults) {
        EXPECT_TRUE(fault.starts_with("\"damaged.tlb\"")) << what << ": " << fault;
        EXPECT_TRUE(fault.ends_with(".")) << what << ": " << fault;
    }
    for (const NumberedTypeLibrary& library : file.Libraries) {
        for (const TypeLibraryContents::TypeEntry& type : library.Facts.Contents.Types) {
            EXPECT_FALSE(type.Name.empty()) << what;
            EXPECT_TRUE(type.Kind >= 0 && type.Kind <= 7) << what;
        }
    }
    return file;
}

}  // namespace dorvik::test
