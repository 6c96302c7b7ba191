#include "app/qt_dialogs.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include "app/frm_corvane.h"
#include "app_models.h"
#include "dialog_answers.h"
#include "editor_fixture.h"

namespace corvane {
namespace {

class QtDialogsTest : public testing::Test {
protected:
    DialogAnswers answers;
    QtDialogs dialogs;

    static void clickButton(const QMessageBox& box, QMessageBox::StandardButton which) {
        QAbstractButton* const button = box.button(which);
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    static void pressKey(QDialog& dialog, Qt::Key key) {
        QWidget* const focus = dialog.focusWidget();
        QTest::keyClick(focus == nullptr ? &dialog : focus, key);
    }
    static void clickOk(QInputDialog& box) { clickIn(box, QDialogButtonBox::Ok); }
    static void clickCancel(QInputDialog& box) { clickIn(box, QDialogButtonBox::Cancel); }
    static void clickIn(QDialog& dialog, QDialogButtonBox::StandardButton which) {
        QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(which), Qt::LeftButton);
    }

    /// The answer to a question that is answered with a key.
    bool yesNoAnsweredWith(Qt::Key key) {
        answers.add<QMessageBox>([key](QMessageBox& box) { pressKey(box, key); });
        return dialogs.yesNo("Confirmation", "Go on?");
    }

    QMessageBox::Icon iconOfMessage(const Caption& caption) {
        QMessageBox::Icon icon = QMessageBox::Question;
        answers.add<QMessageBox>([&icon](QMessageBox& box) {
            icon = box.icon();
            clickButton(box, QMessageBox::Ok);
        });
        dialogs.messageBox(caption, "text");
        return icon;
    }
};

TEST_F(QtDialogsTest, AMessageBoxShowsItsCaptionAndTextAndOnlyOk) {
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Selection");
        EXPECT_EQ(box.text(), "First line.\r\n\r\nGrün -> second line.");
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        EXPECT_EQ(box.buttons().size(), 1);
        clickButton(box, QMessageBox::Ok);
    });
    dialogs.messageBox("Selection", "First line.\r\n\r\nGrün -> second line.");
}

TEST_F(QtDialogsTest, APathThatLooksLikeMarkupIsShownAsItIs) {
    const auto expectPlain = [](const QMessageBox& box) {
        const auto* const label = box.findChild<QLabel*>("qt_msgbox_label");
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(label->text(), "/models/<b>old</b>&amp;/<img src=\"x\">.mdl");
    };
    const std::string path = "/models/<b>old</b>&amp;/<img src=\"x\">.mdl";
    answers.add<QMessageBox>([&](QMessageBox& box) {
        expectPlain(box);
        clickButton(box, QMessageBox::Ok);
    });
    dialogs.messageBox("Error", path);
    answers.add<QMessageBox>([&](QMessageBox& box) {
        expectPlain(box);
        clickButton(box, QMessageBox::No);
    });
    dialogs.yesNo("Confirmation", path);
}

TEST_F(QtDialogsTest, TheTextOfAMessageBoxCanBeCopied) {
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
        clickButton(box, QMessageBox::Ok);
    });
    dialogs.messageBox("Error", "hero.mdl:12: a number is missing.");
}

TEST_F(QtDialogsTest, ErrorsAndWarningsHaveAnIconAndHelpHasNone) {
    EXPECT_EQ(iconOfMessage(kErrorCaption), QMessageBox::Critical);
    EXPECT_EQ(iconOfMessage(kWarningCaption), QMessageBox::Warning);
    EXPECT_EQ(iconOfMessage("Summary"), QMessageBox::NoIcon);
}

TEST_F(QtDialogsTest, ABoxReadsFromTheRightOnlyWhereThatIsAskedFor) {
    const auto direction = [&](const std::function<void()>& show) {
        Qt::LayoutDirection found = Qt::LayoutDirectionAuto;
        answers.add<QMessageBox>([&found](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Cloning");
            EXPECT_EQ(box.text(), "text");
            EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
            found = box.layoutDirection();
            clickButton(box, QMessageBox::Ok);
        });
        show();
        return found;
    };
    EXPECT_EQ(direction([&] { dialogs.rightToLeftMessageBox("Cloning", "text"); }),
              Qt::RightToLeft);
    EXPECT_EQ(direction([&] { dialogs.messageBox("Cloning", "text"); }), Qt::LeftToRight);
}

TEST_F(QtDialogsTest, EnterAndEscapeCloseAMessageBox) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        bool closed = false;
        answers.add<QMessageBox>([&](QMessageBox& box) {
            pressKey(box, key);
            closed = !box.isVisible();
        });
        dialogs.messageBox("About", "text");
        EXPECT_TRUE(closed) << key;
    }
}

TEST_F(QtDialogsTest, AQuestionShowsItsCaptionAndTextAndYesAndNo) {
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Confirmation");
        EXPECT_EQ(box.text(), "Are you sure?/tmp/hero.mdl");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        clickButton(box, QMessageBox::Yes);
    });
    EXPECT_TRUE(dialogs.yesNo("Confirmation", "Are you sure?/tmp/hero.mdl"));
}

