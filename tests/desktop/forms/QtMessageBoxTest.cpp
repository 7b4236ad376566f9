#include "workstation/forms/QtMessageBox.h"

#include "ModalActions.h"
#include "WindowChecks.h"

#include <QImage>
#include <QMessageBox>
#include <QTest>
#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace dorvik::test {
namespace {

struct BoxButton {
    QMessageBox::StandardButton Button;
    MessageAnswer Answer;
};

class QtMessageBoxTest : public testing::Test {
protected:
    MessageAnswer
    Answer(MessageButtons buttons, const std::function<void(QMessageBox& box)>& action) {
        m_user.Add([action](QWidget& window) { action(dynamic_cast<QMessageBox&>(window)); });
        const MessageAnswer answer = m_box.Show(
            {MessageIcon::Exclamation, "Dorvik Workstation", "Text & <b>text</b>", buttons});
        EXPECT_TRUE(m_user.AllDone());
        return answer;
    }
    void ExpectAnswers(MessageButtons buttons, const std::vector<BoxButton>& expected) {
        for (const BoxButton& row : expected) {
            EXPECT_EQ(
                Answer(
                    buttons,
                    [&](QMessageBox& box) {
                        EXPECT_EQ(box.buttons().size(), qsizetype(expected.size()));
                        QTest::mouseClick(box.button(row.Button), Qt::LeftButton);
                    }),
                row.Answer);
        }
        const auto escape = [](QMessageBox& box) {
            QTest::keyClick(&box, Qt::Key_Escape);
        };
        EXPECT_EQ(Answer(buttons, escape), Refusal(buttons));
        EXPECT_EQ(Answer(buttons, [](QMessageBox& box) { box.close(); }), Refusal(buttons));
    }

    ModalActions m_user;
    QtMessageBox m_box;
};

TEST_F(QtMessageBoxTest, OkIsTheOneAnswerOfAMessage) {
    ExpectAnswers(MessageButtons::Ok, {{QMessageBox::Ok, MessageAnswer::Ok}});
}

TEST_F(QtMessageBoxTest, OkCancelHasTwoAnswers) {
    ExpectAnswers(
        MessageButtons::OkCancel,
        {{QMessageBox::Ok, MessageAnswer::Ok}, {QMessageBox::Cancel, MessageAnswer::Cancel}});
}

TEST_F(QtMessageBoxTest, YesNoHasTwoAnswers) {
    ExpectAnswers(
        MessageButtons::YesNo,
        {{QMessageBox::Yes, MessageAnswer::Yes}, {QMessageBox::No, MessageAnswer::No}});
}

TEST_F(QtMessageBoxTest, YesNoCancelHasThreeAnswers) {
    ExpectAnswers(
        MessageButtons::YesNoCancel,
        {{QMessageBox::Yes, MessageAnswer::Yes},
         {QMessageBox::No, MessageAnswer::No},
         {QMessageBox::Cancel, MessageAnswer::Cancel}});
}

TEST_F(QtMessageBoxTest, EnterPressesTheFirstButton) {
    const auto enter = [](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Return);
    };
    EXPECT_EQ(Answer(MessageButtons::YesNoCancel, enter), MessageAnswer::Yes);
    EXPECT_EQ(Answer(MessageButtons::OkCancel, enter), MessageAnswer::Ok);
}

TEST_F(QtMessageBoxTest, TheTextIsShownAsItIsAndCanBeSelected) {
    Answer(MessageButtons::Ok, [](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle().toStdString(), "Dorvik Workstation");
        EXPECT_EQ(box.text().toStdString(), "Text & <b>text</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
        ExpectNamed(box);
        ExpectNothingCut(box);
        SavePicture(box, "message");
        box.accept();
    });
}

TEST_F(QtMessageBoxTest, EachKindHasAPictureOfItsOwn) {
    const std::vector<std::pair<MessageIcon, std::string>> icons = {
        {MessageIcon::Critical, "Error"},
        {MessageIcon::Question, "Question"},
        {MessageIcon::Exclamation, "Warning"},
        {MessageIcon::Information, "Information"}};
    std::vector<QImage> pictures;
    for (const auto& [icon, spoken] : icons) {
        m_user.Add([&pictures, name = spoken](QWidget& window) {
            const auto& box = dynamic_cast<QMessageBox&>(window);
            EXPECT_EQ(box.accessibleDescription().toStdString(), name);
            const QImage picture = box.iconPixmap().toImage();
            EXPECT_FALSE(picture.isNull());
            EXPECT_EQ(std::count(pictures.begin(), pictures.end(), picture), 0);
            pictures.push_back(picture);
            SavePicture(window, "message" + name);
            window.close();
        });
        m_box.Show({icon, "Dorvik Workstation", "The text of the message.", MessageButtons::YesNo});
    }
    EXPECT_EQ(pictures.size(), icons.size());
}

TEST_F(QtMessageBoxTest, AMessageWithoutAnIconHasNoPicture) {
    m_user.Add([](QWidget& window) {
        EXPECT_TRUE(dynamic_cast<QMessageBox&>(window).iconPixmap().isNull());
        window.close();
    });
    m_box.Show({MessageIcon::None, "Title", "Text", MessageButtons::Ok});
}

TEST_F(QtMessageBoxTest, AnOwnerThatGoesTakesTheBoxWithIt) {
    auto owner = std::make_unique<QWidget>();
    owner->show();
    m_box.SetOwner(owner.get());
    EXPECT_EQ(
        Answer(MessageButtons::YesNo, [&](QMessageBox&) { owner.reset(); }), MessageAnswer::No);
    m_box.SetOwner(nullptr);
}

}  // namespace
}  // namespace dorvik::test
