#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "db/OwnedRowsManager.h"

namespace {

struct Law {
    QString id, branch, number, law;
};

struct Stamped {
    QString number, name, added;
};

// A table of three key columns, with all that a manager inherits.
class Laws : public TableManager<Law> {
public:
    Laws()
        : TableManager(u"顧客保険"_qs, {{&Law::id, u"顧客ID"_qs},
                                        {&Law::branch, u"顧客枝番"_qs},
                                        {&Law::number, u"項番"_qs},
                                        {&Law::law, u"法別No"_qs}}) {}

    using TableManager::count;
    using TableManager::dataColumns;
    using TableManager::exists;
    using TableManager::get;
    using TableManager::newColumns;
    using TableManager::nextNumber;
    using TableManager::remove;
    using TableManager::replace;
    using TableManager::save;
    using TableManager::update;
};

class Doctors : public TableManager<Stamped> {
public:
    Doctors() : TableManager(u"主治医"_qs, {{&Stamped::number, u"主治医No"_qs}, {&Stamped::name, u"主治医"_qs}}) {}

    using TableManager::dataColumns;
    using TableManager::newColumns;
};

class Charts : public TableManager<Stamped> {
public:
    Charts() : TableManager(u"顧客カルテ"_qs, {{&Stamped::number, u"カルテNo"_qs}, {&Stamped::added, u"登録日"_qs}}) {}

    using TableManager::dataColumns;
    using TableManager::newColumns;
};

class Lines : public OwnedRowsManager<Law> {
public:
    Lines()
        : OwnedRowsManager(u"顧客見積種目"_qs,
                           {{&Law::id, u"見積ID"_qs}, {&Law::number, u"見積種目No"_qs}, {&Law::law, u"種目"_qs}}) {}
};

} // namespace

class TableManagerTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Empty);
        m_laws.Prepare(m_database->connection());
        for (const auto& [branch, number] : {std::pair{"1", "1"}, {"1", "2"}, {"1", "10"}, {"2", "1"}})
            m_laws.save({u"A'1"_qs, QString::fromLatin1(branch), QString::fromLatin1(number), u"3"_qs});
        m_laws.save({u"B"_qs, u"1"_qs, u"1"_qs, u"4"_qs});
    }
    void cleanup() {
        m_laws.Release();
        m_database.reset();
    }

    void aRowIsFoundByItsWholeKey() {
        Law found;
        QVERIFY(m_laws.get({u"A'1"_qs, u"1"_qs, u" 2 "_qs}, found));
        QCOMPARE(found.number, u"2"_qs);
        QVERIFY(!m_laws.get({u"A'1"_qs, u"3"_qs, u"1"_qs}, found));
        QVERIFY(m_laws.exists({u"B"_qs, u"1"_qs, u"1"_qs}));
        QVERIFY(m_laws.exists({u"B"_qs}));
        QVERIFY(!m_laws.exists({u"C"_qs}));
    }

    void rowsOfAnOwnerStandInTheOrderOfTheirKey() {
        QStringList numbers;
        for (const Law& row : m_laws.rowsOf({u"A'1"_qs})) numbers << row.branch + u'-' + row.number;
        QCOMPARE(numbers.join(u' '), u"1-1 1-2 1-10 2-1"_qs);
        QCOMPARE(m_laws.rowsOf({u"A'1"_qs, u"2"_qs}).size(), 1);
    }

    void theNextNumberIsThatOfTheOwner() {
        QCOMPARE(m_laws.nextNumber(m_laws.keyed({u"A'1"_qs, u"1"_qs})), u"11"_qs);
        QCOMPARE(m_laws.nextNumber(m_laws.keyed({u"A'1"_qs, u"2"_qs})), u"2"_qs);
        QCOMPARE(m_laws.nextNumber(m_laws.keyed({u"C"_qs, u"1"_qs})), u"1"_qs);
        QCOMPARE(m_laws.nextNumber(), u"11"_qs);
    }

    void aSaveWritesOverTheRowOfItsKey() {
        m_laws.save({u"B"_qs, u"1"_qs, u"1"_qs, u"9"_qs});
        m_laws.save({u"B"_qs, u"1"_qs, u"2"_qs, u"8"_qs});
        const QList<Law> rows = m_laws.rowsOf({u"B"_qs});
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.first().law, u"9"_qs);
        m_laws.update({{}, {}, {}, u"7"_qs}, {u"法別No"_qs}, {u"B"_qs});
        QCOMPARE(m_laws.count(m_laws.equal(&Law::law, u"7"_qs)), 2);
    }

    void deletionTakesARowOrAnOwner() {
        m_laws.remove({u"A'1"_qs, u"1"_qs, u"2"_qs});
        QCOMPARE(m_laws.count(), 4);
        m_laws.remove({u"A'1"_qs, u"1"_qs});
        QCOMPARE(m_laws.count(), 2);
        m_laws.remove({u"A'1"_qs});
        QCOMPARE(m_laws.count(), 1);
    }

    void aKeyWithoutAValueTouchesNothing() {
        QVERIFY(!raised([this] { m_laws.remove({}); }).isEmpty());
        QCOMPARE(errorOf([this] { m_laws.remove({u"A'1"_qs, {}}); })->number(), 13);
        m_laws.remove({QString()});
        QVERIFY(!raised([this] { m_laws.update({}, {u"法別No"_qs}, {}); }).isEmpty());
        QCOMPARE(m_laws.count(), 5);
        QCOMPARE(m_laws.count(m_laws.equal(&Law::law, u"3"_qs)), 4);
    }

    void rowsAreReplacedWithinTheirOwner() {
        m_laws.replace({u"A'1"_qs, u"1"_qs}, {{u"A'1"_qs, u"1"_qs, u"1"_qs, u"5"_qs}});
        QCOMPARE(m_laws.rowsOf({u"A'1"_qs}).size(), 2);
        m_laws.replace({u"A'1"_qs}, {});
        QCOMPARE(m_laws.count(), 1);
    }

    void theLastRowOfAKnownOwnerMayGo() {
        Lines lines;
        lines.Prepare(m_database->connection());
        lines.SaveData({{u"E1"_qs, {}, u"1"_qs, u"a"_qs}, {u"E1"_qs, {}, u"2"_qs, u"b"_qs}});
        lines.SaveData({{u"E2"_qs, {}, u"1"_qs, u"c"_qs}});
        lines.SaveData(QList<Law>());
        QCOMPARE(lines.rowsOf({u"E1"_qs}).size(), 2);
        lines.SaveData(u"E1"_qs, {});
        QVERIFY(lines.rowsOf({u"E1"_qs}).isEmpty());
        QCOMPARE(lines.rowsOf({u"E2"_qs}).size(), 1);
    }

    void keysAndStampsAreWrittenAsTheSchemaSays() {
        QCOMPARE(m_laws.newColumns(), (QStringList{u"顧客ID"_qs, u"顧客枝番"_qs, u"項番"_qs, u"法別No"_qs}));
        QCOMPARE(m_laws.dataColumns(), QStringList{u"法別No"_qs});
        QCOMPARE(Doctors().newColumns(), QStringList{u"主治医"_qs}); // the engine issues the number
        QCOMPARE(Doctors().dataColumns(), QStringList{u"主治医"_qs});
        QCOMPARE(Charts().newColumns(), QStringList{u"カルテNo"_qs});
        QCOMPARE(Charts().dataColumns(), QStringList());
    }

    void membersMakeConditionsAndOrders() {
        QCOMPARE(m_laws.startsWith({{&Law::id, u"A%"_qs}, {&Law::law, {}}}), u"[顧客保険].[顧客ID] LIKE 'A[%]%'"_qs);
        QCOMPARE(m_laws.sorted({&Law::law, &Law::id}, false), u"[顧客保険].[法別No] DESC, [顧客保険].[顧客ID] DESC"_qs);
        QCOMPARE(m_laws.byKey(), u"[顧客保険].[顧客ID],[顧客保険].[顧客枝番],[顧客保険].[項番]"_qs);
        QVERIFY(!raised([] { Doctors().column(&Stamped::added); }).isEmpty());
    }

private:
    std::unique_ptr<TestDatabase> m_database;
    Laws m_laws;
};

HALVANE_TEST(TableManagerTest)
#include "TableManagerTest.moc"
