// What opening says of a geoset that was read in part, for one and for several.
#include "model/read_notes.h"

#include <gtest/gtest.h>

#include "model/model_text.h"

namespace corvane {
namespace {

const ModelText& text() {
    static const ModelText model("hero.mdl", "Geoset {\n\tNormals 2 {\n\t}\n}\n");
    return model;
}

TEST(ReadNotesMessages, NumbersThatAreNotFiniteAreCounted) {
    ReadNotes notes;
    notes.firstNotFinite = 9;  // the second line
    notes.notFinite = 1;
    EXPECT_EQ(notFiniteMessage(text(), notes),
              "hero.mdl, line 2: 1 number of its normals and texture coordinates is not finite and "
              "was read as 0. Recalculate Normals or the texture coordinate editor give them "
              "values; a save writes what is shown then.");
    notes.notFinite = 2;
    EXPECT_EQ(notFiniteMessage(text(), notes),
              "hero.mdl, line 2: 2 numbers of its normals and texture coordinates are not finite "
              "and were read as 0; the first one is in this line. Recalculate Normals or the "
              "texture coordinate editor give them values; a save writes what is shown then.");
}

// The message's lines about sections.
std::string linesFor(const ShortSection& section) {
    ReadNotes notes;
    noteIfShort(notes, section);
    if (notes.shortSections.empty()) return "";
    const std::string message = shortSectionsMessage(text(), notes);
    return message.substr(0, message.find("\n\n"));
}

TEST(ReadNotesMessages, ASectionIsShortAgainstItsHeaderOrTheVerticesOrBoth) {
    const auto section = [](std::size_t rows, std::optional<std::int64_t> counted,
                            std::optional<std::size_t> vertices) {
        return ShortSection{.keyword = "Normals",
                            .offset = 9,
                            .rows = rows,
                            .counted = counted,
                            .vertices = vertices};
    };
    const std::string start = "hero.mdl, line 2: the section Normals has ";
    EXPECT_EQ(linesFor(section(1, 2, {})), start + "1 row, but its header says 2.");
    EXPECT_EQ(linesFor(section(0, {}, 1)), start + "0 rows, but the geoset has 1 vertex.");
    EXPECT_EQ(linesFor(section(2, 4, 3)),
              start + "2 rows, but its header says 4 and the geoset has 3 vertices.");
    EXPECT_EQ(linesFor(section(2, 2, 3)), start + "2 rows, but the geoset has 3 vertices.");
    EXPECT_EQ(linesFor(section(2, 4, 2)), start + "2 rows, but its header says 4.");
    EXPECT_EQ(linesFor(section(2, 2, 2)), "");
    EXPECT_EQ(linesFor(section(2, 1, 1)), "");
    EXPECT_EQ(linesFor(section(2, {}, {})), "");
}

}  // namespace
}  // namespace corvane
