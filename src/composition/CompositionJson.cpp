#include "composition/CompositionJson.h"

#include "composition/ItemRules.h"
#include "composition/LineRules.h"

#include <QJsonObject>

namespace {

QJsonArray linesToJson(const QList<Cells>& lines) {
    QJsonArray array;
    for (const Cells& line : lines) array << QJsonValue(QJsonArray::fromStringList(line));
    return array;
}

Cells cellsFromJson(const QJsonValue& value, int columns) {
    Cells cells;
    for (const QJsonValue& cell : value.toArray()) cells << cell.toString();
    cells.resize(columns);
    return cells;
}

QList<Cells> linesFromJson(const QJsonValue& array, int columns) {
    QList<Cells> lines;
    for (const QJsonValue& line : array.toArray()) lines << cellsFromJson(line, columns);
    return lines;
}

} // namespace

QJsonArray compositionToJson(const Composition& composition) {
    QJsonArray array;
    for (const ComposedItem& item : composition.items())
        array << QJsonObject{{u"cells"_qs, QJsonArray::fromStringList(item.cells)},
                             {u"make"_qs, linesToJson(item.make)},
                             {u"parts"_qs, linesToJson(item.parts)}};
    return array;
}

Composition compositionFromJson(const QJsonArray& array, int tiers) {
    Composition composition;
    for (const QJsonValue& item : array)
        composition.add({0, cellsFromJson(item[u"cells"], ItemRules::Columns),
                         linesFromJson(item[u"make"], makeRules().columns(tiers)),
                         linesFromJson(item[u"parts"], partsRules().columns(1))});
    return composition;
}
