#pragma once

#include "base/Text.h"

// The laws of an estimate's claims as lists show them.
struct ListedLaws {
    QString shown;         // the first two signs of each name, joined by commas
    bool excluded = false; // one of them is among the exclusions

    void add(const QString& name, const QString& exclusions) {
        if (!shown.isEmpty()) shown += u',';
        shown += Text::first(name, 2);
        excluded = excluded || (!name.isEmpty() && exclusions.contains(name));
    }
};
