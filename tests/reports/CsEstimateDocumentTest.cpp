#include "HalvaneTest.h"

#include "base/Application.h"
#include "reports/CsEstimateDocument.h"

namespace {

clsCsMakeElmt make(const QString& element, const QString& materials, const QString& suryo, const QString& price) {
    clsCsMakeElmt line;
    line.EstItemNo = u"1"_qs;
    line.MakeElmt = element;
    line.Materials = materials;
    line.Suryo = suryo;
    line.Price = price;
    return line;
}

clsCsCmpltElmt part(const QString& form, const QString& suryo, const QString& price) {
    clsCsCmpltElmt line;
    line.EstItemNo = u"1"_qs;
    line.PartsNm = u"足部"_qs;
    line.Form = form;
    line.MakerNm = u"東西ケア"_qs;
    line.PartsCd = u"F-1"_qs;
    line.Suryo = suryo;
    line.Price = price;
    return line;
}

clsCsEstAsk claim(int askNo, const QString& insNo, const QString& ask, const QString& pay) {
    clsCsEstAsk claim;
    claim.AskNo = QString::number(askNo);
    claim.InsNo = insNo;
    claim.ClaimNm = u"横浜市長%1"_qs.arg(askNo);
    claim.AskPrice = ask;
    claim.PayPrice = pay;
    claim.AskPrtDate = u"2024/11/04"_qs;
    claim.PayPrtDate = u"2024/11/05"_qs;
    return claim;
}

CsEstimateSource sample() {
    CsEstimateSource source;
    clsCsEstimate& estimate = source.estimate;
    estimate.EstNo = u"R06-1"_qs;
    estimate.EstNm = u"下腿義足"_qs;
    estimate.Discount1 = estimate.Discount2 = estimate.Discount3 = u"100"_qs;
    estimate.Total = u"1000"_qs;
    estimate.Tax = u"5"_qs;
    estimate.EstSum = u"1050"_qs;
    estimate.EstPrtDate = u"2024/11/01"_qs;
    estimate.ItmPrtDate = u"2024/11/02"_qs;
    estimate.DtlPrtDate = u"2024/11/03"_qs;
    estimate.DelvFinDate = u"2019/04/30"_qs;
    clsCustomer& customer = source.customer;
    customer.CustNm1 = u"山田"_qs;
    customer.CustNm2 = u"太郎"_qs;
    customer.CustNo = u"77"_qs;
    customer.Sex = u"男"_qs;
    customer.Birth = u"1956/05/14"_qs;
    customer.Zip = u"231-0017"_qs;
    customer.Pref = u"神奈川県"_qs;
    customer.Addr1 = u"港町1-1"_qs;
    customer.Tel = u"045-1"_qs;
    customer.Insured = u"山田花子"_qs;
    clsCsItem item;
    item.EstItemNo = u"1"_qs;
    item.Item = u"下腿義足"_qs;
    item.PickKbn = u"B-4"_qs;
    item.Name = u"PTB式"_qs;
    item.PickStyle = u"1"_qs;
    source.items = {item};
    source.makeElements = {make(u"基本価格"_qs, u"オーダーメイド"_qs, u"1"_qs, u"600"_qs),
                           make(u"ソケット"_qs, u"樹脂"_qs, u"2"_qs, u"401"_qs)};
    source.claims = {claim(1, u"1"_qs, u"900"_qs, u"800"_qs), claim(2, u"99"_qs, u"150"_qs, u"150"_qs)};
    source.claimNumbers = {1};
    source.insNames = {{u"1"_qs, u"社会保険"_qs}, {u"99"_qs, u"自己負担"_qs}};
    source.pickStyles = {{u"1"_qs, u"採型"_qs}, {u"2"_qs, u"採寸"_qs}};
    source.familyType = u"本人"_qs;
    return source;
}

// One row as the values of its detail fields that are set, joined by a bar.
QString detail(const ReportRecordset& records, int row) {
    QStringList words;
    for (const QString& field :
         {u"Elmt"_qs, u"Item"_qs, u"PickKbn"_qs, u"Name"_qs, u"PickStyle"_qs, u"Materials"_qs, u"PartsForm"_qs,
          u"MakerNm"_qs, u"PartsCd"_qs, u"SumTitle"_qs, u"SumCal"_qs, u"Suryo"_qs, u"Unit"_qs, u"Price"_qs})
        if (const QString text = records.text(row, field); !text.isEmpty()) words.append(text);
    return words.join(u'|');
}

QStringList details(const CsEstimateSource& source) {
    const ReportRecordset records = csEstimateRows(source);
    QStringList rows;
    for (int row = 0; row < records.rowCount(); ++row) rows.append(detail(records, row));
    return rows;
}

QString header(const CsEstimateSource& source, const QString& field) { return csEstimateRows(source).text(0, field); }

} // namespace

