#pragma once

#include "ui/Screen.h"

// A screen that shows lists, and works on all of their rows at once: files, papers.
class ListScreen : public Screen {
    Q_OBJECT

public:
    using Screen::Screen;

protected:
    // Runs long work that says how far it is; the screen waits for its end. The work calls `pause` after each part, and
    // ends when that gives false: the operator has stopped it. False then.
    using Pause = std::function<bool()>;
    bool whileBusy(const QString& word, const std::function<void(const Pause& pause)>& work);

    // What every print command asks: that there are rows, which is told otherwise, and that paper is meant.
    static bool mayPrint(bool hasRows, bool toPrinter);

    bool queryUnload() override { return !m_busy; }

private:
    bool m_busy = false;
};
