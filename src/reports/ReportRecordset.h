#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

enum class ReportFieldType { Integer, Currency, Float, Text, Date };

struct ReportField {
    QString name;
    ReportFieldType type = ReportFieldType::Text;
    int size = 0; // characters, texts only
};

// The rows of one document, without a connection: fields are declared first, then rows are added and filled by name.
// It is what the data methods hand to the layouts. Amounts are yen; a value that was never set is null and prints as
// nothing. A field name that was not declared raises an error that names it.
class ReportRecordset {
public:
    ReportRecordset() = default;
    explicit ReportRecordset(const QList<ReportField>& fields);

    void AppendField(const QString& name, ReportFieldType type, int size = 0);
    const QList<ReportField>& fields() const { return m_fields; }
    bool hasField(const QString& name) const { return m_places.contains(name); }

    // Appends an empty row, which `Set` then fills.
    void AddNew();
    // Sets a field of the last row. A text is cut to the field's size; the empty text leaves a number null, and
    // what is no date a date. A date is kept as a text.
    void Set(const QString& name, const QVariant& value);

    int rowCount() const { return static_cast<int>(m_rows.size()); }
    bool isEmpty() const { return m_rows.isEmpty(); }
    QVariant value(int row, const QString& name) const;
    QString text(int row, const QString& name) const { return value(row, name).toString(); }

private:
    qsizetype placeOf(const QString& name) const;

    QList<ReportField> m_fields;
    QHash<QString, qsizetype> m_places;
    QList<QVariantList> m_rows;
};
