// How the core's colours look in the user's theme.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

#include "views/drawing_surface.h"

namespace corvane {

/// A colour of the core; system colours come from the palette.
QColor resolved(Colour colour, const QPalette& palette);

/// The same as it is painted on the palette's base colour: on a dark base a colour that would
/// hardly be seen is lightened.
QColor painted(Colour colour, const QPalette& palette);

/// Black or white, whichever is better read on `background`.
QColor textColourOn(const QColor& background);

}  // namespace corvane
