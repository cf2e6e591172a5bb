#pragma once

#include "db/AskingOutside.h"
#include "db/Connection.h"

#include <QList>

#include <functional>
#include <memory>

// The save of a draft, which is what stands on a screen. A commit whose answer was lost and that could not be looked up
// at once is looked up ahead of the next try: what is stored is then written over, never stored a second time.
//
// A draft has a member `SaveDoubt<Draft> doubt`, and `takeIdentity(before, after)`, which takes over the numbers that a
// save drew when it made the draft `after` of the draft `before`.

// What a draft remembers of saves whose outcome it was not told. The copies of a draft share it, so that the next save
// knows of them whichever copy the screen goes on with; a draft of another thing starts with one of its own.
template <class Draft> class SaveDoubt {
public:
    struct Try {
        Draft before, after;
        QString sign; // of the commit
    };

    const QList<Try>& tries() const { return *m_tries; }
    void remember(Try attempt) {
        attempt.before.doubt = attempt.after.doubt = {}; // else it would hold itself
        *m_tries << std::move(attempt);
    }
    void forget() { m_tries->clear(); }

private:
    std::shared_ptr<QList<Try>> m_tries = std::make_shared<QList<Try>>();
};

namespace DraftSave {

// In the place of a CommitInDoubt, where the next try is safe.
[[noreturn]] void tellDoubt();

// Finds out what became of earlier saves, if any is in doubt. True when one was stored; the draft has its numbers then.
// Raises an error when that cannot be told yet.
template <class Draft> bool settle(Connection& connection, Draft& draft) {
    const auto& tries = draft.doubt.tries();
    try {
        for (auto attempt = tries.rbegin(); attempt != tries.rend(); ++attempt) {
            if (!connection.wasCommitted(attempt->sign)) continue;
            draft.takeIdentity(tries.first().before, attempt->after);
            return true;
        }
    } catch (const CommitInDoubt&) {
        tellDoubt();
    }
    return false;
}

// Runs `work` on a copy of the draft as AskingOutside does, and puts the copy in place of the draft once it is stored.
// False when the work was refused, which leaves the draft as it was, as a failure does. A screen that holds another
// copy has that take the identity of the saved one.
template <class Draft> bool run(Connection& connection, Draft& draft, const std::function<bool(Draft& saved)>& work) {
    Draft saved;
    try {
        const bool stored = AskingOutside::run(connection, [&] {
            saved = draft;
            saved.doubt = {};
            return work(saved);
        });
        if (!stored) return false;
    } catch (const CommitInDoubt& doubt) {
        draft.doubt.remember({draft, saved, doubt.sign()});
        tellDoubt();
    }
    draft.doubt.forget();
    draft = saved;
    return true;
}

} // namespace DraftSave
