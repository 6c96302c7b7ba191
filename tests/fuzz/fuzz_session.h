// One session with a model that may hold anything: open, edit, save, open again, save again, and
// what must hold in between.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Something that must hold does not. what() says what, with the edits that led there.
class BrokenPromise : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Parts a model's text from the edits in an input. It is the last of its kind that counts.
inline constexpr char kEditsMark = '@';

/// Plays a session. `input` is the bytes of a model, then, after the last kEditsMark, the edits: a
/// letter each (see kEdits in fuzz_session.cpp), some with a number of further characters. Without
/// a mark all of it is the model. Files go into `folder`, which is empty before and after.
/// Throws BrokenPromise.
void playFuzzSession(const std::string& folder, std::string_view input);

/// What an edit of the table does to a model of the file at `path`, all of which is selected.
struct FuzzEditOutcome {
    char letter = 0;
    std::string step;     ///< the step that it records; empty for none
    bool undone = false;  ///< whether Undo brings the geoset back as it was before
};

/// Plays every edit of the table by itself.
std::vector<FuzzEditOutcome> playEveryFuzzEdit(const std::string& path);

}  // namespace corvane
