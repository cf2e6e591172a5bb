#include "HalvaneTest.h"

#include "reports/WorkSheetRows.h"

namespace {

clsCsMakeElmt make(const QString& element, const QString& materials, const QString& price,
                   const QString& suryo = u"1"_qs, const QString& item = u"1"_qs) {
    clsCsMakeElmt line;
    line.EstItemNo = item;
    line.MakeElmt = element;
    line.Materials = materials;
    line.Suryo = suryo;
    line.Price = price;
    return line;
}

clsCsCmpltElmt part(const QString& name, const QString& form, const QString& code, const QString& price) {
    clsCsCmpltElmt line;
    line.EstItemNo = u"1"_qs;
    line.PartsNm = name;
    line.Form = form;
    line.PartsCd = code;
    line.Suryo = u"2"_qs;
    line.Price = price;
    return line;
}

clsCsItem item(const QString& number, const QString& kind, const QString& name, const QString& form) {
    clsCsItem item;
    item.EstItemNo = number;
    item.Item = kind;
    item.PickKbn = u"B-4"_qs;
    item.Name = name;
    item.Form = form;
    item.PickStyle = u"1"_qs;
    return item;
}

CsEstimateSource source(const QList<clsCsMakeElmt>& elements, const QList<clsCsCmpltElmt>& parts = {}) {
    CsEstimateSource source;
    source.kind = DocumentKind::Breakdown;
    source.estimate.EstNo = u"2026000051"_qs;
    source.estimate.Discount1 = source.estimate.Discount2 = source.estimate.Discount3 = u"100"_qs;
    source.estimate.Total = u"1000"_qs;
    source.estimate.EstSum = u"1100"_qs;
    source.estimate.ItmPrtDate = u"2026/10/07"_qs;
    source.items = {item(u"1"_qs, u"下肢装具"_qs, u"短下肢装具"_qs, u"両側支柱"_qs),
                    item(u"2"_qs, u"靴型装具"_qs, u"半長靴"_qs, u"整形靴"_qs)};
    source.makeElements = elements;
    source.completeElements = parts;
    source.pickStyles = {{u"1"_qs, u"採型"_qs}};
    clsCsEstAsk claim;
    claim.AskNo = u"1"_qs;
    claim.InsNo = u"14"_qs;
    source.claims = {claim};
    source.claimNumbers = {1};
    source.insNames = {{u"14"_qs, u"労災"_qs}};
    return source;
}

// Each row as heading, material, part number, price and remark, as far as they are set.
QStringList rowsOf(const ReportRecordset& records) {
    QStringList rows;
    for (int row = 0; row < records.rowCount(); ++row) {
        QStringList words;
        for (const QString& field : {u"Elmt"_qs, u"Materials"_qs, u"PartsCd"_qs, u"Price"_qs, u"Biko"_qs})
            words << records.text(row, field);
        rows << words.join(u'|');
    }
    return rows;
}

QStringList limbRows(const QList<clsCsMakeElmt>& elements, const QList<clsCsCmpltElmt>& parts = {}) {
    return rowsOf(workSheetRows(WorkSheet::Limb, source(elements, parts)));
}

} // namespace

class WorkSheetRowsTest : public QObject {
    Q_OBJECT

private slots:
    void aLimbElementHasItsSection_data() {
        QTest::addColumn<QString>("element");
        QTest::addColumn<int>("section");
        QTest::newRow("basic price") << u"基本価格"_qs << 6;
        QTest::newRow("copy") << u"複製"_qs << 6;
        QTest::newRow("cover") << u"外装"_qs << 1;
        QTest::newRow("harness") << u"義手用ハーネス"_qs << 2;
        QTest::newRow("suspension") << u"懸垂用部品"_qs << 2;
        QTest::newRow("suspension of a leg") << u"義足懸垂用部品"_qs << 2;
        QTest::newRow("support") << u"大腿支持部"_qs << 3;
        QTest::newRow("insert") << u"ソフトインサート"_qs << 4;
        QTest::newRow("socket") << u"ソケット"_qs << 5;
        QTest::newRow("anything else") << u"断端袋"_qs << 7;
    }
    void aLimbElementHasItsSection() {
        QFETCH(QString, element);
        QTEST(workSection(WorkSheet::Limb, element), "section");
    }

    void anOrthosisElementHasItsSection_data() {
        QTest::addColumn<QString>("element");
        QTest::addColumn<int>("section");
        QTest::newRow("basic price") << u"基本価格"_qs << 5;
        QTest::newRow("copy") << u"複製"_qs << 5;
        QTest::newRow("other additions") << u"その他の加算要素"_qs << 2;
        QTest::newRow("support") << u"足部支持部"_qs << 3;
        QTest::newRow("joint") << u"足継手"_qs << 4;
        QTest::newRow("fittings") << u"付属品等の加算要素"_qs << 1;
        QTest::newRow("anything else") << u"外装"_qs << 7;
    }
    void anOrthosisElementHasItsSection() {
        QFETCH(QString, element);
        QTEST(workSection(WorkSheet::Equip, element), "section");
        QTEST(workSection(WorkSheet::Wheelchair, element), "section");
    }

