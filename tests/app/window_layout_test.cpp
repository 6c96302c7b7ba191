#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOptionButton>

#include "window_fixture.h"

namespace corvane {
namespace {

class WindowLayoutTest : public WindowTest {
protected:
    const std::vector<QString> pictures = {"pbxFront", "pbxTop", "pbxLeft", "pbxPersp"};

    /// Where a control stands in the window's content.
    QRect place(const QWidget& control) const {
        return {control.mapTo(window->centralWidget(), QPoint(0, 0)), control.size()};
    }
    QRect place(const QString& name) const { return place(widget(name)); }

    void resizeTo(QSize size) {
        window->resize(size);
        QApplication::processEvents();
    }

    /// The visible parts of the content that hold no others, by place.
    std::vector<QWidget*> leaves() const {
        std::vector<QWidget*> found;
        for (QWidget* const child : window->centralWidget()->findChildren<QWidget*>()) {
            if (child->isVisible() && child->findChildren<QWidget*>().isEmpty()) {
                found.push_back(child);
            }
        }
        return found;
    }

    static std::string nameOf(const QWidget& control) {
        const auto* const label = qobject_cast<const QLabel*>(&control);
        if (label != nullptr) return "label " + label->text().toStdString();
        return control.objectName().toStdString();
    }

    /// Nothing lies over anything else, and all of it is seen.
    void expectNoOverlap() const {
        const std::vector<QWidget*> all = leaves();
        ASSERT_GE(all.size(), 40U);
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_TRUE(seen(*all[i]).isEmpty() ||
                        window->centralWidget()->rect().contains(seen(*all[i])))
                << nameOf(*all[i]);
            EXPECT_TRUE(all[i]->parentWidget()->rect().contains(all[i]->geometry()))
                << nameOf(*all[i]);
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_FALSE(seen(*all[i]).intersects(seen(*all[j])))
                    << nameOf(*all[i]) << " and " << nameOf(*all[j]);
            }
        }
    }

    /// The buttons of each view stand to the right of it, near, and no lower than it reaches.
    void expectButtonsBesideTheirViews() const {
        const std::vector<std::vector<QString>> buttons = {
            {"cmdZoomInFront", "cmdZoomOutFront", "cmdPanUF", "cmdPanLF", "cmdPanRF", "cmdPanDF"},
            {"cmdZoomInTop", "cmdZoomOutTop", "cmdPanUT", "cmdPanLT", "cmdPanRT", "cmdPanDT"},
            {"cmdZoomInLeft", "cmdZoomOutLeft", "cmdPanUL", "cmdPanLL", "cmdPanRL", "cmdPanDL"},
            {"cmdPerspZoomIn", "cmdPerspZoomOut", "cmdPerspUp", "Command1", "cmdPerspDown"}};
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            const QRect view = place(pictures[i]);
            for (const QString& name : buttons[i]) {
                const QRect button = place(name);
                EXPECT_GT(button.left(), view.right()) << name.toStdString();
                EXPECT_LT(button.right(), view.right() + 80) << name.toStdString();
                EXPECT_GE(button.top(), view.top()) << name.toStdString();
                EXPECT_LE(button.bottom(), view.bottom()) << name.toStdString();
            }
        }
    }

    void expectEqualPictures() const {
        const QSize size = widget("pbxFront").size();
        for (const QString& name : pictures) EXPECT_EQ(widget(name).size(), size);
        EXPECT_EQ(place("pbxTop").top(), place("pbxFront").top());
        EXPECT_EQ(place("pbxLeft").left(), place("pbxFront").left());
        EXPECT_EQ(place("pbxPersp").left(), place("pbxTop").left());
        EXPECT_EQ(place("pbxPersp").top(), place("pbxLeft").top());
    }

    /// No caption is cut off.
    void expectCaptionsFit() const {
        for (const auto* const button : window->findChildren<ToolButton*>()) {
            QStyleOptionButton option;
            option.initFrom(button);
            const QRect room =
                button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
            QString text = button->text();
            text.remove('&');
            const QRect ink = button->fontMetrics().tightBoundingRect(text);
            EXPECT_LE(ink.width(), room.width()) << nameOf(*button);
            EXPECT_LE(ink.height(), room.height()) << nameOf(*button);
            if (button->minimumSize() == button->maximumSize()) continue;  // those beside a view
            EXPECT_GE(button->width(), button->sizeHint().width()) << nameOf(*button);
            EXPECT_GE(button->height(), button->sizeHint().height()) << nameOf(*button);
        }
        for (const auto* const group : window->findChildren<QGroupBox*>()) {
            EXPECT_GE(group->width(), group->minimumSizeHint().width())
                << group->title().toStdString();
            EXPECT_GE(group->height(), group->minimumSizeHint().height())
                << group->title().toStdString();
        }
        for (const auto* const label : window->centralWidget()->findChildren<QLabel*>()) {
            EXPECT_GE(label->width(), label->sizeHint().width()) << nameOf(*label);
        }
        for (const auto* const text : window->centralWidget()->findChildren<QLineEdit*>()) {
            EXPECT_GE(text->height(), text->sizeHint().height()) << nameOf(*text);
            EXPECT_GE(text->width(), text->fontMetrics().horizontalAdvance("-12345.678"))
                << nameOf(*text);
        }
        const QMenuBar& bar = *window->menuBar();
        EXPECT_GE(bar.width(), bar.sizeHint().width());
    }
};

