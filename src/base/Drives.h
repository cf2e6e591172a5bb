#pragma once

#include <QList>
#include <QString>

#include <functional>

// A mounted drive whose medium can be taken out. `FindDriveByType` chooses among them; any of them takes the place of a
// kind that is not there: what used to come on a floppy comes on a stick.
struct RemovableDrive {
    QString root; // its folder
    bool isDisc = false;
};

// The seam to the platform: what is mounted now, in the platform's order. Unfilled, there is none.
std::function<QList<RemovableDrive>()>& removableDrives();
