#include "reports/MasterReports.h"

#include "base/Numbers.h"
#include "master/MasterTotals.h"
#include "reports/LineRows.h"
#include "reports/ReportClasses.h"
#include "reports/ReportText.h"

namespace {

using LineRows::Values;

constexpr int codeSize = 20;

ReportRecordset sheetRecordset() {
    using enum ReportFieldType;
    static const QList<ReportField> fields{{u"ProductId"_qs, Text, 12},  {u"ProductCd"_qs, Text, codeSize},
                                           {u"ProductNm"_qs, Text, 50},  {u"Elmt"_qs, Text, 20},
                                           {u"Item"_qs, Text, 18},       {u"PickKbn"_qs, Text, 12},
                                           {u"Name"_qs, Text, 20},       {u"PickStyle"_qs, Text, 4},
                                           {u"Materials"_qs, Text, 50},  {u"PartsForm"_qs, Text, 34},
                                           {u"MakerNm"_qs, Text, 16},    {u"PartsCd"_qs, Text, 16},
                                           {u"SumTitle"_qs, Text, 10},   {u"Suryo"_qs, Currency},
                                           {u"Unit"_qs, Currency},       {u"Price"_qs, Currency},
                                           {u"PriceSmall"_qs, Currency}, {u"PriceMiddle"_qs, Currency},
                                           {u"PriceBig"_qs, Currency}};
    return ReportRecordset(fields);
}

ReportRecordset listRecordset() {
    using enum ReportFieldType;
    static const QList<ReportField> fields{{u"ProductCd"_qs, Text, codeSize},
                                           {u"ProductNm"_qs, Text, 50},
                                           {u"PriceBig"_qs, Currency},
                                           {u"PriceMiddle"_qs, Currency},
                                           {u"PriceSmall"_qs, Currency}};
    return ReportRecordset(fields);
}

Values headValues(const clsMstEstimate& master, double taxRate) {
    const MasterTotals totals = masterTotals(master, taxRate);
    return {{u"ProductCd"_qs, ReportText::shortened(master.ProductCd, codeSize)},
            {u"ProductNm"_qs, master.ProductNm},
            {u"PriceSmall"_qs, totals.small},
            {u"PriceMiddle"_qs, totals.middle},
            {u"PriceBig"_qs, totals.big}};
}

void addRow(ReportRecordset& records, const Values& values) {
    records.AddNew();
    for (const auto& [name, value] : values) records.Set(name, value);
}

// --- the sheet of one master estimate, told in the records of an estimate ---

clsCsItem asItem(const clsMstItem& item) {
    clsCsItem record;
    record.EstItemNo = item.ProductItemNo;
    record.Item = item.Item;
    record.PickKbn = item.PickKbn;
    record.Name = item.Name;
    record.PickStyle = item.PickStyle;
    return record;
}

clsCsMakeElmt asLine(const clsMstMakeElmt& line) {
    return {{}, line.ProductItemNo, line.ElmtNo, line.MakeElmt, line.Materials, line.Suryo, line.PriceBig};
}

clsCsCmpltElmt asLine(const clsMstCmpltElmt& line) {
    return {{},           line.ProductItemNo, line.ElmtNo, line.PartsNm, line.Form,
            line.MakerNm, line.PartsCd,       line.Suryo,  line.Price};
}

QList<Values> sheetLines(const MasterSource& master, const QHash<QString, QString>& pickStyles) {
    QList<clsCsItem> items;
    for (const clsMstItem& item : master.items) items << asItem(item);
    QList<Values> lines;
    double subtotal = 0;
    for (const clsMstMakeElmt& line : master.make) {
        lines << LineRows::makeLine(asLine(line), items, pickStyles);
        subtotal += Val(line.PriceBig);
    }
    if (!master.make.isEmpty()) lines << LineRows::subtotal(subtotal);
    if (master.parts.isEmpty()) return lines;
    lines << LineRows::partsHead();
    subtotal = 0;
    for (const clsMstCmpltElmt& line : master.parts) {
        lines << LineRows::partsLine(asLine(line));
        subtotal += Val(line.Price);
    }
    return lines << LineRows::subtotal(subtotal);
}

// --- the report classes ---

QString masterOf(const ReportRecordset& records, int row) { return records.text(row, u"ProductId"_qs); }

ReportSample sheetSample() {
    return {{{u"Elmt"_qs, u"Item"_qs, u"PickKbn"_qs, u"Name"_qs, u"PickStyle"_qs}, // basic price
             {u"Elmt"_qs, u"Materials"_qs},                                        // make element
             {u"Elmt"_qs, u"PartsForm"_qs, u"MakerNm"_qs, u"PartsCd"_qs},          // complete part
             {u"SumTitle"_qs}},
            {{u"ProductId"_qs, u"1"_qs}, {u"Suryo"_qs, u"9999.75"_qs}, {u"PrtDate"_qs, u"令和２８年１２月２８日"_qs}}};
}

} // namespace

ReportRecordset masterSheetRows(const QList<MasterSource>& masters, const QHash<QString, QString>& pickStyles,
                                double taxRate) {
    ReportRecordset records = sheetRecordset();
    for (const MasterSource& master : masters) {
        const Values head = headValues(master.header, taxRate) + Values{{u"ProductId"_qs, master.header.ProductId}};
        QList<Values> lines = sheetLines(master, pickStyles);
        if (lines.isEmpty()) lines << Values();
        for (const Values& line : lines) addRow(records, head + line);
    }
    return records;
}

ReportRecordset masterListRows(const QList<clsMstEstimate>& masters, double taxRate) {
    ReportRecordset records = listRecordset();
    for (const clsMstEstimate& master : masters) addRow(records, headValues(master, taxRate));
    return records;
}

QList<ReportClass> masterReports() {
    const auto sheetTitle = [](const ReportRecordset& records, const ReportParameters&) {
        return u"マスタ見積 %1"_qs.arg(records.text(0, u"ProductCd"_qs)).trimmed();
    };
    const auto listTitle = [](const ReportRecordset&, const ReportParameters&) { return u"マスタ見積一覧"_qs; };
    return {{u"repMstEstimate"_qs, sheetRecordset, ReportRowPlan::List, masterOf, printDayHeader, sheetTitle,
             sheetSample()},
            {u"repMstEstList"_qs,
             listRecordset,
             ReportRowPlan::List,
             nullptr,
             printDayHeader,
             listTitle,
             {{}, {{u"PrtDate"_qs, u"令和２８年１２月２８日"_qs}}}}};
}
