#pragma once

#include "db/SqlText.h"

// The condition that an expression has a text in it in any of its spellings; none for an empty text. A text of one
// spelling gives the same term as `SqlContains`.
SqlTerm SqlContainsAlike(const SqlTerm& expression, const QString& text);
