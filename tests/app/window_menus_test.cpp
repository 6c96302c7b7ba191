#include <QKeySequence>
#include <QMenuBar>
#include <map>

#include "window_fixture.h"

namespace corvane {
namespace {

class WindowMenusTest : public WindowTest {
protected:
    /// Every menu of the menu bar, the ones inside others too.
    std::vector<const QMenu*> menus() const {
        std::vector<const QMenu*> found;
        for (const auto* const menu : window->menuBar()->findChildren<QMenu*>()) {
            found.push_back(menu);
        }
        return found;
    }

    /// Every item that does something.
    std::vector<const QAction*> items() const {
        std::vector<const QAction*> found;
        for (const QMenu* const menu : menus()) {
            for (const QAction* const action : menu->actions()) {
                if (!action->isSeparator() && action->menu() == nullptr) found.push_back(action);
            }
        }
        return found;
    }

    /// Adds the letter that a caption underlines, and expects that none is missing or there twice.
    static void expectOwnMnemonic(std::map<QKeySequence, QString>& letters,
                                  const QString& caption) {
        const QKeySequence letter = QKeySequence::mnemonic(caption);
        EXPECT_FALSE(letter.isEmpty()) << caption.toStdString();
        EXPECT_EQ(letters.count(letter), 0U)
            << caption.toStdString() << " and " << letters[letter].toStdString();
        letters[letter] = caption;
    }

    QKeySequence shortcut(const QString& name) const { return item(name).shortcut(); }

    void pressKeys(const QKeySequence& keys) {
        QTest::keySequence(window->windowHandle(), keys);
        QApplication::processEvents();
    }

    std::vector<bool> selection() const {
        std::vector<bool> flags;
        for (const VertexRecord& vertex : editor().store.Vertices) flags.push_back(vertex.selected);
        return flags;
    }
};

TEST_F(WindowMenusTest, TheMenuBarHoldsTheMenusInTheUsualOrder) {
    QStringList captions;
    for (const QAction* const action : window->menuBar()->actions()) captions << action->text();
    EXPECT_EQ(captions, (QStringList{"&File", "&Edit", "&Tools", "&View", "&Help"}));
}

TEST_F(WindowMenusTest, EveryCaptionOfAMenuHasAMnemonicOfItsOwn) {
    ASSERT_GE(menus().size(), 8U);
    for (const QMenu* const menu : menus()) {
        std::map<QKeySequence, QString> letters;
        for (const QAction* const action : menu->actions()) {
            if (!action->isSeparator()) expectOwnMnemonic(letters, action->text());
        }
    }
}

TEST_F(WindowMenusTest, TheMnemonicsOfMenusAndButtonsDifferAsAltPressesEither) {
    std::map<QKeySequence, QString> letters;
    for (const QAction* const action : window->menuBar()->actions()) {
        expectOwnMnemonic(letters, action->text());
    }
    for (const auto* const button : window->findChildren<ToolButton*>()) {
        if (button->text().contains('&')) expectOwnMnemonic(letters, button->text());
    }
    EXPECT_EQ(letters.size(), 5U + 10U);
}

TEST_F(WindowMenusTest, TheUsualShortcutsAreThere) {
    EXPECT_EQ(shortcut("mnuOpen"), QKeySequence("Ctrl+O"));
    EXPECT_EQ(shortcut("mnuSave"), QKeySequence("Ctrl+S"));
    EXPECT_EQ(shortcut("mnuSaveAs"), QKeySequence("Ctrl+Shift+S"));
    EXPECT_EQ(shortcut("mnuUndo"), QKeySequence("Ctrl+Z"));
    EXPECT_EQ(shortcut("mnuSelectAll"), QKeySequence("Ctrl+A"));
    EXPECT_EQ(shortcut("mnuDelete"), QKeySequence("Del"));
    EXPECT_EQ(shortcut("mnuExit"), QKeySequence("Ctrl+Q"));
}

TEST_F(WindowMenusTest, NoShortcutIsThereTwice) {
    std::map<QKeySequence, QString> owners;
    for (const QAction* const action : items()) {
        for (const QKeySequence& keys : action->shortcuts()) {
            EXPECT_EQ(owners.count(keys), 0U)
                << action->text().toStdString() << " and " << owners[keys].toStdString();
            owners[keys] = action->text();
        }
    }
    EXPECT_GE(owners.size(), 7U);
}

TEST_F(WindowMenusTest, ItemsThatAskSomethingBeforeTheyActEndWithDots) {
    for (const char* const name : {"mnuOpen", "mnuSaveAs", "mnuSaveGeoset", "mnuSwitchGeoset",
                                   "mnuMergeGeoset", "mnuDelCurrentGeoset"}) {
        EXPECT_TRUE(item(name).text().endsWith("...")) << name;
    }
    for (const char* const name : {"mnuSave", "mnuExit", "mnuUndo", "mnuSelectAll", "mnuDelete"}) {
        EXPECT_FALSE(item(name).text().contains("...")) << name;
    }
}

TEST_F(WindowMenusTest, EveryItemHasAName) {
    ASSERT_GE(items().size(), 30U);
    for (const QAction* const action : items()) {
        EXPECT_TRUE(action->objectName().startsWith("mnu")) << action->text().toStdString();
        EXPECT_EQ(window->findChildren<QAction*>(action->objectName()).size(), 1)
            << action->objectName().toStdString();
    }
}

TEST_F(WindowMenusTest, ShortcutsDoWhatTheirItemsDo) {
    openModel("hero.mdl");
    pressKeys(QKeySequence("Ctrl+A"));
    EXPECT_EQ(selection(), (std::vector<bool>{true, true, true}));
    pressKeys(QKeySequence("Ctrl+I"));
    EXPECT_EQ(selection(), (std::vector<bool>{false, false, false}));
    pressKeys(QKeySequence("Ctrl+Z"));
    EXPECT_EQ(selection(), (std::vector<bool>{true, true, true}));
    pressKeys(QKeySequence("Del"));
    EXPECT_TRUE(editor().store.Vertices.front().deleted);
}

TEST_F(WindowMenusTest, ShortcutsOfDisabledItemsDoNothing) {
    pressKeys(QKeySequence("Ctrl+S"));
    pressKeys(QKeySequence("Ctrl+Shift+S"));
    pressKeys(QKeySequence("Ctrl+Z"));
    pressKeys(QKeySequence("Del"));
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(WindowMenusTest, AltWithItsLetterPressesAButton) {
    // The button is seen to go down first.
    pressKeys(QKeySequence("Alt+R"));
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return editor().modes.transformMode == TransformMode::Rotate; }));
    pressKeys(QKeySequence("Alt+D"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor().modes.selectMode == SelectMode::Deselect; }));
}

