// How a model file becomes the current model: opening, choosing one geoset among several,
// switching to another one, closing.
#pragma once

#include <optional>
#include <string>

#include "editor/editor.h"
#include "model/model_document.h"
#include "model/read_notes.h"

namespace corvane {

/// Says so, and returns true, where a file cannot become the current model because of a working
/// copy: it is the one of the model that is open, which is deleted in the end, or its own would be
/// made over that model.
bool clashesWithWorkingCopy(Editor& editor, const std::string& path);

/// Asks which geoset of a model is meant, 1-based; asks again until the answer is a number in
/// range. Returns 1 without asking where there are fewer than two.
int chooseGeoset(Editor& editor, std::size_t geosetCount);

/// Reads a geoset, 1-based, and what its user should know of it. Throws ModelTextError also where
/// it is not closed and could not be read again after a save.
Geoset readGeoset(const ModelBase& base, int number, ReadNotes& notes);

/// Says what was noted, if anything.
void showNotes(Editor& editor, const ModelText& text, const ReadNotes& notes);

/// A geoset that the user picked from a model's text.
struct PickedGeoset {
    Geoset geoset;
    int geosetNumber = 0;         ///< 1-based
    std::size_t geosetCount = 0;  ///< geosets in that model
};

/// What a message about a geoset that cannot be read ends with.
struct ReadAdvice {
    std::string outcome;  ///< what it came to, a sentence
    std::string choice;   ///< what can be chosen instead, such as "another geoset"
};

/// Says so where the open model holds no geoset.
void sayNoGeoset(Editor& editor);

/// Lets the user pick a geoset of a text, or takes `wanted` (1-based) without asking. Nothing where
/// it is not there or cannot be read, after a message.
std::optional<PickedGeoset> pickGeoset(Editor& editor, const ModelBase& base,
                                       const ReadAdvice& advice, std::optional<int> wanted = {});

/// What openModel() came to.
struct OpenOutcome {
    bool cancelled = false;              ///< the file dialog was cancelled
    std::optional<PickedGeoset> picked;  ///< nothing where cancelled, or failed after a message
};

/// Makes the model file at a path the current one, with one of its geosets: `wanted` (1-based), or
/// one that the user picks where it has several. After a failure everything is as it was.
OpenOutcome openPath(Editor& editor, const std::string& path, std::optional<int> wanted = {});

/// Lets the user pick a model file and one of its geosets. With `openMode` they become the current
/// model and geoset; without it nothing changes, and the caller has the geoset. After a failure
/// everything is as it was.
OpenOutcome openModel(Editor& editor, bool openMode);

/// The command Open.
void openCommand(Editor& editor);

/// The command Switch Geoset: chooses and reads another geoset of the current model. Edits that
/// were not saved are kept.
void switchGeoset(Editor& editor);

/// Chooses a geoset of the current model, reads it into the store, which clears the undo history,
/// and draws it. What was unsaved of the one before is kept, unless that was done already. After a
/// message where it cannot be read, everything is as it was.
void chooseAndRead(Editor& editor, bool keepDropped = true);

/// Takes a geoset into the store, which clears the undo history and what the store held.
void takeIntoStore(Editor& editor, Geoset geoset, int geosetNumber);

/// When the main window opens: the welcome tip, and a warning where the user's decimal separator
/// is a comma.
void startUp(Editor& editor);

/// When the main window closes: deletes the working copy. Edits not saved are kept by the window.
void closeModel(Editor& editor);

}  // namespace corvane
