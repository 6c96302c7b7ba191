// The rows that newer versions keep for each vertex (tangents, skin weights, further texture
// layers) follow their vertex through edits, byte for byte.
//
// Every vertex k of the model has the first texture coordinate k, which no edit here changes and
// every copy inherits, and rows that name k. The saved file is read by a few lines of this test's
// own.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/selection.h"
#include "edit/transforms.h"
#include "edit/undo_history.h"
#include "model/commands/merge_geoset.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

constexpr int kSide = 4;  // vertices along a side of the model's square
constexpr int kCount = kSide * kSide;
constexpr int kMerged = 1000;  // texture coordinates of the merged model start here

// The rows of vertex k. The blanks in them are odd, for they must come out as they went in.
std::string tangentRow(int k) { return "{ " + std::to_string(k) + ",0,  0, 1 },"; }
std::string layerRow(int k) { return "{" + std::to_string(k) + ", 0.50 },"; }
std::string weightsRow(int k) { return std::to_string(k) + ", 0, 0,  0, 255, 0, 0, 0,"; }

struct Format {
    std::string name;
    bool countedWeights;
    std::string lineBreak;
};

void PrintTo(const Format& format, std::ostream* out) { *out << format.name; }

// A square grid of vertices, the first texture coordinate counted from `first`.
std::string gridModel(const Format& format, int first, bool rows) {
    const std::string count = std::to_string(kCount);
    std::string vertices = "\tVertices " + count + " {\n";
    std::string texture = "\tTVertices " + count + " {\n";
    std::string layer = "\tTVertices " + count + " {\n";
    std::string tangents = "\tTangents " + count + " {\n";
    std::string weights =
        format.countedWeights ? "\tSkinWeights " + count + " {\n" : "\tSkinWeights {\n";
    std::string indices;
    for (int k = 0; k < kCount; ++k) {
        const int across = k % kSide;
        const int up = k / kSide;
        vertices += "\t\t{ " + std::to_string(k) + ", " + std::to_string(10 * across) + ", " +
                    std::to_string(10 * up) + " },\n";
        texture += "\t\t{ " + std::to_string(first + k) + ", 0 },\n";
        layer += "\t\t" + layerRow(first + k) + "\n";
        tangents += "\t\t" + tangentRow(first + k) + "\n";
        weights += "\t\t" + weightsRow(first + k) + "\n";
        if (across + 1 == kSide || up + 1 == kSide) continue;
        for (const int corner : {k, k + 1, k + kSide, k + 1, k + kSide + 1, k + kSide}) {
            indices += (indices.empty() ? "" : ", ") + std::to_string(corner);
        }
    }
    constexpr int kIndices = 6 * (kSide - 1) * (kSide - 1);
    std::string text = "Version {\n\tFormatVersion 1000,\n}\nGeoset {\n" + vertices + "\t}\n";
    if (rows) text += tangents + "\t}\n";
    text += texture + "\t}\n";
    if (rows) text += weights + "\t}\n" + layer + "\t}\n";
    text += "\tFaces 1 " + std::to_string(kIndices) + " {\n\t\tTriangles {\n\t\t\t{ " + indices +
            " },\n\t\t}\n\t}\n\tMaterialID 0,\n\tLevelOfDetail 0,\n}\n";
    return format.lineBreak == "\n" ? text : withCrLf(text);
}

struct SavedSection {
    std::string header;  // without the brace
    std::vector<std::string> rows;
};

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

// The sections of a saved file whose header starts with `keyword`, a row a line.
std::vector<SavedSection> sectionsOf(const std::string& text, const std::string& keyword) {
    std::vector<SavedSection> sections;
    bool inside = false;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = trimmed(text.substr(begin, end - begin));
        begin = end + 1;
        if (!inside && line.starts_with(keyword) && line.ends_with("{")) {
            sections.push_back({trimmed(line.substr(0, line.size() - 1)), {}});
            inside = true;
        } else if (inside && line == "}") {
            inside = false;
        } else if (inside) {
            sections.back().rows.push_back(line);
        }
    }
    return sections;
}

std::ptrdiff_t numbersIn(const std::string& row) {
    std::ptrdiff_t numbers = 0;
    bool inNumber = false;
    for (const char c : row) {
        const bool part = c != ' ' && c != ',' && c != '{' && c != '}' && c != '\t';
        if (part && !inNumber) ++numbers;
        inNumber = part;
    }
    return numbers;
}

class FollowingRows : public ModelFlowTest, public testing::WithParamInterface<Format> {
protected:
    std::string path;
    std::string other;  // a model to merge

    void SetUp() override {
        path = openNew("hero.mdl", gridModel(GetParam(), 0, true));
        other = folder.write("other.mdl", gridModel(GetParam(), kMerged, true));
        ASSERT_TRUE(store().modelLoaded);
        ASSERT_EQ(store().Vertices.size(), 16U);
        ASSERT_EQ(store().Vertices[5].tu, 5);
    }

