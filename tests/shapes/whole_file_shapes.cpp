// Shapes of the whole file.
#include "model_texts.h"
#include "shape_parts.h"
#include "test_models.h"

namespace corvane {

namespace {

// Every second line break with a carriage return.
std::string withMixedLineBreaks(const std::string& text) {
    bool odd = false;
    return reshaped(text, [&](const std::string& tabs, const std::string& rest) {
        odd = !odd;
        return tabs + rest + (odd ? "\r" : "");
    });
}

std::string withName(const std::string& text) {
    return replacedOnce(text, "Model \"Test\" {", "Model \"Te}s{t // {\" {");
}

std::string withGeosetInWords(const std::string& text) {
    return "// Geoset {\n" + replacedOnce(text, "NumGeosets 2,", "Title \"Geoset {\", // Geoset {");
}

std::string withHit(const std::string& text) {
    return replacedOnce(text, "Materials 1 {",
                        "CollisionShape \"Hit\" {\n\tBox,\n\tVertices 2 {\n"
                        "\t\t{ 7, 7, 7 },\n\t\t{ 8, 8, 8 },\n\t}\n}\nMaterials 1 {");
}

constexpr const char* kLateHit =
    "CollisionShape \"Late\" {\n\tSphere,\n\tVertices 1 {\n\t\t{ 9, 9, 9 },\n\t}\n"
    "\tBoundsRadius 3,\n}\n";

}  // namespace

// What is outside the sections keeps its shape at a save, and so do the groups.
void addWholeFileShapes(std::vector<Shape>& shapes) {
    const Pieces tool = toolPieces();
    const auto add = [&](const char* name, const Pieces& pieces, const std::string& sections) {
        shapes.push_back({.name = name,
                          .text = pieces.text(),
                          .twin = tool.text(),
                          .saved = pieces.before + sections + pieces.after,
                          .withoutFirst = pieces.withoutFirst});
    };
    const std::string groups = toolLines().groups;
    const auto addLines = [&](const char* name, const LineChange& change) {
        add(name,
            {reshaped(tool.before, change), reshaped(tool.sections, change),
             reshaped(tool.after, change), reshaped(tool.withoutFirst, change)},
            replacedOnce(tool.sections, groups, reshaped(groups, change)));
    };
    const auto addIndent = [&](const char* name, const std::string& indent) {
        addLines(name, [&](const std::string& tabs, const std::string& rest) {
            std::string line;
            for (std::size_t i = 0; i < tabs.size(); ++i) line += indent;
            return line + rest;
        });
    };
    add("ToolShape", tool, tool.sections);
    addIndent("FourSpacesATab", "    ");
    addIndent("TwoSpacesATab", "  ");
    addIndent("NoIndentation", "");
    addIndent("SpacesAndTabsMixed", " \t ");
    addLines("TwoSpaceHeadersWithTwoTabRows", [](const std::string& tabs, const std::string& rest) {
        return (tabs.size() == 1 ? "  " : tabs) + rest;
    });
    addLines("EverythingIndentedOnceMore",
             [](const std::string& tabs, const std::string& rest) { return "\t" + tabs + rest; });
    addLines("TrailingBlanks",
             [](const std::string& tabs, const std::string& rest) { return tabs + rest + " \t "; });
    add("CarriageReturns",
        {withCrLf(tool.before), withCrLf(tool.sections), withCrLf(tool.after),
         withCrLf(tool.withoutFirst)},
        withCrLf(tool.sections));
    add("ByteOrderMark",
        {"\xEF\xBB\xBF" + tool.before, tool.sections, tool.after,
         "\xEF\xBB\xBF" + tool.withoutFirst},
        tool.sections);
    const auto cut = [](const std::string& text) { return text.substr(0, text.size() - 1); };
    add("NoLastLineBreak", {tool.before, tool.sections, cut(tool.after), cut(tool.withoutFirst)},
        tool.sections);
    add("BracesInTheModelsName",
        {withName(tool.before), tool.sections, tool.after, withName(tool.withoutFirst)},
        tool.sections);
    add("GeosetInACommentAndAName",
        {withGeosetInWords(tool.before), tool.sections, tool.after,
         withGeosetInWords(tool.withoutFirst)},
        tool.sections);
    add("VerticesOfOtherBlocks",
        {withHit(tool.before), tool.sections, tool.after + kLateHit,
         withHit(tool.withoutFirst) + kLateHit},
        tool.sections);
    const GeosetLines lines = toolLines();
    const std::string backwards = lines.groups + lines.faces + lines.vertexGroup + lines.texture +
                                  lines.normals + lines.vertices;
    add("SectionsInAnotherOrder", {tool.before, backwards, tool.after, tool.withoutFirst},
        backwards);
    shapes.push_back({.name = "MixedLineBreaks",
                      .text = withMixedLineBreaks(tool.text()),
                      .twin = tool.text(),
                      .saved = "",
                      .withoutFirst = ""});
}

}  // namespace corvane