TEST_F(QtDialogsTest, AQuestionIsAnsweredByItsButtons) {
    answers.add<QMessageBox>([](QMessageBox& box) { clickButton(box, QMessageBox::No); });
    EXPECT_FALSE(dialogs.yesNo("Confirmation", "Go on?"));
    answers.add<QMessageBox>([](QMessageBox& box) { clickButton(box, QMessageBox::Yes); });
    EXPECT_TRUE(dialogs.yesNo("Confirmation", "Go on?"));
}

TEST_F(QtDialogsTest, EnterEscapeAndClosingAnswerAQuestionWithNo) {
    EXPECT_FALSE(yesNoAnsweredWith(Qt::Key_Return));
    EXPECT_FALSE(yesNoAnsweredWith(Qt::Key_Enter));
    EXPECT_FALSE(yesNoAnsweredWith(Qt::Key_Escape));
    answers.add<QMessageBox>([](QMessageBox& box) { box.close(); });
    EXPECT_FALSE(dialogs.yesNo("Confirmation", "Go on?"));
}

TEST_F(QtDialogsTest, NoIsTheDefaultAnswerAndHasTheFocus) {
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        EXPECT_EQ(box.focusWidget(), box.button(QMessageBox::No));
        clickButton(box, QMessageBox::No);
    });
    dialogs.yesNo("Confirmation", "Go on?");
}

TEST_F(QtDialogsTest, AnInputBoxShowsItsTitlePromptAndDefaultAnswer) {
    answers.add<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Geoset to open");
        EXPECT_EQ(box.labelText(), "Geoset to import(1 - 3):");
        const auto* const field = box.findChild<QLineEdit*>();
        ASSERT_NE(field, nullptr);
        EXPECT_EQ(field->text(), "1");
        EXPECT_EQ(box.focusWidget(), field);
        clickOk(box);
    });
    EXPECT_EQ(dialogs.inputBox("Geoset to import(1 - 3):", "Geoset to open", "1"), "1");
}

TEST_F(QtDialogsTest, AnInputBoxShowsAllOfALongDefaultAnswerButStaysOnTheScreen) {
    const std::string centre = "{ -12345.678901, 12345.678901, -12345.678901 }";
    answers.add<QInputDialog>([](QInputDialog& box) {
        const auto* const field = box.findChild<QLineEdit*>();
        ASSERT_NE(field, nullptr);
        EXPECT_GT(field->width() - 10, field->fontMetrics().horizontalAdvance(field->text()));
        clickOk(box);
    });
    EXPECT_EQ(dialogs.inputBox("Center of mass:", "Center of mass", centre), centre);
    answers.add<QInputDialog>([](QInputDialog& box) {
        EXPECT_LT(box.width(), 800);
        clickOk(box);
    });
    dialogs.inputBox("Center of mass:", "Center of mass", std::string(1000, '9'));
}

TEST_F(QtDialogsTest, TypingInAnInputBoxReplacesTheDefaultAnswer) {
    answers.add<QInputDialog>([](QInputDialog& box) {
        QTest::keyClicks(box.focusWidget(), "27");
        clickOk(box);
    });
    EXPECT_EQ(dialogs.inputBox("Number:", "Number", "1"), "27");
    answers.add<QInputDialog>([](QInputDialog& box) {
        QTest::keyClicks(box.focusWidget(), "x");
        pressKey(box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.inputBox("Number:", "Number", "1"), "x");
}

TEST_F(QtDialogsTest, AnEmptyAnswerIsNotTheSameAsCancel) {
    answers.add<QInputDialog>([](QInputDialog& box) {
        pressKey(box, Qt::Key_Delete);
        clickOk(box);
    });
    EXPECT_EQ(dialogs.inputBox("Number:", "Number", "1"), "");
    answers.add<QInputDialog>(clickCancel);
    EXPECT_EQ(dialogs.inputBox("Number:", "Number", "1"), std::nullopt);
    answers.add<QInputDialog>([](QInputDialog& box) { pressKey(box, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.inputBox("Number:", "Number", "1"), std::nullopt);
}

TEST_F(QtDialogsTest, TheGeosetIsAskedForUntilTheAnswerIsInRange) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", modelWithGeosets(3));
    frmCorvane window(dialogs, {});
    window.show();

    answers.add<QDialog>([&](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
        clickIn(dialog, QDialogButtonBox::Open);
    });
    int asked = 0;
    const auto answerWith = [&](const std::function<void(QInputDialog&)>& answer) {
        answers.add<QInputDialog>([&asked, answer](QInputDialog& box) {
            ++asked;
            EXPECT_EQ(box.windowTitle(), "Geoset to open");
            EXPECT_EQ(box.labelText(), "Geoset to import(1 - 3):");
            EXPECT_EQ(box.textValue(), "1");
            answer(box);
        });
    };
    for (const char* const text : {"0", "4", "x", ""}) {
        answerWith([text](QInputDialog& box) {
            box.findChild<QLineEdit*>()->setText(text);
            clickOk(box);
        });
    }
    answerWith(clickCancel);
    answerWith([](QInputDialog& box) {
        QTest::keyClicks(box.focusWidget(), "2");
        pressKey(box, Qt::Key_Return);
    });
    window.findChild<QAction*>("mnuOpen")->trigger();

    EXPECT_EQ(asked, 6);
    EXPECT_EQ(window.editor().store.geosetNumber, 2);
    EXPECT_EQ(window.editor().store.modelPath, path);
    EXPECT_TRUE(window.editor().store.modelLoaded);
}

}  // namespace
}  // namespace corvane
