#pragma once

#include "price/PriceTable.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class Connection;
class QIODevice;

// The yearly price files: text in code page 932, one record a line, fields separated by a comma, double quotes without
// meaning. The fields stand in the order of the table's record.
namespace PriceFiles {

// The rows of the files have IDs up to this one; those above are a user's own.
inline constexpr int lastId = 9000000;
// The largest price, in yen, that a field of the program takes.
inline constexpr qint64 largestPrice = 999'999'999;

// How many fields a line of a table's file has: 5, 14, 8, 12 or 12.
int fieldCount(const QString& table);
// The columns that the fields go to, in their order.
const QStringList& columnsOf(const QString& table);
// The key of section `Kakaku` that names a table's file: Item, Base, Add, Element or Parts.
QString profileKey(const QString& table);
// The file name under which the sample office keeps a table's file.
QString sampleName(const QString& table);

// Goes through a file line by line; of a file of any length no more than a line is held. A line ends with LF, with or
// without CR ahead of it, or with the file. Empty lines count, and are passed over.
class Reader {
public:
    explicit Reader(QIODevice& file) : m_file(file) {}

    // False behind the last line.
    bool next();
    int number() const { return m_number; } // from 1
    const QStringList& fields() const { return m_fields; }
    // Whether the bytes of the line are text of the code page.
    bool isText() const { return m_isText; }

private:
    QIODevice& m_file;
    int m_number = 0;
    QStringList m_fields;
    bool m_isText = true;
};

// The valid row of a line's fields; fields behind the last one count nothing. Raises a subscript error when one is
// missing.
PriceRow rowOf(const QString& table, const QStringList& fields);

// What is wrong with a file; line 0 stands for the file as a whole.
struct Fault {
    QString file;
    int line;
    QString reason;
};
// The faults of a table's file, in the order of its lines; nothing is written. `pause` is called after each line.
QList<Fault> faultsOf(const QString& table, const QString& path, const std::function<void()>& pause = {});
// The same of an open one.
QList<Fault> faultsOf(const QString& table, const QString& name, QIODevice& file,
                      const std::function<void()>& pause = {});

// The lines of a file; one with another number of fields raises an error that names its line.
QList<QStringList> read(const QString& table, const QByteArray& bytes);
// Inserts the lines of a file into a table as valid rows, IDs included.
void importInto(Connection& connection, const QString& table, const QByteArray& bytes);

} // namespace PriceFiles
