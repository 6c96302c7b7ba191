#include "app/picture_box.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "app/picture_painter.h"

namespace corvane {

namespace {

constexpr int kTextMargin = 4;  // pixels

// The buttons at the side of a mouse are pressed by accident, and mean something else elsewhere.
constexpr Qt::MouseButtons kActingButtons = Qt::LeftButton | Qt::RightButton | Qt::MiddleButton;

// Assistive technology knows of no widget by itself what it is.
QAccessibleInterface* accessiblePicture(const QString& /*className*/, QObject* object) {
    auto* const picture = qobject_cast<PictureBox*>(object);
    return picture == nullptr ? nullptr : new QAccessibleWidget(picture, QAccessible::Graphic);
}

}  // namespace

PictureBox::PictureBox(QWidget* parent, int unitsPerPixel)
    : QWidget(parent), unitsPerPixel_(unitsPerPixel), surface_(*this) {
    QAccessible::installFactory(accessiblePicture);  // once, however often it is called
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

QPointF PictureBox::inUnits(const QMouseEvent& event) const {
    return event.position() * unitsPerPixel_;
}

void PictureBox::setImage(const QImage& image) {
    image_ = image;
    update();
}

// Only what is seen of it: a large image zoomed in costs no more than the view has pixels.
void PictureBox::paintImage(QPainter& painter, const Primitive& place) const {
    const QRectF target(place.x1 / unitsPerPixel_, place.y1 / unitsPerPixel_,
                        place.x2 / unitsPerPixel_, place.y2 / unitsPerPixel_);
    const QRectF seen = target.intersected(QRectF(rect()));
    if (seen.isEmpty() || image_.isNull()) return;
    const double scaleX = image_.width() / target.width();
    const double scaleY = image_.height() / target.height();
    const QRectF source((seen.left() - target.left()) * scaleX,
                        (seen.top() - target.top()) * scaleY, seen.width() * scaleX,
                        seen.height() * scaleY);
    painter.drawImage(seen, image_, source);
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
    for (const Primitive& item : surface_.primitives()) {
        if (item.kind != Primitive::Kind::Image) break;  // images lie under everything else
        paintImage(painter, item);
    }
    paintPrimitives(painter, surface_.primitives(), unitsPerPixel_, palette());
    const QRect textArea = rect().adjusted(kTextMargin, kTextMargin, -kTextMargin, -kTextMargin);
    painter.setPen(palette().color(QPalette::Active, QPalette::PlaceholderText));
    painter.drawText(textArea, Qt::AlignLeft | Qt::AlignTop, caption_);
    if (surface_.primitives().empty()) {
        constexpr int kHow = Qt::AlignCenter | Qt::TextWordWrap;
        const int below = textArea.top() + painter.fontMetrics().height();
        QRect hintArea = textArea;
        // In a small picture the caption stays readable.
        if (painter.boundingRect(hintArea, kHow, hint_).top() < below) hintArea.setTop(below);
        painter.drawText(hintArea, kHow, hint_);
    }
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void PictureBox::resizeEvent(QResizeEvent* /*event*/) {
    const double oldWidth = surface_.width();
    const double oldHeight = surface_.height();
    surface_.resize(width() * unitsPerPixel_, height() * unitsPerPixel_);
    if (keepsDrawingCentred_) {
        surface_.shift((surface_.width() - oldWidth) / 2, (surface_.height() - oldHeight) / 2);
    }
    if (onResize) onResize();
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = inUnits(*event);
    if (onMove) onMove(at.x(), at.y());
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (!kActingButtons.testFlag(event->button())) {
        QWidget::mousePressEvent(event);
        return;
    }
    pressed_ |= event->button();
    const QPointF at = inUnits(*event);
    if (onPress) onPress(at.x(), at.y());
}

// The release that ends a double click in a dialog may reach a picture below it. It ends no drag.
void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (!pressed_.testFlag(event->button())) return;
    pressed_.setFlag(event->button(), false);
    const QPointF at = inUnits(*event);
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
