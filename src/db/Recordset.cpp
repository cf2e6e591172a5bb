#include "db/RecordsetStream.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Numbers.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSqlField>
#include <QSqlRecord>

namespace {

// The one text form of a number: no exponent, no zeros behind, at most ten decimals (means differ behind those).
QString plainNumber(const QString& text) {
    const qsizetype point = text.indexOf(u'.');
    if (point < 0 || text.contains(u'e', Qt::CaseInsensitive)) {
        return text.contains(u'e', Qt::CaseInsensitive) ? numberText(text.toDouble()) : text;
    }
    if (text.size() - point > 11) return numberText(text.toDouble());
    QString trimmed = text;
    while (trimmed.endsWith(u'0')) trimmed.chop(1);
    if (trimmed.endsWith(u'.')) trimmed.chop(1);
    return trimmed == u"-0" ? u"0"_qs : trimmed;
}

QString shortestNumber(double value) {
    return plainNumber(QString::number(value, 'f', QLocale::FloatingPointShortest));
}

// A date as the file engine keeps it: with a time, its hour has two digits.
bool isKeptMoment(const QString& text) {
    static const QRegularExpression form(u"^\\d{4}/\\d{2}/\\d{2} \\d{2}:\\d{2}:\\d{2}$"_qs);
    return text.size() == 19 && form.match(text).hasMatch();
}

} // namespace

Recordset::Stream::Stream(QSqlQuery query) : m_query(std::move(query)) {
    const QSqlRecord record = m_query.record();
    for (int i = 0; i < record.count(); ++i) {
        m_fields << record.fieldName(i);
        m_index.insert(record.fieldName(i).toLower(), i);
        const Schema::Table* table = Schema::table(record.field(i).tableName());
        const Schema::Column* column = table ? table->column(record.fieldName(i)) : nullptr;
        m_mayBeDate << (!column || column->isDate());
        m_isDecimal << (record.field(i).metaType().id() == QMetaType::Double);
    }
}

bool Recordset::Stream::next() {
    if (m_buffered) {
        if (m_rows.isEmpty() && m_error.isValid()) raise(m_error);
        if (m_rows.isEmpty()) return false;
        m_row = m_rows.takeFirst();
    } else {
        if (!m_query.next()) {
            if (m_query.lastError().isValid()) raise(m_query.lastError());
            return false;
        }
        m_row = currentRow();
    }
    ++m_position;
    return true;
}

QVariantList Recordset::Stream::currentRow() const {
    QVariantList row;
    row.reserve(m_fields.size());
    for (int i = 0; i < m_fields.size(); ++i) row << m_query.value(i);
    return row;
}

void Recordset::Stream::buffer() {
    if (m_buffered) return;
    while (m_query.next()) m_rows << currentRow();
    m_error = m_query.lastError();
    m_buffered = true;
    m_query.finish();
}

void Recordset::Stream::detach() {
    buffer();
    onError = nullptr;
}

void Recordset::Stream::raise(const QSqlError& error) const {
    if (onError) onError(error);
    throw AppError(u"データベースの処理に失敗しました。\n"_qs + error.databaseText().trimmed(), u"Recordset"_qs);
}

int Recordset::Stream::indexOf(const QString& field) const {
    const auto found = m_index.constFind(field.toLower());
    if (found == m_index.constEnd()) throw AppError(u"項目 %1 が見つかりません。"_qs.arg(field), u"Recordset"_qs);
    return *found;
}

QString Recordset::Stream::text(int index) const {
    const QVariant value = m_row.value(index);
    if (value.isNull()) return {};
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? u"1"_qs : u"0"_qs;
    case QMetaType::Double:
        return shortestNumber(value.toDouble());
    case QMetaType::QDateTime:
        return dateText(value.toDateTime());
    case QMetaType::QDate:
        return dateText(value.toDate());
    default:
        break;
    }
    const QString text = value.toString();
    if (m_isDecimal.at(index)) return plainNumber(text);
    if (m_mayBeDate.at(index) && isKeptMoment(text)) return dateText(*parseDate(text));
    return text;
}

bool Recordset::Stream::isNull(int index) const { return m_row.value(index).isNull(); }

Recordset::Recordset() = default;
Recordset::Recordset(std::shared_ptr<Stream> stream) : m_stream(std::move(stream)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

bool Recordset::next() { return m_stream && m_stream->next(); }

QString Recordset::value(const QString& field) const { return m_stream->text(m_stream->indexOf(field)); }

QString Recordset::value(int index) const { return m_stream->text(index); }

int Recordset::indexOf(const QString& field) const { return m_stream->indexOf(field); }

bool Recordset::isNull(const QString& field) const { return m_stream->isNull(m_stream->indexOf(field)); }

bool Recordset::isNull(int index) const { return m_stream->isNull(index); }

const QStringList& Recordset::fields() const { return m_stream->fields(); }

qint64 Recordset::position() const { return m_stream ? m_stream->position() : 0; }
