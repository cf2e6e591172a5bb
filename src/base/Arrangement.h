#pragma once

#include <QJsonObject>
#include <QString>

// How an operator has arranged the work at this machine: sizes of windows, widths of columns, the orders opened last.
// It lives in a small file of the machine's own, readable by its owner alone, and never in the office's database: two
// machines of one office have two displays. Nothing hangs on it: without the file, or with one that is damaged, the
// screens stand as they were drawn, and a failure to write it goes to the log alone.
//
// Each subject keeps one object under a name of its own, a screen under that of the screen.
namespace Arrangement {

// Keeps everything from now on in this file. Empty, as at first: nothing is kept and nothing is given.
void keepIn(const QString& file);
// The file for the office of this program folder and database.
QString machineFile(const QString& database);

// What was kept under a name; empty when nothing was.
QJsonObject of(const QString& name);
void keep(const QString& name, const QJsonObject& object);

// The same until the program ends, for what would be in the way tomorrow.
QJsonObject ofSession(const QString& name);
void keepForSession(const QString& name, const QJsonObject& object);
// Forgets what was kept for a session; a new one begins.
void beginSession();

} // namespace Arrangement
