#include "fuzz_session.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/normals.h"
#include "edit/selection.h"
#include "edit/transforms.h"
#include "edit/undo_history.h"
#include "editor/editor.h"
#include "fuzz_dialogs.h"
#include "groups/commands/group_commands.h"
#include "model/commands/delete_geoset.h"
#include "model/commands/merge_geoset.h"
#include "model/commands/open_model.h"
#include "model/commands/save_model.h"
#include "model/model_files.h"
#include "model/model_scanner.h"
#include "model/texture_name.h"
#include "model/texture_path.h"
#include "test_commands.h"
#include "uveditor/commands/exchange.h"
#include "views/commands/view_commands.h"

namespace corvane {

namespace {

constexpr std::size_t kMostEdits = 40;
// Beyond these a session takes too long for what it shows; the limits themselves have tests.
constexpr std::size_t kMostVertices = 1024;
constexpr std::size_t kMostToGrow = 256;

// An editor that nobody watches, with one model open.
struct Session {
    NoPicture picture;
    NoWindow window;
    FuzzDialogs dialogs;
    Editor editor{.pictures = {picture, picture, picture, picture},
                  .window = window,
                  .dialogs = dialogs,
                  .userNumbers = {}};

    Session(const std::string& path, int geosetNumber) {
        dialogs.path = path;
        dialogs.expectInput(std::to_string(geosetNumber));
        openCommand(editor);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { closeModel(editor); }

    bool isOpen() const { return editor.store.modelLoaded; }
    std::size_t size() const { return editor.store.Vertices.size(); }

    // Whether the save came without a message of an error.
    bool save(void (*command)(Editor&) = corvane::save) {
        const int before = dialogs.errors;
        dialogs.expectInput("1");
        command(editor);
        return dialogs.errors == before;
    }
};

// The characters of the edits, one after the other.
class Edits {
public:
    explicit Edits(std::string_view text) : text_(text) {}

