#pragma once

#include "ui/GridColumn.h"

#include <QHash>
#include <QStyledItemDelegate>

class ChoiceBox;

// How the open list of a grid's cell looks: what an entry tells besides its text stands in columns below each other,
// numbers to the right. It is as wide as its longest entry, up to the display, whatever the width of the cell.
class EntryList : public QStyledItemDelegate {
public:
    // Gives the list that drops down, and the one that offers what fits to the typed text, this look.
    static void dress(ChoiceBox* box, const GridEntries& entries);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    EntryList(const GridEntries& entries, QObject* parent);
    int width() const;

    QHash<QString, QStringList> m_parts; // by the whole text
    QList<int> m_widths;                 // of the columns, in pixels
};