    void basicAndHarnessTogetherBelongToTheHarness() {
        QCOMPARE(workSection(WorkSheet::Limb, u"ハーネス基本価格"_qs), 2);
        QCOMPARE(workSection(WorkSheet::Limb, u"懸垂用部品基本"_qs), 2);
    }

    void aCopyWinsOverTheCover() {
        QCOMPARE(workSection(WorkSheet::Limb, u"外装の複製"_qs), 6);
        QCOMPARE(workSection(WorkSheet::Limb, u"ハーネスの複製"_qs), 6);
    }

    void anEmptySectionStillHasItsHeading() {
        const QStringList rows =
            limbRows({make(u"基本価格"_qs, {}, u"100"_qs), make(u"ソケット"_qs, u"樹脂"_qs, u"50"_qs)});
        QCOMPARE(rows,
                 (QStringList{u"ニ．基本価格|||100|"_qs, u"ホ．ソケット|樹脂||50|"_qs, u"ヘ．ソフトインサート||||"_qs,
                              u"ト．支持部||||"_qs, u"チ．義手用ハーネス及||||"_qs, u"　　び義足懸垂用部品||||"_qs,
                              u"リ．外装||||"_qs, u"ヌ．完成用部品||||"_qs}));
    }

    void aProsthesisWithoutSupportStillShowsItsSupportRow() {
        QVERIFY(limbRows({make(u"ソケット"_qs, u"樹脂"_qs, u"50"_qs)}).contains(u"ト．支持部||||"_qs));
    }

    void elementsKeepTheirOwnOrderWithinASection() {
        const QStringList rows = limbRows({make(u"外装"_qs, u"乙"_qs, u"1"_qs), make(u"ソケット"_qs, u"甲"_qs, u"2"_qs),
                                           make(u"外装"_qs, u"丙"_qs, u"3"_qs)});
        QCOMPARE(rows.at(1), u"ホ．ソケット|甲||2|"_qs);
        QCOMPARE(rows.mid(6, 2), (QStringList{u"リ．外装|乙||1|"_qs, u"|丙||3|"_qs}));
    }

    void theSecondLineOfTheHarnessStandsOnTheSecondElement() {
        const auto harness = [](const QString& materials) { return make(u"ハーネス"_qs, materials, u"5"_qs); };
        const QStringList one = limbRows({harness(u"胸郭バンド"_qs)});
        QCOMPARE(one.mid(4, 2),
                 (QStringList{u"チ．義手用ハーネス及|胸郭バンド||5|"_qs, u"　　び義足懸垂用部品||||"_qs}));
        const QStringList three = limbRows({harness(u"甲"_qs), harness(u"乙"_qs), harness(u"丙"_qs)});
        QCOMPARE(three.mid(4, 3),
                 (QStringList{u"チ．義手用ハーネス及|甲||5|"_qs, u"　　び義足懸垂用部品|乙||5|"_qs, u"|丙||5|"_qs}));
    }

    void anElementOfNoSectionPrintsItsOwnNameBehindThem() {
        const QStringList rows = limbRows({make(u"断端袋"_qs, u"毛"_qs, u"7"_qs), make(u"基本価格"_qs, {}, u"1"_qs)});
        QCOMPARE(rows.at(0), u"ニ．基本価格|||1|"_qs);
        QCOMPARE(rows.mid(6), (QStringList{u"リ．外装||||"_qs, u"断端袋|毛||7|"_qs, u"ヌ．完成用部品||||"_qs}));
    }

    void thePartsHeadingStandsOnTheFirstPart() {
        const QStringList rows =
            limbRows({make(u"ソケット"_qs, u"樹脂"_qs, u"1"_qs)}, {part(u"足部"_qs, u"単軸"_qs, u"F-1"_qs, u"300"_qs),
                                                                   part(u"継手"_qs, u"＊"_qs, u"K-2"_qs, u"50"_qs)});
        QCOMPARE(rows.mid(7), (QStringList{u"ヌ．完成用部品|足部　単軸|F-1|300|"_qs, u"|継手|K-2|50|"_qs}));
    }

    void anOrderWithoutPartsHasTheirHeadingAlone() {
        QCOMPARE(limbRows({make(u"ソケット"_qs, u"樹脂"_qs, u"1"_qs)}).last(), u"ヌ．完成用部品||||"_qs);
    }

