#include "ui/ListScreen.h"

#include "base/basMessage.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QScopeGuard>

namespace {

constexpr int tellEvery = 100; // milliseconds

} // namespace

void ListScreen::whileBusy(const QString& word, const std::function<void(const Pause& pause)>& work) {
    const QString title = windowTitle();
    const QPointer<QWidget> focused = focusWidget(); // which a disabled window loses
    QElapsedTimer sinceTold;
    sinceTold.start();
    SetWaitCursor(true);
    m_busy = true;
    setEnabled(false);
    const auto end = qScopeGuard([&] {
        setEnabled(true);
        if (focused) focused->setFocus();
        m_busy = false;
        setWindowTitle(title);
        SetWaitCursor(false);
    });
    int parts = 0;
    work([&] {
        if (++parts > 1 && sinceTold.elapsed() > tellEvery) {
            setWindowTitle(title + u"  "_qs + word + QString(parts % 4, u'.'));
            seams().letEventsRun();
            sinceTold.restart();
        }
        return true;
    });
}

bool ListScreen::mayPrint(bool hasRows, bool toPrinter) {
    if (hasRows) return !toPrinter || ShowMessage(Message::AskPrint, {}) == AnswerYes;
    ShowMessage(Message::Missing, u"印刷対象データ"_qs);
    return false;
}
