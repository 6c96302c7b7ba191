#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include "app/qt_dialogs.h"
#include "dialog_answers.h"
#include "editor_fixture.h"

namespace corvane {
namespace {

QString qt(const std::string& text) { return QString::fromStdString(text); }

QLineEdit& nameField(const QFileDialog& dialog) {
    return *dialog.findChild<QLineEdit*>("fileNameEdit");
}

// Types a name. The dialog goes by it only while its field has the focus.
void typeName(QFileDialog& dialog, const QString& name) {
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    nameField(dialog).setFocus();
    nameField(dialog).setText(name);
}

void clickIn(const QFileDialog& dialog, QDialogButtonBox::StandardButton which) {
    QPushButton* const button = dialog.findChild<QDialogButtonBox*>()->button(which);
    ASSERT_TRUE(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
}

// The names that the dialog lists. They come from another thread: waits until there are `count`.
QStringList listedNames(const QFileDialog& dialog, int count) {
    const auto* const view = dialog.findChild<QAbstractItemView*>("listView");
    const QAbstractItemModel* const model = view->model();
    while (model->rowCount(view->rootIndex()) < count) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QStringList names;
    for (int row = 0; row < model->rowCount(view->rootIndex()); ++row) {
        names << model->index(row, 0, view->rootIndex()).data().toString();
    }
    names.sort();
    return names;
}

class FileDialogsTest : public testing::Test {
protected:
    DialogAnswers answers;
    QtDialogs dialogs;
    TempFolder folder;

    std::optional<std::string> open(const std::string& current) {
        return dialogs.openFile(kModelFilter, current);
    }
    std::optional<std::string> save(const std::string& current) {
        return dialogs.saveFile({"Save Geoset", kModelFilter, current});
    }

    /// Types a name into the file dialog that comes next, and saves.
    void saveAs(const QString& name) {
        answers.add<QFileDialog>([name](QFileDialog& dialog) {
            typeName(dialog, name);
            clickIn(dialog, QDialogButtonBox::Save);
        });
    }

    /// Expects the question whether to replace a file, and answers it.
    void answerReplace(const QString& name, QMessageBox::StandardButton answer) {
        answers.add<QMessageBox>([name, answer](QMessageBox& box) {
            EXPECT_EQ(box.text(), name + " already exists.\nDo you want to replace it?");
            EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
            QTest::mouseClick(box.button(answer), Qt::LeftButton);
        });
    }
};

TEST_F(FileDialogsTest, AFilterFindsItsExtensionsInUpperAndLowerCase) {
    EXPECT_EQ(qtFilters("Warcraft III MDL|*.mdl"), QStringList{"Warcraft III MDL (*.mdl *.MDL)"});
    EXPECT_EQ(qtFilters("Images|*.jpg;*.GIF"), QStringList{"Images (*.jpg *.JPG *.gif *.GIF)"});
    EXPECT_EQ(qtFilters("All files|*"), QStringList{"All files (*)"});
}

TEST_F(FileDialogsTest, AFilterOfSeveralKindsOffersEachOfThem) {
    EXPECT_EQ(qtFilters("JPEG Images|*.JPG|GIF Images|*.gif|BMP Images|*.bmp"),
              (QStringList{"JPEG Images (*.jpg *.JPG)", "GIF Images (*.gif *.GIF)",
                           "BMP Images (*.bmp *.BMP)"}));
}

TEST_F(FileDialogsTest, TheOpenDialogListsModelsWhateverTheCaseOfTheirExtension) {
    folder.write("hero.mdl", "");
    folder.write("HERO2.MDL", "");
    folder.write("hero.txt", "");
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), "Warcraft III MDL (*.mdl *.MDL)");
        EXPECT_EQ(listedNames(dialog, 2), (QStringList{"HERO2.MDL", "hero.mdl"}));
        clickIn(dialog, QDialogButtonBox::Cancel);
    });
    open(folder.path("hero.mdl"));
}

