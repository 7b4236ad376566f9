#pragma once

#include "workstation/controls/Event.h"

#include <QWidget>

#include <string>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace dorvik {

/// What the window shows while no project is open: what was opened last, the samples, and the commands to open something.
class StartPage final : public QWidget {
public:
    explicit StartPage(QWidget* parent);

    /// Paths of this machine.
    void SetRecentFiles(const std::vector<std::string>& files);
    void SetSamples(const std::vector<std::string>& files);

    Event<> OpenRequested;
    Event<> OpenFolderRequested;
    Event<const std::string&> FileRequested;

protected:
    void changeEvent(QEvent* event) override;

private:
    struct SizedLabel {
        QLabel* Label;
        double Size;  // 1 for that of a text
    };

    QLabel& Heading(const char* text, double size);
    void SizeHeadings();
    void Fill(QVBoxLayout& list, const std::vector<std::string>& files, const char* placeholder);

    std::vector<SizedLabel> m_headings;
    QVBoxLayout& m_recent;
    QVBoxLayout& m_samples;
};

/// The projects and groups that come with the program, paths of this machine: in a folder "Samples" or "samples" beside
/// the program or in one of the folders above, as in the repository. None where there is no such folder.
std::vector<std::string> SampleProjects(const std::string& programFolder);

}  // namespace dorvik
