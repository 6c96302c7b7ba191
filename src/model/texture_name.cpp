#include "model/texture_name.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "model/lexer.h"
#include "model/model_scanner.h"
#include "model/section_text.h"

namespace corvane {

namespace {

// What a block says of itself behind a keyword, outside of the blocks in it; an empty text where it
// says nothing.
std::string_view valueOf(std::string_view text, const ModelBlock& block, std::string_view keyword) {
    Lexer lexer(text, block.bodyBegin, block.bodyEnd);
    for (Token token = lexer.next(); token.kind != Token::Kind::End; token = lexer.next()) {
        if (token.kind == Token::Kind::Open) {
            const auto brace = findBlockEnd(text, token.end(), block.bodyEnd);
            if (!brace) break;
            lexer.moveTo(text.data() + *brace + 1);
        } else if (token.kind == Token::Kind::Word && token.text == keyword) {
            const Token value = lexer.next();
            if (value.isWord()) return value.text;
            if (value.kind == Token::Kind::Open) break;
        }
    }
    return {};
}

// The value of the first key in the block of an animated property, such as "0: 3,".
std::string_view firstKeyOf(std::string_view text, const ModelBlock& block) {
    Lexer lexer(text, block.bodyBegin, block.bodyEnd);
    for (Token token = lexer.next(); token.kind != Token::Kind::End; token = lexer.next()) {
        const std::size_t colon = token.text.find(':');
        if (token.kind != Token::Kind::Word || colon == std::string_view::npos) continue;
        const std::string_view value = token.text.substr(colon + 1);
        return value.empty() ? lexer.next().text : value;
    }
    return {};
}

// The blocks with a keyword in the first block with another one at the top of a model.
std::vector<ModelBlock> listOf(const ModelBase& model, std::string_view list,
                               std::string_view keyword) {
    const auto found = std::ranges::find(model.blocks, list, &ModelBlock::keyword);
    if (found == model.blocks.end()) return {};
    std::vector<ModelBlock> blocks = scanInside(model.text.view(), *found);
    std::erase_if(blocks, [&](const ModelBlock& block) { return block.keyword != keyword; });
    return blocks;
}

// The 0-based number of the texture that the first layer of a material shows.
std::optional<std::int64_t> textureIdOf(std::string_view text, const ModelBlock& material) {
    constexpr std::string_view kTextureId = "TextureID";
    const std::vector<ModelBlock> inMaterial = scanInside(text, material);
    const auto layer =
        std::ranges::find(inMaterial, std::string_view("Layer"), &ModelBlock::keyword);
    if (layer == inMaterial.end()) return std::nullopt;
    const std::vector<ModelBlock> inLayer = scanInside(text, *layer);
    const auto animated = std::ranges::find(inLayer, kTextureId, &ModelBlock::keyword);
    return parseInteger(animated != inLayer.end() ? firstKeyOf(text, *animated)
                                                  : valueOf(text, *layer, kTextureId));
}

bool isIn(std::int64_t id, const std::vector<ModelBlock>& blocks) {
    return id >= 0 && static_cast<std::uint64_t>(id) < blocks.size();
}

std::string withoutQuotes(std::string_view value) {
    if (value.starts_with('"')) value.remove_prefix(1);
    if (value.ends_with('"')) value.remove_suffix(1);
    return std::string(value);
}

TextureName none(std::string why) { return {.image = {}, .missing = std::move(why)}; }

}  // namespace

TextureName textureOf(const ModelBase& model, int geosetNumber) {
    const std::string geosetText = "Geoset " + std::to_string(geosetNumber);
    if (!model.hasGeoset(geosetNumber)) return none(geosetText + " is not in the model.");
    const std::string_view text = model.text.view();
    const GeosetBlock& geoset = model.geosets[static_cast<std::size_t>(geosetNumber) - 1];
    const std::string_view materialText = valueOf(text, geoset, "MaterialID");
    const std::optional<std::int64_t> material =
        materialText.empty() ? std::optional<std::int64_t>(0) : parseInteger(materialText);
    const std::vector<ModelBlock> materials = listOf(model, "Materials", "Material");
    if (!material || !isIn(*material, materials)) {
        return none(geosetText + " has the MaterialID " +
                    (material ? std::to_string(*material) : quoted(materialText)) +
                    ", but the model has " + std::to_string(materials.size()) +
                    " materials, counted from 0.");
    }
    const std::optional<std::int64_t> texture =
        textureIdOf(text, materials[static_cast<std::size_t>(*material)]);
    const std::string materialName = "Material " + std::to_string(*material);
    if (!texture) return none(materialName + " has no first layer with a TextureID.");
    const std::vector<ModelBlock> textures = listOf(model, "Textures", "Bitmap");
    if (!isIn(*texture, textures)) {
        return none(materialName + " has the TextureID " + std::to_string(*texture) +
                    ", but the model has " + std::to_string(textures.size()) +
                    " textures, counted from 0.");
    }
    const ModelBlock& bitmap = textures[static_cast<std::size_t>(*texture)];
    std::string image = withoutQuotes(valueOf(text, bitmap, "Image"));
    if (!image.empty()) return {.image = std::move(image), .missing = {}};
    const std::string_view replaceable = valueOf(text, bitmap, "ReplaceableId");
    return none("Texture " + std::to_string(*texture) + " has no file name in the model" +
                (replaceable.empty() ? "."
                                     : "; the game puts a picture of its own in its place "
                                       "(ReplaceableId " +
                                           std::string(withoutBlanks(replaceable)) + ")."));
}

}  // namespace corvane
