#include "HalvaneTest.h"
#include "support/EstimateSamples.h"
#include "support/TestDatabase.h"

#include "base/Arrangement.h"
#include "estimates/EstimateManagers.h"
#include "estimates/RecentOrders.h"

#include <QDir>
#include <QJsonArray>

class RecentOrdersTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;

    static QStringList listed() {
        QStringList ids;
        for (const RecentOrders::Order& order : RecentOrders::list()) ids << order.EstId;
        return ids;
    }

    QStringList storedIds() { return gCsEstimateManager.IdsWithMst({}, gCsEstimateManager.byKey()); }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
        Arrangement::keepIn(QDir(m_database->folder()).filePath(u"arrangement.json"_qs));
    }
    void cleanup() {
        Arrangement::keepIn({});
        m_database.reset();
    }

    void theLastOneStandsFirstAndOnce() {
        const QStringList ids = storedIds();
        for (const int i : {0, 1, 2, 1}) RecentOrders::note(ids.at(i));
        RecentOrders::note({});
        QCOMPARE(listed(), (QStringList{ids.at(1), ids.at(2), ids.at(0)}));
    }

    void tenAreKept() {
        const QStringList ids = storedIds();
        for (int i = 0; i < 12; ++i) RecentOrders::note(ids.at(i));
        QCOMPARE(listed().size(), 10);
        QCOMPARE(listed().first(), ids.at(11));
        QCOMPARE(listed().last(), ids.at(2));
    }

    void anOrderIsToldByNumberPersonAndName() {
        const QString id = storedIds().first();
        RecentOrders::note(id);
        const RecentOrders::Order order = RecentOrders::list().first();
        clsCsEstimate estimate;
        QVERIFY(gCsEstimateManager.GetData(id, estimate));
        clsCustomer customer;
        QVERIFY(gCustomerManager.GetData(estimate.CustId, estimate.CustSubId, customer));
        QCOMPARE(order.EstNo, estimate.EstNo);
        QCOMPARE(order.EstNm, estimate.EstNm);
        QVERIFY(order.Name.contains(customer.CustNm1) && order.Name.contains(customer.CustNm2));
    }

    void aDeletedOrderIsNotOffered() {
        const QStringList ids = storedIds();
        RecentOrders::note(ids.at(0));
        RecentOrders::note(ids.at(1));
        gCsEstimateManager.DeleteData(ids.at(1));
        QCOMPARE(listed(), QStringList{ids.at(0)});
    }

    void noNameStaysOnTheMachine() {
        const QString id = storedIds().first();
        RecentOrders::note(id);
        QFile file(QDir(m_database->folder()).filePath(u"arrangement.json"_qs));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString kept = QString::fromUtf8(file.readAll());
        QVERIFY(kept.contains(id));
        QVERIFY(!kept.contains(RecentOrders::list().first().EstNo));
        QVERIFY(!kept.contains(RecentOrders::list().first().Name));
    }

    void whatIsNoListOfIdsIsPassedOver() {
        const QString id = storedIds().first();
        Arrangement::keep(u"recentOrders"_qs, {{u"ids"_qs, QJsonArray{3, QJsonObject(), QString(), u"'; x"_qs, id}}});
        QCOMPARE(listed(), QStringList{id});
        Arrangement::keep(u"recentOrders"_qs, {{u"ids"_qs, u"none"_qs}});
        QVERIFY(listed().isEmpty());
    }
};

HALVANE_TEST(RecentOrdersTest)
#include "RecentOrdersTest.moc"
