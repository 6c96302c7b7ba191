// JSON Lines on standard output.
#pragma once

#include <QJsonObject>

namespace corvane::scenario {

/// Prints one object on a line of its own, at once.
void print(const QJsonObject& event);

}  // namespace corvane::scenario