TEST_F(FileDialogsTest, AllFilesCanBeListedToo) {
    folder.write("hero.mdl", "");
    folder.write("hero.txt", "");
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters().last(), "All files (*)");
        dialog.selectNameFilter("All files (*)");
        EXPECT_EQ(listedNames(dialog, 2), (QStringList{"hero.mdl", "hero.txt"}));
        clickIn(dialog, QDialogButtonBox::Cancel);
    });
    open(folder.path("hero.mdl"));
}

TEST_F(FileDialogsTest, TheOpenDialogStartsWithTheCurrentModel) {
    const std::string path = folder.write("hero.mdl", "");
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.directory(), QDir(qt(folder.path(""))));
        EXPECT_EQ(nameField(dialog).text(), "hero.mdl");
        clickIn(dialog, QDialogButtonBox::Open);
    });
    EXPECT_EQ(open(path), path);
}

TEST_F(FileDialogsTest, TheOpenDialogListsFilesOfTheKindOfTheCurrentOne) {
    const auto kindFor = [&](const std::string& current) {
        QString kind;
        answers.add<QFileDialog>([&](QFileDialog& dialog) {
            kind = dialog.selectedNameFilter();
            clickIn(dialog, QDialogButtonBox::Cancel);
        });
        dialogs.openFile("BMP Images|*.bmp|Other Images|*.png;*.tga", current);
        return kind;
    };
    EXPECT_EQ(kindFor(""), "BMP Images (*.bmp *.BMP)");
    EXPECT_EQ(kindFor(folder.path("")), "BMP Images (*.bmp *.BMP)");
    EXPECT_EQ(kindFor(folder.path("wall.bmp")), "BMP Images (*.bmp *.BMP)");
    EXPECT_EQ(kindFor(folder.path("wall (2).Tga")), "Other Images (*.png *.PNG *.tga *.TGA)");
    EXPECT_EQ(kindFor(folder.path("wall.jpg")), "All files (*)");
}

TEST_F(FileDialogsTest, TheOpenDialogStartsInAFolder) {
    folder.write("wall.bmp", "");
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory(), QDir(qt(folder.path(""))));
        EXPECT_EQ(nameField(dialog).text(), "");
        clickIn(dialog, QDialogButtonBox::Cancel);
    });
    dialogs.openFile("BMP Images|*.bmp", folder.path(""));
}

TEST_F(FileDialogsTest, TheOpenDialogCanBeCancelled) {
    const std::string path = folder.write("hero.mdl", "");
    answers.add<QFileDialog>(
        [](QFileDialog& dialog) { clickIn(dialog, QDialogButtonBox::Cancel); });
    EXPECT_EQ(open(path), std::nullopt);
    answers.add<QFileDialog>(
        [](QFileDialog& dialog) { QTest::keyClick(&nameField(dialog), Qt::Key_Escape); });
    EXPECT_EQ(open(path), std::nullopt);
    answers.add<QFileDialog>(
        [](QFileDialog& dialog) { clickIn(dialog, QDialogButtonBox::Cancel); });
    EXPECT_EQ(open(""), std::nullopt);
}

TEST_F(FileDialogsTest, TheOpenDialogReturnsTheFileThatIsChosen) {
    folder.write("hero.mdl", "");
    const std::string path = folder.write("Über <b>.MDL", "");
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        typeName(dialog, "Über <b>.MDL");
        clickIn(dialog, QDialogButtonBox::Open);
    });
    EXPECT_EQ(open(folder.path("hero.mdl")), path);
}

