// The guide's page of shortcuts names every key that the windows know.
#include <QFile>
#include <QMenuBar>
#include <algorithm>

#include "uv_window_fixture.h"

namespace corvane {
namespace {

class GuideShortcutsTest : public UVWindowTest {
protected:
    QStringList rows_;

    void SetUp() override {
        UVWindowTest::SetUp();
        QFile page(CORVANE_GUIDE_SOURCES "/shortcuts.md");
        ASSERT_TRUE(page.open(QIODevice::ReadOnly));
        rows_ = QString::fromUtf8(page.readAll()).split('\n');
    }

    // The rows that say what a key does: "File, Open" for an item Open of the menu File.
    void expectRows(const QMainWindow& shown) const {
        int found = 0;
        for (const QMenu* const menu : shown.menuBar()->findChildren<QMenu*>()) {
            for (const QAction* const action : menu->actions()) {
                if (action->shortcut().isEmpty()) continue;
                ++found;
                const QString row = QStringLiteral("| <kbd>%1</kbd> | %2, %3")
                                        .arg(action->shortcut().toString(), plain(menu->title()),
                                             plain(action->text()));
                EXPECT_TRUE(std::ranges::any_of(rows_, [&](const QString& line) {
                    return line.startsWith(row);
                })) << row.toStdString();
            }
        }
        EXPECT_GT(found, 4);
    }

    static QString plain(QString caption) { return caption.remove('&').remove("..."); }
};

TEST_F(GuideShortcutsTest, OfTheMainWindowAreAllThere) { expectRows(*window); }

TEST_F(GuideShortcutsTest, OfTheTextureEditorAreAllThere) {
    openTextureEditor();
    expectRows(uvWindow());
}

}  // namespace
}  // namespace corvane
