#pragma once

#include "support/TemporaryFolder.h"

#include <string>
#include <string_view>

namespace dorvik::test {

/// The text with CR LF for each LF.
inline std::string Dos(std::string_view text) {
    std::string lines;
    for (const char character : text) {
        lines += character == '\n' ? "\r\n" : std::string(1, character);
    }
    return lines;
}

/// A folder with a project P of a module, a class and a form.
class HostFolder {
public:
    static constexpr std::string_view kForm =
        "VERSION 5.00\n"
        "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\n"
        "Begin VB.Form frmMain \n"
        "   Caption         =   \"Main\"\n"
        "   Begin VB.Frame fra \n"
        "      Begin VB.TextBox Text1 \n"
        "         BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} \n"
        "            Index           =   7\n"
        "         EndProperty\n"
        "         Index           =   0\n"
        "      End\n"
        "      Begin VB.TextBox Text1 \n"
        "         Index           =   3 'third\n"
        "      End\n"
        "   End\n"
        "   Begin VB.Menu mnuFile \n"
        "      Caption         =   \"&File\"\n"
        "   End\n"
        "End\n"
        "Attribute VB_Name = \"frmMain\"\n"
        "Attribute VB_GlobalNameSpace = False\n"
        "Option Explicit\n"
        "\n"
        "Private WithEvents mobjThing As clsThing\n"
        "Attribute mobjThing.VB_VarHelpID = -1\n"
        "\n"
        "Private Sub Form_Load()\n"
        "Attribute Form_Load.VB_Description = \"Loads.\"\n"
        "    Beep\n"
        "End Sub\n";

    HostFolder() {
        Folder.Write(
            "P.vbp",
            Dos("Type=OleDll\nForm=Forms\\frmMain.frm\nModule=modMain; modMain.bas\n"
                "Class=clsThing; clsThing.cls\nName=\"P\"\nTitle=\"P\"\n\n[MS Transaction "
                "Server]\n"));
        Folder.Write("Forms\\frmMain.frm", Dos(kForm));
        Folder.Write(
            "modMain.bas",
            Dos("Attribute VB_Name = \"modMain\"\nOption Explicit\n\nPublic Sub Main()\n    "
                "Beep\nEnd Sub\n"));
        Folder.Write(
            "clsThing.cls",
            Dos("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = "
                "\"clsThing\"\n"
                "Attribute VB_Exposed = False\nPublic x As Long\n"));
    }

    std::string Project() const { return Folder.Path("P.vbp"); }

    TemporaryFolder Folder;
};

}  // namespace dorvik::test
