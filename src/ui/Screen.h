#pragma once

#include "ui/NormalCursor.h"
#include "ui/basFormUtil.h"

#include <QDialog>

#include <functional>

class QAbstractButton;
class QTabWidget;

// The ground of every screen. It is opened in fixed steps, which `openScreen` takes: input properties, load, `Loaded`,
// the modal run, output properties, release.
//
// Return goes to the next field and Shift+Return back; on a button Return presses it. Button, frame and Escape close
// the screen the same way, through `queryUnload`.
class Screen : public QDialog {
    Q_OBJECT

public:
    explicit Screen(QWidget* parent = nullptr);

    // False until the load has run to its end.
    bool Loaded = false;
    // Restores the position and runs `load`. A failure is reported and leaves `Loaded` false, which it returns.
    bool Load();

    void reject() override { close(); }

protected:
    // Fills the screen; it may raise.
    virtual void load() = 0;
    // Whether the screen may close. Asked for every way to close it.
    virtual bool queryUnload() { return true; }

    // Runs the work of a button; a failure ends in `ReportError` and the screen stays as it was.
    void onClick(QAbstractButton* button, std::function<void()> work);
    // Work of the Return key in a field, before the focus moves on.
    void onReturn(QWidget* field, std::function<void()> work);
    // Alt+1, Alt+2 and so on turn the pages, as the captions themselves have no letter.
    void turnPagesByKeys(QTabWidget* pages);
    // Settles the field or cell in which the operator is typing. False when an entry of the screen is wrong, which was
    // told and has the focus.
    bool leaveField();

    InputWrappers wrappers;

    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeReturn(bool forwards);
    void goToNextField(bool forwards);
    bool endCellEdit();
    bool mayClose();

    QHash<QWidget*, std::function<void()>> m_returnWork;
};

// Opens a screen modally: `prepare` sets its input properties, `read` takes its output properties after the run. False
// when it could not load; that was reported already.
template <class S, class Prepare, class Read> bool openScreen(QWidget* parent, Prepare prepare, Read read) {
    S screen(parent);
    prepare(screen);
    if (!screen.Load()) return false;
    const NormalCursor cursor;
    screen.exec();
    read(screen);
    return true;
}

template <class S> bool openScreen(QWidget* parent) {
    return openScreen<S>(
        parent, [](S&) {}, [](S&) {});
}
