#include "app/app_icon.h"

#include <QDir>

namespace corvane {

QIcon appIcon() {
    const QDir folder(":/icons");
    QIcon icon;
    for (const QString& name : folder.entryList({"corvane-*.png"})) {
        icon.addFile(folder.filePath(name));
    }
    return icon;
}

}  // namespace corvane
