#include "reports/ReportSums.h"

#include "base/Numbers.h"

namespace {

QString plainNumber(const QVariant& value) {
    return value.metaType().id() == QMetaType::QString ? value.toString() : numberText(value.toDouble());
}

} // namespace

QVariant ReportSums::over(const QString& field, ReportSpan span) {
    const QList<Running>& down = running(field);
    const Running &before = down.at(span.first), &after = down.at(span.end);
    if (after.values == before.values) return {};
    return (after.sum - before.sum).toDouble();
}

const QList<ReportSums::Running>& ReportSums::running(const QString& field) {
    QList<Running>& down = m_running[field];
    if (!down.isEmpty()) return down;
    down.append(Running{});
    for (const ReportRow& row : m_rows) {
        Running next = down.last();
        const QVariant value = row.blank ? QVariant() : m_records.value(row.record, field);
        if (!value.toString().isEmpty()) next = {next.sum + Money::leadingNumber(plainNumber(value)), next.values + 1};
        down.append(next);
    }
    return down;
}
