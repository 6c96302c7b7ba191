#include "output.h"

#include <QJsonDocument>
#include <cmath>
#include <cstdio>

namespace corvane::scenario {

QJsonValue number(double value) {
    if (std::isfinite(value)) return value;
    if (std::isnan(value)) return "NaN";
    return value > 0 ? "Infinity" : "-Infinity";
}

void print(const QJsonObject& event) {
    const QByteArray line = QJsonDocument(event).toJson(QJsonDocument::Compact) + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fflush(stdout);
}

}  // namespace corvane::scenario
