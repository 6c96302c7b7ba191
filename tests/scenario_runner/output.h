// JSON Lines on standard output.
#pragma once

#include <QJsonObject>

namespace corvane::scenario {

/// A number as it stands in an object. JSON has none that are not finite: they are the texts "NaN",
/// "Infinity" and "-Infinity", which can be read back, and not null, which cannot.
QJsonValue number(double value);

/// Prints one object on a line of its own, at once.
void print(const QJsonObject& event);

}  // namespace corvane::scenario
