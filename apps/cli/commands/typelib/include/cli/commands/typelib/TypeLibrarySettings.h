#pragma once

#include "typelib/TypeLibraryStore.h"

#include <string>
#include <vector>

namespace dorvik {

/// The type libraries of this machine, as the command line and the settings name their places.
namespace modTypeLibrarySettings {

/// `folders` are paths of this machine from the command line; they come before the folders of the
/// settings. A folder that does not exist is reported and skipped.
TypeLibraryPlaces Places(const std::vector<std::string>& folders);

/// What is wrong with a line of the catalogue; `shown` is its file for the eyes of a person.
std::string Sentence(const TypeCatalogueFault& fault, const std::string& shown);

/// Prints a sentence for each line of the catalogue that could not be understood.
void ReportFaults(const TypeCatalogue& catalogue);

}  // namespace modTypeLibrarySettings

}  // namespace dorvik
