#include "HalvaneTest.h"
#include "support/Raised.h"

#include "base/clsProfile.h"
#include "reports/DocumentChoice.h"

#include <QFile>
#include <QTemporaryDir>

using Outcome = DocumentChoice::Outcome;

namespace {

const QString anySum = u"100000"_qs;

DocumentChoiceSettings withValues(const QHash<int, int>& values) {
    DocumentChoiceSettings settings;
    settings.values = values;
    return settings;
}

DocumentChoiceSettings fromProfile(const QByteArray& ini) {
    QTemporaryDir folder;
    QFile file(folder.filePath(u"Halvane.ini"_qs));
    if (!file.open(QIODevice::WriteOnly)) qFatal("no file");
    file.write(ini);
    file.close();
    return readDocumentChoiceSettings(clsProfile(file.fileName()));
}

} // namespace

class DocumentChoiceTest : public QObject {
    Q_OBJECT

private slots:
    void ordinaryRowsTakeTheLayoutOfPaperAndInstallation_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<DocumentChoiceSettings>("settings");
        QTest::addColumn<bool>("receivedMark");
        QTest::addColumn<QString>("report");
        QTest::addColumn<int>("prtType");
        DocumentChoiceSettings variants;
        variants.variants = {u"repCsEstimate2A4"_qs, u"repCsEstPay2A4"_qs};
        DocumentChoiceSettings accounts;
        accounts.threeAccounts = true;
        const DocumentChoiceSettings standard;
        const DocumentChoiceSettings small = withValues({{21, 2}, {23, 2}, {25, 2}, {27, 2}, {29, 2}});
        QTest::newRow("estimate") << 1 << standard << false << u"repCsEstimateA4"_qs << 0;
        QTest::newRow("estimate B5") << 1 << small << false << u"repCsEstimateB5"_qs << 0;
        QTest::newRow("estimate variant") << 1 << variants << false << u"repCsEstimate2A4"_qs << 0;
        QTest::newRow("breakdown") << 2 << standard << false << u"repCsEstItemA4"_qs << 1;
        QTest::newRow("breakdown B5") << 2 << small << false << u"repCsEstItemB5"_qs << 1;
        QTest::newRow("detail") << 3 << standard << false << u"repCsEstItemA4"_qs << 2;
        QTest::newRow("detail B5") << 3 << small << false << u"repCsEstItemB5"_qs << 2;
        QTest::newRow("invoice") << 4 << standard << false << u"repCsEstAskA4NoM"_qs << 0;
        QTest::newRow("invoice with mark") << 4 << standard << true << u"repCsEstAskA4OnM"_qs << 0;
        QTest::newRow("invoice with accounts") << 4 << accounts << true << u"repCsEstAskA4NoM2"_qs << 0;
        QTest::newRow("invoice B5") << 4 << small << true << u"repCsEstAskB5"_qs << 0;
        QTest::newRow("receipt") << 5 << standard << false << u"repCsEstPayA4"_qs << 0;
        QTest::newRow("receipt variant") << 5 << variants << false << u"repCsEstPay2A4"_qs << 0;
        QTest::newRow("receipt B5") << 5 << small << false << u"repCsEstPayB5"_qs << 0;
    }
    void ordinaryRowsTakeTheLayoutOfPaperAndInstallation() {
        QFETCH(int, kind);
        QFETCH(DocumentChoiceSettings, settings);
        QFETCH(bool, receivedMark);
        QFETCH(QString, report);
        QFETCH(int, prtType);
        const DocumentChoice choice =
            chooseDocument(static_cast<DocumentKind>(kind), false, settings, receivedMark, anySum);
        QCOMPARE(choice, (DocumentChoice{Outcome::Print, {report}, {}, prtType}));
        QCOMPARE(reportClass(report).name, report);
    }

    void accidentRowsTakeTheirSheetsOnlyWhenTheSettingSaysSo_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<DocumentChoiceSettings>("settings");
        QTest::addColumn<int>("outcome");
        QTest::addColumn<QStringList>("classes");
        DocumentChoiceSettings profile;
        profile.accidentInvoice = true;
        const DocumentChoiceSettings sheets = withValues({{41, 2}, {43, 2}});
        QTest::newRow("estimate, off") << 1 << withValues({{41, 1}}) << int(Outcome::Print)
                                       << QStringList{u"repCsEstimateA4"_qs};
        QTest::newRow("estimate") << 1 << sheets << int(Outcome::AccidentSheets)
                                  << QStringList{u"repCsEstWorkimateA4"_qs};
        QTest::newRow("breakdown") << 2 << sheets << int(Outcome::AccidentSheets) << QStringList();
        QTest::newRow("detail") << 3 << sheets << int(Outcome::SkipAccident) << QStringList();
        QTest::newRow("invoice, off") << 4 << withValues({{41, 2}}) << int(Outcome::Print)
                                      << QStringList{u"repCsEstAskA4NoM"_qs};
        QTest::newRow("invoice") << 4 << sheets << int(Outcome::AccidentSheets)
                                 << QStringList{u"repCsEstWorkAsk2A4"_qs};
        QTest::newRow("invoice by profile")
            << 4 << profile << int(Outcome::AccidentSheets) << QStringList{u"repCsEstWorkAskA4"_qs};
        QTest::newRow("receipt") << 5 << sheets << int(Outcome::Print) << QStringList{u"repCsEstPayA4"_qs};
    }
    void accidentRowsTakeTheirSheetsOnlyWhenTheSettingSaysSo() {
        QFETCH(int, kind);
        QFETCH(DocumentChoiceSettings, settings);
        QFETCH(int, outcome);
        QFETCH(QStringList, classes);
        const DocumentChoice choice = chooseDocument(static_cast<DocumentKind>(kind), true, settings, false, anySum);
        QCOMPARE(int(choice.outcome), outcome);
        QCOMPARE(choice.classes, classes);
        QCOMPARE(!choice.message.isEmpty(), choice.outcome == Outcome::SkipAccident);
    }

    void theFirstItemDecidesTheSheets_data() {
        using Rows = AccidentSheets::Rows;
        QTest::addColumn<QString>("item");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QStringList>("classes");
        const QStringList kara{u"repCsEstWorkKara1"_qs, u"repCsEstWorkKara2"_qs};
        const QStringList frame{u"repCsEstWorkFrame1"_qs, u"repCsEstWorkFrame2"_qs};
        const QStringList equip{u"repCsEstWorkEquip1"_qs, u"repCsEstWorkEquip2"_qs};
        const QStringList chair{u"repCsEstWorkWheelchair1"_qs, u"repCsEstWorkWheelchair3"_qs};
        for (const char* item : {"殻構造義手", "殻構造義足"})
            QTest::newRow(item) << QString::fromUtf8(item) << int(Rows::Limb) << kara;
        for (const char* item : {"骨格構造義手", "骨格構造義足"})
            QTest::newRow(item) << QString::fromUtf8(item) << int(Rows::Limb) << frame;
        for (const char* item : {"下肢装具", "靴型装具", "体幹装具", "上肢装具"})
            QTest::newRow(item) << QString::fromUtf8(item) << int(Rows::Equip) << equip;
        for (const char* item : {"車いす", "電動車いす", "車椅子", "電動車椅子"})
            QTest::newRow(item) << QString::fromUtf8(item) << int(Rows::Ordinary) << chair;
        for (const char* item : {"座位保持装置", ""})
            QTest::newRow(item) << QString::fromUtf8(item) << int(Rows::Ordinary) << QStringList{u"repCsEstItemA4"_qs};
    }
    void theFirstItemDecidesTheSheets() {
        QFETCH(QString, item);
        QFETCH(QStringList, classes);
        const AccidentSheets sheets = accidentSheets(item);
        QTEST(int(sheets.rows), "rows");
        QCOMPARE(sheets.classes, classes);
        QCOMPARE(sheets.prtType, classes.first() == u"repCsEstItemA4" ? 2 : 0);
        for (const QString& name : classes) QCOMPARE(reportClass(name).name, name);
    }

    void anEstimateOfExactly500000NeedsNoContractReceipt() {
        const DocumentChoiceSettings settings = withValues({{41, 2}});
        const auto classes = [&](const QString& sum) {
            return chooseDocument(DocumentKind::Estimate, true, settings, false, sum).classes;
        };
        QCOMPARE(classes(u"500000"_qs), QStringList{u"repCsEstWorkimateA4"_qs});
        QCOMPARE(classes(u"500001"_qs), (QStringList{u"repCsEstWorkimateA4"_qs, u"repCsEstReceipt"_qs}));
    }

    void theEntriesOfTheInstallationChooseTheVariants() {
        const auto printed = [](DocumentKind kind, const QByteArray& ini) {
            return chooseDocument(kind, false, fromProfile(ini), false, anySum).classes.join(u' ');
        };
        using enum DocumentKind;
        QCOMPARE(printed(Estimate, ""), u"repCsEstimateA4"_qs);
        QCOMPARE(printed(Estimate, "[Variant]\r\nrepCsEstimate2A4=1\r\n"), u"repCsEstimate2A4"_qs);
        QCOMPARE(printed(Estimate, "[EstimateKind]\r\nImateName=REPCSESTIMATE2A4\r\n"), u"repCsEstimate2A4"_qs);
        QCOMPARE(printed(Receipt, "[Variant]\r\nrepCsEstPay2A4=1\r\n"), u"repCsEstPay2A4"_qs);
        QCOMPARE(printed(Receipt, "[EstPayKind]\r\nPayName=repCsEstPay2A4\r\n"), u"repCsEstPay2A4"_qs);
        QCOMPARE(printed(Receipt, "[EstPayKind]\r\nPayName=repCsEstPayA4\r\n"), u"repCsEstPayA4"_qs);
        QVERIFY(fromProfile("[WorkAsk]\r\nWorkOutPut=TRUE\r\n").accidentInvoice);
        QVERIFY(fromProfile("[PayBank]\r\nPlural=True\r\n").threeAccounts);
        QCOMPARE(fromProfile("").contractLimit, u"500000"_qs);
        QCOMPARE(fromProfile("[Receipt]\r\nPrice=300000\r\n").contractLimit, u"300000"_qs);
        QVERIFY(raised([] { fromProfile("[Receipt]\r\nPrice=abc\r\n"); }).contains(u"[Receipt] の Price（abc）"_qs));
    }

    void onlyInvoicesAndReceiptsHaveACopyUnlessTheSettingIsTwo() {
        QCOMPARE(documentCopies(DocumentKind::Estimate, 1), 1);
        QCOMPARE(documentCopies(DocumentKind::Detail, 0), 1);
        QCOMPARE(documentCopies(DocumentKind::Invoice, 2), 1);
        QCOMPARE(documentCopies(DocumentKind::Invoice, 1), 2);
        QCOMPARE(documentCopies(DocumentKind::Receipt, 0), 2);
    }
};

HALVANE_TEST(DocumentChoiceTest)
#include "DocumentChoiceTest.moc"
