#pragma once

#include "base/History.h"
#include "composition/Composition.h"

#include <QObject>

class Grid;
class QTabWidget;

// Takes back what was done to items and lines, step by step and on all pages of an editor, and does it again. What is
// done by one key, command or pasted block is one step.
class CompositionUndo : public QObject {
    Q_OBJECT

public:
    // `pages` are those that the grids stand on; the keys and menus of these get the commands.
    CompositionUndo(Composition& composition, QTabWidget* pages, const QList<Grid*>& grids);

    // After each change of the operator, as often as it likes.
    void note();
    // What stands there now is the beginning.
    void restart();

signals:
    // The composition is another one, and the page of the change in view: all pages are to be shown anew.
    void restored();

private:
    struct State {
        Composition composition;
        int page = 0; // where it was changed
    };

    void addCommands(Grid* grid);
    void put(const std::optional<State>& state);

    Composition& m_composition;
    QTabWidget* m_pages;
    Composition m_last; // as it stood behind the last step
    History<State> m_history;
    bool m_open = false; // the step goes on
};
