#include "workstation/code/DesignerView.h"

#include "support/FilesystemPaths.h"
#include "workstation/code/CodeTabs.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/FormLayout.h"
#include "workstation/filehost/modCodeLines.h"
#include "workstation/look/modQt.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>

namespace dorvik {

namespace {

std::string SampleProject(const std::string& name) {
    return test::ProgramPath(std::filesystem::path(DORVIK_SOURCE_DIR) / "samples" / name);
}

/// A form of a sample on the screen.
class ShownForm {
public:
    ShownForm(const std::string& project, const char* form) {
        m_host.Open(SampleProject(project));
        Designer = m_host.Project(1).Component(form).Designer();
        View = std::make_unique<DesignerView>(*Designer);
        View->resize(1000, 700);
        View->show();
        View->setFocus();
        QCoreApplication::processEvents();
    }

    QWidget& Canvas() { return *View->widget(); }
    std::int32_t NumberOf(const char* name, std::optional<std::int32_t> index = std::nullopt) {
        for (std::int32_t number = 1; number <= Designer->ControlCount(); ++number) {
            if (&Designer->Control(number) == Designer->FindControl(name, index)) {
                return number;
            }
        }
        return 0;
    }
    void Click(const QPoint& place) {
        QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, Canvas().mapFrom(View->viewport(), place));
    }
    std::string Selected() {
        std::string names;
        for (std::int32_t number = 1; number <= Designer->ControlCount(); ++number) {
            const FileDesignerControl& control = Designer->Control(number);
            if (control.Selected()) {
                names += control.Name() + (control.Index() ? std::to_string(*control.Index()) : "");
            }
        }
        return names;
    }

    FileDesigner* Designer = nullptr;
    std::unique_ptr<DesignerView> View;

private:
    FileHost m_host;
};

class InvoiceForm : public ShownForm {
public:
    InvoiceForm() : ShownForm("Billing/Billing.vbp", "frmInvoice") {}
};

}  // namespace

TEST(DesignerView, IsToScale) {
    InvoiceForm form;
    const double scale = form.View->logicalDpiX() / 1440.0;
    const QRect name = form.View->RectOf(form.NumberOf("txtName"));
    EXPECT_NEAR(name.width(), 3975 * scale, 1.5);
    EXPECT_NEAR(name.height(), 315 * scale, 1.5);
    const QRect frame = form.View->RectOf(form.NumberOf("fraCustomer"));
    EXPECT_NEAR(name.left() - frame.left(), 1200 * scale, 1.5);
    form.View->SetZoom(2);
    EXPECT_NEAR(form.View->RectOf(form.NumberOf("txtName")).width(), 2 * 3975 * scale, 1.5);
}

TEST(DesignerView, AClickSelectsOneControl) {
    InvoiceForm form;
    form.Click(form.View->RectOf(form.NumberOf("optTerms", 1)).center());
    EXPECT_EQ(form.Selected(), "optTerms1");
    form.Click(form.View->RectOf(form.NumberOf("imgLogo")).center());
    EXPECT_EQ(form.Selected(), "imgLogo") << "it is in a picture in a frame";
    form.Click(form.View->RectOf(form.NumberOf("fraCustomer")).bottomLeft() + QPoint(20, 5));
    EXPECT_EQ(form.Selected(), "") << "there is the form itself";
}

TEST(DesignerView, TheSelectionIsDrawn) {
    InvoiceForm form;
    const QImage before = form.Canvas().grab().toImage();
    form.Designer->FindControl("cmdAdd", std::nullopt)->SetSelected(true);
    QCoreApplication::processEvents();
    const QImage after = form.Canvas().grab().toImage();
    const QRect rect = form.View->RectOf(form.NumberOf("cmdAdd")).translated(-form.Canvas().pos());
    const double ratio = after.devicePixelRatio();
    const QPoint corner = rect.topLeft() * ratio;
    EXPECT_EQ(
        after.pixelColor(corner).rgb(), form.View->palette().color(QPalette::Highlight).rgb());
    EXPECT_NE(before.pixelColor(corner), after.pixelColor(corner));
}

