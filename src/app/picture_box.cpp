#include "app/picture_box.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "app/picture_painter.h"

namespace corvane {

namespace {

constexpr int kTextMargin = 4;  // pixels

QPointF inTwips(const QMouseEvent& event) { return event.position() * kTwipsPerPixel; }

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent), surface_(*this) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void PictureBox::setCaption(const QString& caption) {
    caption_ = caption;
    update();
}

void PictureBox::setHint(const QString& hint) {
    hint_ = hint;
    update();
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Active, QPalette::Base));
    paintPrimitives(painter, surface_.primitives(), kTwipsPerPixel, palette());
    const QRect textArea = rect().adjusted(kTextMargin, kTextMargin, -kTextMargin, -kTextMargin);
    painter.setPen(palette().color(QPalette::Active, QPalette::PlaceholderText));
    painter.drawText(textArea, Qt::AlignLeft | Qt::AlignTop, caption_);
    if (surface_.primitives().empty()) {
        painter.drawText(textArea, Qt::AlignCenter | Qt::TextWordWrap, hint_);
    }
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void PictureBox::resizeEvent(QResizeEvent* /*event*/) {
    surface_.resize(width() * kTwipsPerPixel, height() * kTwipsPerPixel);
    if (onResize) onResize();
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = inTwips(*event);
    if (onMove) onMove(at.x(), at.y());
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    const QPointF at = inTwips(*event);
    if (onPress) onPress(at.x(), at.y());
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF at = inTwips(*event);
    const MouseButton button =
        event->button() == Qt::LeftButton ? MouseButton::Left : MouseButton::Other;
    if (onRelease) onRelease(button, at.x(), at.y());
}

// The second press of a double click starts a drag like any other press.
void PictureBox::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void PictureBox::keyPressEvent(QKeyEvent* event) {
    if (!onKey || !onKey(event->key())) QWidget::keyPressEvent(event);
}

}  // namespace corvane