TEST_F(WindowLayoutTest, ThePicturesStandInAGridWhenTheWindowFirstShows) {
    EXPECT_EQ(place("pbxFront"), QRect(8, 8, 209, 201));
    EXPECT_EQ(place("pbxTop"), QRect(296, 8, 209, 201));
    EXPECT_EQ(place("pbxLeft"), QRect(8, 232, 209, 201));
    EXPECT_EQ(place("pbxPersp"), QRect(296, 232, 209, 201));
}

TEST_F(WindowLayoutTest, NothingOverlapsWhenTheWindowFirstShows) {
    expectNoOverlap();
    expectButtonsBesideTheirViews();
    expectCaptionsFit();
}

TEST_F(WindowLayoutTest, ThePicturesGrowAlikeWithTheWindow) {
    const QSize first = window->size();
    for (const QSize extra : {QSize(1, 1), QSize(2, 3), QSize(333, 0), QSize(0, 201),
                              QSize(700, 401), QSize(2999, 1999)}) {
        resizeTo(first + extra);
        ASSERT_EQ(window->size(), first + extra);
        EXPECT_EQ(widget("pbxFront").size(),
                  QSize(209 + extra.width() / 2, 201 + extra.height() / 2));
        EXPECT_EQ(place("pbxFront").topLeft(), QPoint(8, 8));
        expectEqualPictures();
        expectNoOverlap();
        expectButtonsBesideTheirViews();
    }
}

TEST_F(WindowLayoutTest, ThePanelStandsAtTheTopOfALargeWindow) {
    const QRect first = place("cmdSelect");
    resizeTo(window->size() + QSize(700, 600));
    EXPECT_EQ(place("cmdSelect").top(), first.top());
    EXPECT_EQ(place("cmdSelect").size(), first.size());
}

TEST_F(WindowLayoutTest, AllOfThePanelIsSeenWhenTheWindowFirstShows) {
    EXPECT_FALSE(find<PanelScroller>("toolScroller").verticalScrollBar()->isVisible());
}

TEST_F(WindowLayoutTest, TheWindowFitsOnASmallScreenWhereThePanelScrolls) {
    for (const double points : {9.0, 10.0, 11.0, 12.0}) {
        withFontSize(points, [&] {
            showWindow();
            // 910 by 480 with a frame.
            resizeTo({900, 440});
            EXPECT_EQ(window->size(), QSize(900, 440)) << points;
            EXPECT_GE(widget("pbxFront").height(), 117);
            expectEqualPictures();
            expectNoOverlap();
            expectButtonsBesideTheirViews();
            expectCaptionsFit();
            expectAllReachable(*window);
            window.reset();
        });
    }
}

TEST_F(WindowLayoutTest, InTheSmallestWindowNothingOverlapsAndAllCanBeReached) {
    resizeTo({100, 100});
    EXPECT_EQ(widget("pbxFront").size(), QSize(125, 117));
    expectEqualPictures();
    expectNoOverlap();
    expectButtonsBesideTheirViews();
    expectAllReachable(*window);
}

TEST_F(WindowLayoutTest, TheFirstSizeIsWhatTheScreenHasRoomFor) {
    EXPECT_EQ(fitting({864, 530}, {1920, 1040}), QSize(864, 530));
    EXPECT_EQ(fitting({864, 530}, {910, 480}), QSize(864, 440));
    EXPECT_EQ(fitting({864, 530}, {800, 600}), QSize(790, 530));
}

