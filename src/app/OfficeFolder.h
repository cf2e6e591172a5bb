#pragma once

#include <QString>
#include <QStringList>

// Which folder a run works in: its INI file, its log and what else belongs to an office.
//
// A program that is copied into the folder of an office works there, as it always did. One that is installed for all
// users of a machine has a folder that nobody may write to: it works in `~/Halvane`. `--office DIR` names another one.
struct OfficeFolder {
    QString path;
    bool isOwn = false; // apart from the program: one without an INI file is to be set up

    // Takes the option out of the words of a command line. Raises an error for one without a folder.
    static OfficeFolder of(QStringList& words);

    bool isSetUp() const;
    // The invented office that stands beside one that is not set up yet.
    OfficeFolder sample() const;
};
