#include "composition/screens/CompositionUndo.h"

#include "base/basMessage.h"
#include "ui/Grid.h"
#include "ui/GridPlaces.h"

#include <QAction>
#include <QTabWidget>

CompositionUndo::CompositionUndo(Composition& composition, QTabWidget* pages, const QList<Grid*>& grids)
    : QObject(pages), m_composition(composition), m_pages(pages) {
    for (Grid* grid : grids) addCommands(grid);
}

void CompositionUndo::addCommands(Grid* grid) {
    const std::optional<State> none;
    const auto command = [&](const QString& text, const QList<QKeySequence>& keys, auto work) {
        auto* action = new QAction(text, grid);
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetShortcut); // a cell that is being edited takes back its own letters
        connect(action, &QAction::triggered, this, [this, grid, work] {
            if (grid->isEnabled() && grid->endEdit()) guarded([&] { put(work()); });
        });
        grid->insertAction(grid->actions().value(0), action);
    };
    command(u"やり直し"_qs, {QKeySequence(u"Ctrl+Y"_qs), QKeySequence(u"Ctrl+Shift+Z"_qs)}, [=, this] {
        return m_history.mayRedo() ? m_history.redo({m_composition, m_history.redoable().page}) : none;
    });
    command(u"元に戻す"_qs, {QKeySequence(u"Ctrl+Z"_qs)}, [=, this] {
        return m_history.mayUndo() ? m_history.undo({m_composition, m_history.undoable().page}) : none;
    });
}

void CompositionUndo::note() {
    if (m_last == m_composition) return;
    if (!m_open) m_history.record({m_last, m_pages->currentIndex()});
    m_last = m_composition;
    m_open = true;
    QMetaObject::invokeMethod(
        this, [this] { m_open = false; }, Qt::QueuedConnection);
}

void CompositionUndo::restart() {
    m_history.clear();
    m_last = m_composition;
}

void CompositionUndo::put(const std::optional<State>& state) {
    if (!state) return;
    m_pages->setCurrentIndex(state->page);
    m_composition = m_last = state->composition;
    const GridPlaces places(m_pages);
    emit restored();
}
