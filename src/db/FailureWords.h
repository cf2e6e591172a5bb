#pragma once

#include "db/ConnectionSettings.h"

class QSqlError;

// What an engine says of a failed statement, in the operator's words where it is one that an office can meet (a full
// disk, a file that went away); else the first line of the engine's own: the lines behind it may repeat what a row
// holds, and the log is no place for persons.
QString failureWords(Provider provider, const QSqlError& error);
