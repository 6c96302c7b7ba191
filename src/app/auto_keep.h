// Hands what no save has written to the keeper: a while after an edit, and when it would be lost.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "editor/editor.h"
#include "kept/keeper.h"
#include "uveditor/commands/uv_editor.h"

namespace corvane {

class AutoKeep : public QObject {
    Q_OBJECT

public:
    /// `texture` gives the texture editor, null while there is none. All of these outlive this
    /// object. The timer is a child of `parent`.
    AutoKeep(QObject* parent, const Editor& editor, Keeper& keeper,
             std::function<const UVEditor*()> texture);

    /// After anything that may have been an edit: looks at it a few seconds later.
    void noteState();

    /// Whether there is anything that no save has written, here or in the texture editor.
    bool hasUnsaved() const { return isUnsaved() || unsavedTexture(false) != nullptr; }

    /// Keeps what is unsaved in an entry of its own, at once, unless that holds it already; and
    /// likewise the texture editor's coordinates of a mesh that was in memory before.
    void keepNow(KeptBecause because);
    /// Keeps the texture editor's coordinates that Save Changes has not written.
    void keepTexture();

    /// Hands edits over without waiting for the timer.
    void keepEdits();

    /// The same as keepNow(); nothing is handed over afterwards.
    void end(KeptBecause because);

private:
    // What is told from what was kept last.
    struct State {
        std::uint64_t revision = 0;
        const ModelBase* text = nullptr;
        std::vector<double> u;
        std::vector<double> v;
        std::uint64_t losses = 0;  // the keeper's

        bool operator==(const State&) const = default;
    };

    // What an entry of its own holds.
    struct OwnEntry {
        State state;
        KeptBecause because = KeptBecause::Closed;
    };

    // The texture editor where it has coordinates that Save Changes has not written, of the mesh in
    // memory or of one that was there before; else null.
    const UVEditor* unsavedTexture(bool inMemory) const;
    bool isUnsaved() const;
    State state(bool inMemory) const;
    bool keepGoingOn(KeptBecause because);
    void keepOwn(KeptBecause because, bool inMemory);
    Snapshot snapshot(bool inMemory) const;

    const Editor& editor_;
    Keeper& keeper_;
    std::function<const UVEditor*()> texture_;
    QTimer* tmrKeep_;
    bool ended_ = false;
    // By the two kinds of edits that go on: in their entries, and in entries of their own.
    std::map<KeptBecause, State> editsKept_;
    std::map<KeptBecause, OwnEntry> ownKept_;
};

}  // namespace corvane