    void merge() {
        dialogs.files.push_back(other);
        mergeGeoset(editor);
    }

    // The k of each row of the first texture layer of the saved file.
    std::vector<int> savedVertices() const {
        const std::vector<SavedSection> layers = sectionsOf(readFile(path), "TVertices");
        std::vector<int> ks;
        if (layers.empty()) return ks;
        for (const std::string& row : layers[0].rows) {
            ks.push_back(std::atoi(row.c_str() + row.find_first_of("-0123456789")));
        }
        return ks;
    }

    void expectRows(const SavedSection& section, const std::string& header,
                    std::string (*rowOf)(int k), int numbers) const {
        EXPECT_EQ(section.header, header);
        const std::vector<int> ks = savedVertices();
        ASSERT_EQ(section.rows.size(), ks.size()) << header;
        for (std::size_t i = 0; i < ks.size(); ++i) {
            if (ks[i] < kMerged) {
                EXPECT_EQ(section.rows[i], rowOf(ks[i])) << header << ", row " << i;
            } else {
                EXPECT_EQ(numbersIn(section.rows[i]), numbers) << header << ", row " << i;
                EXPECT_NE(section.rows[i], rowOf(ks[i])) << header << ", row " << i;
            }
        }
    }

    // Saves; then each row is that of its vertex, and there is one for each kept vertex.
    void expectRowsFollowAtASave() {
        std::vector<int> expected;
        for (const VertexRecord& record : store().Vertices) {
            if (!record.deleted) expected.push_back(static_cast<int>(record.tu));
        }
        save();
        const std::string text = readFile(path);
        ASSERT_EQ(savedVertices(), expected);
        const std::string count = std::to_string(expected.size());
        const std::vector<SavedSection> layers = sectionsOf(text, "TVertices");
        const std::vector<SavedSection> tangents = sectionsOf(text, "Tangents");
        const std::vector<SavedSection> weights = sectionsOf(text, "SkinWeights");
        ASSERT_EQ(layers.size(), 2U);
        ASSERT_EQ(tangents.size(), 1U);
        ASSERT_EQ(weights.size(), 1U);
        expectRows(layers[1], "TVertices " + count, layerRow, 2);
        expectRows(tangents[0], "Tangents " + count, tangentRow, 4);
        expectRows(weights[0], GetParam().countedWeights ? "SkinWeights " + count : "SkinWeights",
                   weightsRow, 8);
    }

    bool hasKeptFace() {
        return std::ranges::any_of(store().Faces, [&](const FaceRecord& face) {
            return std::ranges::none_of(
                face.corner, [&](std::int16_t corner) { return store().vertexAt(corner).deleted; });
        });
    }

    void cloneBy(const Triple& delta) {
        editor.modes.cloneMode = true;
        moveSelection(editor, delta);
        editor.modes.cloneMode = false;
    }
};
INSTANTIATE_TEST_SUITE_P(Formats, FollowingRows,
                         testing::Values(Format{"WeightsWithoutACount", false, "\n"},
                                         Format{"WeightsWithACount", true, "\n"},
                                         Format{"CarriageReturns", false, "\r\n"}),
                         [](const auto& format) { return format.param.name; });

TEST_P(FollowingRows, StayByteForByteWhileNoVertexComesOrGoes) {
    const std::string before = readFile(path);
    selectAll(editor);
    moveSelection(editor, {1, 2, 4});
    undoLast(editor);
    save();
    EXPECT_EQ(readFile(path), before);
}

