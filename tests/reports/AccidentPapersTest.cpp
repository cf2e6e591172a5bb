#include "HalvaneTest.h"

#include "reports/CsEstimateFields.h"
#include "reports/DocumentReport.h"
#include "reports/FormSample.h"
#include "support/ReportSamples.h"

namespace {

double plainMeasure(const QString& text, const ReportFont& font) { return double(text.size()) * font.size * 20; }

QList<ReportPage> pagesOf(const QString& name, const ReportRecordset& records, int linesPerPage = 0) {
    ReportHeader header = documentHeader(ReportSamples::ordinarySetup(linesPerPage));
    header.values.insert(reportClass(name).sample.given.first());
    return reportPages(reportClass(name), loadReportLayout(name), records, header, plainMeasure);
}

ReportRecordset formOver(const QString& sum, int copy = 1) {
    ReportRecordset records = csEstimateRecordset();
    records.AddNew();
    records.Set(u"AskNo"_qs, 1);
    records.Set(u"Copy"_qs, copy);
    records.Set(u"EstSum"_qs, sum);
    return records;
}

// What stands in the boxes, from the left, and the place of the leftmost one.
struct Boxes {
    QString signs;
    int left = 0;
};

Boxes boxesOf(const ReportPage& page) {
    QList<ReportPageText> found;
    for (const ReportPageText& text : page.texts)
        if (text.control == u"txtEstSum") found << text;
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.room.x < b.room.x; });
    Boxes boxes;
    for (const ReportPageText& text : found) boxes.signs += text.text;
    if (!found.isEmpty()) boxes.left = found.first().room.x;
    return boxes;
}

QString textOf(const QList<ReportPage>& pages) {
    QStringList texts;
    for (const ReportPage& page : pages) texts << page.plainText();
    return texts.join(u'\n');
}

const QStringList digitForms{u"repCsEstWorkimateA4"_qs, u"repCsEstWorkAskA4"_qs, u"repCsEstWorkAsk2A4"_qs};

} // namespace

class AccidentPapersTest : public QObject {
    Q_OBJECT

private slots:
    void theAmountStandsDigitByDigitBehindItsSign() {
        for (const QString& name : digitForms) {
            const Boxes six = boxesOf(pagesOf(name, formOver(u"327423"_qs)).first());
            const Boxes one = boxesOf(pagesOf(name, formOver(u"5"_qs)).first());
            QCOMPARE(six.signs, u"\\327423"_qs);
            QCOMPARE(one.signs, u"\\5"_qs);
            QVERIFY(six.left < one.left);
        }
    }

    void aTotalOfSevenDigitsFillsAllBoxesAndPutsItsSignOnTheLabel() {
        for (const QString& name : digitForms) {
            const Boxes seven = boxesOf(pagesOf(name, formOver(u"1234567"_qs)).first());
            QCOMPARE(seven.signs, u"\\1234567"_qs);
            const ReportLayout layout = loadReportLayout(name);
            for (const ReportTextItem& item : layout.band(ReportBandKind::GroupHeader).texts)
                if (item.name == u"txtEstSum") QVERIFY(seven.left < layout.margins.left + item.at.x);
        }
    }

    void aTotalOfEightDigitsIsToldByItsFigureAndNotCut() {
        for (const QString& name : digitForms) {
            try {
                pagesOf(name, formOver(u"12345678"_qs));
                QFAIL("no fault");
            } catch (const ReportValueError& error) {
                QVERIFY2(error.description().contains(u"12,345,678"), qPrintable(error.description()));
            }
        }
    }

    void theSecondCopyIsMarked() {
        for (const QString& name : {u"repCsEstWorkAskA4"_qs, u"repCsEstWorkAsk2A4"_qs}) {
            QVERIFY(!textOf(pagesOf(name, formOver(u"1"_qs))).contains(u"(控)"));
            QVERIFY(textOf(pagesOf(name, formOver(u"1"_qs, 2))).contains(u"義肢等 　費用請求書(控)"));
        }
    }

    void aFormTakesOnePageWhateverItsLines() {
        ReportRecordset records = ReportSamples::ordinary();
        ReportSamples::addDocument(records, 2);
        ReportSamples::addDocument(records, 1, 2);
        QCOMPARE(pagesOf(u"repCsEstWorkAsk2A4"_qs, records).size(), 3);
    }

