// Tables that must not pass the checks, and ones that must.
#include "app/table_checks.h"

#include <gtest/gtest.h>

#include <array>

namespace corvane {
namespace {

struct State {};
using Entry = MenuEntryOf<State>;
using Menu = MenuTableOf<State>;
using Button = ButtonEntryOf<State>;
using Group = ButtonGroupOf<State>;
using ViewButton = ViewButtonOf<State>;
using Kind = Entry::Kind;
using Views = std::span<const std::span<const ViewButton>>;

constexpr void (*kRun)(State&) = [](State&) {};
constexpr void (*kRunNamed)(State&, std::string_view) = [](State&, std::string_view) {};
constexpr bool (*kChecked)(const State&) = [](const State&) { return true; };

constexpr Entry item(const char* name, const char* caption, const char* shortcut = "") {
    return {.name = name, .caption = caption, .shortcut = shortcut, .run = kRun};
}

constexpr Entry kSeparator = {.kind = Kind::Separator};
constexpr Entry kSubmenu = {.kind = Kind::Submenu, .name = "sub", .caption = "&Sub"};
constexpr Entry kSubmenuEnd = {.kind = Kind::SubmenuEnd};

/// A check of a window with one menu that holds these entries, and with one group of buttons.
template <std::size_t Count>
struct Window {
    std::array<Entry, Count> entries;
    std::array<Button, 1> buttons = {{{"cmdA", "&Button", "A button", 0, 0, kRun, nullptr}}};

