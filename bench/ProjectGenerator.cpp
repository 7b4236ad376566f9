#include "ProjectGenerator.h"

#include <array>
#include <fstream>

namespace dorvik {

namespace {

constexpr std::array<const char*, 24> kNouns{
    "Customer", "Invoice", "Order",  "Article", "Stock",  "Price",  "Address", "Account",
    "Payment",  "Date",    "Total",  "Counter", "Buffer", "Record", "Field",   "Report",
    "Printer",  "Window",  "Status", "Setting", "Path",   "Line",   "Index",   "Result"};
constexpr std::array<const char*, 10> kVerbs{
    "Load", "Save", "Update", "Check", "Find", "Print", "Delete", "Open", "Close", "Format"};
constexpr std::array<const char*, 8> kTypes{
    "Long", "String", "Integer", "Boolean", "Variant", "Currency", "Date", "Object"};
constexpr std::array<const char*, 6> kControls{
    "VB.Label lbl",
    "VB.TextBox txt",
    "VB.CommandButton cmd",
    "VB.CheckBox chk",
    "VB.ComboBox cbo",
    "VB.ListBox lst"};

std::string Indent(int depth) {
    return std::string(static_cast<std::size_t>(depth) * 4, ' ');
}

}  // namespace

std::filesystem::path ProjectGenerator::Write(const std::filesystem::path& folder, int lines) {
    std::filesystem::create_directories(folder);
    for (int number = 1; m_lines < lines; ++number) {
        switch (number % 5) {
            case 0:
            case 1: WriteForm(folder, number); break;
            case 2: WriteClass(folder, number); break;
            default: WriteModule(folder, number); break;
        }
    }
    const std::filesystem::path project = folder / "Generated.vbp";
    std::ofstream(project, std::ios::binary)
        << "Type=Exe\r\n"
        << m_projectLines
        << "Startup=\"Sub Main\"\r\nName=\"Generated\"\r\nExeName32=\"Generated.exe\"\r\n";
    return project;
}

void ProjectGenerator::WriteFile(const std::filesystem::path& file) {
    std::ofstream(file, std::ios::binary) << m_text;
    m_sourceFiles.push_back(file);
    m_text.clear();
}

void ProjectGenerator::Line(const std::string& text) {
    m_text += text;
    m_text += "\r\n";
    ++m_lines;
}

std::string ProjectGenerator::Name(const char* prefix) {
    std::string name = prefix;
    name += kNouns.at(static_cast<std::size_t>(Pick(0, kNouns.size() - 1)));
    if (Chance(30)) {
        name += kNouns.at(static_cast<std::size_t>(Pick(0, kNouns.size() - 1)));
    }
    return name;
}

void ProjectGenerator::Attributes(const std::string& name) {
    Line("Attribute VB_Name = \"" + name + "\"");
}

void ProjectGenerator::WriteForm(const std::filesystem::path& folder, int number) {
    const std::string name = "frm" + std::to_string(number);
    Line("VERSION 5.00");
    Line("Begin VB.Form " + name + " ");
    Line("   Caption         =   \"Form " + std::to_string(number) + "\"");
    const int frames = Pick(2, 6);
    for (int frame = 1; frame <= frames; ++frame) {
        Line("   Begin VB.Frame fra" + std::to_string(frame) + " ");
        Line("      Height          =   1575");
        const int controls = Pick(2, 8);
        for (int control = 1; control <= controls; ++control) {
            const std::string type =
                kControls.at(static_cast<std::size_t>(Pick(0, kControls.size() - 1)));
            Line("      Begin " + type + std::to_string(frame * 100 + control) + " ");
            Line("         BeginProperty Font ");
            Line("            Name            =   \"Tahoma\"");
            Line("            Size            =   8.25");
            Line("         EndProperty");
            Line("         Height          =   255");
            Line("         Left            =   " + std::to_string(Pick(0, 5000)));
            Line("         TabIndex        =   " + std::to_string(control));
            Line("      End");
        }
        Line("   End");
    }
    Line("End");
    Attributes(name);
    Line("Option Explicit");
    Declarations();
    Procedures(Pick(10, 30), true);
    WriteFile(folder / (name + ".frm"));
    m_projectLines += "Form=" + name + ".frm\r\n";
}

void ProjectGenerator::WriteClass(const std::filesystem::path& folder, int number) {
    const std::string name = "cls" + std::to_string(number);
    Line("VERSION 1.0 CLASS");
    Line("BEGIN");
    Line("  MultiUse = -1  'True");
    Line("END");
    Attributes(name);
    Line("Option Explicit");
    Declarations();
    const int properties = Pick(5, 20);
    for (int property = 1; property <= properties; ++property) {
        Property(property);
    }
    Procedures(Pick(10, 30), false);
    WriteFile(folder / (name + ".cls"));
    m_projectLines += "Class=" + name + "; " + name + ".cls\r\n";
}

void ProjectGenerator::WriteModule(const std::filesystem::path& folder, int number) {
    const std::string name = "mod" + std::to_string(number);
    Attributes(name);
    Line("Option Explicit");
    Line("Private Declare Function GetTickCount Lib \"kernel32\" () As Long");
    Line("Private Declare Function FindWindow Lib \"user32\" Alias \"FindWindowA\" (ByVal "
         "lpClassName As String, ByVal lpWindowName As String) As Long");
    Declarations();
    Procedures(Pick(20, 60), false);
    WriteFile(folder / (name + ".bas"));
    m_projectLines += "Module=" + name + "; " + name + ".bas\r\n";
}

void ProjectGenerator::Declarations() {
    Line("");
    Line("' What this file keeps between calls.");
    for (int count = Pick(5, 25); count > 0; --count) {
        const std::string type = kTypes.at(static_cast<std::size_t>(Pick(0, kTypes.size() - 1)));
        if (Chance(20)) {
            Line(
                "Private Const " + Name("MAX_") + std::to_string(count) +
                " As Long = " + std::to_string(Pick(1, 999)));
        } else {
            Line("Private m_" + Name("") + std::to_string(count) + " As " + type);
        }
    }
    Line("Private Enum " + Name("e"));
    for (int element = 1; element <= 4; ++element) {
        Line("    " + Name("e") + std::to_string(element) + " = " + std::to_string(element));
    }
    Line("End Enum");
    Line("Private Type " + Name("T"));
    for (int element = 1; element <= 4; ++element) {
        Line("    " + Name("") + std::to_string(element) + " As String");
    }
    Line("End Type");
    Line("");
}

void ProjectGenerator::Procedures(int count, bool isForm) {
    for (int number = 1; number <= count; ++number) {
        Procedure(number, isForm);
    }
}

void ProjectGenerator::Procedure(int number, bool isForm) {
    if (Chance(50)) {
        Line("' " + Name("") + ": what it does, and for whom.");
    }
    const bool isFunction = Chance(35);
    const std::string kind = isFunction ? "Function" : "Sub";
    const std::string name =
        isForm && Chance(50)
            ? "cmd" + std::to_string(number) + "_Click()"
            : std::string(kVerbs.at(static_cast<std::size_t>(Pick(0, kVerbs.size() - 1)))) +
                  Name("") + std::to_string(number) +
                  "(ByVal lngIndex As Long, Optional strText As String = \"\")";
    Line(
        (Chance(60) ? "Private " : "Public ") + kind + " " + name + (isFunction ? " As Long" : ""));
    Line("    Dim i As Long, strLine As String");
    if (Chance(50)) {
        Line("    On Error GoTo ErrHandler");
    }
    Body(Pick(3, 40), 1);
    if (Chance(30)) {
        Line("    Exit " + kind);
        Line("ErrHandler:");
        Line("    MsgBox Err.Description, vbExclamation, \"Error: \" & Err.Number");
    }
    Line("End " + kind);
    Line("");
}

void ProjectGenerator::Property(int number) {
    const std::string name = Name("") + std::to_string(number);
    Line("Public Property Get " + name + "() As Long");
    Line("    " + name + " = m_" + name);
    Line("End Property");
    Line("");
    Line("Public Property Let " + name + "(ByVal lngValue As Long)");
    Line("    m_" + name + " = lngValue");
    Line("End Property");
    Line("");
}

void ProjectGenerator::Body(int lines, int depth) {
    while (lines > 0) {
        if (depth < 4 && lines > 4 && Chance(20)) {
            const int inner = Pick(1, lines - 2);
            if (Chance(70)) {
                Line(
                    Indent(depth) + "If " + Expression() + " > " + std::to_string(Pick(0, 99)) +
                    " Then");
                Body(inner, depth + 1);
                Line(Indent(depth) + "End If");
            } else {
                Line(Indent(depth) + "For i = 1 To " + Expression());
                Body(inner, depth + 1);
                Line(Indent(depth) + "Next i");
            }
            lines -= inner + 2;
        } else {
            Statement(depth);
            --lines;
        }
    }
}

std::string ProjectGenerator::Expression() {
    return Chance(50) ? "m_" + Name("") + std::to_string(Pick(1, 25)) : "Len(" + Name("str") + ")";
}

void ProjectGenerator::Statement(int depth) {
    const std::string indent = Indent(depth);
    const int kind = Pick(1, 100);
    if (kind <= 12) {
        Line(indent + "' " + Name("") + " is needed here because of the " + Name("") + ".");
    } else if (kind <= 20) {
        Line("");
    } else if (kind <= 24) {
        Line(
            indent + Name("str") + " = \"a \"\"quoted\"\" text: \" & " + Expression() +
            "   ' and why");
    } else if (kind <= 27) {
        Line(indent + "Call " + Name("Update") + "(" + Expression() + ", _");
        Line(indent + "    " + Expression() + ")");
    } else if (kind <= 30) {
        Line(indent + Name("lng") + " = 0: " + Name("str") + " = vbNullString");
    } else if (kind <= 33) {
        Line(
            indent + "Dim " + Name("obj") + std::to_string(m_lines) + " As " +
            kTypes.at(static_cast<std::size_t>(Pick(0, kTypes.size() - 1))));
    } else if (kind <= 34) {
        Line(indent + (Chance(50) ? "DoEvents" : "GoTo ErrHandler"));
    } else {
        Line(
            indent + "m_" + Name("") + std::to_string(Pick(1, 25)) + " = " + Expression() + " + " +
            std::to_string(Pick(0, 999)));
    }
}

}  // namespace dorvik
