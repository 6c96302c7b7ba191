// The icon of the program's windows.
#pragma once

#include <QIcon>

namespace corvane {

/// In all sizes that the program carries; without any where it carries none, as tests do.
QIcon appIcon();

}  // namespace corvane
