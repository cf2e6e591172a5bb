#pragma once

#include "estimates/EstimateRecords.h"

#include <QList>

// All lines of all items of an estimate; only one item's lines stand in a grid at a time. A line belongs to an item by
// the item's row number (from 1), which follows the row when it moves.
template <class Line> class ElementLines {
public:
    const QList<Line>& all() const { return m_lines; }
    void setAll(const QList<Line>& lines) { m_lines = lines; }
    void clear() { m_lines.clear(); }

    QList<Line> of(int itemNo) const {
        QList<Line> found;
        for (const Line& line : m_lines)
            if (numberOf(line) == itemNo) found << line;
        return found;
    }

    void replace(int itemNo, QList<Line> lines) {
        remove(itemNo);
        for (Line& line : lines) {
            line.EstItemNo = QString::number(itemNo);
            line.ElmtNo = u"0"_qs;
            m_lines << line;
        }
    }

    void remove(int itemNo) {
        m_lines.removeIf([itemNo](const Line& line) { return numberOf(line) == itemNo; });
    }

    // Every line takes the number that `newNumber` gives for its item; 0 drops the line.
    template <class NewNumber> void renumber(NewNumber newNumber) {
        for (Line& line : m_lines) line.EstItemNo = QString::number(newNumber(numberOf(line)));
        remove(0);
    }

    // The lines as a save stores them: by item, numbered from 1 within each item.
    QList<Line> stored(const QString& EstId) const {
        QList<Line> lines = m_lines;
        std::stable_sort(lines.begin(), lines.end(),
                         [](const Line& a, const Line& b) { return numberOf(a) < numberOf(b); });
        int item = 0;
        int number = 0;
        for (Line& line : lines) {
            number = numberOf(line) == item ? number + 1 : 1;
            item = numberOf(line);
            line.EstId = EstId;
            line.ElmtNo = QString::number(number);
        }
        return lines;
    }

private:
    static int numberOf(const Line& line) { return line.EstItemNo.toInt(); }

    QList<Line> m_lines;
};

struct EstimateLines {
    ElementLines<clsCsMakeElmt> make;
    ElementLines<clsCsCmpltElmt> parts;

    bool isEmpty() const { return make.all().isEmpty() && parts.all().isEmpty(); }

    void clear() {
        make.clear();
        parts.clear();
    }

    template <class NewNumber> void renumber(NewNumber newNumber) {
        make.renumber(newNumber);
        parts.renumber(newNumber);
    }
};