TEST_F(FileDialogsTest, TheSaveDialogStartsWithTheCurrentModel) {
    const std::string path = folder.write("hero.mdl", "");
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save Geoset");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.directory(), QDir(qt(folder.path(""))));
        EXPECT_EQ(nameField(dialog).text(), "hero.mdl");
        EXPECT_EQ(dialog.selectedNameFilter(), "Warcraft III MDL (*.mdl *.MDL)");
        clickIn(dialog, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(save(path), std::nullopt);
}

TEST_F(FileDialogsTest, TheSaveDialogAddsTheExtensionToANameWithoutOne) {
    saveAs("new");
    EXPECT_EQ(save(folder.path("hero.mdl")), folder.path("new.mdl"));
    saveAs("new.txt");
    EXPECT_EQ(save(folder.path("hero.mdl")), folder.path("new.txt"));
    saveAs("NEW.MDL");
    EXPECT_EQ(save(folder.path("hero.mdl")), folder.path("NEW.MDL"));
}

TEST_F(FileDialogsTest, TheSaveDialogChoosesANewFileWithoutAQuestionAndWritesNothing) {
    folder.write("hero.mdl", "");
    saveAs("other.mdl");
    EXPECT_EQ(save(folder.path("hero.mdl")), folder.path("other.mdl"));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl"}));
}

TEST_F(FileDialogsTest, TheSaveDialogAsksBeforeItChoosesAnExistingFile) {
    const std::string path = folder.write("hero.mdl", "text");
    saveAs("hero.mdl");
    answerReplace("hero.mdl", QMessageBox::Yes);
    EXPECT_EQ(save(path), path);
    EXPECT_EQ(readFile(path), "text");
}

TEST_F(FileDialogsTest, TheSaveDialogAsksToReplaceAFileThatGetsItsNameByTheExtension) {
    folder.write("hero.mdl", "");
    const std::string path = folder.write("old.mdl", "");
    saveAs("old");
    answerReplace("old.mdl", QMessageBox::Yes);
    EXPECT_EQ(save(folder.path("hero.mdl")), path);
}

// The dialog knows nothing of the extension, which comes after it.
TEST_F(FileDialogsTest, NotReplacingAFileThatGetsItsNameByTheExtensionShowsTheSaveDialogAgain) {
    folder.write("hero.mdl", "");
    folder.write("treasure.mdl", "");
    saveAs("treasure");
    answerReplace("treasure.mdl", QMessageBox::No);
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save Geoset");
        EXPECT_EQ(nameField(dialog).text(), "treasure.mdl");
        typeName(dialog, "other");
        clickIn(dialog, QDialogButtonBox::Save);
    });
    EXPECT_EQ(save(folder.path("hero.mdl")), folder.path("other.mdl"));
}

TEST_F(FileDialogsTest, NotReplacingAFileGoesBackToTheSaveDialog) {
    const std::string path = folder.write("hero.mdl", "");
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        clickIn(dialog, QDialogButtonBox::Save);  // returns when the question is answered
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(nameField(dialog).text(), "hero.mdl");
        typeName(dialog, "other");
        clickIn(dialog, QDialogButtonBox::Save);
    });
    answerReplace("hero.mdl", QMessageBox::No);
    EXPECT_EQ(save(path), folder.path("other.mdl"));
}

TEST_F(FileDialogsTest, TheSaveDialogCanBeCancelledAfterTheQuestion) {
    const std::string path = folder.write("hero.mdl", "");
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        clickIn(dialog, QDialogButtonBox::Save);
        clickIn(dialog, QDialogButtonBox::Cancel);
    });
    answerReplace("hero.mdl", QMessageBox::No);
    EXPECT_EQ(save(path), std::nullopt);
}

// Qt finds no such file, so its dialog does not ask.
TEST_F(FileDialogsTest, ANameThatIsNoUtf8IsProposedAndAskedAboutAndStaysItself) {
    const std::string path = folder.write("h\xE9ros.mdl", "");
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        answers.add<QFileDialog>([](QFileDialog& dialog) {
            EXPECT_EQ(nameField(dialog).text(), QString::fromUtf8("h\uFFFDros.mdl"));
            clickIn(dialog, QDialogButtonBox::Save);
        });
        answerReplace(QString::fromUtf8("h\uFFFDros.mdl"), answer);
    }
    EXPECT_EQ(save(path), path);
}

TEST_F(FileDialogsTest, AFolderThatQtDoesNotFindIsLeftForTheOneAboveIt) {
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory(), QDir(qt(folder.path(""))));
        typeName(dialog, "new.mdl");
        clickIn(dialog, QDialogButtonBox::Save);
    });
    EXPECT_EQ(save(folder.path("old\xFC/deep/hero.mdl")), folder.path("new.mdl"));
}

}  // namespace
}  // namespace corvane
