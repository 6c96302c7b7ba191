#include "app/save_name.h"

#include <QUtf8StringView>

#include "model/files.h"

namespace corvane {

namespace {

// A link that leads nowhere counts: its name is taken.
bool isThere(const std::string& path) {
    std::error_code error;
    return files::statusOf(path, error, files::Links::Stay).has_value();
}

// A folder keeps its name: nobody means a model beside it.
bool lacksExtension(const std::string& path) {
    std::error_code error;
    const std::optional<files::Status> status = files::statusOf(path, error);
    if (status && status->kind == files::Kind::Folder) return false;
    return path.find('.', path.rfind('/') + 1) == std::string::npos;
}

// A dialog of Qt finds no file whose name is no UTF-8, so it has not asked about it.
bool isUnknownToDialogs(const std::string& path) {
    return !QUtf8StringView(path.data(), static_cast<qsizetype>(path.size())).isValidUtf8();
}

}  // namespace

std::optional<std::string> pickSaveName(const std::string& proposed, const SaveNamePicker& pick,
                                        const ReplaceQuestion& mayReplace) {
    std::string start = proposed;
    while (true) {
        std::optional<std::string> path = pick(start);
        if (!path) return path;
        const bool lacks = lacksExtension(*path);
        if (lacks) *path += ".mdl";
        if (!lacks && !isUnknownToDialogs(*path)) return path;
        if (!isThere(*path) || mayReplace(*path)) return path;
        start = *path;
    }
}

}  // namespace corvane