    bool empty() const { return next_ >= text_.size(); }
    // 0 where there is no more.
    unsigned char take() { return empty() ? 0 : static_cast<unsigned char>(text_[next_++]); }
    // A distance of up to 32 in steps of a quarter; the space between '0' and 'z' is small.
    double takeDistance() { return (take() - 'M') * 0.25; }
    Triple takeTriple() { return {takeDistance(), takeDistance(), takeDistance()}; }
    Axis takeAxis() { return static_cast<Axis>(take() % 3); }
    int takeDigit() { return take() % 10; }

private:
    std::string_view text_;
    std::size_t next_ = 0;
};

void selectWhere(Editor& editor, const std::vector<bool>& pattern) {
    auto& vertices = editor.store.Vertices;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        vertices[i].selected = pattern[i % pattern.size()];
    }
}

// Selects by the bits of a character, over and over.
void selectPattern(Session& session, Edits& edits) {
    constexpr std::size_t kBits = 6;
    const unsigned bits = edits.take();
    std::vector<bool> pattern;
    for (std::size_t i = 0; i < kBits; ++i) pattern.push_back(((bits >> i) & 1U) != 0);
    selectWhere(session.editor, pattern);
}

void selectOne(Session& session, Edits& edits) {
    auto& vertices = session.editor.store.Vertices;
    if (vertices.empty()) return;
    const std::size_t chosen = edits.take() % vertices.size();
    for (std::size_t i = 0; i < vertices.size(); ++i) vertices[i].selected = i == chosen;
}

void cloneByMoving(Session& session, Edits& edits) {
    const Triple delta = edits.takeTriple();
    if (session.size() > kMostToGrow) return;
    session.editor.modes.cloneMode = true;
    moveSelection(session.editor, delta);
    session.editor.modes.cloneMode = false;
}

void extrude(Session& session, Edits& edits) {
    const Triple delta = edits.takeTriple();
    if (session.size() <= kMostToGrow) extrudeSelection(session.editor, delta);
}

void merge(Session& session, Edits& edits) {
    session.dialogs.expectInput(std::to_string(edits.takeDigit()));
    if (session.size() <= kMostToGrow) mergeGeoset(session.editor);
}

void rotate(Session& session, Edits& edits) {
    double angle = edits.takeDistance() * 10;
    rotateSelection(session.editor, angle, edits.takeAxis());
}

void exchangeTexture(Session& session, Edits& edits) {
    openTextureEditor(session.editor);
    const GeosetStore& store = session.editor.store;
    textureFileNames(textureOf(*store.geosetBase(), store.geosetNumber).image);
    UVData& data = session.window.textureData;
    const double by = edits.takeDistance();
    for (double& u : data.u) u += by;
    for (double& v : data.v) v = by - v;
    saveUVChanges(session.editor, data.u, data.v);
}

void switchTo(Session& session, Edits& edits) {
    session.dialogs.expectInput(std::to_string(edits.takeDigit()));
    switchGeoset(session.editor);
}

void assignGroup(Session& session, Edits& edits) {
    session.dialogs.expectInput(std::to_string(edits.takeDigit()));
    assignVertexGroup(session.editor);
}

void appendMatrix(Session& session, Edits& edits) {
    session.dialogs.expectInput(std::to_string(edits.takeDigit()));
    addMatrix(session.editor);
}

void placeSelection(Session& session, Edits& edits) {
    session.dialogs.expectInput(std::to_string(edits.takeDigit()));
    setCoordinates(session.editor);
}

struct Edit {
    char letter;
    void (*run)(Session& session, Edits& edits);
};

// What each letter does. Other characters do nothing.
constexpr std::array<Edit, 29> kEdits = {{
    {'a', [](Session& s, Edits&) { selectAll(s.editor); }},
    {'i', [](Session& s, Edits&) { invertSelection(s.editor); }},
    {'e', [](Session& s, Edits&) { expandSelection(s.editor); }},
    {'s', selectPattern},
    {'o', selectOne},
    {'m', [](Session& s, Edits& e) { moveSelection(s.editor, e.takeTriple()); }},
    {'r', rotate},
    {'k',
     [](Session& s, Edits& e) {
         const Triple by = e.takeTriple();
         scaleSelection(s.editor, by[0], by[1]);
     }},
    {'d', [](Session& s, Edits&) { deleteSelection(s.editor); }},
    {'f', [](Session& s, Edits&) { deleteSelectedFaces(s.editor); }},
    {'c', cloneByMoving},
    {'x', extrude},
    {'w', [](Session& s, Edits&) { weldSelection(s.editor); }},
    {'p', [](Session& s, Edits&) { snapSelection(s.editor); }},
    {'n', [](Session& s, Edits&) { recalculateNormals(s.editor); }},
    {'N', [](Session& s, Edits&) { snapNormals(s.editor); }},
    {'M', [](Session& s, Edits& e) { mirrorSelection(s.editor, e.takeAxis()); }},
    {'A', [](Session& s, Edits& e) { alignSelection(s.editor, e.takeAxis()); }},
    {'C', placeSelection},
    {'X', [](Session& s, Edits& e) { toggleActive(s.editor, e.takeAxis()); }},
    {'u', [](Session& s, Edits&) { undoLast(s.editor); }},
    {'t', exchangeTexture},
    {'g', assignGroup},
    {'b', appendMatrix},
    {'j', merge},
    {'S', switchTo},
    {'D', [](Session& s, Edits&) { deleteCurrentGeoset(s.editor); }},
    {'v', [](Session& s, Edits&) { s.save(); }},
    {'y', [](Session& s, Edits&) { s.dialogs.agrees = !s.dialogs.agrees; }},
}};

void play(Session& session, Edits edits) {
    for (std::size_t i = 0; i < kMostEdits && !edits.empty(); ++i) {
        const auto letter = static_cast<char>(edits.take());
        const auto* const edit = std::ranges::find(kEdits, letter, &Edit::letter);
        if (edit != kEdits.end()) edit->run(session, edits);
    }
}

bool isFinite(const VertexRecord& vertex) {
    const auto finite = [](double value) { return std::isfinite(value); };
    return std::ranges::all_of(vertex.pos, finite) && std::ranges::all_of(vertex.normal, finite) &&
           finite(vertex.tu) && finite(vertex.tv);
}

// What a save must make of a geoset: worked out here anew, so that it can differ.
struct Expected {
    std::vector<VertexRecord> vertices;
    std::vector<std::array<int, 3>> listedFaces;
    std::size_t countedFaces = 0;  // with those that are deleted themselves
    std::vector<std::vector<int>> matrixGroups;
    bool finite = true;