    void theLongestPartIsToldWhole() {
        const QString name(20, u'部'), form(34, u'形');
        const QStringList rows = limbRows({}, {part(name, form, u"F"_qs, u"1"_qs)});
        QVERIFY(rows.last().contains(name + u'　' + form));
    }

    void orthosesHaveTheirOwnHeadings() {
        const QStringList rows =
            rowsOf(workSheetRows(WorkSheet::Equip, source({make(u"足継手"_qs, u"制限付"_qs, u"9"_qs)})));
        QCOMPARE(rows, (QStringList{u"ニ．基本価格||||"_qs, u"ホ．継手|制限付||9|"_qs, u"ヘ．支持部||||"_qs,
                                    u"ト．その他の加算要素||||"_qs, u"　　付属品等の加算要素||||"_qs,
                                    u"チ．完成用部品||||"_qs}));
    }

    void wheelchairsHaveTheHeadingsWithoutLetters() {
        const QStringList rows =
            rowsOf(workSheetRows(WorkSheet::Wheelchair, source({make(u"基本価格"_qs, {}, u"9"_qs)})));
        QCOMPARE(rows, (QStringList{u"基本価格|||9|"_qs, u"継手||||"_qs, u"支持部||||"_qs, u"その他の加算要素||||"_qs,
                                    u"付属品等の加算要素||||"_qs, u"完成用部品||||"_qs}));
    }

    void aRowWithoutMaterialIsNamedByItsElement() {
        const QStringList rows = rowsOf(workSheetRows(
            WorkSheet::Equip, source({make(u"下腿支持部"_qs, {}, u"1"_qs), make(u"足部支持部"_qs, u"＊"_qs, u"2"_qs),
                                      make(u"支持部"_qs, {}, u"3"_qs)})));
        QCOMPARE(rows.mid(2, 3),
                 (QStringList{u"ヘ．支持部|下腿支持部||1|"_qs, u"|足部支持部||2|"_qs, u"|支持部||3|"_qs}));
    }

    void theUnitPriceRoundsAHalfToTheEvenNumber() {
        const ReportRecordset records =
            workSheetRows(WorkSheet::Limb, source({make(u"ソケット"_qs, u"甲"_qs, u"5"_qs, u"2"_qs),
                                                   make(u"ソケット"_qs, u"乙"_qs, u"7"_qs, u"2"_qs),
                                                   make(u"ソケット"_qs, u"丙"_qs, u"7"_qs, u"0"_qs)}));
        QCOMPARE(records.text(1, u"Unit"_qs), u"2"_qs);
        QCOMPARE(records.text(2, u"Unit"_qs), u"4"_qs);
        QVERIFY(records.value(3, u"Unit"_qs).isNull());
        QCOMPARE(records.text(3, u"Price"_qs), u"7"_qs);
    }

    void theHeadTellsTheItemOfTheBasicPriceOnEveryRow() {
        const ReportRecordset records = workSheetRows(
            WorkSheet::Equip, source({make(u"足継手"_qs, u"制限付"_qs, u"9"_qs), make(u"基本価格"_qs, {}, u"1"_qs)}));
        for (int row = 0; row < records.rowCount(); ++row) {
            QCOMPARE(records.text(row, u"Item"_qs), u"下肢装具"_qs);
            QCOMPARE(records.text(row, u"PickKbn"_qs), u"B-4"_qs);
            QCOMPARE(records.text(row, u"Name"_qs), u"短下肢装具"_qs);
            QCOMPARE(records.text(row, u"PickStyle"_qs), u"採型"_qs);
            QCOMPARE(records.text(row, u"Form"_qs), u"両側支柱"_qs);
            QCOMPARE(records.text(row, u"EstNo"_qs), u"2026000051"_qs);
        }
    }

    void anEstimateWithoutBasicPriceIsHeadedByItsFirstItem() {
        const ReportRecordset records =
            workSheetRows(WorkSheet::Equip, source({make(u"足継手"_qs, u"制限付"_qs, u"9"_qs)}));
        QCOMPARE(records.text(0, u"Kind"_qs), u"下肢装具　短下肢装具"_qs);
    }

    void theBasicPriceOfAFurtherItemSaysWhoseItIs() {
        const QStringList rows =
            rowsOf(workSheetRows(WorkSheet::Equip, source({make(u"基本価格"_qs, {}, u"1"_qs),
                                                           make(u"基本価格"_qs, {}, u"2"_qs, u"1"_qs, u"2"_qs)})));
        QCOMPARE(rows.mid(0, 2), (QStringList{u"ニ．基本価格|||1|"_qs, u"|基本価格||2|半長靴"_qs}));
    }