class CsEstimateDocumentTest : public QObject {
    Q_OBJECT

private slots:
    void init() { setSystemDate(u"2024/11/03"_qs); }

    void makeElementsBecomeRows() {
        QCOMPARE(details(sample()),
                 (QStringList{u"基本価格|下腿義足|B-4|PTB式|1|600|600"_qs, u"ソケット|樹脂|2|200|401"_qs}));
    }

    void theUnitPriceRoundsAHalfToTheEvenNumber_data() {
        QTest::addColumn<QString>("price");
        QTest::addColumn<QString>("unit");
        QTest::newRow("200.5") << u"401"_qs << u"200"_qs;
        QTest::newRow("201.5") << u"403"_qs << u"202"_qs;
        QTest::newRow("201") << u"402"_qs << u"201"_qs;
    }
    void theUnitPriceRoundsAHalfToTheEvenNumber() {
        QFETCH(QString, price);
        CsEstimateSource source = sample();
        source.makeElements = {make(u"ソケット"_qs, {}, u"2"_qs, price)};
        QTEST(header(source, u"Unit"_qs), "unit");
    }

    void theLineOfABrokenQuantityMultiplies_data() {
        QTest::addColumn<QString>("quantity");
        QTest::addColumn<QString>("price");
        QTest::addColumn<QString>("row");
        QTest::newRow("1.5") << u"1.5"_qs << u"44700"_qs << u"ソケット|1.5|29800|44700"_qs;
        QTest::newRow("0.5") << u"0.5"_qs << u"1000"_qs << u"ソケット|0.5|2000|1000"_qs;
        QTest::newRow("2.25") << u"2.25"_qs << u"450"_qs << u"ソケット|2.25|200|450"_qs;
    }
    void theLineOfABrokenQuantityMultiplies() {
        QFETCH(QString, quantity);
        QFETCH(QString, price);
        CsEstimateSource source = sample();
        source.makeElements = {make(u"ソケット"_qs, {}, quantity, price)};
        QTEST(details(source).first(), "row");
    }

    // More than the whole price is taken: that too is told line by line.
    void aRateAbove100HasItsSubtotal() {
        CsEstimateSource source = sample();
        source.estimate.Discount1 = u"110"_qs;
        source.makeElements = {make(u"ソケット"_qs, {}, u"1"_qs, u"1000"_qs)};
        QCOMPARE(details(source),
                 (QStringList{u"ソケット|1|1000|1000"_qs, u"小　　　計|1000"_qs, u"( 小計 × 110/100 )|1100"_qs}));
        source.estimate.Discount1 = u"100"_qs;
        source.estimate.Discount3 = u"120"_qs;
        source.completeElements = {part(u"*"_qs, u"1"_qs, u"500"_qs)};
        QCOMPARE(details(source).mid(4), (QStringList{u"小　　　計|500"_qs, u"( 小計 × 120/100 )|600"_qs}));
    }

    void aQuantityOf0LeavesTheUnitPriceEmptyAndPrintsThePrice() {
        CsEstimateSource source = sample();
        source.makeElements = {make(u"ソケット"_qs, {}, u"0"_qs, u"500"_qs)};
        const ReportRecordset records = csEstimateRows(source);
        QVERIFY(records.value(0, u"Unit"_qs).isNull());
        QCOMPARE(records.value(0, u"Suryo"_qs).toInt(), 0);
        QCOMPARE(records.text(0, u"Price"_qs), u"500"_qs);
    }

