#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

class QWidget;

namespace dorvik {

class Desk;
class MainWindow;

/// Plays what a user does, from a text: one step a line, empty lines and those that begin with "#" apart. A step is a word
/// and what it is about:
///
///     open PATH            a project, group, folder or results database; relative to the folder of the text
///     menu TEXT            an item of the menus by its way: "Dorvik: Group By: Severity"
///     button TEXT          a button of the window in front
///     tab TEXT             a tab of the window in front
///     focus NAME           the widget with that accessible name or object name
///     key KEY              a key for what has the focus: "Down", "Return", "Ctrl+A"
///     type TEXT            letters for it
///     theme NAME           "Light", "Dark", "High contrast", "System"
///     zoom PERCENT         the size of all texts
///     size WIDTH HEIGHT    of the window, in characters and lines
///     wait MILLISECONDS
///     wait-review          until no review runs
///     expect-window TEXT   a window with that title is in front, within some seconds
///     expect NAME TEXT     the widget with that name shows that text, within some seconds
///     shot NAME            a picture NAME.png of all windows, in the folder for pictures
///     quit
///
/// A step that cannot be done ends the program with the exit code 1 and a line on standard error.
class StepPlayer {
public:
    /// REQUIRES: both outlive this.
    StepPlayer(Desk& desk, MainWindow& window, QString pictures);
    StepPlayer(const StepPlayer&) = delete;
    StepPlayer& operator=(const StepPlayer&) = delete;

    /// False where the file cannot be read. The steps follow in the event loop.
    bool Play(const QString& file);

private:
    /// What came of a step: done, to be tried again, or why it cannot be done.
    struct Outcome {
        bool IsDone = true;
        QString Fault = {};
    };
    using Step = Outcome (StepPlayer::*)(const QString& about);

    void Next(std::chrono::milliseconds delay);
    void Run();
    Outcome RunLine(const QString& line);

    Outcome Open(const QString& about);
    Outcome Menu(const QString& about);
    Outcome Button(const QString& about);
    Outcome Tab(const QString& about);
    Outcome Focus(const QString& about);
    Outcome Key(const QString& about);
    Outcome Type(const QString& about);
    Outcome Theme(const QString& about);
    Outcome Zoom(const QString& about);
    Outcome Size(const QString& about);
    Outcome Wait(const QString& about);
    Outcome WaitReview(const QString& about);
    Outcome ExpectWindow(const QString& about);
    Outcome Expect(const QString& about);
    Outcome Shot(const QString& about);
    Outcome Quit(const QString& about);

    QWidget& Front() const;
    QWidget* Named(const QString& name) const;

    Desk& m_desk;
    MainWindow& m_window;
    QString m_pictures;
    QString m_folder;  // of the text
    QStringList m_lines;
    qsizetype m_line = 0;
    int m_tries = 0;
    std::chrono::milliseconds m_delay{0};
};

}  // namespace dorvik
