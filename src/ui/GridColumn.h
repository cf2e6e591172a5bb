#pragma once

#include "ui/Style.h"

#include <QList>
#include <QString>

// One entry of a cell's drop-down list: what the cell holds, what it shows, and what the open list tells besides.
struct GridEntry {
    QString value;
    QString shown;
    QString detail;

    // "#3;両" holds 3 and shows 両; any other text holds and shows itself.
    static GridEntry parse(const QString& text);
    QString listText() const { return detail.isEmpty() ? shown : shown + u'\u3000' + detail; }
};
using GridEntries = QList<GridEntry>;

// One column of a grid. Its place in the list given to the grid is its number.
struct GridColumn {
    enum Kind {
        Text,
        Number,    // right-aligned, shown with thousands separators, edited as a number
        Date,      // edited as a date
        Check,     // a tick box, "1" or "0"
        RowNumber, // 1, 2, 3 down the rows
    };

    // A column that is looked at, and what makes another of it.
    static GridColumn of(const QString& title, int width, Kind kind = Text) {
        GridColumn column;
        column.title = title;
        column.width = width;
        column.kind = kind;
        return column;
    }
    static GridColumn rowNumber() { return of({}, 2, RowNumber); }
    GridColumn typed() const { return with(&GridColumn::editable, true); }
    GridColumn takingAny() const { return with(&GridColumn::freeText, true); }
    GridColumn takingNumbers() const { return with(&GridColumn::numbersOnly, true); }
    GridColumn coded() const { return with(&GridColumn::narrow, true); }
    GridColumn inYen() const { return with(&GridColumn::wholeYen, true); }
    GridColumn unseen() const { return with(&GridColumn::hidden, true); }
    GridColumn grey() const { return with(&GridColumn::background, Style::computed); }
    GridColumn aligned(Qt::Alignment side) const { return with(&GridColumn::alignment, side); }
    GridColumn atMost(int characters) const { return with(&GridColumn::maxLength, characters); }

    QString title;
    int width = 10; // half-width characters
    Kind kind = Text;
    bool editable = false;
    bool hidden = false;
    // With a list: whether a text that is no entry is taken as typed.
    bool freeText = false;
    // With or without a list: whether a number beside it is taken, such as the key of a row, and nothing else.
    bool numbersOnly = false;
    // A code: typed letters and digits become half width.
    bool narrow = false;
    // An amount, shown in whole yen whatever it holds.
    bool wholeYen = false;
    int maxLength = 0; // characters of a typed text that are kept; 0 keeps all
    QColor background;
    Qt::Alignment alignment = Qt::AlignLeft; // of texts; the other kinds have their own
    GridEntries entries;

private:
    template <class Value> GridColumn with(Value GridColumn::*member, const Value& value) const {
        GridColumn column = *this;
        column.*member = value;
        return column;
    }
};
