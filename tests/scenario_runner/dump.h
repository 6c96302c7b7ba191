// The program's state, and what its pictures show, as JSON.
#pragma once

#include <QJsonObject>

#include "app/frm_corvane.h"

namespace corvane::scenario {

QJsonObject dumpState(const frmCorvane& window);

/// The primitives that a picture shows.
QJsonObject drawnItems(const PictureBox& picture);

}  // namespace corvane::scenario
