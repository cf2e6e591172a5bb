#pragma once

#include "composition/ItemRules.h"
#include "composition/LineRules.h"

#include <utility>

// How what is composed stands in tables: rows of items, of make elements and of complete parts, told apart by the
// numbers of owner and item.

// The members of a record that hold the cells of a row, by their columns.
template <class Record> using CellMembers = QList<std::pair<int, QString Record::*>>;

// `number` is the item's number, in a line record the number of the item that it belongs to.
template <class Record> struct ItemRecord {
    QString Record::*owner;
    QString Record::*number;
    CellMembers<Record> cells;
};

template <class Record> struct LineRecord {
    QString Record::*owner;
    QString Record::*itemNumber;
    QString Record::*number;
    CellMembers<Record> cells;
};

namespace CompositionRecords {

// Records of all owners name their cells alike; what differs are the numbers, and the prices of make elements.
template <class Row> ItemRecord<Row> itemRecord(QString Row::*owner, QString Row::*number) {
    return {owner,
            number,
            {{ItemRules::Item, &Row::Item},
             {ItemRules::PickKbn, &Row::PickKbn},
             {ItemRules::Name, &Row::Name},
             {ItemRules::Form, &Row::Form},
             {ItemRules::PickStyle, &Row::PickStyle},
             {ItemRules::GrantRepair, &Row::GrantRepair}}};
}

// `prices` holds the amounts of the tiers.
template <class Row>
LineRecord<Row> makeRecord(QString Row::*owner, QString Row::*itemNumber, const CellMembers<Row>& prices) {
    return {owner, itemNumber, &Row::ElmtNo,
            CellMembers<Row>{{MakeLine::MakeElmt, &Row::MakeElmt},
                             {MakeLine::Materials, &Row::Materials},
                             {MakeLine::Suryo, &Row::Suryo}} +
                prices};
}

template <class Row> LineRecord<Row> partsRecord(QString Row::*owner, QString Row::*itemNumber) {
    return {owner,
            itemNumber,
            &Row::ElmtNo,
            {{PartsLine::PartsNm, &Row::PartsNm},
             {PartsLine::Form, &Row::Form},
             {PartsLine::PartsCd, &Row::PartsCd},
             {PartsLine::MakerNm, &Row::MakerNm},
             {PartsLine::Suryo, &Row::Suryo},
             {PartsLine::Price, &Row::Price}}};
}

template <class Record> Cells cellsOf(const Record& record, const CellMembers<Record>& members, int columns) {
    Cells cells(columns);
    for (const auto& [column, member] : members) cells[column] = record.*member;
    return cells;
}

template <class Record> void setCells(Record& record, const CellMembers<Record>& members, const Cells& cells) {
    for (const auto& [column, member] : members) record.*member = cells.at(column);
}

// The items in the order of the records, each with the lines that carry its number. Lines of no item are left out.
template <class Item, class Make, class Parts>
Composition compose(const QList<Item>& items, const ItemRecord<Item>& itemRecord, const QList<Make>& make,
                    const LineRecord<Make>& makeRecord, const QList<Parts>& parts, const LineRecord<Parts>& partsRecord,
                    int tiers) {
    const auto linesOf = [](const auto& records, const auto& form, const QString& number, int columns) {
        QList<Cells> lines;
        for (const auto& record : records)
            if (record.*form.itemNumber == number) lines << cellsOf(record, form.cells, columns);
        return lines;
    };
    Composition composition;
    for (const Item& item : items) {
        const QString number = item.*itemRecord.number;
        composition.add({0, cellsOf(item, itemRecord.cells, ItemRules::Columns),
                         linesOf(make, makeRecord, number, makeRules().columns(tiers)),
                         linesOf(parts, partsRecord, number, partsRules().columns(1))});
    }
    return composition;
}

// Which items are stored; they are numbered from 1.
using IsStored = bool (*)(const ComposedItem&);
inline bool isUsable(const ComposedItem& item) { return item.isUsable(); }

template <class Record>
QList<Record> itemsOf(const Composition& composition, const ItemRecord<Record>& form, const QString& owner,
                      IsStored isStored = isUsable) {
    QList<Record> records;
    for (const ComposedItem& item : composition.items()) {
        if (!isStored(item)) continue;
        Record record;
        record.*form.owner = owner;
        record.*form.number = QString::number(records.size() + 1);
        setCells(record, form.cells, item.cells);
        records << record;
    }
    return records;
}

// Their lines of one kind, numbered from 1 within each item.
template <class Record>
QList<Record> linesOf(const Composition& composition, ItemLines lines, const LineRecord<Record>& form,
                      const QString& owner, IsStored isStored = isUsable) {
    QList<Record> records;
    int itemNumber = 0;
    for (const ComposedItem& item : composition.items()) {
        if (!isStored(item)) continue;
        ++itemNumber;
        int number = 0;
        for (const Cells& cells : item.*lines) {
            Record record;
            record.*form.owner = owner;
            record.*form.itemNumber = QString::number(itemNumber);
            record.*form.number = QString::number(++number);
            setCells(record, form.cells, cells);
            records << record;
        }
    }
    return records;
}

} // namespace CompositionRecords
