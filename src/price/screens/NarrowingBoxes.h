#pragma once

#include "db/SqlText.h"
#include "ui/basControlUtil.h"

#include <QObject>
#include <QStringList>

class ChoiceBox;
class PriceTable;

// Boxes for columns of a price table, each of which offers what those before it leave over. A text counts as it is
// typed; a part of one will do.
class NarrowingBoxes : public QObject {
    Q_OBJECT

public:
    // A choice that is taken takes those behind it back when `clearing`.
    NarrowingBoxes(QList<ChoiceBox*> boxes, ListHead head, bool clearing, QObject* parent);

    // Stands for other columns from now on, one for each of the first boxes; nothing is chosen.
    void setTable(PriceTable& table, const QStringList& columns);
    // Offers anew what the table holds now. The texts stay.
    void fill();
    // Shows other texts, one for each column.
    void setTexts(const QStringList& texts);
    // What the texts ask for.
    SqlTerm filter() const { return filterAhead(static_cast<int>(m_columns.size())); }

signals:
    // Another text counts.
    void changed();

private:
    void take(int place);
    void fillFrom(int place);
    SqlTerm filterAhead(int place) const;

    QList<ChoiceBox*> m_boxes;
    QStringList m_columns;
    QStringList m_taken; // the texts that count
    PriceTable* m_table = nullptr;
    ListHead m_head;
    bool m_clearing;
    bool m_filling = false;
};