TEST_P(FollowingRows, GoWithDeletedVertices) {
    select({1, 6, 16});
    deleteSelection(editor);
    expectRowsFollowAtASave();
    EXPECT_EQ(savedVertices(), (std::vector<int>{1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
}

TEST_P(FollowingRows, AreInheritedByClones) {
    select({2, 3, 6});
    cloneBy({5, 5, 5});
    expectRowsFollowAtASave();
    EXPECT_EQ(savedVertices(),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 1, 2, 5}));
}

TEST_P(FollowingRows, AreInheritedByExtrudedVertices) {
    select({1, 2, 5});
    extrudeSelection(editor, {0, 0, 5});
    expectRowsFollowAtASave();
    EXPECT_EQ(savedVertices().size(), 19U);
}

TEST_P(FollowingRows, OfAWeldAreThoseOfTheVertexThatIsLeft) {
    select({3, 4, 8});
    weldSelection(editor);
    expectRowsFollowAtASave();
    EXPECT_EQ(savedVertices(), (std::vector<int>{0, 1, 2, 4, 5, 6, 8, 9, 10, 11, 12, 13, 14, 15}));
}

TEST_P(FollowingRows, OfMergedVerticesAreNeutralAndThatIsSaidOnce) {
    dialogs.asked.clear();
    merge();
    const auto messages = [&] {
        return std::ranges::count(dialogs.asked, "message", &ScriptedDialogs::Asked::kind);
    };
    auto said = messages();
    expectRowsFollowAtASave();
    said += messages();
    EXPECT_EQ(said, 1);
    expectRowsFollowAtASave();
    EXPECT_EQ(messages(), 0);
    EXPECT_EQ(savedVertices().size(), 32U);
    const std::vector<SavedSection> tangents = sectionsOf(readFile(path), "Tangents");
    ASSERT_EQ(tangents.size(), 1U);
    ASSERT_EQ(tangents[0].rows.size(), 32U);
    EXPECT_EQ(tangents[0].rows[16], "{ 1, 0, 0, 1 },");
}

TEST_P(FollowingRows, AreBackWithWhatUndoBringsBack) {
    const std::string before = readFile(path);
    select({1, 2});
    deleteSelection(editor);
    undoLast(editor);
    select({5, 6, 9});
    cloneBy({1, 1, 1});
    undoLast(editor);
    select({3, 4});
    weldSelection(editor);
    undoLast(editor);
    save();
    EXPECT_EQ(readFile(path), before);
}

// After a save the working copy has fewer rows than before, and other ones in their places.
TEST_P(FollowingRows, FollowThroughASecondSave) {
    select({1, 2, 3});
    deleteSelection(editor);
    expectRowsFollowAtASave();
    expectRowsFollowAtASave();
    select({10});
    cloneBy({1, 1, 1});
    expectRowsFollowAtASave();
    select({4, 17});
    deleteSelection(editor);
    expectRowsFollowAtASave();
}

TEST_P(FollowingRows, AreThereForWhatUndoBringsBackAfterASave) {
    select({1, 6});
    deleteSelection(editor);
    expectRowsFollowAtASave();
    undoLast(editor);
    expectRowsFollowAtASave();
    EXPECT_EQ(savedVertices().size(), 16U);
}

TEST_P(FollowingRows, FollowWhenTheSavedModelIsOpenedAgain) {
    select({2, 8, 9});
    deleteSelection(editor);
    expectRowsFollowAtASave();
    open(path);
    ASSERT_EQ(store().Vertices.size(), 13U);
    select({1, 13});
    deleteSelection(editor);
    expectRowsFollowAtASave();
    EXPECT_EQ(savedVertices(), (std::vector<int>{2, 3, 4, 5, 6, 9, 10, 11, 12, 13, 14}));
}

// A file that lacks the sections gets none of them.
TEST_P(FollowingRows, DoNotAppearWhereTheFileHasNone) {
    path = openNew("plain.mdl", gridModel(GetParam(), 0, false));
    merge();
    select({1});
    deleteSelection(editor);
    save();
    EXPECT_TRUE(sectionsOf(readFile(path), "Tangents").empty());
    EXPECT_TRUE(sectionsOf(readFile(path), "SkinWeights").empty());
    EXPECT_EQ(sectionsOf(readFile(path), "TVertices").size(), 1U);
}

// The same numbers everywhere, unlike those of a standard distribution.
class RandomNumbers {
public:
    explicit RandomNumbers(unsigned seed) : random_(seed) {}

    int below(int limit) {
        return static_cast<int>(random_() % static_cast<std::uint_fast32_t>(limit));
    }

private:
    std::mt19937 random_;
};

TEST_P(FollowingRows, FollowThroughRandomEdits) {
    constexpr unsigned kSeeds = 12;
    constexpr int kEdits = 30;
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        path = openNew("hero.mdl", gridModel(GetParam(), 0, true));
        RandomNumbers random(seed);
        for (int i = 0; i < kEdits; ++i) {
            SCOPED_TRACE("edit " + std::to_string(i));
            for (VertexRecord& record : store().Vertices) record.selected = random.below(4) == 0;
            const Triple delta = {static_cast<double>(random.below(9)), 1, 2};
            // Growing doubles what is selected, so a large geoset shrinks instead.
            switch (random.below(store().Vertices.size() > 200 ? 4 : 8)) {
                case 0:
                    deleteSelection(editor);
                    break;
                case 1:
                    weldSelection(editor);
                    break;
                case 2:
                case 3:
                    undoLast(editor);
                    break;
                case 4:
                    cloneBy(delta);
                    break;
                case 5:
                    extrudeSelection(editor, delta);
                    break;
                case 6:
                    if (random.below(3) == 0) merge();
                    break;
                default:
                    if (random.below(3) == 0) {
                        open(path);  // goes on from the saved file
                        break;
                    }
                    moveSelection(editor, delta);
                    break;
            }
            // A geoset with nothing left would be removed at a save.
            const auto kept = std::ranges::count(store().Vertices, false, &VertexRecord::deleted);
            if (kept < kCount / 2 || !hasKeptFace()) {
                for (VertexRecord& record : store().Vertices) record.deleted = false;
            }
            if (random.below(4) == 0) expectRowsFollowAtASave();
        }
        expectRowsFollowAtASave();
        if (HasFailure()) return;  // one seed is enough to look at
    }
}

}  // namespace
}  // namespace corvane
