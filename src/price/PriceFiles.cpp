#include "price/PriceFiles.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Text.h"
#include "db/Connection.h"
#include "db/clsSQLMaker.h"

namespace PriceFiles {

namespace {

struct FileForm {
    QString table;
    QString sampleName;
    QStringList columns;
};

const QList<FileForm>& forms() {
    const QStringList prices{u"新価格１"_qs, u"新価格２"_qs, u"新価格３"_qs,
                             u"旧価格１"_qs, u"旧価格２"_qs, u"旧価格３"_qs};
    const QStringList price{u"新価格"_qs, u"旧価格"_qs};
    static const QList<FileForm> list{
        {u"価格種目"_qs, u"Item.csv"_qs, {u"ID"_qs, u"種目"_qs, u"採型区分"_qs, u"名称"_qs, u"形式"_qs}},
        {u"価格基本"_qs, u"Base.csv"_qs,
         QStringList{u"ID"_qs, u"順番"_qs, u"種目"_qs, u"採型区分"_qs, u"名称"_qs, u"形式"_qs, u"適用"_qs,
                     u"採型採寸区分"_qs} +
             prices},
        {u"価格加算"_qs, u"Add.csv"_qs,
         QStringList{u"ID"_qs, u"順番"_qs, u"種目"_qs, u"採型区分"_qs, u"加算要素"_qs, u"交付修理区分"_qs} + price},
        {u"価格要素"_qs, u"Element.csv"_qs,
         QStringList{u"ID"_qs, u"順番"_qs, u"種目"_qs, u"採型区分"_qs, u"製作要素"_qs, u"原材料"_qs} + prices},
        {u"価格部品"_qs, u"Parts.csv"_qs,
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

} // namespace

int fieldCount(const QString& table) { return static_cast<int>(formOf(table).columns.size()); }

QString sampleName(const QString& table) { return formOf(table).sampleName; }

QList<QStringList> read(const QString& table, const QByteArray& bytes) {
    QList<QStringList> lines;
    QString text = Text::fromCp932(bytes);
    text.remove(u'\r').remove(u'"');
    int number = 0;
    for (const QString& line : text.split(u'\n')) {
        ++number;
        if (line.isEmpty()) continue;
        const QStringList fields = line.split(u',');
        if (fields.size() != fieldCount(table))
            throw AppError(u"%1行目のデータ形式が違います。処理を終了します。"_qs.arg(number), table);
        lines << fields;
    }
    return lines;
}

void importInto(Connection& connection, const QString& table, const QByteArray& bytes) {
    const QStringList columns = formOf(table).columns;
    clsSQLMaker sql;
    sql.Prepare(connection, table);
    for (const QStringList& fields : read(table, bytes)) {
        sql.RemoveAll();
        for (int i = 0; i < columns.size(); ++i) sql.AddData(columns.at(i), fields.at(i));
        sql.AddData(u"編集者No"_qs, QString::number(gUserNo));
        sql.AddData(u"有効Flg"_qs, u"0"_qs);
        connection.execute(sql.GetSqlForInsert());
    }
}

} // namespace PriceFiles
