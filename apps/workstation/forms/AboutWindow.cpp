#include "AboutWindow.h"

#include "modControls.h"
#include "workstation/look/modQt.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace dorvik {

using modQt::Make;
using modQt::Text;

namespace {

constexpr double kLarge = 1.6;
constexpr int kLinesOfThePicture = 4;

void AddLink(
    QGridLayout& grid,
    std::string_view name,
    std::string_view caption,
    const std::string& address,
    const std::function<void(const std::string&)>& open) {
    QLabel& link = Make<QLabel>(Text(
        "<a href=\"" + modQt::Utf8(Text(address).toHtmlEscaped()) + "\">" + std::string(caption) +
        "</a>"));
    modControls::Name(link, name, caption);
    link.setToolTip(Text(address));
    link.setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    link.setFocusPolicy(Qt::StrongFocus);
    QObject::connect(&link, &QLabel::linkActivated, &link, [open](const QString& target) {
        open(modQt::Utf8(target));
    });
    grid.addWidget(&link, grid.rowCount(), 1);
}

/// That of the program, where it has one.
void AddPicture(QGridLayout& grid) {
    QLabel& picture = Make<QLabel>();
    const int size = picture.fontMetrics().lineSpacing() * kLinesOfThePicture;
    picture.setPixmap(
        QApplication::windowIcon().pixmap(QSize(size, size), picture.devicePixelRatioF()));
    grid.addWidget(&picture, 0, 0, grid.rowCount(), 1, Qt::AlignTop);
    grid.setHorizontalSpacing(picture.fontMetrics().averageCharWidth() * 3);
}

}  // namespace

AboutWindow::AboutWindow(
    frmAbout& form, QWidget* parent, std::function<void(const std::string&)> open)
    : FormWindow(parent, [&form] { form.Ok(); }) {
    setWindowTitle(Text(form.Caption()));
    QGridLayout& grid = Make<QGridLayout>(this);
    QLabel& name = Make<QLabel>(Text(form.ProductName()));
    name.setObjectName(Text("lblProductName"));
    QFont large = name.font();
    large.setPointSizeF(large.pointSizeF() * kLarge);
    name.setFont(large);
    grid.addWidget(&name, grid.rowCount(), 1);
    QLabel& version = Make<QLabel>(Text(form.Version()));
    version.setObjectName(Text("lblVersion"));
    version.setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid.addWidget(&version, grid.rowCount(), 1);
    AddLink(grid, "lnkHomePage", "Home page", form.HomePageURL(), open);
    AddLink(grid, "lnkTechSupport", "Technical support", form.TechSupportPageURL(), open);
    AddPicture(grid);
    QDialogButtonBox& buttons = Make<QDialogButtonBox>(QDialogButtonBox::Ok);
    grid.addWidget(&buttons, grid.rowCount(), 0, 1, 2);
    buttons.button(QDialogButtonBox::Ok)->setDefault(true);
    buttons.button(QDialogButtonBox::Ok)->setFocus();
    connect(&buttons, &QDialogButtonBox::accepted, this, [&form] { form.Ok(); });
}

}  // namespace dorvik
