#include "price/PriceFiles.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "db/Connection.h"
#include "db/Schema.h"
#include "db/clsSQLMaker.h"

#include <QBitArray>
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>

namespace PriceFiles {

namespace {

constexpr qint64 subscriptError = 9;
constexpr QChar unreadable(0xFFFD);

struct FileForm {
    QString table;
    QString profileKey;
    QStringList columns;
};

const QList<FileForm>& forms() {
    const QStringList prices{u"新価格１"_qs, u"新価格２"_qs, u"新価格３"_qs,
                             u"旧価格１"_qs, u"旧価格２"_qs, u"旧価格３"_qs};
    const QStringList price{u"新価格"_qs, u"旧価格"_qs};
    static const QList<FileForm> list{
        {u"価格種目"_qs, u"Item"_qs, {u"ID"_qs, u"種目"_qs, u"採型区分"_qs, u"名称"_qs, u"形式"_qs}},
        {u"価格基本"_qs, u"Base"_qs,
         QStringList{u"ID"_qs, u"順番"_qs, u"種目"_qs, u"採型区分"_qs, u"名称"_qs, u"形式"_qs, u"適用"_qs,
                     u"採型採寸区分"_qs} +
             prices},
        {u"価格加算"_qs, u"Add"_qs,
         QStringList{u"ID"_qs, u"順番"_qs, u"種目"_qs, u"採型区分"_qs, u"加算要素"_qs, u"交付修理区分"_qs} + price},
        {u"価格要素"_qs, u"Element"_qs,
         QStringList{u"ID"_qs, u"順番"_qs, u"種目"_qs, u"採型区分"_qs, u"製作要素"_qs, u"原材料"_qs} + prices},
        {u"価格部品"_qs, u"Parts"_qs,
         QStringList{u"ID"_qs, u"種目"_qs, u"名称"_qs, u"形式"_qs, u"メーカ名"_qs, u"部品コード"_qs, u"使用設定"_qs,
                     u"使用設定文字"_qs, u"使用設定ダミー"_qs, u"備考"_qs} +
             price},
    };
    return list;
}

const FileForm& formOf(const QString& table) {
    for (const FileForm& form : forms())
        if (form.table == table) return form;
    throw AppError(u"%1 は価格の表ではありません。"_qs.arg(table), u"PriceFiles"_qs);
}

// --- faults ---

// Japanese text in UTF-8 reads as other text of the code page, too, but text of the code page hardly ever as UTF-8.
bool isUtf8(const QByteArray& line) {
    if (std::none_of(line.begin(), line.end(), [](char byte) { return static_cast<uchar>(byte) >= 0xE0; }))
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(line);
    return !decoder.hasError() && !text.isEmpty();
}

QString faultOfNumber(const Schema::Column& column, const QString& value) {
    if (value.isEmpty()) return {};
    if (!isPlainNumber(value)) return u"%1 が数字ではありません（%2）。"_qs.arg(column.name, value);
    const double limit = column.isInteger() ? lastId : largestPrice;
    return Val(value) < 0 || Val(value) > limit ? u"%1 が範囲を超えています（%2）。"_qs.arg(column.name, value)
                                                : QString();
}

QString faultOfValue(const Schema::Column& column, const QString& value) {
    if (column.isNumber()) return faultOfNumber(column, value);
    if (column.size == 0 || Text::first(value, column.size) == value) return {};
    return u"%1 が長すぎます（%2文字まで）。"_qs.arg(column.name).arg(column.size);
}

// Looks at the lines of one file; an ID counts once.
class Inspection {
public:
    explicit Inspection(const QString& table) : m_form(formOf(table)), m_schema(*Schema::table(table)) {}

    QStringList reasons(const Reader& line) {
        const QStringList& fields = line.fields();
        QStringList found;
        if (!line.isText()) found << u"文字コードが Shift_JIS ではありません。"_qs;
        if (fields.size() != m_form.columns.size())
            found << u"項目の数が違います（%1 のところ %2）。"_qs.arg(m_form.columns.size()).arg(fields.size());
        for (qsizetype i = 0; i < qMin(fields.size(), m_form.columns.size()); ++i)
            found << faultOfValue(*m_schema.column(m_form.columns.at(i)), fields.at(i));
        found << faultOfId(fields.value(0));
        found.removeAll({});
        return found;
    }

private:
    QString faultOfId(const QString& text) {
        if (text.isEmpty()) return u"ID がありません。"_qs;
        if (!isPlainNumber(text) || Val(text) < 0 || Val(text) > lastId) return {}; // told with the numbers
        return isNew(static_cast<int>(Val(text))) ? QString() : u"ID %1 が重複しています。"_qs.arg(Val(text));
    }

