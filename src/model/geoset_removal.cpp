#include "model/geoset_removal.h"

#include <cstdint>
#include <optional>
#include <string>

#include "model/model_scanner.h"
#include "model/numbers.h"

namespace corvane {

namespace {

constexpr std::string_view kGeosetAnimHeader = "GeosetAnim {";
constexpr std::string_view kGeosetId = "\tGeosetId";
constexpr std::string_view kGeosetAnimId = "\tGeosetAnimId";

// The number in a line such as "\tGeosetId 2,"; nothing where none can be read.
std::optional<std::int64_t> idIn(std::string_view line, std::string_view keyword) {
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos || comma < keyword.size()) return std::nullopt;
    return parseInteger(line.substr(keyword.size(), comma - keyword.size()));
}

// Whether a line's last character is the brace that opens a block.
bool opensBlock(std::string_view line) {
    const std::size_t last = line.find_last_not_of(" \t");
    return last != std::string_view::npos && line[last] == '{';
}

// The 1-based ordinal of the first geoset animation that names the geoset; 0 for none.
int animationOf(std::string_view text, const GeosetBlock& removed, std::int64_t geosetId) {
    int ordinal = 0;
    bool inside = false;
    LineCursor cursor(text);
    Line line;
    while (cursor.next(line)) {
        if (line.begin >= removed.begin && line.begin < removed.end) continue;
        // The line after the geoset goes with it.
        if (line.begin == removed.end && !opensBlock(line.text)) continue;
        if (startsWith(line.text, kGeosetAnimHeader)) {
            ++ordinal;
            inside = opensBlock(line.text);
        } else if (startsWith(line.text, "}")) {
            inside = false;
        } else if (inside && startsWith(line.text, kGeosetId) &&
                   idIn(line.text, kGeosetId) == geosetId) {
            return ordinal;
        }
    }
    return 0;
}

// The line that takes the place of one with an id, or nothing where the line stays as it is.
std::optional<std::string> renumbered(std::string_view line, std::string_view keyword,
                                      std::string_view unset, std::int64_t removedId) {
    if (!startsWith(line, keyword) || line.find(unset) != std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> id = idIn(line, keyword);
    if (!id || *id < removedId) return std::nullopt;
    const std::string value = *id == removedId ? std::string(unset) : std::to_string(*id - 1);
    return std::string(keyword) + " " + value + ",";
}

class Remover {
public:
    Remover(const ModelText& text, int geosetNumber)
        : text_(text.view()), geosetId_(geosetNumber - 1), cursor_(text_) {
        const std::vector<GeosetBlock> geosets = scanGeosets(text_);
        if (geosetNumber >= 1 && static_cast<std::size_t>(geosetNumber) <= geosets.size()) {
            removed_ = geosets[static_cast<std::size_t>(geosetNumber) - 1];
            animation_ = animationOf(text_, *removed_, geosetId_);
        }
    }

    PiecedText run();

private:
    void handle(const Line& line);
    void dropThrough(std::size_t blockEnd);
    void replace(const Line& line, std::string text);

    std::string_view text_;
    std::int64_t geosetId_;
    std::optional<GeosetBlock> removed_;
    int animation_ = 0;
    int animationsSeen_ = 0;
    LineCursor cursor_;
    std::size_t copied_ = 0;  // everything before this offset is in out_ or dropped
    PiecedText out_;
};

// Leaves out the text up to `blockEnd` and the line that follows, unless that line opens a block.
void Remover::dropThrough(std::size_t blockEnd) {
    copied_ = blockEnd;
    cursor_ = LineCursor(text_, blockEnd);
    Line line;
    if (!cursor_.next(line)) return;
    if (opensBlock(line.text)) {
        handle(line);
    } else {
        copied_ = line.end;
    }
}

void Remover::replace(const Line& line, std::string text) {
    out_.addView(text_.substr(copied_, line.begin - copied_));
    text += line.lineBreak;
    out_.addText(std::move(text));
    copied_ = line.end;
}

void Remover::handle(const Line& line) {
    if (removed_ && line.begin == removed_->begin) {
        out_.addView(text_.substr(copied_, line.begin - copied_));
        dropThrough(removed_->end);
        return;
    }
    if (startsWith(line.text, kGeosetAnimHeader) && ++animationsSeen_ == animation_) {
        out_.addView(text_.substr(copied_, line.begin - copied_));
        Line last = line;
        while (!startsWith(last.text, "}") && cursor_.next(last)) {
        }
        dropThrough(last.end);
        return;
    }
    if (auto text = renumbered(line.text, kGeosetId, "Multiple", geosetId_)) {
        replace(line, std::move(*text));
    } else if (animation_ > 0) {
        if (auto animText = renumbered(line.text, kGeosetAnimId, "None", animation_ - 1)) {
            replace(line, std::move(*animText));
        }
    }
}

PiecedText Remover::run() {
    Line line;
    while (cursor_.next(line)) handle(line);
    out_.addView(text_.substr(copied_));
    return std::move(out_);
}

}  // namespace

PiecedText removeGeoset(const ModelText& text, int geosetNumber) {
    return Remover(text, geosetNumber).run();
}

}  // namespace corvane
