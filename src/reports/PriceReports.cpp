#include "reports/PriceReports.h"

#include "reports/ReportClasses.h"
#include "reports/ReportText.h"

namespace {

constexpr int whatSize = 110; // 種目, 名称, 形式, メーカ名 and 部品コード of a part, with the strokes between them
constexpr int codeSize = 20;
constexpr int nameSize = 60;
constexpr int noteSize = 30;

QList<ReportField> moveFields() {
    using enum ReportFieldType;
    return {{u"Tiers"_qs, Text, 8},
            {u"Before"_qs, Currency},
            {u"After"_qs, Currency},
            {u"Difference"_qs, Currency},
            {u"Percent"_qs, Text, 9}};
}

ReportRecordset changeRecordset() {
    using enum ReportFieldType;
    return ReportRecordset(
        QList<ReportField>{{u"Table"_qs, Text, 4}, {u"Kind"_qs, Text, 2}, {u"What"_qs, Text, whatSize}} + moveFields());
}

ReportRecordset moveRecordset() {
    using enum ReportFieldType;
    return ReportRecordset(QList<ReportField>{{u"Code"_qs, Text, codeSize},
                                              {u"Name"_qs, Text, nameSize},
                                              {u"Year"_qs, Text, 4},
                                              {u"Note"_qs, Text, noteSize}} +
                           moveFields());
}

void setMove(ReportRecordset& records, const QString& tiers, const PriceMove& move) {
    records.Set(u"Tiers"_qs, tiers);
    records.Set(u"Before"_qs, move.before);
    records.Set(u"After"_qs, move.after);
    records.Set(u"Difference"_qs, move.difference());
    records.Set(u"Percent"_qs, move.percent());
}

// The two lists that were compared.
ReportHeader changeHeader() {
    ReportHeader header = printDayHeader();
    header.values.insert(u"Lists"_qs, {});
    return header;
}

// And what the rows are.
ReportHeader moveHeader() {
    ReportHeader header = changeHeader();
    for (const QString& value : {u"Title"_qs, u"CodeHead"_qs, u"NameHead"_qs}) header.values.insert(value, {});
    return header;
}

ReportSample sample() {
    return {{},
            {{u"PrtDate"_qs, u"令和２８年１２月２８日"_qs},
             {u"Tiers"_qs, u"大人・中人"_qs},
             {u"Percent"_qs, u"-99999.9"_qs},
             {u"Title"_qs, u"価格の変わるマスタ見積"_qs},
             {u"CodeHead"_qs, u"製品コード"_qs},
             {u"NameHead"_qs, u"顧客・見積名称"_qs},
             {u"Lists"_qs, u"現在の価格（2028年度）　→　新しい価格データ"_qs}}};
}

} // namespace

ReportRecordset priceChangeRows(const QList<PriceChange>& changes) {
    ReportRecordset records = changeRecordset();
    for (const PriceChange& change : changes) {
        records.AddNew();
        records.Set(u"Table"_qs, priceTableWord(change.table));
        records.Set(u"Kind"_qs, change.kindName());
        records.Set(u"What"_qs, ReportText::shortened(change.what, whatSize));
        setMove(records, change.tiers, change.move);
    }
    return records;
}

ReportRecordset amountMoveRows(const QList<AmountMove>& moves) {
    ReportRecordset records = moveRecordset();
    for (const AmountMove& move : moves) {
        records.AddNew();
        records.Set(u"Code"_qs, ReportText::shortened(move.code, codeSize));
        records.Set(u"Name"_qs, ReportText::shortened(move.name, nameSize));
        records.Set(u"Year"_qs, move.year);
        records.Set(u"Note"_qs, ReportText::shortened(move.note, noteSize));
        setMove(records, move.tiers, move.move);
    }
    return records;
}

QList<ReportClass> priceReports() {
    // Of master estimates or of orders; the report as such is of both.
    const auto title = [](const ReportRecordset&, const ReportParameters& values) {
        const QString kind = values.value(u"Title"_qs);
        return kind.isEmpty() ? u"価格の変更で動く金額"_qs : kind;
    };
    ReportSample ofPrices = sample();
    for (const QString& value : {u"CodeHead"_qs, u"NameHead"_qs, u"Title"_qs}) ofPrices.longest.remove(value);
    return {{u"repPriceChange"_qs, changeRecordset, ReportRowPlan::List, nullptr, changeHeader,
             [](const ReportRecordset&, const ReportParameters&) { return u"価格の変更点"_qs; }, ofPrices},
            {u"repPriceMove"_qs, moveRecordset, ReportRowPlan::List, nullptr, moveHeader, title, sample()}};
}
