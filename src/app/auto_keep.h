// Hands what no save has written to the keeper: a while after an edit, and when it would be lost.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

#include "editor/editor.h"
#include "kept/keeper.h"
#include "uveditor/uv_state.h"

namespace corvane {

class AutoKeep : public QObject {
    Q_OBJECT

public:
    /// `texture` gives the texture editor's state, null while there is none. All of these outlive
    /// this object. The timer is a child of `parent`.
    AutoKeep(QObject* parent, const Editor& editor, Keeper& keeper,
             std::function<const UVState*()> texture);

    /// After anything that may have been an edit: looks at it a few seconds later.
    void noteState();

    /// Whether there is anything that no save has written, here or in the texture editor.
    bool isUnsaved() const;

    /// The texture editor's state where it has coordinates of the mesh in memory that Save Changes
    /// has not written; else null.
    const UVState* unsavedTexture() const;

    /// A snapshot of that, with the texture editor's coordinates; nothing where all is saved.
    std::optional<Snapshot> unsaved() const;

    /// Keeps what is unsaved in an entry of its own, at once, unless that holds it already.
    void keepNow(KeptBecause because);
    /// The same where the texture editor has coordinates that Save Changes has not written.
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

        bool operator==(const State&) const = default;
    };

    State state() const;

    const Editor& editor_;
    Keeper& keeper_;
    std::function<const UVState*()> texture_;
    QTimer* tmrKeep_;
    bool ended_ = false;
    State editsKept_;  // in the entry of edits that go on
    State ownKept_;    // in an entry of its own
};

}  // namespace corvane
