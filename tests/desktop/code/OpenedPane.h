#pragma once

#include "base/modText.h"
#include "support/TemporaryFolder.h"
#include "workstation/code/CodeEditor.h"
#include "workstation/code/CodePaneView.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/HostFolder.h"

#include <QKeyEvent>
#include <QTest>

#include <memory>
#include <string>
#include <string_view>

namespace dorvik::test {

/// The code of a module on the screen.
class OpenedPane {
public:
    static constexpr std::string_view kCode = "Option Explicit\n"
                                              "\n"
                                              "Sub A()\n"
                                              "    x = 1\n"
                                              "    y = 2 + _\n"
                                              "        3\n"
                                              "End Sub\n"
                                              "\n"
                                              "Sub B()\n"
                                              "    x = 1\n"
                                              "End Sub\n";

    explicit OpenedPane(std::string_view code = kCode) {
        Folder.Write("m.bas", Dos("Attribute VB_Name = \"m\"\n" + std::string(code)));
        Host.Open(Folder.Write("P.vbp", Dos("Module=m; m.bas\nName=\"P\"\n")));
        View = std::make_unique<CodePaneView>(Component());
        View->resize(800, 500);
        View->show();
        Editor().setFocus();
        QCoreApplication::processEvents();
    }

    FileComponent& Component() { return Host.Project(1).Component(1); }
    FileCodeModule& Module() { return Component().CodeModule(); }
    CodeEditor& Editor() { return *dynamic_cast<CodeEditor*>(View->findChild<QsciScintilla*>()); }
    std::string Shown() {
        return Editor().text().replace(QLatin1Char('\n'), QLatin1Char('|')).toStdString();
    }
    std::string Kept() { return modText::Join(Module().Texts(), "|"); }
    void GoTo(int line, int column) { Editor().Select({line, column, line, column}); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&Editor(), key, modifiers);
    }
    /// Also what is not on a keyboard.
    void Type(const char* text) {
        for (const QChar character : QString::fromUtf8(text)) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QCoreApplication::sendEvent(&Editor(), &press);
        }
    }

    TemporaryFolder Folder;
    FileHost Host;
    std::unique_ptr<CodePaneView> View;
};

}  // namespace dorvik::test
