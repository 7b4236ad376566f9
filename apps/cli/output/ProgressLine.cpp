#include "cli/output/ProgressLine.h"

#include "base/modUtf8.h"
#include "cli/output/Console.h"
#include "cli/output/modTerminalText.h"
#include "foundation/text/modUtilFunctions.h"

#include <array>
#include <cstdio>

namespace dorvik {

namespace {

std::string Figures(const ProgressInfo& progress) {
    std::array<char, 64> buffer{};
    const int length = std::snprintf(
        buffer.data(),
        buffer.size(),
        " file %3d%%  project %3d%%  review %3d%%",
        progress.SourceFilePercentage(),
        progress.ProjectPercentage(),
        progress.ReviewPercentage());
    return {buffer.data(), static_cast<std::size_t>(length)};
}

}  // namespace

ProgressLine::~ProgressLine() {
    Clear();
}

void ProgressLine::Show(const ProgressInfo& progress) {
    if (!m_shown) {
        return;
    }
    const std::string figures = Figures(progress);
    // The last column stays free: a line that fills the terminal would wrap.
    const std::size_t width = modConsole::ErrorWidth() - 1;
    const std::size_t room = width > figures.size() ? width - figures.size() : 0;
    std::string names = progress.ProjectName() + "  " +
                        modUtilFunctions::FilenameFromFullPathName(progress.SourceFilePath());
    names = modTerminalText::Harmless(names);
    names = std::string(modUtf8::Left(names, room));
    names.append(room - modUtf8::Length(names), ' ');
    const std::string line = names + figures;
    if (line == m_line) {
        return;
    }
    m_line = line;
    modConsole::PrintErrorAsIs("\r" + m_line);
}

void ProgressLine::Clear() {
    if (!m_line.empty()) {
        modConsole::PrintErrorAsIs("\r" + std::string(modUtf8::Length(m_line), ' ') + "\r");
        m_line.clear();
    }
}

}  // namespace dorvik