    bool isEmpty() const { return vertices.empty() || countedFaces == 0; }
};

std::vector<std::vector<int>> usedMatrices(const Geoset& geoset) {
    std::vector<std::vector<int>> groups;
    for (const MatrixGroup& group : geoset.matrixGroups) {
        groups.emplace_back(group.begin(), std::ranges::find(group, kNoMatrix));
    }
    return groups;
}

Expected expectedOf(const Geoset& geoset) {
    Expected expected;
    std::vector<int> newIndex;
    for (const VertexRecord& vertex : geoset.Vertices) {
        newIndex.push_back(vertex.deleted ? -1 : static_cast<int>(expected.vertices.size()));
        if (vertex.deleted) continue;
        expected.vertices.push_back(vertex);
        expected.finite = expected.finite && isFinite(vertex);
    }
    for (const FaceRecord& face : geoset.Faces) {
        std::array<int, 3> corner{};
        std::ranges::transform(face.corner, corner.begin(), [&](std::int16_t old) {
            return newIndex.at(static_cast<std::size_t>(old));
        });
        if (std::ranges::find(corner, -1) != corner.end()) continue;
        ++expected.countedFaces;
        if (!face.deleted) expected.listedFaces.push_back(corner);
    }
    expected.matrixGroups = usedMatrices(geoset);
    return expected;
}

void promise(bool holds, const std::string& what) {
    if (!holds) throw BrokenPromise(what);
}

// The number that is left of one after it was written with 15 digits.
double written(double value) {
    std::array<char, 40> digits{};
    std::snprintf(digits.data(), digits.size(), "%.15g", value);
    return std::strtod(digits.data(), nullptr);
}

bool isRounded(double read, double value) {
    constexpr double kHalfStep = 0.5e-6;  // normals and texture coordinates have 6 decimals
    return std::abs(read - value) <= kHalfStep * 1.001 + std::abs(value) * 1e-14;
}

// What of a vertex is not as it was saved; nothing where all is.
const char* differenceOf(const VertexRecord& read, const VertexRecord& expected) {
    for (std::size_t i = 0; i < 3; ++i) {
        if (read.pos[i] != written(expected.pos[i])) return "position";
        if (!isRounded(read.normal[i], expected.normal[i])) return "normal";
    }
    if (!isRounded(read.tu, expected.tu) || !isRounded(read.tv, expected.tv)) {
        return "texture coordinate";
    }
    if (read.group != expected.group) return "vertex group";
    return read.deleted || read.selected ? "flag" : nullptr;
}

void promiseSameGeoset(const Geoset& read, const Expected& expected) {
    promise(read.Vertices.size() == expected.vertices.size(),
            "saved " + std::to_string(expected.vertices.size()) + " vertices, opened " +
                std::to_string(read.Vertices.size()));
    for (std::size_t i = 0; i < read.Vertices.size(); ++i) {
        const char* const difference = differenceOf(read.Vertices[i], expected.vertices[i]);
        promise(difference == nullptr, "vertex " + std::to_string(i) + " has another " +
                                           std::string(difference == nullptr ? "" : difference) +
                                           " after the save");
    }
    const std::size_t listed = expected.listedFaces.size();
    promise(
        read.Faces.size() == listed || read.Faces.size() == expected.countedFaces,
        "saved " + std::to_string(listed) + " faces, opened " + std::to_string(read.Faces.size()));
    for (std::size_t i = 0; i < listed; ++i) {
        promise(std::ranges::equal(read.Faces[i].corner, expected.listedFaces[i]),
                "face " + std::to_string(i) + " is another one after the save");
    }
    promise(usedMatrices(read) == expected.matrixGroups,
            "the matrix groups are others after the save");
}

std::string bytesOf(const std::string& path) {
    try {
        return std::string(readModelFile(path).view());
    } catch (const FileError& error) {
        throw BrokenPromise(error.what());
    }
}

void writeBytes(const std::string& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush()) throw std::runtime_error(path + " cannot be written");
}

// What stands before the geoset and after it is as it was.
void promiseSameAround(const std::string& before, const std::string& after, int geosetNumber) {
    const std::vector<GeosetBlock> geosets = scanGeosets(before);
    const GeosetBlock& block = geosets.at(static_cast<std::size_t>(geosetNumber) - 1);
    promise(after.size() >= block.begin + (before.size() - block.end),
            "the save dropped text outside the geoset");
    promise(after.starts_with(before.substr(0, block.begin)),
            "the save changed text before the geoset");
    promise(after.ends_with(before.substr(block.end)), "the save changed text after the geoset");
}

// Opens a saved model, saves it unchanged, and tells what is in the file then.
std::string savedAgain(const std::string& path, int geosetNumber, const Expected* expected) {
    Session session(path, geosetNumber);
    promise(session.isOpen(), "the saved model cannot be opened: " + session.dialogs.error);
    if (expected != nullptr) promiseSameGeoset(session.editor.store, *expected);
    promise(session.save(), "an unchanged save fails: " + session.dialogs.error);
    return bytesOf(path);
}

// The geoset alone is a model with that geoset.
void checkSingleSave(Session& session, const std::string& path, const Expected& expected) {
    session.dialogs.path = path;
    if (!session.save(saveGeoset)) return;  // what stands before the geosets may not allow it
    const Session alone(path, 1);
    promise(alone.isOpen(), "the geoset saved alone cannot be opened: " + alone.dialogs.error);
    promise(alone.size() == expected.vertices.size(),
            "the geoset saved alone has " + std::to_string(alone.size()) + " vertices");
}

// What is known of the text in memory without scanning it again is what is in it.
void promiseSameBlocks(const ModelBase& base) {
    const std::vector<ModelBlock> scanned = scanBlocks(base.text.view());
    bool same = scanned.size() == base.blocks.size();
    for (std::size_t i = 0; same && i < scanned.size(); ++i) {
        const ModelBlock& a = scanned[i];
        const ModelBlock& b = base.blocks[i];
        same = a.keyword == b.keyword && a.begin == b.begin && a.bodyBegin == b.bodyBegin &&
               a.bodyEnd == b.bodyEnd && a.end == b.end && a.closed == b.closed &&
               a.strayAt == b.strayAt;
    }
    promise(same, "the blocks known after the save are not those of the text");
}

void checkSave(Session& session, const std::string& folder) {
    const GeosetStore& store = session.editor.store;
    const std::string path = store.modelPath;
    const std::string before = bytesOf(path);
    const Expected expected = expectedOf(store);
    const int geosetNumber = store.geosetNumber;
    const bool hasPlace = static_cast<std::size_t>(geosetNumber) <= scanGeosets(before).size();
    const bool plain = hasPlace && !session.editor.store.isGeosetRemoved() && !expected.isEmpty();

    // A geoset that was removed before another one was read is gone from this, not from the file.
    const std::string base(store.base().text.view());

    const bool saved = session.save();
    if (!plain) return;  // the geoset is removed, or there is none; nothing may crash
    // Rows that nobody can read cannot follow their vertices.
    const bool stuck = session.dialogs.error.find("cannot follow") != std::string::npos;
    promise(saved || stuck || !expected.finite, "the save fails: " + session.dialogs.error);
    if (!saved) {
        promise(bytesOf(path) == before, "the save failed, but the file is another one");
        return;
    }
    const std::string first = bytesOf(path);
    promiseSameBlocks(store.base());
    promiseSameAround(base, first, geosetNumber);
    checkSingleSave(session, folder + "/alone.mdl", expected);

    // Faces that are counted, but not listed, are none for the next save, which removes the geoset.
    if (expected.listedFaces.empty()) return;
    std::string second = savedAgain(path, geosetNumber, &expected);
    std::string again = first;
    if (expected.listedFaces.size() != expected.countedFaces) {
        // The header counts more faces than are listed; from the second save on both agree.
        again = second;
        second = savedAgain(path, geosetNumber, nullptr);
    }
    promise(again == second, "the second save is another one than the first");
}

}  // namespace