    // Without it the lines would not lead to the total.
    void aDiscountIsRemarkedOnTheLastOfItsRows() {
        CsEstimateSource discounted =
            source({make(u"外装"_qs, u"乙"_qs, u"1"_qs), make(u"ソケット"_qs, u"甲"_qs, u"2"_qs)},
                   {part(u"足部"_qs, {}, u"F"_qs, u"3"_qs)});
        discounted.estimate.Discount2 = u"95"_qs;
        discounted.estimate.Discount3 = u"90"_qs;
        const QStringList rows = rowsOf(workSheetRows(WorkSheet::Limb, discounted));
        QCOMPARE(rows.at(1), u"ホ．ソケット|甲||2|"_qs);
        QCOMPARE(rows.at(6), u"リ．外装|乙||1|( 小計 × 95/100 )"_qs);
        QCOMPARE(rows.at(7), u"ヌ．完成用部品|足部|F|3|( 小計 × 90/100 )"_qs);
    }

    void aDiscountOfASheetWithoutElementsIsNotRemarked() {
        CsEstimateSource discounted = source({});
        discounted.estimate.Discount1 = discounted.estimate.Discount3 = u"95"_qs;
        for (const QString& row : rowsOf(workSheetRows(WorkSheet::Limb, discounted))) QVERIFY(row.endsWith(u"||||"));
    }

    void everyClaimThatTakesPartHasItsSheet() {
        CsEstimateSource two = source({make(u"ソケット"_qs, u"甲"_qs, u"2"_qs)});
        clsCsEstAsk second = two.claims.first();
        second.AskNo = u"2"_qs;
        two.claims << second;
        const int rows = workSheetRows(WorkSheet::Limb, two).rowCount();
        two.claimNumbers = {1, 2};
        const ReportRecordset records = workSheetRows(WorkSheet::Limb, two);
        QCOMPARE(records.rowCount(), 2 * rows);
        QCOMPARE(records.text(0, u"AskNo"_qs), u"1"_qs);
        QCOMPARE(records.text(rows, u"AskNo"_qs), u"2"_qs);
    }

    // The ordinary rows on the fields of a sheet.
    void aWheelchairKeepsTheOrdinaryRows() {
        CsEstimateSource chair = source({make(u"基本価格"_qs, {}, u"900"_qs), make(u"シート"_qs, u"布"_qs, u"50"_qs)},
                                        {part(u"車輪"_qs, u"24インチ"_qs, u"W"_qs, u"30"_qs)});
        chair.items.first() = item(u"1"_qs, u"車椅子"_qs, u"普通型"_qs, u"折りたたみ"_qs);
        chair.estimate.Discount1 = u"95"_qs;
        const ReportRecordset records = csEstimateWorkRows(chair);
        QCOMPARE(records.text(0, u"Item"_qs), u"車椅子"_qs);
        QCOMPARE(records.text(0, u"PickKbn"_qs), u"普通型"_qs);
        QCOMPARE(records.text(1, u"Item"_qs), QString());
        QCOMPARE(records.text(2, u"SumTitle"_qs), u"小　　　計"_qs);
        QCOMPARE(records.text(3, u"SumCal"_qs), u"( 小計 × 95/100 )"_qs);
        QCOMPARE(records.text(4, u"Elmt"_qs), u"完成用部品"_qs);
        QCOMPARE(records.text(5, u"PartsForm"_qs), u"24インチ"_qs);
        for (int row = 0; row < records.rowCount(); ++row) {
            QCOMPARE(records.text(row, u"Form"_qs), u"折りたたみ"_qs);
            QCOMPARE(records.text(row, u"Kind"_qs), u"車椅子　普通型"_qs);
            QCOMPARE(records.text(row, u"Biko"_qs), QString());
        }
    }

    void theContractHasOneRowForAllClaims() {
        CsEstimateSource two = source({make(u"ソケット"_qs, u"甲"_qs, u"2"_qs)});
        two.estimate.EstNm = u"大腿義足"_qs;
        two.customer.CustNm1 = u"山田"_qs;
        two.customer.CustNm2 = u"太郎"_qs;
        clsCsEstAsk second = two.claims.first();
        second.AskNo = u"2"_qs;
        two.claims << second;
        two.claimNumbers = {2, 1};
        const ReportRecordset records = csEstReceiptRows(two);
        QCOMPARE(records.rowCount(), 1);
        QCOMPARE(records.text(0, u"AskNo"_qs), u"1"_qs);
        QCOMPARE(records.text(0, u"EstName"_qs), u"大腿義足"_qs);
        QCOMPARE(records.text(0, u"CustNm"_qs), u"山田　太郎"_qs);
        QCOMPARE(records.text(0, u"Total"_qs), u"1000"_qs);
        QCOMPARE(records.text(0, u"Tax"_qs), u"100"_qs);
        QCOMPARE(records.text(0, u"EstSum"_qs), u"1100"_qs);
    }
};

HALVANE_TEST(WorkSheetRowsTest)
#include "WorkSheetRowsTest.moc"
