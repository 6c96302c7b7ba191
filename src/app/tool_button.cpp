#include "app/tool_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "app/theme.h"

namespace corvane {

namespace {

constexpr double kCornerRadius = 3;  // pixels
constexpr int kArrowSize = 12;       // pixels

QStyle::PrimitiveElement arrowElement(Qt::ArrowType arrow) {
    switch (arrow) {
        case Qt::UpArrow:
            return QStyle::PE_IndicatorArrowUp;
        case Qt::DownArrow:
            return QStyle::PE_IndicatorArrowDown;
        case Qt::LeftArrow:
            return QStyle::PE_IndicatorArrowLeft;
        case Qt::RightArrow:
        case Qt::NoArrow:
            break;
    }
    return QStyle::PE_IndicatorArrowRight;
}

}  // namespace

ToolButton::ToolButton(QWidget* parent) : QPushButton(parent) {
    // Assistive technology checks a button without a click.
    connect(this, &QPushButton::toggled, this, [this](bool checked) {
        if (checked == look_.checked) return;
        setChecked(look_.checked);
        click();
    });
}

void ToolButton::setLook(ButtonLook look) {
    if (look == look_) return;
    look_ = look;
    if (isCheckable()) setChecked(look.checked);
    update();
}

void ToolButton::setArrow(Qt::ArrowType arrow) {
    arrow_ = arrow;
    update();
}

void ToolButton::drawFrame(QPainter& painter, const QColor& colour, int width) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), kCornerRadius,
                            kCornerRadius);
    painter.restore();
}

void ToolButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    if (look_.look == Look::Plain) {
        // A checked one would look pressed.
        option.state &= ~QStyle::State_On;
        if (!isDown()) option.state |= QStyle::State_Raised;
        painter.drawControl(QStyle::CE_PushButton, option);
        // A style's frame is a darker shade of the window: on black there is none.
        const QColor window = palette().color(QPalette::Window);
        if (window.darker() == window) drawFrame(painter, palette().color(QPalette::ButtonText), 1);
    } else {
        const QColor back = resolved(look_.colour, palette());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(isDown() ? back.darker(110) : back);
        // A white button differs little from a light theme's buttons; its frame tells it apart.
        // A switched-off axis is not told as something that is on.
        const auto frame = look_.look == Look::On ? QPalette::Highlight : QPalette::Mid;
        drawFrame(painter, palette().color(frame), 2);
        painter.setPen(textColourOn(back));
        if (hasFocus()) {
            painter.save();
            painter.setPen(QPen(textColourOn(back), 1, Qt::DotLine));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(QRectF(rect()).adjusted(4.5, 4.5, -4.5, -4.5));
            painter.restore();
        }
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
    }
    if (arrow_ != Qt::NoArrow) {
        QStyleOption arrow;
        arrow.initFrom(this);
        arrow.rect = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter,
                                         QSize(kArrowSize, kArrowSize), rect());
        painter.drawPrimitive(arrowElement(arrow_), arrow);
    }
}

}  // namespace corvane
