#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class QSqlQuery;

// The rows of one query, read forward. Fields are read by name (case-blind) or position, as text: a date as
// "2005/03/01" with " 9:05:00" behind it when it has a time, an amount as its plain decimal, NULL as the empty text.
class Recordset {
public:
    Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    // Moves to the next row, at first to the first; false behind the last.
    bool next();
    QString value(const QString& field) const; // raises an error for a field that the query does not have
    QString value(int index) const;
    int indexOf(const QString& field) const; // likewise
    bool isNull(const QString& field) const;
    bool isNull(int index) const;
    const QStringList& fields() const;
    // How many rows were read so far.
    qint64 position() const;

private:
    friend class Connection;
    struct Stream;
    explicit Recordset(std::shared_ptr<Stream> stream);

    std::shared_ptr<Stream> m_stream;
};
