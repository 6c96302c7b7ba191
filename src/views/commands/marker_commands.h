// Placing and removing markers.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// Asks for three coordinates and adds a marker there. An answer that is no number gets a message
/// and is asked again; Cancel abandons the whole addition. Adding markers draws nothing.
void addMarker(Editor& editor);

/// Adds a marker at the selection's centre.
void addMarkerAtSelection(Editor& editor);

/// The next release of the left button in a view places a marker. Where it does already, no longer.
void addMarkerGraphically(Editor& editor);

/// Places a marker at the end of the drag, at depth 0.
void placeMarkerAt(Editor& editor, ViewAxes axes);

/// Removes the marker in the highest slot, or all markers, and draws.
void removeLastMarker(Editor& editor);
void removeAllMarkers(Editor& editor);

}  // namespace corvane
