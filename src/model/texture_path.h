// Where the file of a model's texture is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The names that the file of a texture may have, the likeliest first: as the model writes it, then
/// with the extensions of what the game and its tools write in place of its own. With "/" between
/// its folders. None where the model's name is no name of a file.
std::vector<std::string> textureFileNames(std::string_view image);

/// The file of a texture, whether or not upper and lower case agree: looked for in the model's
/// folder and in each one above it, with all folders that the model's name has before the file's,
/// then with ever fewer of them. Empty where there is none. Paths are UTF-8.
std::string findTexture(const std::string& modelPath, std::string_view image);

}  // namespace corvane
