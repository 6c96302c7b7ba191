// Themes for tests.
#pragma once

#include <QPalette>

#include "qt_printers.h"

namespace corvane {

/// Black text on white.
inline QPalette lightPalette() {
    QPalette palette(QColor(0xEF, 0xEF, 0xEF), QColor(0xEF, 0xEF, 0xEF));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Button, QColor(0xEF, 0xEF, 0xEF));
    return palette;
}

/// Light grey text on nearly black.
inline QPalette darkPalette() {
    QPalette palette(QColor(0x35, 0x35, 0x35), QColor(0x2B, 0x2B, 0x2B));
    palette.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
    palette.setColor(QPalette::Text, QColor(0xEE, 0xEE, 0xEE));
    palette.setColor(QPalette::Button, QColor(0x35, 0x35, 0x35));
    return palette;
}

}  // namespace corvane
