// Reviews a generated project and prints what that costs, beside well-known programs that read the
// same files in the same run: wc (counts line ends), cloc (classifies lines), ctags (finds definitions).
#include "MeasuredProcess.h"
#include "MeasuredReview.h"
#include "ProgramPath.h"
#include "ProjectGenerator.h"
#include "criteria/ReviewCriteria.h"
#include "platform/host/modFiles.h"
#include "review/IProjectEventListener.h"
#include "review/ProjectTraversal.h"
#include "settings/DVKWorkData.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace dorvik {

namespace {

constexpr int kLines = 200000;
constexpr std::uint32_t kSeed = 6;

class EventCounter final : public IProjectEventListener {
public:
    void EventFired(dorvik::ParserEvent, const VB6ParserState&, const VirtualSourceFile*) override {
        ++m_events;
    }
    void FileFailed(const VirtualSourceFile&) override { m_failed = true; }
    void LayoutCut(const VirtualSourceFile&, const LayoutFault&) override { m_failed = true; }
    bool StopRequested() override { return false; }
    bool Succeeded() const { return !m_failed && m_events > 0; }

private:
    long m_events = 0;
    bool m_failed = false;
};

bool WalkEvents(const std::string& projectFile) {
    VirtualProject project;
    if (project.LoadProject(projectFile) != ProjectLoadStatus::Good) {
        return false;
    }
    EventCounter counter;
    return ProjectTraversal(project, ReviewCriteria(DVKWorkData()), counter).Run() &&
           counter.Succeeded();
}

void PrintRow(
    const char* name, const Measurement& measurement, long lines, const Measurement& reference) {
    if (!measurement.Succeeded) {
        std::printf("%-26s failed or not installed\n", name);
        return;
    }
    std::printf(
        "%-26s %12.0f %8.2f %8.2f %8.1f %9.1f\n",
        name,
        static_cast<double>(lines) / measurement.CpuSeconds,
        measurement.CpuSeconds,
        measurement.WallSeconds,
        measurement.PeakMegabytes,
        measurement.CpuSeconds / reference.CpuSeconds);
}

std::vector<std::string>
WithFiles(std::vector<std::string> command, const ProjectGenerator& generator) {
    for (const std::filesystem::path& file : generator.SourceFiles()) {
        command.push_back(file.string());
    }
    return command;
}

long CountLines(const ProjectGenerator& generator) {
    long lines = 0;
    for (const std::filesystem::path& file : generator.SourceFiles()) {
        const std::string bytes = modFiles::ReadBytes(ProgramPath(file));
        for (const char byte : bytes) {
            lines += byte == '\n' ? 1 : 0;
        }
    }
    return lines;
}

int Run(int lineCount) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "dorvik-bench";
    std::filesystem::remove_all(folder);
    ProjectGenerator generator(kSeed);
    const std::string project = ProgramPath(generator.Write(folder, lineCount));
    const long lines = CountLines(generator);
    std::printf("%ld lines in %zu files\n\n", lines, generator.SourceFiles().size());
    std::printf(
        "%-26s %12s %8s %8s %8s %9s\n", "", "lines/CPU s", "CPU s", "wall s", "peak MB", "x wc -l");

    const Measurement wc = MeasureProgram(WithFiles({"wc", "-l"}, generator));
    PrintRow("wc -l", wc, lines, wc);
    PrintRow("ctags", MeasureProgram(WithFiles({"ctags", "-f", "-"}, generator)), lines, wc);
    PrintRow("cloc", MeasureProgram(WithFiles({"cloc", "--quiet"}, generator)), lines, wc);
    PrintRow("dorvik, all events", MeasureWork([&] { return WalkEvents(project); }), lines, wc);
    PrintRow(
        "dorvik, sample rulebase",
        MeasureWork([&] { return ReviewProject(project, InstalledRulebase()); }),
        lines,
        wc);
    std::filesystem::remove_all(folder);
    return 0;
}

}  // namespace

}  // namespace dorvik

int main(int argc, char** argv) {
    return dorvik::Run(argc > 1 ? std::atoi(argv[1]) : dorvik::kLines);
}