    constexpr bool passes(auto check) const {
        const std::array<Menu, 1> menus = {{{"menu", "&Menu", Needs::Nothing, entries}}};
        const std::array<Group, 1> groups = {{{"Group", buttons}}};
        return check(std::span<const Menu>(menus), std::span<const Group>(groups));
    }
    constexpr bool isSound() const {
        return passes([](auto menus, auto) { return entriesAreSound(menus); });
    }
    constexpr bool pressesButtons() const {
        return passes([](auto menus, auto groups) { return pressesAreKnown(menus, groups); });
    }
    constexpr bool hasOwnNames() const {
        return passes([](auto menus, auto groups) { return namesDiffer(menus, groups, Views()); });
    }
    constexpr bool hasOwnMnemonics() const {
        return passes([](auto menus, auto groups) { return mnemonicsDiffer(menus, groups); });
    }
    constexpr bool hasOwnKeys() const {
        return passes([](auto menus, auto) { return keysDiffer(menus, Views()); });
    }
};

template <class... Entries>
constexpr auto windowWith(Entries... entries) {
    return Window<sizeof...(Entries)>{.entries = {entries...}};
}

TEST(TableChecksTest, AnItemDoesOneThing) {
    EXPECT_TRUE(windowWith(item("a", "&A")).isSound());
    EXPECT_TRUE(windowWith(Entry{.name = "a", .caption = "&A", .press = "cmdA"}).isSound());
    EXPECT_FALSE(windowWith(Entry{.name = "a", .caption = "&A"}).isSound());
    constexpr Entry named = {.name = "a", .caption = "&A", .runNamed = kRunNamed};
    EXPECT_TRUE(windowWith(named).isSound());
    constexpr Entry twice = {.name = "a", .caption = "&A", .run = kRun, .runNamed = kRunNamed};
    EXPECT_FALSE(windowWith(twice).isSound());
    constexpr Entry both = {.name = "a", .caption = "&A", .run = kRun, .press = "cmdA"};
    EXPECT_FALSE(windowWith(both).isSound());
    EXPECT_FALSE(windowWith(Entry{.name = "a", .run = kRun}).isSound());
}

TEST(TableChecksTest, ClosingIsSaidAndNotLeftOpen) {
    EXPECT_TRUE(windowWith(Entry{.kind = Kind::Close, .name = "a", .caption = "&A"}).isSound());
    constexpr Entry two = {.kind = Kind::Close, .name = "a", .caption = "&A", .run = kRun};
    EXPECT_FALSE(windowWith(two).isSound());
}

TEST(TableChecksTest, SeparatorsAndEndsHaveNothing) {
    EXPECT_TRUE(windowWith(kSeparator).isSound());
    EXPECT_FALSE(windowWith(Entry{.kind = Kind::Separator, .name = "a"}).isSound());
    EXPECT_FALSE(windowWith(Entry{.kind = Kind::Separator, .checked = kChecked}).isSound());
    constexpr Entry key = {.kind = Kind::SubmenuEnd, .shortcut = "Ctrl+A"};
    EXPECT_FALSE(windowWith(kSubmenu, key).isSound());
}

TEST(TableChecksTest, SubmenusEndBeforeOthersBegin) {
    EXPECT_TRUE(windowWith(kSubmenu, item("a", "&A"), kSubmenuEnd).isSound());
    EXPECT_FALSE(windowWith(kSubmenu, item("a", "&A")).isSound());
    EXPECT_FALSE(windowWith(kSubmenu, kSubmenu, kSubmenuEnd).isSound());
    EXPECT_FALSE(windowWith(kSubmenuEnd).isSound());
}

TEST(TableChecksTest, WhatIsPressedIsThere) {
    EXPECT_TRUE(windowWith(Entry{.name = "a", .caption = "&A", .press = "cmdA"}).pressesButtons());
    EXPECT_FALSE(windowWith(Entry{.name = "a", .caption = "&A", .press = "cmdB"}).pressesButtons());
}

TEST(TableChecksTest, NamesAreThereAndDiffer) {
    EXPECT_TRUE(windowWith(item("a", "&A"), kSeparator, kSeparator).hasOwnNames());
    EXPECT_FALSE(windowWith(item("", "&A")).hasOwnNames());
    EXPECT_FALSE(windowWith(item("a", "&A"), item("a", "&B")).hasOwnNames());
    EXPECT_FALSE(windowWith(item("menu", "&A")).hasOwnNames());
    EXPECT_FALSE(windowWith(item("cmdA", "&A")).hasOwnNames());
}

TEST(TableChecksTest, LettersDifferWithinAMenuASubmenuAndBehindAlt) {
    EXPECT_TRUE(windowWith(item("a", "&A"), item("b", "&B")).hasOwnMnemonics());
    EXPECT_FALSE(windowWith(item("a", "&A"), item("b", "B&a")).hasOwnMnemonics());
    EXPECT_TRUE(
        windowWith(item("a", "&A"), kSubmenu, item("b", "&A"), kSubmenuEnd).hasOwnMnemonics());
    EXPECT_FALSE(
        windowWith(kSubmenu, item("a", "&A"), item("b", "&A"), kSubmenuEnd).hasOwnMnemonics());
    EXPECT_FALSE(windowWith(kSubmenu, kSubmenuEnd, item("a", "&Same")).hasOwnMnemonics());
    EXPECT_TRUE(windowWith(item("a", "Q && &A"), item("b", "R && &B")).hasOwnMnemonics());
    constexpr Window<1> alt = {
        .entries = {item("a", "&A")},
        .buttons = {{{"cmdA", "Co&mmand", "A button", 0, 0, kRun, nullptr}}}};
    EXPECT_FALSE(alt.hasOwnMnemonics());
}

TEST(TableChecksTest, ShortcutsAndTheKeysOfAViewDiffer) {
    EXPECT_TRUE(windowWith(item("a", "&A", "Ctrl+A"), item("b", "&B", "Ctrl+B")).hasOwnKeys());
    EXPECT_FALSE(windowWith(item("a", "&A", "Ctrl+A"), item("b", "&B", "Ctrl+A")).hasOwnKeys());
    constexpr auto keysOf = [](std::array<ViewButton, 2> buttons) {
        const std::array<std::span<const ViewButton>, 2> views = {
            {buttons, std::span(buttons).first(1)}};
        return keysDiffer(std::span<const Menu>(), Views(views));
    };
    EXPECT_TRUE(keysOf({{{"a", "A", kUp, 0, 0, kRun}, {"b", "B", kDown, 0, 0, kRun}}}));
    EXPECT_FALSE(keysOf({{{"a", "A", kUp, 0, 0, kRun}, {"b", "B", kUp, 0, 0, kRun}}}));
}

}  // namespace
}  // namespace corvane
