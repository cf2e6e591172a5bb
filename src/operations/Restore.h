#pragma once

#include "operations/Backup.h"

// Puts a backup in the place of the office's database, on either engine.
namespace Restore {

// The copy is brought beside the database and proven there; then both change places in one step, so that there is a
// whole office at every moment. What was there is kept under the name that `keptName` gives. Raises an error, and
// changes nothing, when another program has the office open (their names are told), when the copy cannot be used, or
// when a step fails. The settings stay. This program has closed the office ahead.
Backup::Proof run(const ConnectionSettings& office, const QString& file, const Backup::Progress& progress = {});

// "…-before-restore" of the database: its file, or its name on the server.
QString keptName(const ConnectionSettings& office);

// What the operator is told of the programs that have the office open.
QString openElsewhere(const QStringList& machines);

} // namespace Restore
