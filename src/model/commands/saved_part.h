// What memory becomes once a geoset was saved alone.
#pragma once

#include <vector>

#include "editor/editor.h"
#include "model/model_writer.h"

namespace corvane {

/// After a geoset was saved alone the part is the current model, and memory becomes what it holds:
/// one matrix group, all vertices in it, and the rows that it keeps for its vertices. Made before
/// the part is written, so that memory cannot run out between the two.
class SavedPart {
public:
    explicit SavedPart(const PiecedText& text);

    /// Throws nothing.
    void becomeCurrent(Editor& editor) &&;

private:
    Geoset read_;
    std::vector<MatrixGroup> groups_ = {kSoleMatrixGroup};
};

}  // namespace corvane
