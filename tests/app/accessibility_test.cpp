// What assistive technology is told of the windows.
#include <QAccessible>
#include <map>

#include "uv_window_fixture.h"

namespace corvane {
namespace {

class AccessibilityTest : public UVWindowTest {
protected:
    static QAccessibleInterface& interfaceOf(QObject& object) {
        QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(&object);
        if (found == nullptr) throw std::runtime_error("assistive technology does not see it");
        return *found;
    }
    static QAccessible::State stateOf(QObject& object) { return interfaceOf(object).state(); }

    /// Everything below an object, as a screen reader walks it.
    static std::vector<QAccessibleInterface*> walk(QAccessibleInterface& from) {
        std::vector<QAccessibleInterface*> found = {&from};
        for (int i = 0; i < from.childCount(); ++i) {
            QAccessibleInterface* const child = from.child(i);
            if (child == nullptr || !child->isValid()) continue;
            const std::vector<QAccessibleInterface*> below = walk(*child);
            found.insert(found.end(), below.begin(), below.end());
        }
        return found;
    }

    /// That every control in a window has a name, a role and a state. How many of each role.
    static std::map<QAccessible::Role, int> expectAllTold(QWidget& shown) {
        const std::set<QAccessible::Role> containers = {
            QAccessible::Client,    QAccessible::Window,    QAccessible::MenuBar,
            QAccessible::Pane,      QAccessible::StatusBar, QAccessible::Separator,
            QAccessible::PopupMenu, QAccessible::Grip};
        std::map<QAccessible::Role, int> roles;
        for (QAccessibleInterface* const part : walk(interfaceOf(shown))) {
            const QAccessible::State state = part->state();
            const std::string what = part->object() == nullptr
                                         ? "an item"
                                         : std::string(part->object()->metaObject()->className()) +
                                               ' ' + part->object()->objectName().toStdString();
            EXPECT_FALSE(state.invalid) << what;
            if (containers.contains(part->role()) && !state.focusable) continue;
            ++roles[part->role()];
            EXPECT_NE(part->role(), QAccessible::NoRole) << what;
            EXPECT_NE(part->role(), QAccessible::Client) << what << " is no more than a widget";
            const auto* const widget = qobject_cast<QWidget*>(part->object());
            const QString name = part->text(QAccessible::Name);
            const bool isEmptyLabel =
                part->role() == QAccessible::StaticText && widget != nullptr && !state.focusable;
            EXPECT_FALSE(name.isEmpty() && !isEmptyLabel) << what;
            EXPECT_FALSE(name.contains('&')) << name.toStdString();
            if (widget == nullptr) continue;
            EXPECT_EQ(state.disabled, !widget->isEnabled()) << what;
            EXPECT_EQ(state.focusable, widget->focusPolicy() != Qt::NoFocus) << what;
        }
        return roles;
    }

    /// The names of the buttons of a window that say that they are on, and of those that are off.
    static std::pair<QStringList, QStringList> checkable(const QWidget& shown) {
        QStringList on;
        QStringList off;
        for (auto* const button : shown.findChildren<ToolButton*>()) {
            const QAccessible::State state = stateOf(*button);
            if (!state.checkable) continue;
            (state.checked ? on : off) << button->objectName();
        }
        return {on, off};
    }

