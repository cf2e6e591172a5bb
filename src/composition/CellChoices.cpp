#include "composition/CellChoices.h"

#include "base/Numbers.h"

#include <algorithm>

bool holds(const CellChoices& choices, const QString& value) {
    return std::any_of(choices.begin(), choices.end(), [&](const CellChoice& choice) { return choice.value == value; });
}

void clearFrom(Cells& row, int first, int last) {
    const qsizetype end = last < 0 ? row.size() - 1 : last;
    for (qsizetype column = first; column <= end; ++column) row[column].clear();
}

SqlTerm isId(const QString& typed) {
    const QString id = narrowNumber(typed);
    return u"[ID] = "_qs + (isPlainNumber(id) && !id.contains(u'.') && id.size() < 10 ? id : u"-1"_qs);
}
