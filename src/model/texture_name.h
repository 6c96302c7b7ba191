// Which texture a geoset of a model shows.
#pragma once

#include <string>

#include "model/model_document.h"

namespace corvane {

/// The name of a texture, or why there is none.
struct TextureName {
    std::string image;    ///< as the model writes it, usually with backslashes, without quotes
    std::string missing;  ///< a sentence; empty where there is a name
};

/// The texture of a geoset (1-based number): that of the first layer of its material, at the first
/// key where it is animated. A geoset that names no material has the first one.
TextureName textureOf(const ModelBase& model, int geosetNumber);

}  // namespace corvane
