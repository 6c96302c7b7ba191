#include "model/read_notes.h"

#include <utility>

#include "model/model_text.h"

namespace corvane {

namespace {

std::string placeOf(const ModelText& text, std::size_t offset) {
    return text.path() + ", line " + std::to_string(lineNumberAt(text.view(), offset)) + ": ";
}

}  // namespace

void noteIfShort(ReadNotes& notes, ShortSection section) {
    const auto rows = static_cast<std::int64_t>(section.rows);
    if (section.counted && *section.counted <= rows) section.counted.reset();
    if (section.vertices && *section.vertices <= section.rows) section.vertices.reset();
    if (section.counted || section.vertices) notes.shortSections.push_back(std::move(section));
}

std::string notFiniteMessage(const ModelText& text, const ReadNotes& notes) {
    const std::string numbers = notes.notFinite == 1
                                    ? "1 number of its normals and texture coordinates is"
                                    : std::to_string(notes.notFinite) +
                                          " numbers of its normals and texture coordinates are";
    return placeOf(text, notes.firstNotFinite) + numbers +
           (notes.notFinite == 1
                ? " not finite and was read as 0."
                : " not finite and were read as 0; the first one is in this line.") +
           " Recalculate Normals or "
           "the texture coordinate editor give them values; a save writes what is shown then.";
}

std::string shortSectionsMessage(const ModelText& text, const ReadNotes& notes) {
    std::string message;
    for (const ShortSection& section : notes.shortSections) {
        message += placeOf(text, section.offset) + "the section " + section.keyword + " has " +
                   std::to_string(section.rows) + (section.rows == 1 ? " row, but" : " rows, but");
        if (section.counted) message += " its header says " + std::to_string(*section.counted);
        if (section.counted && section.vertices) message += " and";
        if (section.vertices) {
            message += " the geoset has " + std::to_string(*section.vertices) +
                       (*section.vertices == 1 ? " vertex" : " vertices");
        }
        message += ".\n";
    }
    return message +
           "\nEvery row that is there was read. Vertices that have no row in a section have zeros "
           "for it.";
}

}  // namespace corvane
