// What tests on the text of models share.
#pragma once

#include <string>
#include <string_view>

#include "model/geoset_reader.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

/// The text with CR LF for every LF.
inline std::string withCrLf(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '\n') out += '\r';
        out += c;
    }
    return out;
}

/// Reads a geoset of the model "hero.mdl" with this text.
inline Geoset readGeoset(std::string_view text, int geosetNumber = 1) {
    const ModelText model("hero.mdl", text);
    return parseGeoset(model, scanGeosets(model.view()), geosetNumber);
}

/// The message with which reading a geoset of "hero.mdl" fails; "was read" when it does not.
inline std::string readingError(std::string_view text, int geosetNumber = 1) {
    try {
        readGeoset(text, geosetNumber);
    } catch (const ModelTextError& error) {
        return error.what();
    }
    return "was read";
}

}  // namespace corvane