TEST_F(WindowLayoutTest, ThePicturesReportTheSameSizeToTheViewsAfterEnlarging) {
    resizeTo(window->size() + QSize(100, 40));
    const Pictures& drawn = editor().pictures;
    for (const DrawingSurface* const surface :
         {&drawn.front, &drawn.top, &drawn.left, &drawn.perspective}) {
        EXPECT_EQ(surface->width(), 15 * (209 + 50));
        EXPECT_EQ(surface->height(), 15 * (201 + 20));
    }
}

TEST_F(WindowLayoutTest, AnEnlargedViewIsDrawnAnew) {
    openModel("hero.mdl");
    resizeTo(window->size() + QSize(100, 40));
    for (const char* const name : {"pbxFront", "pbxTop", "pbxLeft"}) {
        // The first line is the vertical axis mark, from the middle: (209 + 50) * 15 / 2.
        const Primitive& axis = picture(name).drawn().front();
        EXPECT_EQ(axis.x1, 1942.5) << name;
        EXPECT_EQ(axis.y1, 1657.5) << name;
    }
    EXPECT_EQ(picture("pbxPersp").drawn().front().x1, 1942.5);
}

TEST_F(WindowLayoutTest, AnEnlargedPerspectiveViewStaysCentredAndShowsNoEditYet) {
    openModel("hero.mdl");
    const std::vector<Primitive> before = picture("pbxPersp").drawn();
    ASSERT_FALSE(before.empty());
    choose("mnuSelectAll");
    resizeTo(window->size() + QSize(100, 40));
    std::vector<Primitive> expected = before;
    for (Primitive& item : expected) {  // lines and boxes; half of 50 and of 20 pixels
        item.x1 += 375;
        item.x2 += 375;
        item.y1 += 150;
        item.y2 += 150;
    }
    EXPECT_EQ(picture("pbxPersp").drawn(), expected);
    click(widget("Command1"));
    EXPECT_EQ(picture("pbxPersp").drawn().back().colour, kRed);
}

TEST_F(WindowLayoutTest, WithASmallFontTheTipEndsWhereTheToolPanelBegins) {
    const QFont before = QApplication::font();
    QFont small = before;
    small.setPixelSize(11);
    QApplication::setFont(small);
    showWindow();
    for (const QSize extra : {QSize(0, 0), QSize(333, 201)}) {
        resizeTo(window->size() + extra);
        const QRect tip = place("txtTips");
        EXPECT_EQ(tip.left(), place("pbxLeft").left());
        EXPECT_GT(tip.top(), place("pbxLeft").bottom());
        EXPECT_LT(tip.right(), place("cmdSelect").left());
        EXPECT_GT(tip.right(), place("Command1").left());
        // No more than a button's height stands empty above it.
        EXPECT_LT(tip.top() - place("pbxLeft").bottom(), 40);
    }
    window.reset();
    QApplication::setFont(before);
}

TEST_F(WindowLayoutTest, ATipBoxThatMustBeWiderRunsBelowThePanelTooAndBack) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(11);
    QApplication::setFont(font);
    showWindow();
    const auto endsBeforePanel = [&] {
        return place("txtTips").right() < place("cmdSelect").left();
    };
    const auto runsBelowPanel = [&] {
        return place("txtTips").right() >= place("cmdSelect").right() &&
               place("txtTips").top() > place("toolScroller").bottom();
    };
    ASSERT_TRUE(endsBeforePanel());
    font.setPixelSize(20);
    QApplication::setFont(font);
    EXPECT_TRUE(QTest::qWaitFor(runsBelowPanel));
    font.setPixelSize(11);
    QApplication::setFont(font);
    EXPECT_TRUE(QTest::qWaitFor(endsBeforePanel));
    window.reset();
    QApplication::setFont(before);
}

TEST_F(WindowLayoutTest, ThePicturesAreOfOneSizeWithAnyFontAndAtAnySize) {
    const QFont before = QApplication::font();
    for (const int pixels : {7, 10, 13, 16, 21, 30}) {
        QFont font = before;
        font.setPixelSize(pixels);
        QApplication::setFont(font);
        showWindow();
        EXPECT_EQ(widget("pbxFront").size(), QSize(209, 201)) << pixels;
        const QSize first = window->size();
        for (int extra = 0; extra < 12; ++extra) {
            resizeTo(first + QSize(extra, 11 - extra));
            EXPECT_EQ(widget("pbxFront").size(), QSize(209 + extra / 2, 201 + (11 - extra) / 2))
                << pixels;
            expectEqualPictures();
        }
    }
    window.reset();
    QApplication::setFont(before);
}

