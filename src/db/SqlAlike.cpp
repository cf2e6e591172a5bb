#include "db/SqlAlike.h"

#include "base/Spellings.h"

SqlTerm SqlContainsAlike(const SqlTerm& expression, const QString& text) {
    QList<SqlTerm> terms;
    for (const QString& spelling : spellings(text)) terms << SqlContains(expression, spelling);
    return terms.size() == 1 ? terms.first() : SqlAnyOf(terms);
}
