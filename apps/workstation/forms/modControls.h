#pragma once

#include "workstation/controls/Observable.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QWidget;

namespace dorvik {

class Bindings;
class TabStrip;

/// The controls that the dialogs are made of. `name` is that of the control in its form, which is also how it is found.
namespace modControls {

/// Makes the control known to a program that reads the screen aloud.
void Name(QWidget& control, std::string_view name, std::string_view spoken);

/// At the end of the layout.
QLabel& AddHeading(QBoxLayout& layout, Bindings& bindings, Observable<std::string>& text);
QCheckBox& AddCheck(
    QBoxLayout& layout,
    Bindings& bindings,
    Observable<bool>& value,
    std::string_view name,
    std::string_view caption);
/// One that Enter does not press.
QPushButton& AddButton(
    QBoxLayout& layout,
    std::string_view name,
    std::string_view caption,
    std::function<void()> click);

/// A label in front of a control in the next row of the grid. The mnemonic of the label leads to the control.
QLabel& AddRow(QGridLayout& grid, std::string_view caption, QWidget& control);
/// The same with a button for choosing at the end of the row.
QPushButton& AddRowWithBrowse(
    QGridLayout& grid,
    std::string_view caption,
    QWidget& control,
    std::string_view browseName,
    std::string_view spoken,
    std::function<void()> browse);

/// A folder that is that of the project or one of the user's choice.
struct FolderChoice {
    std::string_view CheckName;
    std::string_view CheckCaption;
    Observable<bool>& IsOfProject;
    std::string_view BoxName;
    std::string_view BoxCaption;
    Observable<std::string>& Path;
    Observable<bool>& IsEnabled;
    std::string_view BrowseName;
    std::string_view BrowseSpoken;
    std::function<void()> Browse;
};
void AddFolder(QBoxLayout& layout, Bindings& bindings, const FolderChoice& choice);
/// The two folders of a review, which the options of a review and those of the user both have.
template <typename Form>
FolderChoice ResultsFolderOf(Form& form) {
    return {
        "chkResultsFolder",
        "&Put results into the folder of the project",
        form.chkResultsFolder,
        "txtResultsFolder",
        "&Results folder:",
        form.txtResultsFolder,
        form.ResultsFolderEnabled,
        "cmdResultsFolder",
        "Browse for the results folder",
        [&form] {
            form.BrowseResultsFolder();
        }};
}
template <typename Form>
FolderChoice ReportsFolderOf(Form& form) {
    return {
        "chkReportsFolder",
        "Put reports into the &folder of the project",
        form.chkReportsFolder,
        "txtReportsFolder",
        "R&eports folder:",
        form.txtReportsFolder,
        form.ReportsFolderEnabled,
        "cmdReportsFolder",
        "Browse for the reports folder",
        [&form] {
            form.BrowseReportsFolder();
        }};
}
/// A box with a title at the end of the layout.
QBoxLayout& AddGroup(QBoxLayout& layout, std::string_view title);

/// The box shows the path as this machine has it, and takes it so.
void BindPath(Bindings& bindings, QLineEdit& box, Observable<std::string>& path);
/// Digits only, in a box as wide as a number.
void BindNumber(Bindings& bindings, QLineEdit& box, Observable<std::string>& number);

/// The page of the next tab: pages are added in the order of the tabs.
QWidget& AddPage(QTabWidget& pages, const TabStrip& tabs);
void BindPages(Bindings& bindings, QTabWidget& pages, TabStrip& tabs);

/// The widths of `count` average letters in the font of the widget.
int LettersWide(const QWidget& widget, int count);

}  // namespace modControls

}  // namespace dorvik
