#include "dump.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QJsonArray>
#include <QMenu>

#include "app/theme.h"
#include "output.h"
#include "widgets.h"

namespace corvane::scenario {

namespace {

QString qt(const std::string& text) { return QString::fromStdString(text); }

QString letter(char c) { return {QChar::fromLatin1(c)}; }

QJsonArray triple(const Triple& values) {
    return {number(values[0]), number(values[1]), number(values[2])};
}

template <class Range, class ToJson>
QJsonArray arrayOf(const Range& range, ToJson toJson) {
    QJsonArray array;
    for (const auto& item : range) array.append(toJson(item));
    return array;
}

QJsonArray corners(const std::array<std::int16_t, 3>& indices) {
    return arrayOf(indices, [](std::int16_t corner) { return QJsonValue(int{corner}); });
}

void addGeoset(QJsonObject& dump, const GeosetStore& store) {
    dump["modelLoaded"] = store.modelLoaded;
    dump["modelPath"] = qt(store.modelPath);
    dump["workPath"] = qt(store.workPath);
    dump["geosetNumber"] = store.geosetNumber;
    dump["vertices"] = arrayOf(store.Vertices, [](const VertexRecord& vertex) {
        return QJsonObject{{"pos", triple(vertex.pos)},   {"normal", triple(vertex.normal)},
                           {"selected", vertex.selected}, {"deleted", vertex.deleted},
                           {"group", int{vertex.group}},  {"tu", number(vertex.tu)},
                           {"tv", number(vertex.tv)}};
    });
    dump["faces"] = arrayOf(store.Faces, [](const FaceRecord& face) {
        return QJsonObject{{"corner", corners(face.corner)}, {"deleted", face.deleted}};
    });
    dump["matrixGroups"] = arrayOf(store.matrixGroups, [](const MatrixGroup& group) {
        QJsonArray rows;
        for (const std::int16_t matrix : group) {
            if (matrix == kNoMatrix) break;
            rows.append(int{matrix});
        }
        return rows;
    });
}

QJsonArray markers(const MarkerTable& table) {
    QJsonArray used;
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (!table[i].used) continue;
        used.append(QJsonObject{{"slot", static_cast<int>(i) + 1},
                                {"x", number(table[i].pos[0])},
                                {"y", number(table[i].pos[1])},
                                {"z", number(table[i].pos[2])}});
    }
    return used;
}

QJsonObject modes(const ToolModes& modes) {
    return {{"selectMode", letter(static_cast<char>(modes.selectMode))},
            {"transformMode", letter(static_cast<char>(modes.transformMode))},
            {"cloneMode", modes.cloneMode},
            {"activeX", modes.activeX},
            {"activeY", modes.activeY},
            {"activeZ", modes.activeZ},
            {"selectEnabled", modes.selectEnabled},
            {"placingMarker", modes.placingMarker},
            {"showNormals", modes.showNormals}};
}

QJsonObject view(const ViewState& state, const DrawingSurface& picture) {
    return {{"zoom", number(state.zoom)},
            {"panX", state.panX},
            {"panY", state.panY},
            {"width", picture.width()},
            {"height", picture.height()}};
}

QJsonArray undo(const UndoHistory& history) {
    return arrayOf(history.slots, [](const UndoRecord& step) {
        return QJsonObject{{"valid", step.valid},
                           {"name", qt(step.name)},
                           {"a", number(step.numbers[0])},
                           {"b", number(step.numbers[1])},
                           {"c", number(step.numbers[2])}};
    });
}

QJsonValue uv(const frmUVEditor* window) {
    if (window == nullptr) return QJsonValue::Null;
    const UVEditor& uv = window->uv();
    const auto flag = [](bool value) { return QJsonValue(value); };
    return QJsonObject{{"u", arrayOf(uv.data.u, number)},
                       {"v", arrayOf(uv.data.v, number)},
                       {"selected", arrayOf(uv.data.selected, flag)},
                       {"deleted", arrayOf(uv.data.deleted, flag)},
                       {"faces", arrayOf(uv.data.faces, corners)},
                       {"zoom", number(uv.zoom)},
                       {"panX", number(uv.panX)},
                       {"panY", number(uv.panY)},
                       {"width", uv.picture.width()},
                       {"height", uv.picture.height()},
                       {"selectMode", letter(static_cast<char>(uv.selectMode))},
                       {"transformMode", letter(static_cast<char>(uv.transformMode))},
                       {"xEnabled", uv.xEnabled},
                       {"yEnabled", uv.yEnabled},
                       {"imageLoaded", uv.imageLoaded}};
}

// The members below hold the controls of one window; those of the second are named with the
// window's name before theirs.
void addTexts(QJsonObject& all, const QWidget& window) {
    for (const QLineEdit* const text : window.findChildren<QLineEdit*>()) {
        if (text->objectName().startsWith("txt")) all[text->objectName()] = text->text();
    }
}

void addMenus(QJsonObject& all, const QWidget& window, const QString& prefix) {
    for (const QAction* const action : window.findChildren<QAction*>()) {
        if (!action->objectName().startsWith("mnu")) continue;
        all[prefix + action->objectName()] = QJsonObject{{"caption", action->text().remove('&')},
                                                         {"enabled", isReachable(*action)},
                                                         {"checked", action->isChecked()}};
    }
}

void addButtons(QJsonObject& all, const QWidget& window, const QString& prefix) {
    for (const ToolButton* const button : window.findChildren<ToolButton*>()) {
        const Colour colour = button->backColour();
        all[prefix + button->objectName()] = QJsonObject{
            {"color",
             colour == kButtonFace ? QString("face") : resolved(colour, button->palette()).name()},
            {"enabled", button->isEnabled()}};
    }
}

void addControls(QJsonObject& dump, const frmCorvane& window) {
    QJsonObject texts;
    QJsonObject menus;
    QJsonObject buttons;
    addTexts(texts, window);
    addMenus(menus, window, "");
    addButtons(buttons, window, "");
    if (const frmUVEditor* const second = window.textureEditor()) {
        const QString prefix = second->objectName() + '.';
        addTexts(texts, *second);
        addMenus(menus, *second, prefix);
        addButtons(buttons, *second, prefix);
    }
    dump["texts"] = texts;
    dump["menus"] = menus;
    dump["buttons"] = buttons;
}

}  // namespace

