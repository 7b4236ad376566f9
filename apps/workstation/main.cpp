#include "platform/host/ScopedInstall.h"
#include "platform/host/modHostConsole.h"
#include "platform/host/modHostPath.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsFile.h"
#include "workstation/forms/EventLoopInput.h"
#include "workstation/forms/QtMessageBox.h"
#include "workstation/forms/QtScreen.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"
#include "workstation/window/Desk.h"
#include "workstation/window/MainWindow.h"
#include "workstation/window/StepPlayer.h"
#include "workstation/window/modWindowSettings.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdlib>
#include <optional>

namespace {

using dorvik::modQt::Text;

struct Arguments {
    std::vector<std::string> Paths;
    std::vector<std::string> TypeLibraries;  // the program's own paths
    int CodePage = dorvik::modEncoding::kDefaultCodePage;
    QString Steps;
    QString Pictures;
};

Arguments ReadArguments(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        Text("Reviews Visual Basic 6 projects against a written coding standard."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption typeLibraries(
        Text("type-libraries"), Text("A folder with type libraries (repeatable)."), Text("FOLDER"));
    const QCommandLineOption codePage(
        Text("code-page"), Text("For files without a byte order mark (1252)."), Text("NUMBER"));
    QCommandLineOption play(Text("play"), Text("Plays the steps in FILE."), Text("FILE"));
    play.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption pictures(
        Text("pictures"), Text("The folder for pictures of --play."), Text("FOLDER"), Text("."));
    pictures.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({typeLibraries, codePage, play, pictures});
    parser.addPositionalArgument(
        Text("PATH"), Text("Projects, groups, folders or results databases."), Text("[PATH...]"));
    parser.process(application);

    Arguments arguments;
    for (const QString& path : parser.positionalArguments()) {
        arguments.Paths.push_back(dorvik::modQt::Utf8(path));
    }
    for (const QString& folder : parser.values(typeLibraries)) {
        arguments.TypeLibraries.push_back(dorvik::modHostPath::ToProgram(
            dorvik::modHostPath::FromUser(dorvik::modQt::Utf8(folder))));
    }
    const int number = parser.value(codePage).toInt();
    if (dorvik::modEncoding::IsKnownCodePage(number)) {
        arguments.CodePage = number;
    } else if (parser.isSet(codePage)) {
        dorvik::modHostConsole::Write(
            dorvik::HostStream::Error,
            "dorvik-workstation: there is no code page '" +
                dorvik::modQt::Utf8(parser.value(codePage)) + "'; 1252 is one\n");
        std::exit(2);
    }
    arguments.Steps = parser.value(play);
    arguments.Pictures = parser.value(pictures);
    return arguments;
}

/// The settings of the machine, where it has any, and those of the user.
class InstalledSettings {
public:
    InstalledSettings() : m_installedUser(dorvik::RegistryRoot::CurrentUser, m_user) {
        if (m_machine.Exists()) {
            m_installedMachine.emplace(dorvik::RegistryRoot::LocalMachine, m_machine);
        }
    }

private:
    dorvik::SettingsFile m_machine{dorvik::SettingsFile::MachinePath()};
    dorvik::SettingsFile m_user{dorvik::SettingsFile::UserPath()};
    dorvik::ScopedSettingsStore m_installedUser;
    std::optional<dorvik::ScopedSettingsStore> m_installedMachine;
};

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(Text("dorvik-workstation"));
    QApplication::setApplicationDisplayName(Text("Dorvik Workstation"));
    QApplication::setApplicationVersion(Text(DORVIK_VERSION));
    const Arguments arguments = ReadArguments(application);

    const InstalledSettings settings;
    dorvik::QtMessageBox messages;
    dorvik::EventLoopInput input;
    const dorvik::ScopedInstall<dorvik::IMessageBox> installedMessages(messages);
    const dorvik::ScopedInstall<dorvik::IHostInput> installedInput(input);
    dorvik::modTheme::Apply(dorvik::modWindowSettings::Theme());

    dorvik::QtScreen screen;
    dorvik::Desk desk(screen, arguments.CodePage);
    dorvik::MainWindow window(desk);
    messages.SetOwner(&window);
    screen.SetOwner(&window);
    desk.Start(arguments.TypeLibraries);
    window.ShowDesk();
    window.SetZoom(dorvik::modWindowSettings::Zoom());
    window.show();
    dorvik::StepPlayer player(desk, window, arguments.Pictures);
    QTimer::singleShot(0, &window, [&] { window.Open(arguments.Paths); });
    if (!arguments.Steps.isEmpty() && !player.Play(arguments.Steps)) {
        return 2;
    }
    return QApplication::exec();
}
