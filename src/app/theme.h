// How the core's colours look in the user's theme.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

#include "views/drawing_surface.h"

namespace corvane {

/// A colour of the core; system colours come from the palette.
QColor resolved(Colour colour, const QPalette& palette);

/// The same as it is painted on the palette's base colour: edges and vertices that are not selected
/// have a contrast of at least 3 to 1 to the base and to each other, and on a dark base so has
/// every other colour to the base.
QColor painted(Colour colour, const QPalette& palette);

/// Black or white, whichever is better read on `background`.
QColor textColourOn(const QColor& background);

}  // namespace corvane
