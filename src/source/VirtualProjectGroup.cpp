#include "source/VirtualProjectGroup.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/TextFileReader.h"
#include "source/modSource.h"

#include <algorithm>

namespace dorvik {

VirtualProjectGroup::VirtualProjectGroup(std::string_view filename, int codePage) {
    TextFileReader reader(filename, codePage);
    const std::string folder(modUtilFunctions::PathFromFilename(filename));
    while (!reader.AtEnd()) {
        TakeLine(reader.ReadLine(), folder);
    }
}

void VirtualProjectGroup::TakeLine(std::string_view line, std::string_view folder) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return;
    }
    const std::string_view key = modText::Trim(line.substr(0, equals));
    if (!modTextCase::Equal(key, "Project") && !modTextCase::Equal(key, "StartupProject")) {
        return;
    }
    const std::string_view value = modSource::RemoveQuotes(modText::Trim(line.substr(equals + 1)));
    if (value.empty()) {
        return;
    }
    std::string path(modUtilFunctions::RelativeToAbsolutePath(value, folder));
    if (m_known.insert(modTextCase::ToLower(path)).second) {
        m_projectFilenames.push_back(std::move(path));
    }
}

}  // namespace dorvik
