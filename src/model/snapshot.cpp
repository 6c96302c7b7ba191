#include "model/snapshot.h"

namespace corvane {

PiecedText composeSnapshot(const Snapshot& snapshot) {
    const ModelBase& base = *snapshot.base;
    if (base.hasGeoset(snapshot.geosetNumber)) {
        return composeModel(base.text, base.geosets, snapshot.geosetNumber, snapshot.geoset);
    }
    PiecedText text;
    text.addView(base.text.view());
    return text;
}

}  // namespace corvane
