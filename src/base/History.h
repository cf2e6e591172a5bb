#pragma once

#include <QList>

#include <optional>

// What can be taken back, and taken back again: states of something that is edited, the last ones of many.
template <class State> class History {
public:
    static constexpr int steps = 100;

    // Before a change. What was taken back until now is gone.
    void record(const State& before) {
        m_redo.clear();
        push(m_undo, before);
    }
    // The state before the last change, given that of now; nothing when there is none.
    std::optional<State> undo(const State& now) { return move(m_undo, m_redo, now); }
    // The state that was taken back last.
    std::optional<State> redo(const State& now) { return move(m_redo, m_undo, now); }

    // What the next step back, or forth, leads to; only where there is one.
    const State& undoable() const { return m_undo.last(); }
    const State& redoable() const { return m_redo.last(); }
    bool mayUndo() const { return !m_undo.isEmpty(); }
    bool mayRedo() const { return !m_redo.isEmpty(); }
    void clear() { *this = {}; }

private:
    static void push(QList<State>& states, const State& state) {
        if (states.size() == steps) states.removeFirst();
        states << state;
    }
    static std::optional<State> move(QList<State>& from, QList<State>& to, const State& now) {
        if (from.isEmpty()) return std::nullopt;
        push(to, now);
        return from.takeLast();
    }

    QList<State> m_undo, m_redo;
};
