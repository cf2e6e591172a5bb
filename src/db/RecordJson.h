#pragma once

#include "db/DraftSave.h"
#include "db/TableManager.h"

#include <QJsonArray>
#include <QJsonObject>

// Records as JSON, by the names of their columns, and what a draft remembers of its saves. Empty members are left out.
namespace RecordJson {

template <class Record> QJsonObject toJson(const QList<Field<Record>>& fields, const Record& record) {
    QJsonObject object;
    for (const Field<Record>& field : fields)
        if (const QString& text = record.*field.member; !text.isEmpty()) object[field.column] = text;
    return object;
}

template <class Record> Record fromJson(const QList<Field<Record>>& fields, const QJsonObject& object) {
    Record record;
    for (const Field<Record>& field : fields) record.*field.member = object[field.column].toString();
    return record;
}

template <class Item, class Convert> QJsonArray listToJson(const QList<Item>& items, Convert convert) {
    QJsonArray array;
    for (const Item& item : items) array << QJsonValue(convert(item));
    return array;
}

template <class Item, class Convert> QList<Item> listFromJson(const QJsonValue& array, Convert convert) {
    QList<Item> items;
    for (const QJsonValue& value : array.toArray()) items << convert(value);
    return items;
}

template <class Draft, class Convert> QJsonArray doubtToJson(const SaveDoubt<Draft>& doubt, Convert convert) {
    return listToJson(doubt.tries(), [&](const auto& attempt) {
        return QJsonObject{
            {u"before"_qs, convert(attempt.before)}, {u"after"_qs, convert(attempt.after)}, {u"sign"_qs, attempt.sign}};
    });
}

template <class Draft, class Convert> SaveDoubt<Draft> doubtFromJson(const QJsonValue& array, Convert convert) {
    SaveDoubt<Draft> doubt;
    for (const QJsonValue& attempt : array.toArray())
        doubt.remember({convert(attempt[u"before"].toObject()), convert(attempt[u"after"].toObject()),
                        attempt[u"sign"].toString()});
    return doubt;
}

} // namespace RecordJson
