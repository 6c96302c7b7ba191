// Puts a model together again: a model's text with the edited geoset's sections written
// anew in their place. Everything else is passed through as byte ranges.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "base/geoset.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

/// The text of a file to be written, as pieces in order. Pieces of a model's text are views into
/// it, so that text must stay alive as long as this.
class PiecedText {
public:
    PiecedText() = default;
    // A copy's views would lead into the original's texts.
    PiecedText(const PiecedText&) = delete;
    PiecedText& operator=(const PiecedText&) = delete;
    PiecedText(PiecedText&&) = default;
    PiecedText& operator=(PiecedText&&) = default;
    ~PiecedText() = default;

    /// Appends a piece of text that outlives this.
    void addView(std::string_view piece) {
        if (!piece.empty()) pieces_.push_back(piece);
    }
    /// Appends a piece of text and keeps it.
    void addText(std::string piece) { addView(kept_.emplace_back(std::move(piece))); }

    const std::vector<std::string_view>& pieces() const { return pieces_; }
    std::size_t size() const;
    std::string joined() const;

private:
    std::vector<std::string_view> pieces_;
    std::deque<std::string> kept_;  // a deque: views into its strings stay valid
};

/// What a save filled in.
struct NeutralRows {
    std::size_t rows = 0;                   ///< rows for vertices that had none, in all sections
    std::vector<std::string> sectionNames;  ///< the sections that got some, in file order
};

/// The whole model with geoset `geosetNumber` (1-based, must exist) written from `geoset`. Sections
/// that the file's geoset lacks are added at its end where there is data for them; then its closing
/// brace is added too, if it lacks one.
/// Throws ModelTextError where the sections of that geoset cannot be found, and RowsCannotFollow
/// (row_sections.h) where rows cannot follow their vertices.
PiecedText composeModel(const ModelText& base, const std::vector<GeosetBlock>& geosets,
                        int geosetNumber, const Geoset& geoset, NeutralRows* neutral = nullptr);

/// That geoset alone as an unanimated model: one sequence, one bone, one pivot point.
/// Parameters and errors as for composeModel; also where a Sequences block does not end.
PiecedText composeSingleGeoset(const ModelText& base, const std::vector<GeosetBlock>& geosets,
                               int geosetNumber, const Geoset& geoset,
                               NeutralRows* neutral = nullptr);

}  // namespace corvane
