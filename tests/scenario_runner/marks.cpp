#include "marks.h"

#include <QLineF>
#include <QPainter>
#include <QPolygonF>

namespace corvane::scenario {

namespace {

// Pixels.
constexpr qreal kWidth = 2;
constexpr qreal kHalo = 5;   // around the lines, so that they are seen on any picture
constexpr qreal kHead = 10;  // the length of an arrow's head

constexpr qreal kHeadAngle = 25;  // between the head's edge and the arrow, degrees

void drawMark(QPainter& painter, Qt::MouseButton button, const QPointF& from, const QPointF& to) {
    if (button == Qt::LeftButton) {
        painter.drawRect(QRectF(from, to).normalized());
        return;
    }
    painter.drawLine(from, to);
    QPolygonF head{to};
    for (const qreal angle : {kHeadAngle, -kHeadAngle}) {
        QLineF edge(to, from);
        edge.setLength(kHead);
        edge.setAngle(edge.angle() + angle);
        head << edge.p2();
    }
    painter.setBrush(painter.pen().color());
    painter.drawPolygon(head);
    painter.setBrush(Qt::NoBrush);
}

}  // namespace

void drawMarks(QPixmap& screenshot, const QWidget& widget, const std::vector<Mark>& marks) {
    QPainter painter(&screenshot);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Mark& mark : marks) {
        const bool inside = mark.picture != nullptr &&
                            (mark.picture == &widget || widget.isAncestorOf(mark.picture));
        if (!inside) continue;
        const QPointF from = mark.picture->mapTo(&widget, mark.from);
        const QPointF to = mark.picture->mapTo(&widget, mark.to);
        painter.setPen(QPen(Qt::white, kHalo));
        drawMark(painter, mark.button, from, to);
        const bool isBox = mark.button == Qt::LeftButton;
        painter.setPen(QPen(QColor(214, 92, 0), kWidth, isBox ? Qt::DashLine : Qt::SolidLine));
        drawMark(painter, mark.button, from, to);
    }
}

}  // namespace corvane::scenario