TEST_F(WindowMenusTest, ItemsPressTheButtonsOfTheirNames) {
    choose("mnuAdd");
    EXPECT_EQ(editor().modes.selectMode, SelectMode::Add);
    choose("mnuDeselect");
    EXPECT_EQ(editor().modes.selectMode, SelectMode::Deselect);
    choose("mnuSelect");
    EXPECT_EQ(editor().modes.selectMode, SelectMode::Select);
    choose("mnuRotate");
    EXPECT_EQ(editor().modes.transformMode, TransformMode::Rotate);
    choose("mnuScale");
    EXPECT_EQ(editor().modes.transformMode, TransformMode::Scale);
    choose("mnuExtrude");
    EXPECT_EQ(editor().modes.transformMode, TransformMode::Extrude);
    choose("mnuMove");
    EXPECT_EQ(editor().modes.transformMode, TransformMode::Move);
    choose("mnuClone");
    EXPECT_TRUE(editor().modes.cloneMode);
    choose("mnuYEnabled");
    EXPECT_FALSE(editor().modes.activeY);
    EXPECT_TRUE(editor().modes.activeX);
}

TEST_F(WindowMenusTest, CheckMarksFollowTheState) {
    const auto marks = [&] {
        return std::vector<bool>{item("mnuXEnabled").isChecked(), item("mnuYEnabled").isChecked(),
                                 item("mnuZEnabled").isChecked(),
                                 item("mnuShowNormals").isChecked(),
                                 item("mnuEnableTips").isChecked()};
    };
    EXPECT_EQ(marks(), (std::vector<bool>{true, true, true, false, true}));
    click(button("cmdActivateX"));
    EXPECT_EQ(marks(), (std::vector<bool>{false, true, true, false, true}));
    choose("mnuZEnabled");
    choose("mnuShowNormals");
    choose("mnuEnableTips");
    EXPECT_EQ(marks(), (std::vector<bool>{false, true, false, true, false}));
    choose("mnuXEnabled");
    EXPECT_EQ(marks(), (std::vector<bool>{true, true, false, true, false}));
}

TEST_F(WindowMenusTest, UndoNamesTheStepThatItUndoes) {
    EXPECT_EQ(item("mnuUndo").text(), "&Undo");
    EXPECT_FALSE(item("mnuUndo").isEnabled());
    openModel("hero.mdl");
    EXPECT_EQ(item("mnuUndo").text(), "&Undo");
    EXPECT_FALSE(item("mnuUndo").isEnabled());
    edit();
    EXPECT_EQ(item("mnuUndo").text(), "&Undo Move");
    EXPECT_TRUE(item("mnuUndo").isEnabled());
    choose("mnuUndo");
    EXPECT_EQ(item("mnuUndo").text(), "&Undo Select All");
    choose("mnuUndo");
    EXPECT_EQ(item("mnuUndo").text(), "&Undo");
    EXPECT_FALSE(item("mnuUndo").isEnabled());
}

TEST_F(WindowMenusTest, HelpItemsShowTheirBoxes) {
    const std::vector<std::pair<QString, std::string>> boxes = {
        {"mnuSummary", "Summary"},     {"mnuNavigation", "Navigation"},
        {"mnuSelection", "Selection"}, {"mnuTransformations", "Transformations"},
        {"mnuMarkers", "Markers"},     {"mnuCloning", "Cloning"},
        {"mnuAbout", "About"},
    };
    for (const auto& [name, title] : boxes) {
        dialogs.asked.clear();
        choose(name);
        ASSERT_EQ(dialogs.asked.size(), 1U) << title;
        EXPECT_EQ(dialogs.last().title, title);
    }
    EXPECT_TRUE(dialogs.last().text.starts_with("MDL Corvane 1.14\r\n\r\n")) << dialogs.last().text;
}

// The tests' own folder is none that a guide belongs to.
TEST_F(WindowMenusTest, F1AsksForTheUserGuide) {
    pressKeys(Qt::Key_F1);
    ASSERT_EQ(dialogs.asked.size(), 1U);
    EXPECT_TRUE(dialogs.last().text.starts_with("The user guide is not installed"))
        << dialogs.last().text;
}

}  // namespace
}  // namespace corvane