    void theBasicPriceShowsItsItem_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("pickKbn");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("row");
        QTest::newRow("wheelchair") << u"車椅子"_qs << u"普通型"_qs << u"自走用"_qs
                                    << u"基本価格|車椅子|自走用|1|600|600"_qs;
        QTest::newRow("wheelchair in kana")
            << u"車いす"_qs << u"*"_qs << u"手押し"_qs << u"基本価格|車いす|手押し|1|600|600"_qs;
        QTest::newRow("wildcards") << u"下腿義足"_qs << u"*"_qs << u"＊"_qs << u"基本価格|下腿義足|1|600|600"_qs;
        QTest::newRow("with casting style")
            << u"下肢装具"_qs << u"A"_qs << u"短"_qs << u"基本価格|下肢装具|A|短|採型|1|600|600"_qs;
        QTest::newRow("seat") << u"座位保持装置"_qs << u"A"_qs << u"平"_qs
                              << u"基本価格|座位保持装置|A|平|採型|1|600|600"_qs;
    }
    void theBasicPriceShowsItsItem() {
        QFETCH(QString, item);
        QFETCH(QString, pickKbn);
        QFETCH(QString, name);
        CsEstimateSource source = sample();
        source.items.first().Item = item;
        source.items.first().PickKbn = pickKbn;
        source.items.first().Name = name;
        QTEST(details(source).first(), "row");
    }

    void percentages100And95AreToldAsOneRate() {
        CsEstimateSource source = sample();
        source.estimate.Discount2 = u"95"_qs;
        QCOMPARE(details(source).mid(2), (QStringList{u"小　　　計|1001"_qs, u"( 小計 × 95/100 )|951"_qs}));
    }

    void bothPercentagesAreTold() {
        CsEstimateSource source = sample();
        source.estimate.Discount1 = u"95"_qs;
        source.estimate.Discount2 = u"70"_qs;
        QCOMPARE(details(source).mid(2), (QStringList{u"小　　　計|1001"_qs, u"( 小計 × 95/100 × 70/100 )|666"_qs}));
    }

    void completePartsFollowABlankRow() {
        CsEstimateSource source = sample();
        source.completeElements = {part(u"A"_qs, u"2"_qs, u"300"_qs), part(u"*"_qs, u"1"_qs, u"50"_qs)};
        QCOMPARE(details(source).mid(2), (QStringList{QString(), u"完成用部品"_qs, u"足部|A|東西ケア|F-1|2|150|300"_qs,
                                                      u"足部|東西ケア|F-1|1|50|50"_qs}));
    }

    void afterADiscountNoBlankRowFollows() {
        CsEstimateSource source = sample();
        source.estimate.Discount1 = u"95"_qs;
        source.completeElements = {part(u"A"_qs, u"2"_qs, u"300"_qs)};
        QCOMPARE(details(source).mid(3, 2), (QStringList{u"( 小計 × 95/100 )|951"_qs, u"完成用部品"_qs}));
    }

    void aDiscountOnPartsHasASubtotalOfItsOwn() {
        CsEstimateSource source = sample();
        source.estimate.Discount3 = u"90"_qs;
        source.completeElements = {part(u"A"_qs, u"1"_qs, u"305"_qs), part(u"B"_qs, u"1"_qs, u"100"_qs)};
        QCOMPARE(details(source).mid(6), (QStringList{u"小　　　計|405"_qs, u"( 小計 × 90/100 )|364"_qs}));
    }

    void theTotalsAreThoseStored() {
        CsEstimateSource source = sample();
        source.estimate.Total = u"5"_qs;
        source.estimate.EstSum = u"7"_qs;
        QCOMPARE(header(source, u"Total"_qs), u"5"_qs);
        QCOMPARE(header(source, u"Tax"_qs), u"2"_qs);
        QCOMPARE(header(source, u"EstSum"_qs), u"7"_qs);
        QCOMPARE(header(source, u"TaxRate"_qs), u"5"_qs);
    }

    void dateAmountAndNumberFollowTheKind_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("wholeSum");
        QTest::addColumn<QString>("values");
        QTest::newRow("estimate") << 1 << false << u"令和　６年１１月　１日|1050|"_qs;
        QTest::newRow("breakdown") << 2 << false << u"令和　６年１１月　２日|1050|"_qs;
        QTest::newRow("detail") << 3 << false << u"令和　６年１１月　３日|1050|"_qs;
        QTest::newRow("invoice") << 4 << false << u"令和　６年１１月　４日|900|"_qs;
        QTest::newRow("receipt") << 5 << false << u"令和　６年１１月　５日|800|-社会保険"_qs;
        QTest::newRow("receipt over all") << 5 << true << u"令和　６年１１月　５日|1050|-社会保険"_qs;
    }
    void dateAmountAndNumberFollowTheKind() {
        QFETCH(int, kind);
        QFETCH(bool, wholeSum);
        CsEstimateSource source = sample();
        source.kind = static_cast<DocumentKind>(kind);
        source.wholeSum = wholeSum;
        const ReportRecordset records = csEstimateRows(source);
        const QStringList values{records.text(0, u"PrtDate"_qs), records.text(0, u"PrtPrice"_qs),
                                 records.text(0, u"EstNoExt"_qs)};
        QTEST(values.join(u'|'), "values");
    }

    void anUnsetIssueDatePrintsAsTheBlankForm() {
        CsEstimateSource source = sample();
        source.estimate.EstPrtDate.clear();
        QCOMPARE(header(source, u"PrtDate"_qs), u"令和　　年　　月　　日"_qs);
    }

    void theCustomersDataAreLabelled() {
        const ReportRecordset records = csEstimateRows(sample());
        QCOMPARE(records.text(0, u"CustNm"_qs), u"山田　太郎"_qs);
        QCOMPARE(records.text(0, u"Zip"_qs), u"〒231-0017"_qs);
        QCOMPARE(records.text(0, u"Tel"_qs), u"電話番号：045-1"_qs);
        QCOMPARE(records.text(0, u"Sex"_qs), u"性別：男"_qs);
        QCOMPARE(records.text(0, u"Birthday"_qs), u"生年月日：昭和 31 年 5 月 14 日"_qs);
        QCOMPARE(records.text(0, u"FamilyType"_qs), u"本人区分：本人"_qs);
        QCOMPARE(records.text(0, u"Insured"_qs), u"被保険者名：山田花子"_qs);
        QCOMPARE(records.text(0, u"JuryoEra"_qs), u"平成"_qs);
        QCOMPARE(records.text(0, u"MitumoriEra"_qs), u"令和"_qs);
    }

    void whatIsTurnedOffIsEmpty() {
        CsEstimateSource source = sample();
        source.switches = {false, 3, false, false, false, 1};
        source.familyType.clear();
        const ReportRecordset records = csEstimateRows(source);
        for (const QString& field : {u"Zip"_qs, u"Pref"_qs, u"City"_qs, u"Addr1"_qs, u"Addr2"_qs, u"Tel"_qs, u"Sex"_qs,
                                     u"Birthday"_qs, u"FamilyType"_qs, u"Insured"_qs})
            QVERIFY2(records.text(0, field).isEmpty(), qPrintable(field));
    }

    void theBirthDateMayShowItsYearAlone() {
        CsEstimateSource source = sample();
        source.switches.birth = 2;
        QCOMPARE(header(source, u"Birthday"_qs), u"生年：昭和 31 年"_qs);
        source.customer.Birth.clear();
        QCOMPARE(header(source, u"Birthday"_qs), QString());
    }

    void aCustomerWithoutAddressLinesPrintsEmptyFields() {
        CsEstimateSource source = sample();
        source.customer.Addr1.clear();
        source.customer.Pref.clear();
        QCOMPARE(header(source, u"Addr1"_qs), QString());
        QCOMPARE(header(source, u"Pref"_qs), QString());
    }

    void theFirstRowOfEveryDocumentHoldsItsQuantity() {
        CsEstimateSource source = sample();
        source.makeElements.first().Suryo = u"3"_qs;
        source.copies = 2;
        const ReportRecordset records = csEstimateRows(source);
        QStringList counts;
        for (int row = 0; row < records.rowCount(); ++row) counts.append(records.text(row, u"Kazu"_qs));
        QCOMPARE(counts, (QStringList{u"3"_qs, {}, u"3"_qs, {}}));
    }

    void theCopyFollowsAllClaimsOfTheFirstPrint() {
        CsEstimateSource source = sample();
        source.makeElements.resize(1);
        source.claimNumbers = {1, 2};
        source.copies = 2;
        const ReportRecordset records = csEstimateRows(source);
        QStringList order;
        for (int row = 0; row < records.rowCount(); ++row)
            order.append(records.text(row, u"Copy"_qs) + u'-' + records.text(row, u"AskNo"_qs));
        QCOMPARE(order, (QStringList{u"1-1"_qs, u"1-2"_qs, u"2-1"_qs, u"2-2"_qs}));
    }

    void onlyTheClaimsAskedForTakePart() {
        CsEstimateSource source = sample();
        source.claimNumbers = {2};
        QCOMPARE(header(source, u"ClaimNm"_qs), u"横浜市長2"_qs);
        source.claimNumbers = {};
        QVERIFY(csEstimateRows(source).isEmpty());
    }

    void theClaimBoxStandsOnEveryRow() {
        const ReportRecordset records = csEstimateRows(sample());
        for (int row = 0; row < records.rowCount(); ++row) {
            QCOMPARE(records.text(row, u"Ins1"_qs), u"社会保険"_qs);
            QCOMPARE(records.text(row, u"AskPrice1"_qs), u"900"_qs);
            QCOMPARE(records.text(row, u"Ins4"_qs), u"自己負担"_qs);
            QCOMPARE(records.text(row, u"AskPrice4"_qs), u"150"_qs);
            QVERIFY(records.value(row, u"AskPrice2"_qs).isNull());
        }
    }
};

HALVANE_TEST(CsEstimateDocumentTest)
#include "CsEstimateDocumentTest.moc"
