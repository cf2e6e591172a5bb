#include "price/PriceImport.h"

#include "base/AppError.h"
#include "base/Dates.h"
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

qint64 countLines(const QString& path) {
    QFile file(path);
    open(file);
    qint64 lines = 0;
    for (PriceFiles::Reader line(file); line.next();) ++lines;
    return lines;
}

class Import {
public:
    Import(PriceTable& table, Connection& prices, QString path, qint64 ownRows,
           const std::function<void(qint64, qint64)>& progress)
        : m_table(table), m_prices(prices), m_path(std::move(path)), m_ownRows(ownRows), m_progress(progress) {}

    void run() {
        try {
            m_table.empty();
            writeLog(m_path + u" Open"_qs);
            writeLog(u"取り込み開始："_qs + loggedName(m_table.name()));
            m_all = countLines(m_path) + m_ownRows;
            takeLines();
            m_progress(m_all, m_all);
            writeLog(u"取り込み終了：%1 %2件"_qs.arg(loggedName(m_table.name())).arg(m_all));
        } catch (const AppError& error) {
            writeLog(u"%1 (%2)"_qs.arg(error.description()).arg(error.number()));
            writeLog(m_path + u"取り込みエラー： %1行目"_qs.arg(m_line));
            ReportError();
        }
    }

private:
    void takeLines() {
        QFile file(m_path);
        open(file);
        RowWriter rows(m_table, m_prices);
        qint64 done = 0;
        for (PriceFiles::Reader line(file); line.next();) {
            m_line = line.number();
            if (line.fields().size() != PriceFiles::fieldCount(m_table.name()))
                ShowMessage(Message::Warning, u"%1行目のデータ形式が違います。処理を終了します。"_qs.arg(m_line));
            try {
                rows.write(stamped(line.fields()));
            } catch (...) {
                rows.keepWritten();
                throw;
            }
            m_progress(++done, m_all);
        }
        rows.commit();
    }

    PriceRow stamped(const QStringList& fields) const {
        PriceRow row = PriceFiles::rowOf(m_table.name(), fields);
        row.insert(u"登録日"_qs, m_today);
        row.insert(u"更新日"_qs, m_today);
        return row;
    }

    PriceTable& m_table;
    Connection& m_prices;
    QString m_path;
    qint64 m_ownRows;
    const std::function<void(qint64, qint64)>& m_progress;
    const QString m_today = dateText(currentDate());
    qint64 m_all = 0;
    int m_line = 0;
};

} // namespace

void importPriceFile(PriceTable& table, Connection& prices, const QString& path, qint64 ownRows,
                     const std::function<void(qint64 done, qint64 all)>& progress) {
    Import(table, prices, path, ownRows, progress).run();
}