TEST_F(WindowLayoutTest, NoCaptionIsCutOffWithALargerFont) {
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSizeF(before.pointSizeF() * 1.5);
    QApplication::setFont(larger);
    showWindow();
    ASSERT_EQ(button("cmdMove").font().pointSizeF(), larger.pointSizeF());
    EXPECT_EQ(place("pbxPersp"), QRect(296, 232, 209, 201));
    expectCaptionsFit();
    expectNoOverlap();
    expectButtonsBesideTheirViews();
    window.reset();
    QApplication::setFont(before);
}

TEST_F(WindowLayoutTest, AFontThatBecomesLargerWhileTheProgramRunsCutsNothingOff) {
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSizeF(before.pointSizeF() * 1.5);
    QApplication::setFont(larger);
    // The sizes that are wanted now go from parent to parent, an event each.
    const ToolButton& changed = button("cmdMove");
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return changed.font().pointSizeF() == larger.pointSizeF() &&
               changed.height() >= changed.sizeHint().height();
    }));
    expectCaptionsFit();
    expectNoOverlap();
    expectEqualPictures();
    expectAllReachable(*window);
    window.reset();
    QApplication::setFont(before);
}

TEST_F(WindowLayoutTest, TabReachesEveryControlInTheOrderInWhichTheyStand) {
    openModel("hero.mdl");
    QStringList expected = {"pbxFront",      "cmdZoomInFront", "cmdZoomOutFront",
                            "cmdPanUF",      "cmdPanLF",       "cmdPanRF",
                            "cmdPanDF",      "pbxTop",         "cmdZoomInTop",
                            "cmdZoomOutTop", "cmdPanUT",       "cmdPanLT",
                            "cmdPanRT",      "cmdPanDT",       "pbxLeft",
                            "cmdZoomInLeft", "cmdZoomOutLeft", "cmdPanUL",
                            "cmdPanLL",      "cmdPanRL",       "cmdPanDL",
                            "pbxPersp",      "cmdPerspZoomIn", "cmdPerspZoomOut",
                            "cmdPerspUp",    "Command1",       "cmdPerspDown",
                            "cmdSelect",     "cmdAdd",         "cmdDeselect",
                            "cmdMove",       "cmdRotate",      "cmdScale",
                            "cmdExtrude",    "cmdClone",       "cmdActivateX",
                            "cmdActivateY",  "cmdActivateZ",   "cmdSnap",
                            "cmdDelete",     "txtX",           "txtY",
                            "txtZ",          "txtTips"};
    widget("pbxFront").setFocus();
    QStringList reached;
    for (qsizetype i = 0; i < expected.size(); ++i) {
        reached << window->focusWidget()->objectName();
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
    }
    EXPECT_EQ(reached, expected);
    EXPECT_EQ(window->focusWidget(), &widget("pbxFront")) << "Tab does not come round";
    QTest::keyClick(window->windowHandle(), Qt::Key_Backtab);
    EXPECT_EQ(window->focusWidget(), &widget("txtTips"));
}

TEST_F(WindowLayoutTest, TabReachesEveryEnabledControlBeforeAModelIsOpened) {
    QStringList expected;
    for (QWidget* const control : controls()) {
        if (control->isEnabled()) expected << control->objectName();
    }
    widget("cmdMove").setFocus();
    QStringList reached;
    for (qsizetype i = 0; i < expected.size(); ++i) {
        reached << window->focusWidget()->objectName();
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
    }
    expected.sort();
    reached.sort();
    EXPECT_EQ(reached, expected);
}

TEST_F(WindowLayoutTest, TheFocusIsSeen) {
    openModel("hero.mdl");
    for (QWidget* const control : controls()) {
        if (qobject_cast<QLineEdit*>(control) != nullptr) continue;  // their cursor blinks
        // The first control shows no focus before a key was used.
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
        window->centralWidget()->setFocus();
        const QImage without = control->grab().toImage();
        control->setFocus(Qt::TabFocusReason);
        EXPECT_NE(control->grab().toImage(), without) << nameOf(*control);
    }
}

}  // namespace
}  // namespace corvane
