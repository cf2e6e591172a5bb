#pragma once

#include "base/basMessage.h"

#include <functional>

// How a screen closes the office for a while and opens it again; the start of the program knows.
struct OfficeSwitch {
    std::function<void()> close;
    std::function<void()> open;

    // Runs work while the office is closed, and opens it whatever becomes of the work. A failure of either is reported;
    // true when there was none.
    template <class Work> bool whileClosed(Work&& work) const {
        SetWaitCursor(true);
        close();
        const bool worked = guarded(work);
        const bool opened = guarded(open);
        SetWaitCursor(false);
        return worked && opened;
    }
};
