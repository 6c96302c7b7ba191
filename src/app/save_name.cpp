#include "app/save_name.h"

#include <QFileInfo>

namespace corvane {

namespace {

QFileInfo infoOf(const std::string& path) { return QFileInfo(QString::fromStdString(path)); }

// A link that leads nowhere counts: its name is taken.
bool isThere(const std::string& path) {
    const QFileInfo info = infoOf(path);
    return info.exists() || info.isSymLink();
}

// A folder keeps its name: nobody means a model beside it.
bool lacksExtension(const std::string& path) {
    const QFileInfo info = infoOf(path);
    return !info.isDir() && !info.fileName().contains('.');
}

}  // namespace

std::optional<std::string> pickSaveName(const std::string& proposed, const SaveNamePicker& pick,
                                        const ReplaceQuestion& mayReplace) {
    std::string start = proposed;
    while (true) {
        std::optional<std::string> path = pick(start);
        if (!path || !lacksExtension(*path)) return path;
        *path += ".mdl";
        if (!isThere(*path) || mayReplace(*path)) return path;
        start = *path;
    }
}

}  // namespace corvane
