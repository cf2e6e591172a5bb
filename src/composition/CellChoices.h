#pragma once

#include "composition/Composition.h"
#include "db/SqlText.h"

// One entry of a cell's drop-down list.
struct CellChoice {
    QString value;
    QString shown;
    QString detail; // what the open list tells besides
};
using CellChoices = QList<CellChoice>;

// The values of one member, each as an entry of its own.
template <class Record> CellChoices choicesOf(const QList<Record>& records, QString Record::*member) {
    CellChoices choices;
    for (const Record& record : records) choices << CellChoice{record.*member, record.*member, {}};
    return choices;
}

bool holds(const CellChoices& choices, const QString& value);

// Empties the cells from a column to the end of the row, or to a last one.
void clearFrom(Cells& row, int first, int last = -1);

// "[ID] = n" for a typed ID; nothing that a table can hold when it is no number.
SqlTerm isId(const QString& typed);
inline const QString byId = u"[ID]"_qs;
