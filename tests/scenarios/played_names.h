// Which menu items and buttons the scenarios of this folder choose, by their sources.
#pragma once

#include <set>
#include <string>

namespace corvane {

/// Names as they stand behind "menu" and "press", without "frmUVEditor.".
struct PlayedNames {
    std::set<std::string> main;
    std::set<std::string> uv;  ///< those played after "window uv"
};

/// What is played to its end in a test's source. A name counts where a command with it stands in a
/// string, or where a string ends with the command's beginning ("menu " or "press cmd", say) and
/// the rest is a string of its own, before or after it in the same test or outside of all tests.
PlayedNames playedNamesIn(const std::string& source);

/// All of them together, but for those of the runner's own tests: these name commands without
/// looking at what they do.
PlayedNames playedNames();

}  // namespace corvane