    static void toggle(QObject& object) {
        interfaceOf(object).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    }
};

TEST_F(AccessibilityTest, EveryControlOfTheMainWindowHasANameARoleAndAState) {
    for (const bool isOpen : {false, true}) {
        if (isOpen) openModel("hero.mdl");
        std::map<QAccessible::Role, int> roles = expectAllTold(*window);
        EXPECT_EQ(roles[QAccessible::Graphic], 4);
        // Those that are on or off are check boxes.
        EXPECT_EQ(roles[QAccessible::Button], 23 + 2);
        EXPECT_EQ(roles[QAccessible::CheckBox], 11);
        EXPECT_EQ(roles[QAccessible::EditableText], 4);
        EXPECT_GT(roles[QAccessible::MenuItem], 60);
    }
}

TEST_F(AccessibilityTest, EveryControlOfTheTextureWindowHasANameARoleAndAState) {
    openTextureEditor();
    std::map<QAccessible::Role, int> roles = expectAllTold(uvWindow());
    EXPECT_EQ(roles[QAccessible::Graphic], 1);
    EXPECT_EQ(roles[QAccessible::Button], 6 + 3);
    EXPECT_EQ(roles[QAccessible::CheckBox], 8);
    EXPECT_EQ(roles[QAccessible::ComboBox], 1);
    EXPECT_EQ(roles[QAccessible::EditableText], 2);
}

TEST_F(AccessibilityTest, EveryControlHasAnAccessibleName) {
    ASSERT_EQ(controls().size(), 4U + 23U + 13U + 4U);
    for (QWidget* const control : controls()) {
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(accessible, nullptr);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
            << control->objectName().toStdString();
    }
}

TEST_F(AccessibilityTest, AccessibleNamesTellControlsApart) {
    QStringList names;
    for (QWidget* const control : controls()) {
        names << QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
    }
    EXPECT_EQ(names.removeDuplicates(), 0);
}

TEST_F(AccessibilityTest, ModeAndAxisButtonsSayWhetherTheyAreOn) {
    EXPECT_EQ(checkable(*window).first, (QStringList{"cmdSelect", "cmdMove", "cmdActivateX",
                                                     "cmdActivateY", "cmdActivateZ"}));
    EXPECT_EQ(checkable(*window).second, (QStringList{"cmdAdd", "cmdDeselect", "cmdRotate",
                                                      "cmdScale", "cmdExtrude", "cmdClone"}));
    for (const char* const name : {"cmdAdd", "cmdExtrude", "cmdClone", "cmdActivateY"}) {
        click(button(name));
    }
    EXPECT_EQ(checkable(*window).first,
              (QStringList{"cmdAdd", "cmdExtrude", "cmdClone", "cmdActivateX", "cmdActivateZ"}));
    click(button("cmdAdd"));
    EXPECT_TRUE(stateOf(button("cmdAdd")).checked) << "it was on already";
    choose("mnuYEnabled");
    EXPECT_TRUE(stateOf(button("cmdActivateY")).checked);
}

TEST_F(AccessibilityTest, TheTextureWindowsButtonsSaySoToo) {
    openTextureEditor();
    press("cmdDeselect");
    press("cmdRotate");
    press("cmdUVY");
    EXPECT_EQ(checkable(uvWindow()).first, (QStringList{"cmdDeselect", "cmdRotate", "cmdUVX"}));
    EXPECT_EQ(checkable(uvWindow()).second,
              (QStringList{"cmdSelect", "cmdAdd", "cmdMove", "cmdScale", "cmdUVY"}));
}

TEST_F(AccessibilityTest, AssistiveTechnologyCanPressThem) {
    toggle(button("cmdScale"));
    EXPECT_EQ(editor().modes.transformMode, TransformMode::Scale);
    EXPECT_TRUE(stateOf(button("cmdScale")).checked);
    EXPECT_FALSE(stateOf(button("cmdMove")).checked);
    toggle(button("cmdScale"));
    EXPECT_TRUE(stateOf(button("cmdScale")).checked) << "one of them is always on";
    toggle(button("cmdActivateZ"));
    EXPECT_FALSE(editor().modes.activeZ);
    EXPECT_FALSE(stateOf(button("cmdActivateZ")).checked);
    toggle(button("cmdActivateZ"));
    EXPECT_TRUE(editor().modes.activeZ);
    EXPECT_TRUE(stateOf(button("cmdActivateZ")).checked);
}

TEST_F(AccessibilityTest, NamesSayNothingThatMayChange) {
    EXPECT_EQ(button("cmdActivateX").accessibleName(), "X axis");
    openTextureEditor();
    EXPECT_EQ(uvButton("cmdUVY").accessibleName(), "Y axis");
}

TEST_F(AccessibilityTest, ModeItemsHaveCheckMarks) {
    const QStringList items = {"mnuSelect", "mnuAdd",     "mnuDeselect", "mnuMove",    "mnuRotate",
                               "mnuScale",  "mnuExtrude", "mnuClone",    "mnuXEnabled"};
    const auto checked = [&] {
        QStringList found;
        for (const QString& name : items) {
            if (item(name).isChecked()) found << name;
        }
        return found;
    };
    EXPECT_EQ(checked(), (QStringList{"mnuSelect", "mnuMove", "mnuXEnabled"}));
    choose("mnuDeselect");
    choose("mnuRotate");
    choose("mnuClone");
    choose("mnuXEnabled");
    EXPECT_EQ(checked(), (QStringList{"mnuDeselect", "mnuRotate", "mnuClone"}));
    choose("mnuRotate");
    choose("mnuClone");
    EXPECT_EQ(checked(), (QStringList{"mnuDeselect", "mnuRotate"}));
}

TEST_F(AccessibilityTest, ButtonsHaveAFrameOnABlackWindowToo) {
    QPalette black;
    for (const auto role : {QPalette::Window, QPalette::Button, QPalette::Base}) {
        black.setColor(role, Qt::black);
    }
    black.setColor(QPalette::ButtonText, Qt::white);
    const auto framePixel = [](ToolButton& button) {
        return button.grab().toImage().pixelColor(button.width() / 2, 1);
    };
    button("cmdRotate").setPalette(black);
    EXPECT_GT(framePixel(button("cmdRotate")).lightness(), 100);
    QPalette grey = black;
    grey.setColor(QPalette::Window, QColor(40, 40, 40));
    button("cmdRotate").setPalette(grey);
    EXPECT_LT(framePixel(button("cmdRotate")).lightness(), 100) << "the style's own is enough";
}

}  // namespace
}  // namespace corvane
