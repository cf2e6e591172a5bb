#include "ui/ListScreen.h"

#include "base/basMessage.h"
#include "ui/BusyPanel.h"

#include <QScopeGuard>

bool ListScreen::whileBusy(const QString& word, const std::function<void(const Pause& pause)>& work) {
    SetWaitCursor(true);
    m_busy = true;
    const auto end = qScopeGuard([this] {
        m_busy = false;
        SetWaitCursor(false);
    });
    BusyPanel panel(this, word);
    work([&panel] { return panel.goesOn(); });
    return !panel.isStopped();
}

bool ListScreen::mayPrint(bool hasRows, bool toPrinter) {
    if (hasRows) return !toPrinter || ShowMessage(Message::AskPrint, {}) == AnswerYes;
    ShowMessage(Message::Missing, u"印刷対象データ"_qs);
    return false;
}
