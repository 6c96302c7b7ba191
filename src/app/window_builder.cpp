#include "app/window_builder.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>

namespace corvane {

QGridLayout& addGroup(QWidget& panel, const QString& caption) {
    auto* const box = new QGroupBox(caption, &panel);
    auto* const grid = new QGridLayout(box);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->setSpacing(2);
    panel.layout()->addWidget(box);
    return *grid;
}

ToolButton& makeButton(QWidget& parent, const char* name, const char* caption,
                       const char* accessibleName) {
    auto* const button = new ToolButton(&parent);
    button->setObjectName(name);
    button->setText(QWidget::tr(caption));
    button->setAccessibleName(QWidget::tr(accessibleName));
    return *button;
}

ToolButton& makeViewButton(QWidget& parent, const char* name, const char* accessibleName,
                           const ViewSign& sign) {
    ToolButton& button = makeButton(parent, name, sign.caption, accessibleName);
    button.setToolTip(button.accessibleName());
    button.setArrow(sign.arrow);
    return button;
}

void addReadout(QGridLayout& grid, int row, QLineEdit& text, const QString& letter,
                const QString& widest) {
    text.setReadOnly(true);
    text.setAcceptDrops(false);
    text.setMinimumWidth(text.fontMetrics().horizontalAdvance(widest));
    grid.addWidget(new QLabel(letter, grid.parentWidget()), row, 0);
    grid.addWidget(&text, row, 1);
}

void nameMenu(QMenu& menu, const char* name) {
    menu.setObjectName(name);
    menu.menuAction()->setObjectName(name);
}

void setFocusOrder(const std::vector<QWidget*>& order) {
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

void pressByKeys(PictureBox& picture, const QHash<int, ToolButton*>& buttons) {
    picture.onKey = [buttons](int key) {
        // On many keyboards "+" is "=" with Shift.
        ToolButton* const button = buttons.value(key == Qt::Key_Equal ? Qt::Key_Plus : key);
        if (button != nullptr) button->click();
        return button != nullptr;
    };
}

QString inTitle(QString text) { return text.replace("[*]", "[*][*]"); }

void abandonByEscape(QWidget& window, const std::function<void()>& abandon) {
    auto* const shortcut = new QShortcut(QKeySequence(Qt::Key_Escape), &window);
    QObject::connect(shortcut, &QShortcut::activated, &window, abandon);
}

bool isForShortcuts(const QEvent& event) {
    return event.type() == QEvent::ShortcutOverride &&
           !static_cast<const QKeyEvent&>(event).matches(QKeySequence::Copy);
}

}  // namespace corvane
