#pragma once

#include <QString>

// Every table with its columns, keys and indexes as a Markdown page, for `docs/tables.md`.
QString tableReference();
