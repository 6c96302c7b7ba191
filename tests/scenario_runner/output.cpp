#include "output.h"

#include <QJsonDocument>
#include <cstdio>

namespace corvane::scenario {

void print(const QJsonObject& event) {
    const QByteArray line = QJsonDocument(event).toJson(QJsonDocument::Compact) + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fflush(stdout);
}

}  // namespace corvane::scenario