void playFuzzSession(const std::string& folder, std::string_view input) {
    const std::size_t mark = input.rfind(kEditsMark);
    const bool hasEdits = mark != std::string_view::npos;
    const std::string_view edits = hasEdits ? input.substr(mark + 1) : std::string_view();
    const std::string path = folder + "/model.mdl";
    writeBytes(path, input.substr(0, mark));
    try {
        Session session(path, 1);
        if (session.isOpen() && session.size() <= kMostVertices) {
            play(session, Edits(edits));
            checkSave(session, folder);
        }
    } catch (const BrokenPromise& error) {
        deleteFile(path);
        throw BrokenPromise(std::string(error.what()) + " (edits \"" + std::string(edits) + "\")");
    }
    deleteFile(path);
    deleteFile(folder + "/alone.mdl");
}

std::vector<FuzzEditOutcome> playEveryFuzzEdit(const std::string& path) {
    std::vector<FuzzEditOutcome> outcomes;
    for (const Edit& edit : kEdits) {
        Session session(path, 1);
        Editor& editor = session.editor;
        for (VertexRecord& vertex : editor.store.Vertices) vertex.selected = true;
        const Geoset before = editor.store;
        Edits edits("1234567890");
        edit.run(session, edits);
        FuzzEditOutcome outcome{.letter = edit.letter, .step = editor.undo.slots.front().name};
        if (!outcome.step.empty()) {
            undoLast(editor);
            outcome.undone = static_cast<const Geoset&>(editor.store) == before;
        }
        outcomes.push_back(outcome);
    }
    return outcomes;
}

}  // namespace corvane
