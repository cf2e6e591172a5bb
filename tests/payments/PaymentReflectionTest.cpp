#include "HalvaneTest.h"
#include "support/Kills.h"
#include "support/PaymentSamples.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/AppError.h"
#include "payments/PaymentReflection.h"
#include "payments/PaymentRows.h"
#include "payments/PaymentSearch.h"

namespace {

const QString day = u"2026/11/20"_qs;
const QString manyClaims = u"0000000087"_qs; // 2026000017, with four claims, of which the second is not paid
const QString twoClaims = u"0000000086"_qs;
constexpr int ordersPerRun = 20;

int kills() { return Kills::count(8); }

} // namespace

// Payments given to many orders at once.
class PaymentReflectionTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    QString field(const QString& column, const QString& id) {
        return m_database->connection().scalar(
            u"SELECT [%1] FROM [顧客見積情報] WHERE [見積ID] = '%2'"_qs.arg(column, id));
    }
    QString ofClaim(const QString& column, const QString& id, int number) {
        return m_database->connection().scalar(
            u"SELECT [%1] FROM [顧客見積請求] WHERE [見積ID] = '%2' AND [請求No] = %3"_qs.arg(column, id).arg(number));
    }
    static QString stateOf(Connection& connection, const QString& id) {
        QString state;
        PaymentRows(connection).forEach({id}, [&](const PaymentRow& row) { state = paymentState(row.estimate); });
        return state;
    }
    PaymentEntry paid(const QString& id, const QString& date = day) {
        return {id, true, false, date, stateOf(m_database->connection(), id)};
    }
    QStringList reflect(const QList<PaymentEntry>& entries, bool receivesTotal = false) {
        return reflectPayments(m_database->connection(), entries, receivesTotal);
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void aDatePaysTheOrderAndItsOpenClaims() {
        QCOMPARE(reflect({paid(manyClaims)}), QStringList());
        QCOMPARE(field(u"処理区分"_qs, manyClaims), u"1"_qs);
        QCOMPARE(field(u"入金完了日"_qs, manyClaims), day);
        QCOMPARE(field(u"編集者No"_qs, manyClaims), u"1"_qs);
        QCOMPARE(ofClaim(u"入金日"_qs, manyClaims, 1), u"2026/10/20"_qs);
        QCOMPARE(ofClaim(u"入金日"_qs, manyClaims, 2), day);
        QCOMPARE(ofClaim(u"領収金額"_qs, manyClaims, 1), u"474138"_qs);
    }

    void theFirstClaimReceivesTheTotalWhereTheOfficeSaysSo() {
        reflect({paid(manyClaims)}, true);
        QCOMPARE(ofClaim(u"領収金額"_qs, manyClaims, 1), u"677340"_qs);
        QCOMPARE(ofClaim(u"領収金額"_qs, manyClaims, 2), QString());
    }

    void withoutADateNothingButTheStatusCanChange() {
        QCOMPARE(
            reflect({paid(manyClaims, {}), {twoClaims, true, true, {}, stateOf(m_database->connection(), twoClaims)}},
                    true),
            QStringList());
        QCOMPARE(field(u"処理区分"_qs, manyClaims), u"2"_qs);
        QCOMPARE(field(u"処理区分"_qs, twoClaims), u"99"_qs);
        QCOMPARE(ofClaim(u"入金日"_qs, manyClaims, 2), QString());
        QCOMPARE(ofClaim(u"領収金額"_qs, manyClaims, 1), u"474138"_qs);
    }

    void aPaymentIsTakenBackByATickWithoutDate() {
        reflect({paid(manyClaims)});
        reflect({paid(manyClaims, {})});
        QCOMPARE(field(u"入金完了日"_qs, manyClaims), QString());
        QCOMPARE(field(u"処理区分"_qs, manyClaims), u"1"_qs);
        QCOMPARE(ofClaim(u"入金日"_qs, manyClaims, 2), day);
    }

    void aDateWinsOverTheUncollectedTick() {
        reflect({{manyClaims, true, true, day, stateOf(m_database->connection(), manyClaims)}});
        QCOMPARE(field(u"処理区分"_qs, manyClaims), u"1"_qs);
    }

    void aRowWithoutATickIsNotWritten() {
        reflect({{manyClaims, false, false, day, stateOf(m_database->connection(), manyClaims)}});
        QCOMPARE(field(u"処理区分"_qs, manyClaims), u"2"_qs);
        QCOMPARE(field(u"入金完了日"_qs, manyClaims), QString());
    }

    void aSecondMachineIsToldWhatTheFirstHasPaid() {
        const auto second = m_database->another();
        const QList<PaymentEntry> mine{paid(manyClaims), paid(twoClaims)};
        QList<PaymentEntry> theirs{{manyClaims, true, false, u"2026/11/19"_qs, stateOf(*second, manyClaims)}};
        QCOMPARE(reflectPayments(*second, theirs, true), QStringList());
        QCOMPARE(reflect(mine, true), QStringList{manyClaims});
        QCOMPARE(field(u"入金完了日"_qs, manyClaims), u"2026/11/19"_qs);
        QCOMPARE(ofClaim(u"入金日"_qs, manyClaims, 2), u"2026/11/19"_qs);
        QCOMPARE(field(u"入金完了日"_qs, twoClaims), day);
        // And the first one, who comes again with what it saw before.
        QCOMPARE(reflectPayments(*second, theirs, true), QStringList{manyClaims});
    }

    void anOrderThatHasGoneIsTold() {
        const QList<PaymentEntry> entries{paid(manyClaims)};
        m_database->connection().execute(u"DELETE FROM [顧客見積情報] WHERE [見積ID] = '%1'"_qs.arg(manyClaims));
        QCOMPARE(reflect(entries), QStringList{manyClaims});
        QCOMPARE(ofClaim(u"入金日"_qs, manyClaims, 2), QString());
    }

    void aFailureInTheMiddleChangesNoRow() {
        const QList<PaymentEntry> entries{paid(manyClaims), paid(twoClaims)};
        Connection& connection = m_database->connection();
        int updates = 0;
        connection.onStatement = [&updates](const QString& statement) {
            if (statement.startsWith(u"UPDATE") && ++updates == 4) throw AppError(u"切れました。"_qs);
        };
        QCOMPARE(raised([&] { reflect(entries); }), u"切れました。"_qs);
        connection.onStatement = nullptr;
        QCOMPARE(updates, 4);
        QCOMPARE(connection.transactionDepth(), 0);
        QCOMPARE(field(u"処理区分"_qs, manyClaims), u"2"_qs);
        QCOMPARE(ofClaim(u"入金日"_qs, manyClaims, 2), QString());
        QCOMPARE(field(u"処理区分"_qs, twoClaims), u"2"_qs);
    }

    void theClaimsOfAListAreReadTogether() {
        PaymentSamples::addOrders(m_database->connection(), 1000);
        PaymentRows rows(m_database->connection());
        const QStringList ids = rows.ids({}, paymentOrder());
        QVERIFY(ids.size() > 1000);
        int statements = 0, orders = 0;
        qsizetype claims = 0;
        m_database->connection().onStatement = [&statements](const QString&) { ++statements; };
        rows.forEach(ids, [&](const PaymentRow& row) {
            ++orders;
            claims += row.claims.size();
        });
        m_database->connection().onStatement = nullptr;
        QCOMPARE(orders, ids.size());
        QCOMPARE(QString::number(claims), m_database->connection().scalar(u"SELECT COUNT(*) FROM [顧客見積請求]"_qs));
        QVERIFY2(statements <= 6, qPrintable(QString::number(statements)));
    }

    // The worker pays twenty orders at a time; whenever it is killed, each twenty are paid whole or not at all.
    void aReflectionIsWholeOrNotAtAllAfterKills() {
        constexpr int runs = 100;
        Connection& connection = m_database->connection();
        PaymentSamples::addOrders(connection, runs * ordersPerRun);
        m_database->writeProfile(u"ConnectionTimeout=30\r\n"_qs);
        int whole = 0;
        for (int i = 0; i < kills(); ++i) {
            PaymentSamples::makeAllUnpaid(connection);
            Kills::startAndKill(QStringLiteral(HALVANE_PAYMENT_WORKER), {m_database->folder() + u"/Halvane.ini"_qs},
                                120);
            if (QTest::currentTestFailed()) return;
            const auto looking = m_database->another();
            for (int run = 0; run < runs; ++run) {
                const QString range = u"BETWEEN '%1' AND '%2'"_qs.arg(PaymentSamples::idOf(run * ordersPerRun + 1),
                                                                      PaymentSamples::idOf((run + 1) * ordersPerRun));
                const int paid = looking
                                     ->scalar(u"SELECT COUNT(*) FROM [顧客見積情報] WHERE [処理区分] = 1 AND "
                                              u"[入金完了日] = #2026/11/20# AND [見積ID] "_qs +
                                              range)
                                     .toInt();
                const int open =
                    looking
                        ->scalar(u"SELECT COUNT(*) FROM [顧客見積請求] WHERE [入金日] IS NULL AND [見積ID] "_qs + range)
                        .toInt();
                const int all =
                    looking->scalar(u"SELECT COUNT(*) FROM [顧客見積請求] WHERE [見積ID] "_qs + range).toInt();
                QVERIFY2((paid == ordersPerRun && open == 0) || (paid == 0 && open == all),
                         qPrintable(
                             u"run %1: %2 orders paid, %3 of %4 claims open"_qs.arg(run).arg(paid).arg(open).arg(all)));
                whole += paid == ordersPerRun;
            }
        }
        QVERIFY(whole > 0);
        qInfo("%d kills, %d reflections whole", kills(), whole);
    }
};

HALVANE_TEST(PaymentReflectionTest)
#include "PaymentReflectionTest.moc"