    void aSheetGoesOnOverTheLeafAndEndsOnAFullPage() {
        ReportRecordset records = csEstWorkRecordset();
        for (int row = 0; row < 40; ++row) {
            records.AddNew();
            records.Set(u"AskNo"_qs, 1);
            records.Set(u"Price"_qs, row);
            records.Set(u"CustNm"_qs, u"山田　太郎"_qs);
        }
        const QList<ReportPage> pages = pagesOf(u"repCsEstWorkKara1"_qs, records, 99);
        QCOMPARE(pages.size(), 2);
        QVERIFY(pages.first().plainText().contains(u"次ページへ続く"));
        QVERIFY(!pages.first().plainText().contains(u"合　　計　　金　　額"));
        QVERIFY(pages.last().plainText().contains(u"合　　計　　金　　額"));
        QVERIFY(pages.last().plainText().contains(u"山田　太郎"));
    }

    void everyPaperHasItsFixedWords_data() {
        QTest::addColumn<QString>("report");
        QTest::addColumn<QStringList>("words");
        const QStringList cost{u"義肢等補装具"_qs, u"購入"_qs, u"修理"_qs, u"費用内訳書"_qs};
        const QStringList estimate{u"見　積　内　訳　書"_qs};
        const QStringList sheet{
            u"数量"_qs,     u"単価(円)"_qs, u"金額(円)"_qs, u"備　考"_qs, u"合　　計　　金　　額"_qs,
            u"％加算額"_qs, u"\\"_qs};
        const QStringList goods{u"様式第５号の３"_qs, u"(物品番号　66134) 7.10"_qs};
        const QString kara = u"（　殻　構　造　義　肢　用　）"_qs, equip = u"（　装　　具　　用　）"_qs,
                      chair = u"（　車 椅 子 ・ 電 動 車 椅 子　）"_qs;
        QTest::newRow("Kara1")
            << u"repCsEstWorkKara1"_qs
            << cost + sheet +
                   QStringList{
                       kara, u"様式第８号(2)"_qs,
                       u"1.　この内訳書は、殻構造義肢の購入又は修理に要した費用の請求の場合に、様式第８号(１)に添付すること。"_qs};
        QTest::newRow("Kara2")
            << u"repCsEstWorkKara2"_qs
            << estimate + sheet + goods +
                   QStringList{
                       kara,
                       u"1. この内訳書は、殻構造義肢の製作又は修理に係る見積りの場合に、様式第５号に添付すること。"_qs};
        QTest::newRow("Frame1") << u"repCsEstWorkFrame1"_qs
                                << cost + sheet + QStringList{u"骨格構造義肢の名称・型式等"_qs, u"様式第８号(3)"_qs};
        QTest::newRow("Frame2") << u"repCsEstWorkFrame2"_qs
                                << estimate + sheet + goods + QStringList{u"骨格構造義肢の名称・型式等"_qs};
        QTest::newRow("Equip1") << u"repCsEstWorkEquip1"_qs
                                << cost + sheet +
                                       QStringList{equip, u"様式第８号(4)"_qs, u"装具の区分、名称等"_qs,
                                                   u"採型・採寸"_qs};
        QTest::newRow("Equip2") << u"repCsEstWorkEquip2"_qs
                                << estimate + sheet + goods + QStringList{equip, u"採型・採寸"_qs};
        QTest::newRow("Wheelchair1") << u"repCsEstWorkWheelchair1"_qs
                                     << cost + sheet + QStringList{chair, u"様式第８号(別紙)"_qs, u"種　　　　別"_qs};
        QTest::newRow("Wheelchair3") << u"repCsEstWorkWheelchair3"_qs
                                     << estimate + sheet +
                                            QStringList{chair, u"様式第８号(別紙)"_qs, u"種　　　　別"_qs};
        QTest::newRow("estimate") << u"repCsEstWorkimateA4"_qs
                                  << QStringList{u"見　　積　　書"_qs,
                                                 u"労働者災害補償保険"_qs,
                                                 u"労　　働　　局"_qs,
                                                 u"労働保険特別会計支出負担行為担当官"_qs,
                                                 u"殿"_qs,
                                                 u"様式第５号"_qs,
                                                 u"(物品番号 6619) 12.1"_qs,
                                                 u"上記のとおり見積もりました。"_qs,
                                                 u"納入期限は、発注の日から"_qs,
                                                 u"日間"_qs,
                                                 u"納入場所は、発注者指定の場所"_qs};
        const QStringList ask{u"義肢等 　費用請求書"_qs, u"労働者災害補償保険"_qs, u"労働保険特別会計支出官"_qs,
                              u"様式第９号(1)"_qs};
        QTest::newRow("invoice") << u"repCsEstWorkAskA4"_qs << ask;
        QTest::newRow("later invoice") << u"repCsEstWorkAsk2A4"_qs
                                       << ask + QStringList{
                                                    u"(2) 申請者が受領委任を行うときのみ、記入してください。"_qs,
                                                    u"(3) 事項を選択する場合には、該当する事項を丸で囲んでください"_qs,
                                                    u"(4) 請求金額の頭部には、「\\」の文字をつけてください。"_qs};
        QTest::newRow("contract")
            << u"repCsEstReceipt"_qs
            << QStringList{u"請　　　　書"_qs,
                           u"上記の物品等の納入方については、下記の各条件を承認し、かつ遵守することを約してこ"_qs,
                           u"の請書を差し出します。"_qs,
                           u"％調整額"_qs,
                           u"合　　　計"_qs,
                           u"様分"_qs,
                           u"殿"_qs,
                           u"印"_qs,
                           u"1.  物品等の納入場所"_qs,
                           u"2.　物品等の納入期日"_qs,
                           u"3.　物品等の品質、構造、形状、寸法等は、すべて指定のとおりであつて検収担当官の検"_qs,
                           u"違約金として契約金額の100 分の10に相当する金額"_qs,
                           u"6.　納入物品等の検査は、納入届出後10日以内にするものとする。"_qs,
                           u"9.　この契約は、契約担当官等の都合により解除することができる。"_qs};
        const QStringList certificate{u"証   明   書"_qs,
                                      u"患者住所"_qs,
                                      u"氏　名"_qs,
                                      u"上記の者は"_qs,
                                      u"病　　　　　　　　　名"_qs,
                                      u"により（ 入院、外来 ）加療中のもので装具療法として"_qs,
                                      u"装　　　　　　具　　　　　　名"_qs,
                                      u"の装着の必要を認めます。"_qs,
                                      u"医療機関所在地"_qs,
                                      u"名　称"_qs,
                                      u"医　 　師"_qs,
                                      u"印"_qs,
                                      u"装具装着証明書"_qs,
                                      u"上記診断に依る装具を装着し適合した事を証明します。"_qs,
                                      u"入院・外来・他科入院加療中"_qs};
        const QStringList variant{u"意見および装具装着証明書"_qs,
                                  u"医師が証明する欄"_qs,
                                  u"入院外来の別"_qs,
                                  u"(該当する方に□)"_qs,
                                  u"□ 入 院"_qs,
                                  u"□ 外 来"_qs,
                                  u"上記傷病の治療のため"_qs,
                                  u"に装着した。"_qs,
                                  u"以上証明いたします。"_qs,
                                  u"医療機関の所在地"_qs,
                                  u"医 師 の 氏 名"_qs,
                                  u"年齢"_qs,
                                  u"歳"_qs};
        for (const QString& paper : {u"A4"_qs, u"B5"_qs}) {
            const auto row = [&](const QString& type, const QStringList& words) {
                QTest::addRow("opinion %s%s", qPrintable(paper), qPrintable(type))
                    << u"repCsEstOpinion"_qs + paper + type << words;
            };
            row(u"T1"_qs, certificate + QStringList{u"から"_qs});
            row(u"T2"_qs, certificate + QStringList{u"年齢"_qs, u"歳"_qs});
            row(u"T141"_qs, certificate);
            row(u"T145"_qs, variant);
        }
    }
    void everyPaperHasItsFixedWords() {
        QFETCH(QString, report);
        QFETCH(QStringList, words);
        const QString text = textOf(pagesOf(report, sampleRecords(reportClass(report)),
                                            reportClass(report).plan == ReportRowPlan::Form ? 0 : 99));
        for (const QString& word : words) QVERIFY2(text.contains(word), qPrintable(word));
    }

    void theOtherOpinionsLackTheTreatmentStart() {
        for (const QString& type : {u"T2"_qs, u"T141"_qs, u"T145"_qs}) {
            const QString name = u"repCsEstOpinionA4"_qs + type;
            const ReportPage page = pagesOf(name, sampleRecords(reportClass(name))).first();
            for (const ReportPageText& text : page.texts)
                QVERIFY2(!text.control.startsWith(u"txtHosp") && text.text != u"から", qPrintable(type));
        }
    }

    void birthDateAndAgeNeverStandTogether() {
        for (const QString& type : {u"T1"_qs, u"T2"_qs, u"T141"_qs, u"T145"_qs}) {
            const QString name = u"repCsEstOpinionB5"_qs + type;
            QSet<QString> controls;
            const ReportPage page = pagesOf(name, sampleRecords(reportClass(name))).first();
            for (const ReportPageText& text : page.texts) controls.insert(text.control);
            QVERIFY(controls.contains(u"txtBirth"_qs) != controls.contains(u"txtAge"_qs));
            QCOMPARE(controls.contains(u"txtAge"_qs), type == u"T2" || type == u"T145");
        }
    }
};

HALVANE_TEST(AccidentPapersTest)
#include "AccidentPapersTest.moc"
