#include <QAccessible>
#include <QGroupBox>
#include <QMenuBar>
#include <QScrollBar>
#include <QStyleOptionButton>

#include "uv_window_fixture.h"

namespace corvane {
namespace {

class UVWindowLayoutTest : public UVWindowTest {
protected:
    QRect place(const QWidget& control) const {
        return {control.mapTo(uvWindow().centralWidget(), QPoint(0, 0)), control.size()};
    }

    static std::string nameOf(const QWidget& control) {
        const auto* const label = qobject_cast<const QLabel*>(&control);
        if (label != nullptr) return "label " + label->text().toStdString();
        return control.objectName().toStdString();
    }

    /// Nothing lies over anything else, and all of it is seen.
    void expectNoOverlap() const {
        std::vector<QWidget*> all = uvControls();
        for (auto* const label : uvWindow().centralWidget()->findChildren<QLabel*>()) {
            if (!label->isHidden()) all.push_back(label);
        }
        ASSERT_EQ(all.size(), 21U + 2U);
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_TRUE(seen(*all[i]).isEmpty() ||
                        uvWindow().centralWidget()->rect().contains(seen(*all[i])))
                << nameOf(*all[i]);
            EXPECT_TRUE(all[i]->parentWidget()->rect().contains(all[i]->geometry()))
                << nameOf(*all[i]);
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_FALSE(seen(*all[i]).intersects(seen(*all[j])))
                    << nameOf(*all[i]) << " and " << nameOf(*all[j]);
            }
        }
    }

    /// No caption is cut off.
    void expectCaptionsFit() const {
        for (const auto* const button : uvWindow().findChildren<ToolButton*>()) {
            QStyleOptionButton option;
            option.initFrom(button);
            const QRect room =
                button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
            QString caption = button->text();
            caption.remove('&');
            EXPECT_LE(button->fontMetrics().horizontalAdvance(caption), room.width())
                << nameOf(*button);
            EXPECT_GE(button->height(), button->sizeHint().height()) << nameOf(*button);
        }
        for (const auto* const group : uvWindow().findChildren<QGroupBox*>()) {
            EXPECT_GE(group->width(), group->minimumSizeHint().width())
                << group->title().toStdString();
            EXPECT_GE(group->height(), group->minimumSizeHint().height())
                << group->title().toStdString();
        }
        for (const char* const name : {"txtUVX", "txtUVY"}) {
            const auto& box = findUV<QLineEdit>(name);
            EXPECT_GE(box.width(), box.fontMetrics().horizontalAdvance("-12.345678")) << name;
            EXPECT_GE(box.height(), box.sizeHint().height()) << name;
        }
        const auto& views = findUV<QComboBox>("cboView");
        EXPECT_GE(views.width(), views.sizeHint().width());
        const QMenuBar& bar = *uvWindow().menuBar();
        EXPECT_GE(bar.width(), bar.sizeHint().width());
    }
};

TEST_F(UVWindowLayoutTest, TheViewStartsSquareAndLargeEnough) {
    openTextureEditor();
    EXPECT_EQ(view().width(), view().height());
    EXPECT_GE(view().width(), 400);
}

TEST_F(UVWindowLayoutTest, TheViewIsDrawnInPixels) {
    openTextureEditor();
    EXPECT_EQ(uv().picture.width(), view().width());
    EXPECT_EQ(uv().picture.height(), view().height());
    EXPECT_EQ(viewX(uv(), 1), view().width());
}

TEST_F(UVWindowLayoutTest, NothingOverlapsAtAnySize) {
    openTextureEditor();
    expectNoOverlap();
    expectCaptionsFit();
    for (const QSize size : {QSize(1, 1), QSize(3000, 1), QSize(1, 2000), QSize(2500, 1800)}) {
        resizeUVWindow(size);
        expectNoOverlap();
        expectCaptionsFit();
        EXPECT_GE(view().width(), 240);
        EXPECT_GE(view().height(), 240);
        expectAllReachable(uvWindow());
    }
}

TEST_F(UVWindowLayoutTest, TheWindowFitsOnASmallScreenAndSaveChangesIsAlwaysSeen) {
    for (const double points : {9.0, 10.0, 11.0, 12.0}) {
        withFontSize(points, [&] {
            showWindow();
            openTextureEditor();
            // 910 by 480 with a frame.
            resizeUVWindow({900, 440});
            EXPECT_EQ(uvWindow().size(), QSize(900, 440)) << points;
            findUV<PanelScroller>("panelScroller").verticalScrollBar()->setValue(0);
            EXPECT_EQ(seen(uvButton("cmdSaveUVChanges")).size(),
                      uvButton("cmdSaveUVChanges").size());
            expectNoOverlap();
            expectCaptionsFit();
            expectAllReachable(uvWindow());
            window.reset();
        });
    }
}

TEST_F(UVWindowLayoutTest, SaveChangesStaysBelowThePanelInALargeWindow) {
    openTextureEditor();
    const int below = place(uvButton("cmdSaveUVChanges")).top();
    const int above = place(findUV<QLineEdit>("txtUVY")).bottom();
    resizeUVWindow(uvWindow().size() + QSize(500, 500));
    EXPECT_EQ(place(findUV<QLineEdit>("txtUVY")).bottom(), above);
    EXPECT_LE(place(uvButton("cmdSaveUVChanges")).top(), below);
}

TEST_F(UVWindowLayoutTest, AllOfThePanelIsSeenWhenTheWindowFirstShows) {
    openTextureEditor();
    EXPECT_FALSE(findUV<PanelScroller>("panelScroller").verticalScrollBar()->isVisible());
}