    bool isNew(int id) {
        if (id >= m_ids.size()) m_ids.resize(qMax<qsizetype>(id + 1, 2 * m_ids.size()));
        const bool known = m_ids.testBit(id);
        m_ids.setBit(id);
        return !known;
    }

    const FileForm& m_form;
    const Schema::Table& m_schema;
    QBitArray m_ids; // a bit for each ID, whatever the number of rows
};

QString faultOfFile(QIODevice& file) {
    if (file.size() == 0) return u"ファイルが空です。"_qs;
    const QByteArray head = file.peek(3);
    if (head.startsWith("\xEF\xBB\xBF")) return u"文字コードが UTF-8 です。Shift_JIS で保存し直してください。"_qs;
    if (head.startsWith("\xFF\xFE") || head.startsWith("\xFE\xFF"))
        return u"文字コードが UTF-16 です。Shift_JIS で保存し直してください。"_qs;
    return {};
}

} // namespace

int fieldCount(const QString& table) { return static_cast<int>(columnsOf(table).size()); }

const QStringList& columnsOf(const QString& table) { return formOf(table).columns; }

QString profileKey(const QString& table) { return formOf(table).profileKey; }

QString sampleName(const QString& table) { return profileKey(table) + u".csv"_qs; }

bool Reader::next() {
    while (!m_file.atEnd()) {
        const QByteArray line = m_file.readLine();
        QString text = Text::fromCp932(line);
        ++m_number;
        text.remove(u'\n').remove(u'\r');
        if (text.isEmpty()) continue;
        m_isText = !text.contains(unreadable) && !isUtf8(line);
        m_fields = text.remove(u'"').split(u',');
        return true;
    }
    return false;
}

PriceRow rowOf(const QString& table, const QStringList& fields) {
    const QStringList& columns = columnsOf(table);
    PriceRow row{{u"有効Flg"_qs, u"0"_qs}, {u"編集者No"_qs, QString::number(gUserNo)}};
    for (qsizetype i = 0; i < columns.size(); ++i) {
        if (i >= fields.size())
            throw AppError(u"インデックスが有効範囲にありません。"_qs, u"PriceFiles"_qs, subscriptError);
        row.insert(columns.at(i), fields.at(i));
    }
    return row;
}

QList<Fault> faultsOf(const QString& table, const QString& path, const std::function<void()>& pause) {
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {{name, 0, u"ファイルが読めません。"_qs + file.errorString()}};
    return faultsOf(table, name, file, pause);
}

QList<Fault> faultsOf(const QString& table, const QString& name, QIODevice& file, const std::function<void()>& pause) {
    if (const QString reason = faultOfFile(file); !reason.isEmpty()) return {{name, 0, reason}};
    QList<Fault> faults;
    Inspection inspection(table);
    for (Reader line(file); line.next();) {
        for (const QString& reason : inspection.reasons(line)) faults << Fault{name, line.number(), reason};
        if (pause) pause();
    }
    return faults;
}

QList<QStringList> read(const QString& table, const QByteArray& bytes) {
    QBuffer file;
    file.setData(bytes);
    file.open(QIODevice::ReadOnly);
    QList<QStringList> lines;
    for (Reader line(file); line.next();) {
        if (line.fields().size() != fieldCount(table))
            throw AppError(u"%1行目のデータ形式が違います。処理を終了します。"_qs.arg(line.number()), table);
        lines << line.fields();
    }
    return lines;
}

void importInto(Connection& connection, const QString& table, const QByteArray& bytes) {
    clsSQLMaker sql;
    sql.Prepare(connection, table);
    for (const QStringList& fields : read(table, bytes)) {
        const PriceRow row = rowOf(table, fields);
        sql.RemoveAll();
        for (auto value = row.cbegin(); value != row.cend(); ++value) sql.AddData(value.key(), value.value());
        connection.execute(sql.GetSqlForInsert());
    }
}

} // namespace PriceFiles
