#include "reports/ReportRecordset.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace {

constexpr int singlePrecisionDigits = 7;

QVariant converted(const ReportField& field, const QVariant& value) {
    if (value.isNull()) return {};
    if (field.type == ReportFieldType::Text) return Text::first(value.toString(), field.size);
    if (field.type == ReportFieldType::Date) {
        const auto moment = parseDate(value.toString());
        return moment ? QVariant(dateText(*moment)) : QVariant();
    }
    const bool isText = value.metaType().id() == QMetaType::QString;
    if (isText && value.toString().isEmpty()) return {};
    const double number = isText ? Val(value.toString()) : value.toDouble();
    if (field.type == ReportFieldType::Integer) return ToInt(number);
    if (field.type == ReportFieldType::Float) return QString::number(number, 'g', singlePrecisionDigits).toDouble();
    return number;
}

} // namespace

ReportRecordset::ReportRecordset(const QList<ReportField>& fields) {
    for (const ReportField& field : fields) AppendField(field.name, field.type, field.size);
}

void ReportRecordset::AppendField(const QString& name, ReportFieldType type, int size) {
    m_places.insert(name, m_fields.size());
    m_fields.append({name, type, size});
}

void ReportRecordset::AddNew() { m_rows.append(QVariantList(m_fields.size())); }

void ReportRecordset::Set(const QString& name, const QVariant& value) {
    const qsizetype place = placeOf(name);
    m_rows.last()[place] = converted(m_fields.at(place), value);
}

QVariant ReportRecordset::value(int row, const QString& name) const { return m_rows.at(row).at(placeOf(name)); }

qsizetype ReportRecordset::placeOf(const QString& name) const {
    const qsizetype place = m_places.value(name, -1);
    if (place < 0) throw AppError(u"帳票データに項目「%1」がありません。"_qs.arg(name), u"ReportRecordset"_qs);
    return place;
}
