// What must hold for the tables of a window, checked when the program is compiled. A group of a
// panel is anything that has `buttons`.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <span>
#include <string_view>

#include "app/window_tables.h"

namespace corvane {

/// Whether the checks can be made at all: under its sanitizers GCC takes no comparison of a
/// function's address for a constant. Any other build checks the same tables.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool kChecksTables = false;
#else
inline constexpr bool kChecksTables = true;
#endif

/// The letter that a caption underlines, a capital; 0 where it underlines none.
constexpr char mnemonicOf(std::string_view caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        const char letter = caption[i + 1];
        if (letter == '&') {
            ++i;  // a sign that stands for itself
            continue;
        }
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    return 0;
}

/// Values seen so far. Holds up to 128, which is more than a window has controls.
template <class Value>
class SeenValues {
public:
    /// Adds a value; false where it was there before, or where there is no more room.
    constexpr bool add(Value value) {
        if (count_ == kMost || std::find(values_, values_ + count_, value) != values_ + count_) {
            return false;
        }
        values_[count_++] = value;
        return true;
    }

private:
    static constexpr std::size_t kMost = 128;
    Value values_[kMost] = {};
    std::size_t count_ = 0;
};

/// Whether an entry has what entries of its kind need, and nothing that they do not use.
template <class State>
constexpr bool isSound(const MenuEntryOf<State>& entry) {
    using Kind = typename MenuEntryOf<State>::Kind;
    const std::string_view press(entry.press);
    const std::string_view shortcut(entry.shortcut);
    const std::string_view caption(entry.caption);
    const int actions = (entry.run != nullptr ? 1 : 0) + (entry.runNamed != nullptr ? 1 : 0) +
                        (press.empty() ? 0 : 1);
    const bool shows = entry.checked != nullptr || entry.captionNow != nullptr;
    const bool isPlain = actions == 0 && !shows && entry.needs == Needs::Nothing;
    switch (entry.kind) {
        case Kind::Item:
            return actions == 1 && !caption.empty();
        case Kind::Close:
            return isPlain && !caption.empty();
        case Kind::Submenu:
            return isPlain && !caption.empty() && shortcut.empty();
        case Kind::Separator:
        case Kind::SubmenuEnd:
            break;
    }
    return isPlain && caption.empty() && shortcut.empty() && std::string_view(entry.name).empty();
}

/// The same for all entries; and each submenu ends before another one begins and before its menu
/// does.
template <class State>
constexpr bool entriesAreSound(std::span<const MenuTableOf<State>> menus) {
    using Kind = typename MenuEntryOf<State>::Kind;
    for (const MenuTableOf<State>& menu : menus) {
        bool inSubmenu = false;
        for (const MenuEntryOf<State>& entry : menu.entries) {
            const bool begins = entry.kind == Kind::Submenu;
            const bool ends = entry.kind == Kind::SubmenuEnd;
            if (!isSound(entry) || (begins && inSubmenu) || (ends && !inSubmenu)) return false;
            inSubmenu = begins || (inSubmenu && !ends);
        }
        if (inSubmenu) return false;
    }
    return true;
}

/// Whether every button that an item presses is one of these.
template <class State, class Group>
constexpr bool pressesAreKnown(std::span<const MenuTableOf<State>> menus,
                               std::span<const Group> panel) {
    const auto isButton = [&](std::string_view name) {
        return std::ranges::any_of(panel, [&](const Group& group) {
            return std::ranges::any_of(group.buttons, [&](const ButtonEntryOf<State>& button) {
                return button.name == name;
            });
        });
    };
    for (const MenuTableOf<State>& menu : menus) {
        for (const MenuEntryOf<State>& entry : menu.entries) {
            if (!std::string_view(entry.press).empty() && !isButton(entry.press)) return false;
        }
    }
    return true;
}

/// Whether every item and button has a name, and none has another one's, nor a menu's. A menu may
/// go without.
template <class State, class Group>
constexpr bool namesDiffer(std::span<const MenuTableOf<State>> menus, std::span<const Group> panel,
                           std::span<const std::span<const ViewButtonOf<State>>> views) {
    using Kind = typename MenuEntryOf<State>::Kind;
    SeenValues<std::string_view> names;
    names.add("");
    for (const MenuTableOf<State>& menu : menus) {
        const bool isNamed = *menu.name != '\0';
        if (isNamed && !names.add(menu.name)) return false;
        for (const MenuEntryOf<State>& entry : menu.entries) {
            if (entry.kind == Kind::Separator || entry.kind == Kind::SubmenuEnd) continue;
            if (!names.add(entry.name)) return false;
        }
    }
    for (const Group& group : panel) {
        for (const ButtonEntryOf<State>& button : group.buttons) {
            if (!names.add(button.name) || button.run == nullptr) return false;
        }
    }
    for (const std::span<const ViewButtonOf<State>> view : views) {
        for (const ViewButtonOf<State>& button : view) {
            if (!names.add(button.name) || button.run == nullptr) return false;
        }
    }
    return true;
}

/// Whether no two captions of one menu or submenu underline the same letter, nor two of those that
/// the Alt key reaches, the menus and the buttons.
template <class State, class Group>
constexpr bool mnemonicsDiffer(std::span<const MenuTableOf<State>> menus,
                               std::span<const Group> panel) {
    using Kind = typename MenuEntryOf<State>::Kind;
    const auto addTo = [](SeenValues<char>& letters, const char* caption) {
        const char letter = mnemonicOf(caption);
        return letter == 0 || letters.add(letter);
    };
    SeenValues<char> withAlt;
    for (const MenuTableOf<State>& menu : menus) {
        SeenValues<char> inMenu;
        SeenValues<char> inSubmenu;
        bool nested = false;
        if (!addTo(withAlt, menu.caption)) return false;
        for (const MenuEntryOf<State>& entry : menu.entries) {
            if (!addTo(nested ? inSubmenu : inMenu, entry.caption)) return false;
            if (entry.kind == Kind::Submenu) {
                nested = true;
                inSubmenu = {};
            }
            if (entry.kind == Kind::SubmenuEnd) nested = false;
        }
    }
    for (const Group& group : panel) {
        for (const ButtonEntryOf<State>& button : group.buttons) {
            if (!addTo(withAlt, button.caption)) return false;
        }
    }
    return true;
}

/// Whether no two items have the same shortcut, nor two buttons of one view the same key.
template <class State>
constexpr bool keysDiffer(std::span<const MenuTableOf<State>> menus,
                          std::span<const std::span<const ViewButtonOf<State>>> views) {
    SeenValues<std::string_view> shortcuts;
    for (const MenuTableOf<State>& menu : menus) {
        for (const MenuEntryOf<State>& entry : menu.entries) {
            const std::string_view shortcut(entry.shortcut);
            if (!shortcut.empty() && !shortcuts.add(shortcut)) return false;
        }
    }
    for (const std::span<const ViewButtonOf<State>> view : views) {
        SeenValues<Qt::Key> keys;
        for (const ViewButtonOf<State>& button : view) {
            if (!keys.add(button.sign.key)) return false;
        }
    }
    return true;
}

}  // namespace corvane
