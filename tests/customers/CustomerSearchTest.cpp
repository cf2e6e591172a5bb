#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "customers/clsCustomerManager.h"
#include "db/SqlAlike.h"

// One person as three programs would have written her, and signs that LIKE knows.
class CustomerSearchTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;

    void add(const QString& id, const QString& name, const QString& reading, const QString& address) {
        m_database->connection().execute(
            u"INSERT INTO [顧客情報] ([顧客ID], [顧客枝番], [名前1], [フリガナ1], [住所1], [電話])"
            u" VALUES ('%1', 1, '%2', '%3', '%4', '052-100-%1')"_qs.arg(id, name, reading, address));
    }

    QStringList found(const SqlTerm& where) {
        QStringList ids;
        Recordset rows =
            m_database->connection().query(SqlSelect(u"SELECT [顧客ID] FROM [顧客情報]"_qs, where, u"[顧客ID]"_qs));
        while (rows.next()) ids << rows.value(0);
        return ids;
    }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>();
        m_database->prepareManagers();
        add(u"0001"_qs, u"橋本"_qs, u"ﾊｼﾓﾄ"_qs, u"栄3丁目"_qs);
        add(u"0002"_qs, u"ハシモト"_qs, u"ハシモト"_qs, u"栄３丁目"_qs);
        add(u"0003"_qs, u"はしもと"_qs, u"はしもと"_qs, u"栄三丁目"_qs);
        add(u"0004"_qs, u"ＡＢＣ工房"_qs, u"ABC"_qs, u"100%引き"_qs);
    }
    void cleanupTestCase() { m_database.reset(); }

    void aReadingFindsEverySpelling_data() {
        QTest::addColumn<QString>("typed");
        for (const QString& typed : {u"ﾊｼﾓﾄ"_qs, u"ハシモト"_qs, u"はしもと"_qs, u"しも"_qs, u"ﾓﾄ"_qs})
            QTest::addRow("%s", qPrintable(typed)) << typed;
    }
    void aReadingFindsEverySpelling() {
        QFETCH(QString, typed);
        const QStringList all{u"0001"_qs, u"0002"_qs, u"0003"_qs};
        QCOMPARE(found(SqlContainsAlike(gCustomerManager.column(&clsCustomer::CustKn1), typed)), all);
        QCOMPARE(found(clsCustomerManager::SelectContaining(typed)), all);
    }

    void widthsAndCasesAreAlike() {
        const QStringList works{u"0004"_qs};
        for (const QString& typed : {u"abc"_qs, u"ABC"_qs, u"ａｂｃ"_qs, u"ＡＢＣ"_qs})
            QCOMPARE(found(SqlContainsAlike(gCustomerManager.column(&clsCustomer::CustNm1), typed)), works);
        for (const QString& typed : {u"栄3"_qs, u"栄３"_qs})
            QCOMPARE(found(clsCustomerManager::SelectContaining(typed)), (QStringList{u"0001"_qs, u"0002"_qs}));
    }

    void signsOfPatternsStandForThemselves() {
        for (const QString& typed : {u"100%"_qs, u"１００％"_qs})
            QCOMPARE(found(clsCustomerManager::SelectContaining(typed)), QStringList{u"0004"_qs});
        QVERIFY(found(clsCustomerManager::SelectContaining(u"_"_qs)).isEmpty());
        QVERIFY(found(clsCustomerManager::SelectContaining(u"'"_qs)).isEmpty());
    }

    void nothingTypedAsksNothing() {
        QVERIFY(clsCustomerManager::SelectContaining({}).isEmpty());
        QVERIFY(SqlContainsAlike(gCustomerManager.column(&clsCustomer::CustNm1), {}).isEmpty());
    }

    void aTextOfOneSpellingIsOneTerm() {
        const SqlColumn name = gCustomerManager.column(&clsCustomer::CustNm1);
        QCOMPARE(SqlContainsAlike(name, u"橋"_qs), SqlContains(name, u"橋"_qs));
    }
};

HALVANE_TEST(CustomerSearchTest)
#include "CustomerSearchTest.moc"