TEST_F(UVWindowLayoutTest, NoCaptionIsCutOffWithALargerFont) {
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSizeF(before.pointSizeF() * 1.5);
    QApplication::setFont(larger);
    showWindow();
    openTextureEditor();
    ASSERT_EQ(uvButton("cmdMove").font().pointSizeF(), larger.pointSizeF());
    expectCaptionsFit();
    expectNoOverlap();
    EXPECT_EQ(view().width(), view().height());
    window.reset();
    QApplication::setFont(before);
}

TEST_F(UVWindowLayoutTest, OnlyTheViewGrowsWithTheWindow) {
    openTextureEditor();
    const QSize windowBefore = uvWindow().size();
    const QSize viewBefore = view().size();
    const QSize buttonBefore = uvButton("cmdMove").size();
    resizeUVWindow(windowBefore + QSize(200, 100));
    EXPECT_EQ(view().size(), viewBefore + QSize(200, 100));
    EXPECT_EQ(uvButton("cmdMove").size(), buttonBefore);
}

TEST_F(UVWindowLayoutTest, AResizedViewIsDrawnAnewInItsNewScale) {
    openTextureEditor();
    resizeUVWindow(uvWindow().size() + QSize(200, 100));
    // The first edge goes from (0, 0) to (1, 0), the second one from there to (0, 1).
    const std::vector<Primitive>& drawn = view().drawn();
    ASSERT_EQ(drawn.size(), 3U + 3U);
    EXPECT_EQ(drawn[0].x2, view().width());
    EXPECT_EQ(drawn[1].y2, view().height());
}

TEST_F(UVWindowLayoutTest, TabReachesEveryControlInTheOrderInWhichTheyStand) {
    openTextureEditor();
    const QStringList expected = {
        "pbxUVView", "cmdSelect",  "cmdAdd",          "cmdDeselect", "cmdMove",      "cmdRotate",
        "cmdScale",  "cmdUVX",     "cmdUVY",          "cmdUVZoomIn", "cmdUVZoomOut", "cmdUVUp",
        "cmdUVLeft", "cmdUVRight", "cmdUVDown",       "cmdLoadImg",  "cboView",      "cmdRemap",
        "txtUVX",    "txtUVY",     "cmdSaveUVChanges"};
    ASSERT_EQ(static_cast<std::size_t>(expected.size()), uvControls().size());
    view().setFocus();
    QStringList reached;
    for (qsizetype i = 0; i < expected.size(); ++i) {
        reached << uvWindow().focusWidget()->objectName();
        QTest::keyClick(uvWindow().windowHandle(), Qt::Key_Tab);
    }
    EXPECT_EQ(reached, expected);
    EXPECT_EQ(uvWindow().focusWidget(), &view()) << "Tab does not come round";
    QTest::keyClick(uvWindow().windowHandle(), Qt::Key_Backtab);
    EXPECT_EQ(uvWindow().focusWidget()->objectName(), "cmdSaveUVChanges");
}

TEST_F(UVWindowLayoutTest, TheTabOrderGoesFromTopToBottomAndFromLeftToRight) {
    openTextureEditor();
    uvButton("cmdSelect").setFocus();
    QPoint previous = place(uvButton("cmdSelect")).topLeft();
    for (int i = 0; i < 19; ++i) {
        QTest::keyClick(uvWindow().windowHandle(), Qt::Key_Tab);
        const QPoint at = place(*uvWindow().focusWidget()).topLeft();
        EXPECT_TRUE(at.y() > previous.y() || (at.y() == previous.y() && at.x() > previous.x()))
            << nameOf(*uvWindow().focusWidget());
        previous = at;
    }
}

TEST_F(UVWindowLayoutTest, EveryControlHasAnAccessibleNameOfItsOwn) {
    openTextureEditor();
    std::set<QString> names;
    for (QWidget* const control : uvControls()) {
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(accessible, nullptr);
        const QString name = accessible->text(QAccessible::Name);
        EXPECT_GT(name.size(), 1) << nameOf(*control);
        EXPECT_FALSE(name.contains('&')) << nameOf(*control);
        EXPECT_TRUE(names.insert(name).second) << name.toStdString() << " comes twice";
    }
    EXPECT_EQ(names.size(), 21U);
}

TEST_F(UVWindowLayoutTest, TheFocusIsSeen) {
    openTextureEditor();
    for (QWidget* const control : uvControls()) {
        if (qobject_cast<QLineEdit*>(control) != nullptr) continue;  // their cursor blinks
        // The first control shows no focus before a key was used.
        QTest::keyClick(uvWindow().windowHandle(), Qt::Key_Tab);
        uvWindow().centralWidget()->setFocus();
        const QImage without = control->grab().toImage();
        control->setFocus(Qt::TabFocusReason);
        EXPECT_NE(control->grab().toImage(), without) << nameOf(*control);
    }
}

TEST_F(UVWindowLayoutTest, MnemonicsAreUsedOnce) {
    openTextureEditor();
    std::set<QString> keys;
    const auto expectNew = [&](const QString& caption) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (key.isEmpty()) return;
        EXPECT_TRUE(keys.insert(key.toString()).second) << caption.toStdString();
    };
    for (const auto* const button : uvWindow().findChildren<ToolButton*>()) {
        expectNew(button->text());
    }
    for (const QAction* const menu : uvWindow().menuBar()->actions()) expectNew(menu->text());
    EXPECT_EQ(keys.size(), 9U + 2U);
}

}  // namespace
}  // namespace corvane
