#pragma once

#include "base/Paths.h"

#include <QString>

class clsProfile;

// The plain conversions that every subject shares beside those of `Dates` and `Numbers`.

// --- other texts ---

// 1234567 gives 123-4567; shorter than 4 signs or with a hyphen it stays.
QString FormatZip(const QString& text);
// Both texts with one ideographic blank between them; the second alone or the first alone without it.
QString JoinWithSpace(const QString& first, const QString& second);

// --- paths ---

// The database file of an installation, that of the program or another one; without a folder it stands beside the INI
// file.
QString GetDbFilePath();
QString GetDbFilePath(const clsProfile& profile);
QString GetDefaultBackupFolder();
QString GetBackupFolder();
// The root of the first mounted drive of a kind (see Drives.h): 2 a removable one, 5 a disc; empty when there is none.
QString FindDriveByType(int type);
// Opens a document by its association.
void OpenWithShell(const QString& path);
