#include "kept/kept_entry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>

namespace corvane {

namespace {

struct Reason {
    KeptBecause because;
    const char* word;  // in files
    const char* text;  // for the user
};

constexpr std::array<Reason, 11> kReasons = {{
    {KeptBecause::Editing, "editing", "ended unexpectedly"},
    {KeptBecause::TextureEditing, "textureEditing", "ended unexpectedly, texture coordinates"},
    {KeptBecause::Closed, "closed", "closed without saving"},
    {KeptBecause::Ended, "ended", "ended by the system"},
    {KeptBecause::AnotherOpened, "anotherOpened", "another model was opened"},
    {KeptBecause::Switched, "switched", "another geoset was read"},
    {KeptBecause::GeosetSaved, "geosetSaved", "a geoset was saved alone"},
    {KeptBecause::GeosetRemoved, "geosetRemoved", "a save removed the geoset"},
    {KeptBecause::LeftOut, "leftOut", "a save left the geoset out"},
    {KeptBecause::TextureDropped, "textureDropped", "texture coordinates were dropped"},
    {KeptBecause::Replaced, "replaced", "replaced by a save"},
}};

const Reason& reasonOf(KeptBecause because) {
    return *std::ranges::find(kReasons, because, &Reason::because);
}

// As texts: a number in JSON has too few digits for some of them.
QString text(std::int64_t number) { return QString::number(number); }

QString qt(const std::string& utf8) { return QString::fromStdString(utf8); }

std::optional<std::int64_t> numberFrom(const QJsonValue& value) {
    bool good = false;
    const qlonglong number = value.toString().toLongLong(&good);
    if (!good) return std::nullopt;
    return number;
}

std::optional<FileStamp> stampFrom(const QJsonValue& value) {
    const QJsonArray parts = value.toArray();
    if (parts.size() != 4) return std::nullopt;
    std::array<std::int64_t, 4> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::optional<std::int64_t> number = numberFrom(parts[static_cast<int>(i)]);
        if (!number) return std::nullopt;
        numbers[i] = *number;
    }
    return FileStamp{static_cast<std::uint64_t>(numbers[0]), static_cast<std::uint64_t>(numbers[1]),
                     numbers[2], numbers[3]};
}

}  // namespace

std::string entryJson(const KeptEntry& entry) {
    QJsonObject json{{"model", qt(entry.modelPath)},
                     {"geoset", entry.geosetNumber},
                     {"time", text(entry.time)},
                     {"order", text(entry.order)},
                     {"because", reasonOf(entry.because).word},
                     {"run", qt(entry.run)},
                     {"digest", qt(entry.digest)},
                     {"asked", entry.asked},
                     {"opened", entry.opened}};
    // Characters hold no path that is not UTF-8.
    if (qt(entry.modelPath).toStdString() != entry.modelPath) {
        json["modelBytes"] =
            QString::fromLatin1(QByteArray::fromStdString(entry.modelPath).toHex());
    }
    if (entry.stamp) {
        json["stamp"] = QJsonArray{text(static_cast<std::int64_t>(entry.stamp->device)),
                                   text(static_cast<std::int64_t>(entry.stamp->inode)),
                                   text(entry.stamp->size), text(entry.stamp->modified)};
    }
    return QJsonDocument(json).toJson().toStdString();
}

std::optional<KeptEntry> entryFromJson(const std::string& name, std::string_view json) {
    const QJsonObject object =
        QJsonDocument::fromJson(QByteArray(json.data(), static_cast<qsizetype>(json.size())))
            .object();
    const std::string word = object["because"].toString().toStdString();
    const auto* const reason =
        std::ranges::find_if(kReasons, [&](const Reason& known) { return known.word == word; });
    const std::optional<std::int64_t> time = numberFrom(object["time"]);
    const std::optional<std::int64_t> order = numberFrom(object["order"]);
    KeptEntry entry;
    entry.modelPath = object["model"].toString().toStdString();
    if (object.contains("modelBytes")) {
        entry.modelPath =
            QByteArray::fromHex(object["modelBytes"].toString().toLatin1()).toStdString();
    }
    entry.run = object["run"].toString().toStdString();
    if (reason == kReasons.end() || !time || !order || entry.modelPath.empty() ||
        entry.run.empty()) {
        return std::nullopt;
    }
    entry.name = name;
    entry.geosetNumber = object["geoset"].toInt();
    entry.time = *time;
    entry.order = *order;
    entry.because = reason->because;
    entry.stamp = stampFrom(object["stamp"]);
    entry.digest = object["digest"].toString().toStdString();
    entry.asked = object["asked"].toBool();
    entry.opened = object["opened"].toBool();
    return entry;
}

const char* reasonText(KeptBecause because) { return reasonOf(because).text; }

}  // namespace corvane
