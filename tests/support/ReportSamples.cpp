#include "support/ReportSamples.h"

#include "reports/CsEstimateFields.h"

#include <algorithm>
#include <array>

#include <iconv.h>

namespace ReportSamples {

namespace {

using Values = QList<std::pair<QString, QVariant>>;

void addRow(ReportRecordset& records, const Values& header, const Values& row) {
    records.AddNew();
    for (const auto& [name, value] : header) records.Set(name, value);
    for (const auto& [name, value] : row) records.Set(name, value);
}

// Wide characters in an order that shows where a text was broken.
QString wide(int length) {
    static const QString pattern = u"義肢装具製作所東西南北春夏秋冬"_qs;
    QString text;
    while (text.size() < length) text += pattern;
    return text.left(length);
}

QVariant longestOf(const ReportField& field) {
    switch (field.type) {
    case ReportFieldType::Text:
        return wide(field.size);
    case ReportFieldType::Integer:
        return 99;
    case ReportFieldType::Float:
        return 9'876'543.0;
    case ReportFieldType::Currency:
        return 987'654'321;
    case ReportFieldType::Date:
        return u"2028/12/28"_qs;
    }
    return {};
}

// Whether a field stands in a row of one kind: those that some kind names stand in that kind alone.
bool standsIn(const ReportSample& sample, const QStringList& kind, const QString& field) {
    const bool named = std::any_of(sample.rows.begin(), sample.rows.end(),
                                   [&](const QStringList& other) { return other.contains(field); });
    return !named || kind.contains(field);
}

void addLongest(ReportRecordset& records, const ReportSample& sample, const QStringList& kind) {
    records.AddNew();
    const QList<ReportField> fields = records.fields();
    for (const ReportField& field : fields)
        if (standsIn(sample, kind, field.name))
            records.Set(field.name, sample.longest.contains(field.name) ? QVariant(sample.longest.value(field.name))
                                                                        : longestOf(field));
}

} // namespace

void addDocument(ReportRecordset& records, int askNo, int copy) {
    const Values header{
        {u"AskNo"_qs, askNo},
        {u"Copy"_qs, copy},
        {u"EstNo"_qs, u"R06-000123"_qs},
        {u"PrtDate"_qs, u"令和　６年１１月　３日"_qs},
        {u"PrtPrice"_qs, 312'540},
        {u"ClaimNm"_qs, u"横浜市長"_qs},
        {u"EstName"_qs, u"下腿義足（右）　修理"_qs},
        {u"CustNm"_qs, u"山田　太郎"_qs},
        {u"CustNo"_qs, u"0001234"_qs},
        {u"Zip"_qs, u"〒231-0017"_qs},
        {u"Pref"_qs, u"神奈川県"_qs},
        {u"City"_qs, u"横浜市中区"_qs},
        {u"Addr1"_qs, u"港町1-1"_qs},
        {u"Addr2"_qs, u"港町ハイツ 203"_qs},
        {u"Tel"_qs, u"電話番号：045-123-4567"_qs},
        {u"Sex"_qs, u"性別：男"_qs},
        {u"Birthday"_qs, u"生年月日：昭和 31 年 5 月 14 日"_qs},
        {u"FamilyType"_qs, u"本人区分：本人"_qs},
        {u"Insured"_qs, u"被保険者名：山田　太郎"_qs},
        {u"Total"_qs, 297'657},
        {u"TaxRate"_qs, 5},
        {u"Tax"_qs, 14'883},
        {u"EstSum"_qs, 312'540},
        {u"Charge1Nm"_qs, u"鈴木　花子"_qs},
        {u"Ins1"_qs, u"障害者総合"_qs},
        {u"AskPrice1"_qs, 281'286},
        {u"Ins4"_qs, u"自己負担"_qs},
        {u"AskPrice4"_qs, 31'254},
    };
    addRow(records, header,
           {{u"Elmt"_qs, u"基本価格"_qs},
            {u"Item"_qs, u"下腿義足"_qs},
            {u"PickKbn"_qs, u"B-4"_qs},
            {u"Name"_qs, u"PTB式"_qs},
            {u"PickStyle"_qs, u"採型"_qs},
            {u"Suryo"_qs, 1},
            {u"Unit"_qs, 84'300},
            {u"Price"_qs, 84'300}});
    addRow(records, header,
           {{u"Elmt"_qs, u"ソケット"_qs},
            {u"Materials"_qs, u"熱硬化性樹脂"_qs},
            {u"Suryo"_qs, 1},
            {u"Unit"_qs, 41'700},
            {u"Price"_qs, 41'700}});
    addRow(records, header,
           {{u"Elmt"_qs, u"ソフトインサート"_qs},
            {u"Materials"_qs, u"軟性発泡樹脂"_qs},
            {u"Suryo"_qs, 1},
            {u"Unit"_qs, 18'250},
            {u"Price"_qs, 18'250}});
    addRow(records, header, {{u"SumTitle"_qs, u"小　　　計"_qs}, {u"Price"_qs, 144'250}});
    addRow(records, header, {{u"SumCal"_qs, u"( 小計 × 95/100 )"_qs}, {u"Price"_qs, 137'038}});
    addRow(records, header, {{u"Elmt"_qs, u"完成用部品"_qs}});
    addRow(records, header,
           {{u"Elmt"_qs, u"足部"_qs},
            {u"PartsForm"_qs, u"1S90=26"_qs},
            {u"MakerNm"_qs, u"東西ケア"_qs},
            {u"PartsCd"_qs, u"F-101"_qs},
            {u"Suryo"_qs, 1},
            {u"Unit"_qs, 53'900},
            {u"Price"_qs, 53'900}});
    addRow(records, header,
           {{u"Elmt"_qs, u"下腿チューブ"_qs},
            {u"PartsForm"_qs, u"アルミ合金 φ30 200mm"_qs},
            {u"MakerNm"_qs, u"南北製作所"_qs},
            {u"PartsCd"_qs, u"T-2200"_qs},
            {u"Suryo"_qs, 2},
            {u"Unit"_qs, 53'360},
            {u"Price"_qs, 106'719}});
}

ReportRecordset ordinary() {
    ReportRecordset records = csEstimateRecordset();
    addDocument(records);
    return records;
}

ReportRecordset longest(const ReportClass& report) {
    constexpr int moreThanOnePage = 60;
    const QList<QStringList> kinds = report.sample.rows.isEmpty() ? QList<QStringList>{{}} : report.sample.rows;
    ReportRecordset records = report.recordset();
    for (int row = 0; row < (report.plan == ReportRowPlan::List ? moreThanOnePage : 1); ++row)
        for (const QStringList& kind : kinds) addLongest(records, report.sample, kind);
    return records;
}

ReportHeader longestHeader(const ReportClass& report, const ReportParameters& given) {
    constexpr int fewLines = 3;
    ReportHeader header{report.sample.longest, fewLines};
    for (auto size = report.sample.sizes.begin(); size != report.sample.sizes.end(); ++size)
        header.values.insert(size.key(), wide(size.value()));
    header.values.insert(given);
    return header;
}

ReportRecordset rows(int count) {
    ReportRecordset records = csEstimateRecordset();
    for (int row = 1; row <= count; ++row)
        addRow(records, {{u"AskNo"_qs, 1}, {u"Copy"_qs, 1}, {u"EstNo"_qs, u"1"_qs}}, {{u"Suryo"_qs, row}});
    return records;
}

QString japaneseStandard() {
    const iconv_t converter = iconv_open("UTF-32LE", "EUC-JISX0213");
    QString all;
    for (const bool secondPlane : {false, true})
        for (int row = 0xA1; row < 0xFF; ++row)
            for (int cell = 0xA1; cell < 0xFF; ++cell) {
                std::array<char, 3> code{char(0x8F), char(row), char(cell)};
                std::array<char32_t, 4> signs{};
                char* in = code.data() + (secondPlane ? 0 : 1);
                char* out = reinterpret_cast<char*>(signs.data());
                size_t inLeft = secondPlane ? 3 : 2, outLeft = sizeof signs;
                iconv(converter, nullptr, nullptr, nullptr, nullptr);
                const bool known = iconv(converter, &in, &inLeft, &out, &outLeft) != size_t(-1) &&
                                   iconv(converter, nullptr, nullptr, &out, &outLeft) != size_t(-1);
                const auto count = qsizetype((sizeof signs - outLeft) / sizeof(char32_t));
                if (known && count == 1) all += QString::fromUcs4(signs.data(), count);
            }
    iconv_close(converter);
    return all;
}

DocumentSetup ordinarySetup(int linesPerPage) {
    DocumentSetup setup;
    setup.linesPerPage = linesPerPage;
    setup.accountKind = u"2"_qs;
    setup.office = {
        {u"lblTradeNm"_qs, u"適格請求書発行事業者"_qs},
        {u"lblTradeNo"_qs, u"T1234567890123"_qs},
        {u"lblOffice"_qs, u"はるかぜ義肢製作所"_qs},
        {u"lblUserNm"_qs, u"代表　春野　風太"_qs},
        {u"lblAddr1"_qs, u"神奈川県横浜市西区みなと2-3-4"_qs},
        {u"lblAddr2"_qs, u"みなとビル 2階"_qs},
        {u"lblTel"_qs, u"045-987-6543"_qs},
        {u"lblFax"_qs, u"045-987-6544"_qs},
        {u"lblBank"_qs, u"みなと銀行　横浜支店"_qs},
        {u"lblAcntNo"_qs, u"1234567"_qs},
        {u"lblChkAcnt"_qs, u"ハルカゼギシセイサクショ"_qs},
        {u"Bank1"_qs, u"みなと銀行　横浜支店"_qs},
        {u"Account1"_qs, u"普通 1234567"_qs},
        {u"Bank2"_qs, u"山手信用金庫　本店"_qs},
        {u"Account2"_qs, u"普通 7654321"_qs},
        {u"Bank3"_qs, u"ゆうちょ銀行　〇二八"_qs},
        {u"Account3"_qs, u"1122334"_qs},
        {u"Holder1"_qs, u"ハルカゼギシセイサクショ"_qs},
        {u"Holder2"_qs, u"ハルカゼギシセイサクショ"_qs},
        {u"Holder3"_qs, u"ハルノ　フウタ"_qs},
    };
    return setup;
}

} // namespace ReportSamples
