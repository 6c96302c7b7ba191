// Lets failed expectations show values of Qt. Every test file that compares such values includes
// this one, so that all of them print alike.
#pragma once

#include <QColor>
#include <QKeySequence>
#include <QRect>
#include <QString>
#include <QStringList>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << '"' << texts.join("\", \"").toStdString() << '"';
}

inline void PrintTo(const QColor& colour, std::ostream* out) {
    *out << colour.name(QColor::HexArgb).toStdString();
}

inline void PrintTo(const QKeySequence& keys, std::ostream* out) {
    *out << keys.toString().toStdString();
}

inline void PrintTo(const QPoint& point, std::ostream* out) {
    *out << '(' << point.x() << ", " << point.y() << ')';
}

inline void PrintTo(const QSize& size, std::ostream* out) {
    *out << size.width() << " by " << size.height();
}

inline void PrintTo(const QRect& rect, std::ostream* out) {
    PrintTo(rect.size(), out);
    *out << " at ";
    PrintTo(rect.topLeft(), out);
}
