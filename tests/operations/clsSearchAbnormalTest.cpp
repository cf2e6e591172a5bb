#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "base/Text.h"
#include "operations/clsSearchAbnormal.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

const QStringList titles{u"【完成要素が消えている可能性のある顧客見積】"_qs,
                         u"【基本・製作要素が消えている可能性のある顧客見積】"_qs,
                         u"【基本・製作要素、完成要素の両方が消えている可能性のある顧客見積】"_qs};

} // namespace

class clsSearchAbnormalTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    void execute(const QString& statement) { m_database->connection().execute(statement); }

    // An estimate with a total, lines of 基本・製作要素 and of 完成要素.
    void add(const QString& id, const QString& total, const QStringList& basic, const QStringList& finished) {
        execute(
            u"INSERT INTO [顧客見積情報] ([見積ID], [見積番号], [顧客ID], [顧客枝番], [合計], [価格設定年度], [登録日])"
            u" VALUES ('%1', 'N%1', '00000001', 1, %2, '2024', #2024/04/01 9:00:00#)"_qs.arg(id, total));
        int line = 0;
        for (const QString& price : basic)
            execute(
                u"INSERT INTO [顧客見積基本製作要素] ([見積ID], [見積種目No], [要素No], [価格]) VALUES ('%1', 1, %2, %3)"_qs
                    .arg(id)
                    .arg(++line)
                    .arg(price));
        for (const QString& price : finished)
            execute(
                u"INSERT INTO [顧客見積完成要素] ([見積ID], [見積種目No], [要素No], [価格]) VALUES ('%1', 1, %2, %3)"_qs
                    .arg(id)
                    .arg(++line)
                    .arg(price));
    }

    QString run(const std::function<bool()>& goOn = {}) {
        CapturedMessages messages;
        QString path;
        {
            clsSearchAbnormal check;
            path = check.path();
            check.Prepare(m_database->connection());
            if (goOn) check.progress = [goOn](const QString&, qint64, qint64) { return goOn(); };
            if (check.WriteKanseiLost() && check.WriteKihonLost()) check.WriteBothLost();
        }
        m_said = messages.texts;
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? Text::fromCp932(file.readAll()) : QString();
    }

    // The lines of a pass that tell of an estimate.
    static QStringList findings(const QString& report, int pass) {
        const QString part = report.section(titles.at(pass), 1).section(u"【"_qs, 0, 0);
        return part.split(u"\r\n"_qs, Qt::SkipEmptyParts).mid(3);
    }

    QStringList m_said;

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile(u"[Log]\r\nPath=log\r\n"_qs);
        for (const QString& table : {u"顧客見積情報"_qs, u"顧客見積基本製作要素"_qs, u"顧客見積完成要素"_qs})
            execute(u"DELETE FROM [%1]"_qs.arg(table));
    }
    void cleanup() { m_database.reset(); }

    void aTotalWithoutLinesAppearsInTheThirdPass() {
        add(u"1"_qs, u"1000"_qs, {}, {});
        const QString report = run();
        QCOMPARE(findings(report, 0), QStringList());
        QCOMPARE(findings(report, 1), QStringList());
        QCOMPARE(findings(report, 2).size(), 1);
        QVERIFY(
            findings(report, 2).first().endsWith(u"        1,000円            0円            0円        1,000円"_qs));
    }

    void anEmptyEstimateAppearsNowhere() {
        add(u"1"_qs, u"0"_qs, {}, {});
        const QString report = run();
        for (int pass = 0; pass < 3; ++pass) QCOMPARE(findings(report, pass), QStringList());
    }

    void eachPassFindsItsOwn() {
        add(u"1"_qs, u"1000"_qs, {u"300"_qs, u"200"_qs}, {});
        add(u"2"_qs, u"1000"_qs, {}, {u"400"_qs});
        add(u"3"_qs, u"500"_qs, {u"300"_qs, u"200"_qs}, {}); // agrees
        add(u"4"_qs, u"9999"_qs, {u"300"_qs}, {u"400"_qs});  // has lines of both
        add(u"5"_qs, u"1000"_qs, {}, {});
        const QString report = run();
        QCOMPARE(findings(report, 0).size(), 1);
        QVERIFY(findings(report, 0).first().contains(u"N1"_qs) && findings(report, 0).first().contains(u"500円"_qs));
        QCOMPARE(findings(report, 1).size(), 1);
        QVERIFY(findings(report, 1).first().contains(u"N2"_qs) && findings(report, 1).first().contains(u"600円"_qs));
        QCOMPARE(findings(report, 2).size(), 1);
        QVERIFY(findings(report, 2).first().contains(u"N5"_qs));
    }

    void withoutFindingsThereAreTitlesAndHeadingsAlone() {
        const QString report = run();
        QCOMPARE(report.count(u"\r\n"_qs), 3 * 4);
        for (const QString& title : titles) QCOMPARE(report.count(title), 1);
        QCOMPARE(report.count(QString(72, u'-')), 6);
        QCOMPARE(report.count(u"価格年度"_qs), 3);
    }

    void linesStandByYearDateAndNumber() {
        for (const QString& id : {u"3"_qs, u"1"_qs, u"2"_qs}) add(id, u"1000"_qs, {}, {});
        execute(u"UPDATE [顧客見積情報] SET [価格設定年度] = '2023' WHERE [見積ID] = '3'"_qs);
        execute(u"UPDATE [顧客見積情報] SET [登録日] = #2024/03/01# WHERE [見積ID] = '2'"_qs);
        const QStringList lines = findings(run(), 2);
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines.at(0).startsWith(u"2023"_qs) && lines.at(0).contains(u"N3"_qs));
        QVERIFY(lines.at(1).contains(u"N2"_qs) && lines.at(1).contains(u"2024年3月1日"_qs));
        QVERIFY(lines.at(2).contains(u"N1"_qs));
    }

    void anAmountTooLongKeepsItsEnd() {
        add(u"1"_qs, u"12345678"_qs, {}, {});
        QVERIFY(findings(run(), 2).first().contains(u"    2,345,678円"_qs));
    }

    void estimatesWithoutANumberAndOfOneNumberAreFoundOnce() {
        add(u"1"_qs, u"1000"_qs, {}, {});
        add(u"2"_qs, u"2000"_qs, {}, {});
        execute(u"UPDATE [顧客見積情報] SET [見積番号] = NULL WHERE [見積ID] = '1'"_qs);
        QCOMPARE(findings(run(), 2).size(), 2);
    }

    void runningTwiceWithinAMinuteReplacesTheFile() {
        const FixedClock clock(u"2026/11/22 1:45:53"_qs);
        add(u"1"_qs, u"1000"_qs, {}, {});
        run();
        execute(u"DELETE FROM [顧客見積情報]"_qs);
        QCOMPARE(findings(run(), 2), QStringList());
        QCOMPARE(QDir(m_database->folder() + u"/log"_qs).entryList({u"見積明細チェック*"_qs}),
                 QStringList(u"見積明細チェック20261122-01-45.txt"_qs));
    }

    void theEndIsToldWithThePath() {
        const FixedClock clock(u"2026/11/22 1:45:53"_qs);
        run();
        QCOMPARE(m_said,
                 QStringList(u"見積金額チェックが完了しました。\n%1に結果が出力されました。"_qs.arg(
                     QDir::toNativeSeparators(m_database->folder() + u"/log/見積明細チェック20261122-01-45.txt"_qs))));
    }

    void aStoppedCheckSaysSo() {
        add(u"1"_qs, u"1000"_qs, {}, {});
        run([] { return false; });
        QCOMPARE(m_said.size(), 1);
        QVERIFY(m_said.first().startsWith(u"見積金額チェックを中止しました。"_qs));
    }

    void theReportIsForOwnerAndGroupAlone() {
        run();
        const QDir log(m_database->folder() + u"/log"_qs);
        const QString file = log.entryList({u"見積明細チェック*"_qs}).value(0);
        QVERIFY(!(QFile::permissions(log.filePath(file)) & (QFile::ReadOther | QFile::WriteOther)));
    }

    void anUnknownSignOfANameIsWrittenAsItsCode() {
        add(u"1"_qs, u"1000"_qs, {}, {});
        execute(u"UPDATE [顧客情報] SET [名前1] = '𠮷田' WHERE [顧客ID] = '00000001'"_qs);
        QVERIFY(findings(run(), 2).first().contains(u"U+20BB7田"_qs));
    }
};

HALVANE_TEST(clsSearchAbnormalTest)
#include "clsSearchAbnormalTest.moc"
