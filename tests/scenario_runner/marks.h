// Drags drawn into screenshots, for documents that show a gesture.
#pragma once

#include <QPixmap>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace corvane::scenario {

/// A drag to be shown, in pixels of a picture.
struct Mark {
    QPointer<QWidget> picture;
    Qt::MouseButton button = Qt::LeftButton;
    QPoint from;
    QPoint to;
};

/// Draws those marks whose picture is the widget, or inside it, into a screenshot of the widget: a
/// box for the left button, an arrow for the others.
void drawMarks(QPixmap& screenshot, const QWidget& widget, const std::vector<Mark>& marks);

}  // namespace corvane::scenario
