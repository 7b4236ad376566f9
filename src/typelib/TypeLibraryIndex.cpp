#include "typelib/TypeLibraryIndex.h"

#include "platform/host/modHost.h"
#include "typelib/modTypeLibraryFile.h"

#include <iterator>
#include <utility>

namespace dorvik {

namespace {

IndexedTypeLibraryFile ReadFile(const TypeLibraryCandidate& candidate) {
    TypeLibraryFile read = modTypeLibraryFile::ReadAll(candidate.Path);
    IndexedTypeLibraryFile file{candidate.Size, candidate.Modified, {}, {}};
    for (NumberedTypeLibrary& library : read.Libraries) {
        TypeLibraryFacts& facts = library.Facts;
        file.Libraries.push_back(
            {candidate.Path,
             library.Number,
             std::move(facts.Guid),
             facts.MajorVersion,
             facts.MinorVersion,
             facts.Lcid,
             std::move(facts.Contents.Name),
             std::move(facts.Description)});
    }
    if (!read.IsOther) {
        file.Faults = std::move(read.Faults);
    }
    return file;
}

}  // namespace

TypeLibraryIndex::TypeLibraryIndex(std::string_view indexFile, TypeLibraryFolderLimits limits)
    : m_limits(limits), m_file(indexFile) {}

const TypeLibraryFolderListing& TypeLibraryIndex::LibrariesIn(std::string_view folder) {
    const auto found = m_folders.find(folder);
    if (found != m_folders.end()) {
        return found->second;
    }
    return m_folders.emplace(folder, Scan(folder)).first->second;
}

TypeLibraryFolderListing TypeLibraryIndex::Scan(std::string_view folder) {
    const TypeLibraryFolderFiles files = modTypeLibraryFolder::FilesBelow(folder, m_limits);
    TypeLibraryFolderListing listing;
    listing.FileCount = files.Files.size();
    listing.IsCut = files.IsCut;
    for (const TypeLibraryCandidate& candidate : files.Files) {
        const IndexedTypeLibraryFile& file = FileOf(candidate);
        std::copy(
            file.Libraries.begin(), file.Libraries.end(), std::back_inserter(listing.Libraries));
        for (const std::string& fault : file.Faults) {
            listing.Faults.push_back({candidate.Path, fault});
        }
        // Thousands of files may be there, and a review waits for them.
        modHost::YieldToInput();
    }
    m_file.Save();
    return listing;
}

const IndexedTypeLibraryFile& TypeLibraryIndex::FileOf(const TypeLibraryCandidate& candidate) {
    const IndexedTypeLibraryFile* const known = m_file.Find(candidate.Path);
    if (known != nullptr && known->Size == candidate.Size &&
        known->Modified == candidate.Modified) {
        return *known;
    }
    return m_file.Put(candidate.Path, ReadFile(candidate));
}

const IndexedTypeLibrary*
TypeLibraryIndex::Find(const std::vector<std::string>& folders, const TypeLibraryRequest& request) {
    std::vector<AvailableTypeLibrary> candidates;
    std::vector<const IndexedTypeLibrary*> libraries;
    for (const std::string& folder : folders) {
        for (const IndexedTypeLibrary& library : LibrariesIn(folder).Libraries) {
            candidates.push_back(
                {library.Guid, library.MajorVersion, library.MinorVersion, library.Lcid});
            libraries.push_back(&library);
        }
    }
    const auto chosen = modTypeLibraryChoice::Registered(candidates, request);
    return chosen ? libraries[*chosen] : nullptr;
}

}  // namespace dorvik
