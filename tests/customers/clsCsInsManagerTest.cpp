#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "customers/clsCsInsManager.h"

class clsCsInsManagerTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Empty);
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void lawIsKeptOncePerBranch() {
        for (int round = 0; round < 2; ++round)
            for (const char* law : {"1", "2"}) addIfMissing(u"1"_qs, QString::fromLatin1(law));
        QCOMPARE(laws(u"1"_qs), u"1:1 2:2"_qs);
        addIfMissing(u"2"_qs, u"2"_qs);
        QCOMPARE(laws(u"2"_qs), u"1:2"_qs);
        QCOMPARE(laws(u"1"_qs), u"1:1 2:2"_qs);
    }

    void lawWithoutANumberIsNone_data() {
        QTest::addColumn<QString>("law");
        QTest::newRow("zero") << u"0"_qs;
        QTest::newRow("empty") << QString();
    }
    void lawWithoutANumberIsNone() {
        QFETCH(QString, law);
        addIfMissing(u"1"_qs, law);
        QCOMPARE(laws(u"1"_qs), QString());
    }

    void saveInsertsOrUpdates() {
        clsCsIns row{u"C'1"_qs, u"1"_qs, u"0"_qs, u"5"_qs};
        gCsInsManager.SaveData(row);
        QCOMPARE(row.DataNo, u"1"_qs);
        row.InsNo = u"6"_qs;
        gCsInsManager.SaveData(row);
        clsCsIns given{u"C'1"_qs, u"1"_qs, u"4"_qs, u"7"_qs};
        gCsInsManager.SaveData(given);
        QCOMPARE(laws(u"1"_qs), u"1:6 4:7"_qs);
        QCOMPARE(gCsInsManager.GetNewDataNo(u"C'1"_qs, u"1"_qs), u"5"_qs);
        QVERIFY(gCsInsManager.CheckExistData(u"C'1"_qs, u"1"_qs, u"4"_qs));
        QVERIFY(!gCsInsManager.CheckExistData(u"C'1"_qs, u"1"_qs, u"3"_qs));
        QVERIFY(gCsInsManager.GetData(u"C'1"_qs, u"1"_qs, u"4"_qs, row));
        QCOMPARE(row.InsNo, u"7"_qs);
    }

    void wholeListIsReplacedAndNumberedAnew() {
        for (const QString& branch : {u"1"_qs, u"2"_qs})
            gCsInsManager.SaveAll({u"A"_qs, branch}, {u"3"_qs, u"1"_qs, u"7"_qs});
        gCsInsManager.SaveAll({u"A"_qs, u"1"_qs}, {u"9"_qs, u"3"_qs});
        QStringList laws;
        for (const clsCsIns& row : gCsInsManager.rowsOf({u"A"_qs})) laws << row.CustSubId + row.DataNo + row.InsNo;
        QCOMPARE(laws.join(u' '), u"119 123 213 221 237"_qs);
        gCsInsManager.SaveAll({u"A"_qs, u"1"_qs}, {});
        QVERIFY(gCsInsManager.rowsOf({u"A"_qs, u"1"_qs}).isEmpty());
    }

    void deletionTakesOneRowOrTheWholeList() {
        for (const char* law : {"1", "2", "3"}) addIfMissing(u"1"_qs, QString::fromLatin1(law));
        addIfMissing(u"2"_qs, u"1"_qs);
        gCsInsManager.DeleteData(u"C'1"_qs, u"1"_qs, u"2"_qs);
        QCOMPARE(laws(u"1"_qs), u"1:1 3:3"_qs);
        gCsInsManager.DeleteData(u"C'1"_qs, u"1"_qs, u"0"_qs);
        QCOMPARE(laws(u"1"_qs), QString());
        QCOMPARE(laws(u"2"_qs), u"1:1"_qs);
        gCsInsManager.DeleteData(u"C'1"_qs, u"2"_qs, {});
        QCOMPARE(laws(u"2"_qs), QString());
    }

private:
    void addIfMissing(const QString& branch, const QString& law) {
        clsCsIns row{u"C'1"_qs, branch, u"0"_qs, law};
        gCsInsManager.AddIfMissing(row);
    }
    QString laws(const QString& branch) {
        QList<clsCsIns> rows;
        gCsInsManager.GetList(rows, u"[顧客枝番] = "_qs + branch, u"[顧客ID],[顧客枝番],[項番]"_qs);
        QStringList texts;
        for (const clsCsIns& row : rows) texts << row.DataNo + u':' + row.InsNo;
        return texts.join(u' ');
    }

    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(clsCsInsManagerTest)
#include "clsCsInsManagerTest.moc"