QJsonObject dumpState(const frmCorvane& window) {
    const Editor& editor = window.editor();
    QJsonObject dump{{"event", "dump"}};
    addGeoset(dump, editor.store);
    dump["markers"] = markers(editor.markers);
    dump["modes"] = modes(editor.modes);
    dump["views"] = QJsonObject{
        {"front", view(editor.views[View::Front], editor.pictures.front)},
        {"top", view(editor.views[View::Top], editor.pictures.top)},
        {"left", view(editor.views[View::Left], editor.pictures.left)},
    };
    dump["perspective"] = QJsonObject{{"yaw", int{editor.perspective.yaw}},
                                      {"offset", int{editor.perspective.offset}},
                                      {"distance", int{editor.perspective.distance}},
                                      {"width", editor.pictures.perspective.width()},
                                      {"height", editor.pictures.perspective.height()}};
    dump["undo"] = undo(editor.undo);
    dump["uv"] = uv(window.textureEditor());
    addControls(dump, window);
    dump["clipboard"] = QGuiApplication::clipboard()->text();
    return dump;
}

QJsonObject drawnItems(const PictureBox& picture) {
    QJsonArray items;
    for (const Primitive& item : picture.drawn()) {
        const QString colour = resolved(item.colour, picture.palette()).name();
        switch (item.kind) {
            case Primitive::Kind::Line:
            case Primitive::Kind::Box:
                items.append(
                    QJsonObject{{"op", item.kind == Primitive::Kind::Line ? "line" : "box"},
                                {"x1", number(item.x1)},
                                {"y1", number(item.y1)},
                                {"x2", number(item.x2)},
                                {"y2", number(item.y2)},
                                {"color", colour}});
                break;
            case Primitive::Kind::Circle:
                items.append(QJsonObject{{"op", "circle"},
                                         {"x", number(item.x1)},
                                         {"y", number(item.y1)},
                                         {"radius", number(item.x2)},
                                         {"color", colour}});
                break;
            case Primitive::Kind::Image:
                items.append(QJsonObject{{"op", "image"},
                                         {"x", number(item.x1)},
                                         {"y", number(item.y1)},
                                         {"width", number(item.x2)},
                                         {"height", number(item.y2)}});
                break;
        }
    }
    return {{"event", "drawn"}, {"name", picture.objectName()}, {"items", items}};
}

}  // namespace corvane::scenario