TEST(DesignerView, KeysGoThroughTheControls) {
    InvoiceForm form;
    QTest::keyClick(&form.Canvas(), Qt::Key_Tab);
    EXPECT_EQ(form.Selected(), "fraCustomer");
    QTest::keyClick(&form.Canvas(), Qt::Key_Tab);
    EXPECT_EQ(form.Selected(), "picLogo");
    QTest::keyClick(&form.Canvas(), Qt::Key_Backtab);
    EXPECT_EQ(form.Selected(), "fraCustomer");
    QTest::keyClick(&form.Canvas(), Qt::Key_Right);
    EXPECT_EQ(form.Selected(), "picLogo");
    std::string activated;
    const Subscription watch = form.View->Activated.Subscribe(
        [&](FileDesignerControl& control) { activated = control.Name(); });
    QTest::keyClick(&form.Canvas(), Qt::Key_Return);
    EXPECT_EQ(activated, "picLogo");
    QTest::keyClick(&form.Canvas(), Qt::Key_Escape);
    EXPECT_EQ(form.Selected(), "");
    QTest::keyClick(&form.Canvas(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(form.View->Zoom(), 1.25);
    QTest::keyClick(&form.Canvas(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(form.View->Zoom(), 1);
}

TEST(DesignerView, SaysWhatItShows) {
    InvoiceForm form;
    EXPECT_EQ(form.Canvas().accessibleName(), QStringLiteral("Layout of frmInvoice"));
    form.Click(form.View->RectOf(form.NumberOf("cmdAdd")).center());
    EXPECT_TRUE(form.Canvas().accessibleDescription().contains(
        QStringLiteral("cmdAdd, VB.CommandButton, is selected.")))
        << modQt::Utf8(form.Canvas().accessibleDescription());
    const QPoint place =
        form.View->RectOf(form.NumberOf("optTerms", 0)).center() - form.Canvas().pos();
    QHelpEvent help(QEvent::ToolTip, place, form.Canvas().mapToGlobal(place));
    QCoreApplication::sendEvent(&form.Canvas(), &help);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("optTerms(0): VB.OptionButton"));
}

TEST(DesignerView, MenusOpenAndAreSelected) {
    ShownForm form("Billing/Billing.vbp", "frmMain");
    const FormLayout layout(*form.Designer);
    ASSERT_FALSE(layout.Menus().empty());
    const std::int32_t first = layout.Menus().front();
    form.Click(form.View->MenuRect(first).center());
    EXPECT_EQ(form.Selected(), form.Designer->Control(first).Name());
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_FALSE(menu->actions().isEmpty());
    std::string name;
    for (std::int32_t number = first + 1; name.empty(); ++number) {
        if (form.Designer->Control(number).Container() == first) {
            name = form.Designer->Control(number).Name();
        }
    }
    menu->actions().front()->trigger();
    EXPECT_EQ(form.Selected(), name);
    menu->close();
}

TEST(DesignerView, EveryFormOfTheSamplesIsDrawn) {
    for (const std::string project :
         {"Billing/Billing.vbp", "Warehouse/Warehouse.vbp", "Clinic/Clinic.vbp"}) {
        FileHost host;
        ASSERT_TRUE(host.Open(SampleProject(project))) << project;
        for (std::int32_t number = 1; number <= host.Project(1).ComponentCount(); ++number) {
            FileComponent& component = host.Project(1).Component(number);
            if (FileDesigner* designer = component.Designer()) {
                DesignerView view(*designer);
                view.resize(800, 600);
                const QImage shown = view.widget()->grab().toImage();
                EXPECT_FALSE(shown.isNull());
                const QColor first = shown.pixelColor(0, 0);
                bool isPlain = true;
                for (int x = 0; x < shown.width() && isPlain; ++x) {
                    isPlain = shown.pixelColor(x, shown.height() / 2) == first;
                }
                EXPECT_FALSE(isPlain) << component.Name();
            }
        }
    }
}

TEST(DesignerView, FileWithoutALayoutHasAWord) {
    FileDesigner none({}, false);
    DesignerView view(none);
    view.resize(300, 200);
    EXPECT_FALSE(view.grab().isNull());
    EXPECT_EQ(view.widget()->accessibleDescription(), QStringLiteral("0 controls."));
}

}  // namespace dorvik
