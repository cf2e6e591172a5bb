#include "price/PriceImport.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "db/Connection.h"
#include "price/PriceFiles.h"

#include <QFile>

#include <optional>

namespace {

// Writes rows in transactions of a moderate size.
class RowWriter {
public:
    RowWriter(PriceTable& table, Connection& connection) : m_table(table), m_connection(connection) { begin(); }

    void write(const PriceRow& row) {
        m_table.importRow(row);
        m_rows << row;
        if (m_rows.size() < rowsAtOnce) return;
        m_transaction->commit();
        begin();
    }

    void commit() { m_transaction->commit(); }

    // After a failure: of a transaction in which a statement failed the engine keeps nothing, so its rows are written
    // once more.
    void keepWritten() {
        const QList<PriceRow> rows = m_rows;
        begin();
        for (const PriceRow& row : rows) m_table.importRow(row);
        m_transaction->commit();
    }

private:
    static constexpr qsizetype rowsAtOnce = 500;

    void begin() {
        m_rows.clear();
        m_transaction.reset();
        m_transaction.emplace(m_connection);
    }

    PriceTable& m_table;
    Connection& m_connection;
    QList<PriceRow> m_rows; // of the open transaction
    std::optional<Transaction> m_transaction;
};

// The log names 加算 as it names 基本.
QString loggedName(const QString& table) { return table == u"価格加算" ? u"価格基本"_qs : table; }

void open(QFile& file) {
    if (!file.open(QIODevice::ReadOnly))
        throw AppError(file.fileName() + u"\n"_qs + u"ファイルが読めません。"_qs + file.errorString());
}

// Above are a user's own rows, which the file must not meet.
void refuseOwnNumber(const QString& id) {
    if (Val(id) > PriceFiles::lastId)
        throw AppError(u"ID %1 は価格データの番号（%2 まで）を超えています。"_qs.arg(id).arg(PriceFiles::lastId),
                       u"PriceImport"_qs);
}

PriceRow stamped(const QString& table, const QStringList& fields, const QString& today) {
    PriceRow row = PriceFiles::rowOf(table, fields);
    row.insert(u"登録日"_qs, today);
    row.insert(u"更新日"_qs, today);
    return row;
}

} // namespace

qint64 PriceFileReading::countLines() const {
    QFile file(m_path);
    open(file);
    qint64 lines = 0;
    for (PriceFiles::Reader line(file); line.next();) ++lines;
    return lines;
}

void PriceFileReading::run() {
    QFile file(m_path);
    open(file);
    const QString today = dateText(currentDate());
    RowWriter rows(m_table, m_prices);
    qint64 done = 0;
    for (PriceFiles::Reader line(file); line.next();) {
        m_line = line.number();
        if (line.fields().size() != PriceFiles::fieldCount(m_table.name())) onOtherForm(m_line);
        try {
            refuseOwnNumber(line.fields().value(0));
            rows.write(stamped(m_table.name(), line.fields(), today));
        } catch (...) {
            rows.keepWritten();
            throw;
        }
        onRow(++done);
    }
    rows.commit();
}

void importPriceFile(PriceTable& table, Connection& prices, const QString& path, qint64 ownRows,
                     const std::function<void(qint64 done, qint64 all)>& progress) {
    PriceFileReading reading(table, prices, path);
    reading.onOtherForm = [](int line) {
        ShowMessage(Message::Warning, u"%1行目のデータ形式が違います。処理を終了します。"_qs.arg(line));
    };
    try {
        table.empty();
        writeLog(path + u" Open"_qs);
        writeLog(u"取り込み開始："_qs + loggedName(table.name()));
        const qint64 all = reading.countLines() + ownRows;
        reading.onRow = [&](qint64 done) { progress(done, all); };
        reading.run();
        progress(all, all);
        writeLog(u"取り込み終了：%1 %2件"_qs.arg(loggedName(table.name())).arg(all));
    } catch (const AppError& error) {
        writeLog(u"%1 (%2)"_qs.arg(error.description()).arg(error.number()));
        writeLog(path + u"取り込みエラー： %1行目"_qs.arg(reading.line()));
        ReportError();
    }
}
