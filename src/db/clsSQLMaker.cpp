#include "db/clsSQLMaker.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Money.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "db/Connection.h"
#include "db/SqlText.h"

namespace {

const QString addDate = u"登録日"_qs;
const QString updDate = u"更新日"_qs;

QString numberOf(const QString& text, Schema::TypeCode type) {
    switch (type) {
    case Schema::SmallInteger:
        return QString::number(ToInt16(text));
    case Schema::Integer:
        return QString::number(ToInt(text));
    case Schema::Currency:
        return Money::parse(text).toText();
    default:
        if (!isPlainNumber(text)) throw Errors::typeMismatch(u"clsSQLMaker"_qs);
        return text.startsWith(u'+') ? text.mid(1) : text;
    }
}

} // namespace

void clsSQLMaker::Prepare(Connection& connection, const QString& tableName) {
    m_table = Text::rightTrimmed(tableName);
    m_columns.clear();
    for (const Schema::Column& column : connection.columns(m_table)) m_columns.insert(column.name.toLower(), column);
    RemoveAll();
}

void clsSQLMaker::RemoveAll() {
    m_data.clear();
    m_keys.clear();
    m_addDateGiven = false;
    m_updDateGiven = false;
}

Schema::Column clsSQLMaker::columnOf(const QString& name) const { return m_columns.value(name.toLower()); }

void clsSQLMaker::AddData(const QString& name, const QString& value) {
    const Schema::Column column = columnOf(name);
    m_data << Entry{name, column.type == Schema::Text ? Text::first(value, column.size) : value, column.type};
    m_addDateGiven = m_addDateGiven || name == addDate;
    m_updDateGiven = m_updDateGiven || name == updDate;
}

void clsSQLMaker::AddKey(const QString& name, const QString& value) {
    m_keys << Entry{name, value, columnOf(name).type};
}

QString clsSQLMaker::rendered(const Entry& entry, bool isKey) {
    const QString text = Text::rightTrimmed(entry.value);
    if (text.isEmpty()) return u"NULL"_qs;
    switch (entry.type) {
    case Schema::SmallInteger:
    case Schema::Integer:
    case Schema::Double:
    case Schema::Currency:
        return numberOf(narrowNumber(text), entry.type);
    case Schema::Date:
        if (!isKey && text.toUpper().contains(u"NOW"_qs)) return u"NOW()"_qs;
        if (!parseDate(text)) throw Errors::typeMismatch(u"clsSQLMaker"_qs);
        return u'#' + text + u'#';
    default:
        return u'\'' + SqlQuote(text) + u'\'';
    }
}

QString clsSQLMaker::keyClause(const QList<Entry>& keys) {
    QStringList items;
    for (const Entry& key : keys) {
        const QString value = rendered(key, true);
        items << u'[' + key.name + (value == u"NULL" ? u"] IS NULL"_qs : u"] = "_qs + value);
    }
    return u" WHERE "_qs + items.join(u" AND "_qs);
}

QString clsSQLMaker::names() const {
    QStringList quoted;
    for (const Entry& entry : m_data) quoted << u'[' + entry.name + u']';
    return quoted.join(u", "_qs);
}

void clsSQLMaker::stamp(const QString& column, bool& given) {
    if (!given && m_columns.contains(column)) m_data << Entry{column, u"NOW"_qs, Schema::Date};
    given = true;
}

QString clsSQLMaker::GetSqlForInsert() {
    stamp(addDate, m_addDateGiven);
    stamp(updDate, m_updDateGiven);
    QString text = u"INSERT INTO "_qs + m_table;
    if (m_data.isEmpty()) return text;
    QStringList values;
    for (const Entry& entry : m_data) values << rendered(entry, false);
    return text + u" ("_qs + names() + u") VALUES ("_qs + values.join(u", "_qs) + u")"_qs;
}

QString clsSQLMaker::GetSqlForUpdate() {
    if (m_keys.isEmpty()) throw AppError(u"安全のため全件の更新には対応していません。"_qs, u"clsSQLMaker"_qs);
    stamp(updDate, m_updDateGiven);
    QStringList items;
    for (const Entry& entry : m_data) items << u'[' + entry.name + u"] = "_qs + rendered(entry, false);
    return u"UPDATE "_qs + m_table + u" SET "_qs + items.join(u", "_qs) + keyClause(m_keys);
}

QString clsSQLMaker::GetSqlForSelect() const {
    const QString head = m_data.isEmpty() ? u"*"_qs : names();
    return u"SELECT "_qs + head + u" FROM "_qs + m_table + (m_keys.isEmpty() ? QString() : keyClause(m_keys));
}

QString clsSQLMaker::GetSqlForDelete() const {
    if (m_keys.isEmpty()) throw AppError(u"安全のため全件の削除には対応していません。"_qs, u"clsSQLMaker"_qs);
    return u"DELETE FROM "_qs + m_table + keyClause(m_keys);
}
