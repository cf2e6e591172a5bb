#include "HalvaneTest.h"
#include "support/PaymentSamples.h"
#include "support/TestDatabase.h"

#include "payments/Ledger.h"
#include "payments/PaymentSearch.h"

namespace {

const QString paidWhole = u"0000000001"_qs; // 70,299, received 63,269 on 2024/07/17 and 7,030 on 2024/06/03
const QString owing = u"0000000087"_qs;     // 677,340, received 575,739

} // namespace

// What the receivable ledger shows and keeps.
class LedgerTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    Connection& connection() { return m_database->connection(); }
    QStringList ids(const LedgerSearch& search) {
        return PaymentRows(connection()).ids(Ledger::condition(search), paymentOrder());
    }
    QStringList cells(const QString& id, const LedgerSearch& search = {}) {
        QStringList cells;
        PaymentRows rows(connection());
        rows.forEach({id}, [&](const PaymentRow& row) { cells = Ledger::cells(row, search, rows); });
        return cells;
    }
    clsCsEstimate stored(const QString& id) {
        clsCsEstimate estimate;
        gCsEstimateManager.GetData(id, estimate);
        return estimate;
    }
    void setDiscount(const QString& id, const QString& amount) {
        connection().execute(u"UPDATE [顧客見積情報] SET [値引額] = %2 WHERE [見積ID] = '%1'"_qs.arg(id, amount));
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void bothBooksWithoutAPeriodAreEverything() {
        QVERIFY(Ledger::condition({}).isEmpty());
        QCOMPARE(ids({}).size(), 120);
    }

    void aBookTakesItsOwn() {
        LedgerSearch search;
        search.book = LedgerSearch::FirstBook;
        QCOMPARE(Ledger::condition(search).text(), u"[顧客見積情報].[売掛区分] = 'Ⅰ'"_qs);
        const qsizetype first = ids(search).size();
        search.book = LedgerSearch::SecondBook;
        const qsizetype second = ids(search).size();
        QVERIFY(first > 0 && first + second <= 120);
        QCOMPARE(QString::number(first),
                 connection().scalar(u"SELECT COUNT(*) FROM [顧客見積情報] WHERE [売掛区分] = 'Ⅰ'"_qs));
    }

    void eachDayHasItsColumn_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("column");
        QTest::newRow("received") << int(LedgerSearch::Received) << u"受付日"_qs;
        QTest::newRow("asked") << int(LedgerSearch::Asked) << u"請求完了日"_qs;
        QTest::newRow("delivered") << int(LedgerSearch::Delivered) << u"納品実績日"_qs;
    }
    void eachDayHasItsColumn() {
        QFETCH(int, kind);
        QFETCH(QString, column);
        LedgerSearch search;
        search.day = static_cast<LedgerSearch::Day>(kind);
        search.DateTo = u"2026/04/30"_qs;
        QCOMPARE(Ledger::condition(search).text(), u"[顧客見積情報].[%1] <= #2026/04/30#"_qs.arg(column));
        search.DateFrom = u"2026/04/01"_qs;
        QCOMPARE(Ledger::condition(search).text(),
                 u"[顧客見積情報].[%1] >= #2026/04/01# AND [顧客見積情報].[%1] <= #2026/04/30#"_qs.arg(column));
        QCOMPARE(QString::number(ids(search).size()),
                 connection().scalar(u"SELECT COUNT(*) FROM [顧客見積情報] WHERE [%1] >= #2026/04/01# AND [%1] <= "
                                     u"#2026/04/30#"_qs.arg(column)));
    }

    void byTheDayOfPaymentOnlyItsClaimsCount() {
        LedgerSearch search;
        search.day = LedgerSearch::Paid;
        search.DateFrom = u"2024/07/01"_qs;
        search.DateTo = u"2024/07/17"_qs;
        QVERIFY(ids(search).contains(paidWhole));
        const QStringList found = cells(paidWhole, search);
        QCOMPARE(found.at(Ledger::PayPrice), u"63269"_qs);
        QCOMPARE(found.at(Ledger::AskPrice), u"63269"_qs);
        QCOMPARE(found.at(Ledger::Remaining), u"7030"_qs);
        QCOMPARE(found.at(Ledger::FirstPayment), u"2024/07/17"_qs);
        QCOMPARE(found.at(Ledger::FirstPayment + 2), QString());
        QVERIFY(found.at(Ledger::Laws).contains(u','));
        search.DateFrom = u"2024/06/04"_qs;
        search.DateTo = u"2024/07/16"_qs;
        QVERIFY(!ids(search).contains(paidWhole));
        search.DateFrom.clear();
        QVERIFY(ids(search).contains(paidWhole));
        QCOMPARE(cells(paidWhole, search).at(Ledger::PayPrice), u"7030"_qs);
    }

    void theBalanceFilterAgreesWithTheBalanceShown() {
        PaymentSamples::addOrders(connection(), 300);
        for (const auto day : {LedgerSearch::Received, LedgerSearch::Paid}) {
            LedgerSearch search;
            search.day = day;
            if (day == LedgerSearch::Paid) search.DateFrom = u"2026/03/01"_qs;
            QStringList owed, settled;
            PaymentRows rows(connection());
            rows.forEach(ids(search), [&](const PaymentRow& row) {
                const double remaining = Ledger::cells(row, search, rows).at(Ledger::Remaining).toDouble();
                (remaining > 0 ? owed : settled) << row.estimate.EstId;
            });
            QVERIFY(!owed.isEmpty() && !settled.isEmpty());
            search.balance = LedgerSearch::Owing;
            QCOMPARE(ids(search), owed);
            search.balance = LedgerSearch::NotOwing;
            QCOMPARE(ids(search), settled);
        }
    }

    void aDiscountTakesTheBalanceAway() {
        LedgerSearch search;
        search.balance = LedgerSearch::Owing;
        QVERIFY(ids(search).contains(owing));
        QCOMPARE(cells(owing).at(Ledger::Remaining), u"101601"_qs);
        setDiscount(owing, u"101601"_qs);
        QVERIFY(!ids(search).contains(owing));
        QCOMPARE(cells(owing).at(Ledger::Remaining), u"0"_qs);
    }

    void claimsBeyondFourShowNoPairButCount() {
        for (int claim = 5; claim <= 6; ++claim)
            connection().execute(
                u"INSERT INTO [顧客見積請求] ([見積ID], [請求No], [法別No], [領収金額], [入金日]) VALUES "
                u"('%1', %2, 1, 1000, #2026/11/0%2#)"_qs.arg(owing)
                    .arg(claim));
        const QStringList found = cells(owing);
        QCOMPARE(found.size(), int(Ledger::Columns));
        QCOMPARE(found.at(Ledger::FirstPayment + 6), u"2026/09/10"_qs);
        QCOMPARE(found.at(Ledger::FirstPayment + 7), u"33867"_qs);
        QCOMPARE(found.at(Ledger::PayPrice), u"577739"_qs);
    }

    void fiveFieldsAreKeptAndNothingElse() {
        const clsCsEstimate before = stored(owing);
        QCOMPARE(
            Ledger::write(connection(),
                          {{owing, u"長下肢'装具"_qs, u"その他"_qs, u"現金"_qs, {}, u"Ⅱ"_qs, Ledger::stateOf(before)}}),
            QStringList());
        const clsCsEstimate after = stored(owing);
        QCOMPARE(after.Articles, u"長下肢'装具"_qs);
        QCOMPARE(after.EquipMent, u"その他"_qs);
        QCOMPARE(after.Payment, u"現金"_qs);
        QCOMPARE(after.Discount, u"0"_qs);
        QCOMPARE(after.Urikake, u"Ⅱ"_qs);
        QCOMPARE(after.ProcKbnNo, before.ProcKbnNo);
        QCOMPARE(after.PayInFinDate, before.PayInFinDate);
    }

    void whatAnotherMachineHasWrittenStays() {
        const QString state = Ledger::stateOf(stored(owing));
        const auto second = m_database->another();
        QCOMPARE(Ledger::write(*second, {{owing, u"先"_qs, {}, {}, u"5"_qs, u"Ⅰ"_qs, state}}), QStringList());
        const QString other = Ledger::stateOf(stored(paidWhole));
        QCOMPARE(Ledger::write(connection(), {{owing, u"後"_qs, {}, {}, u"9"_qs, {}, state},
                                              {paidWhole, u"別"_qs, {}, {}, u"9"_qs, {}, other}}),
                 QStringList{owing});
        QCOMPARE(stored(owing).Articles, u"先"_qs);
        QCOMPARE(stored(paidWhole).Articles, u"別"_qs);
    }

    void theFileTellsWhatWasSearchedFor() {
        LedgerSearch search;
        QCOMPARE(Ledger::fileHeads(search),
                 (QList<QStringList>{{u"台帳：全部"_qs}, {u"残高：全部"_qs}, {u"受　付　日："_qs}}));
        search = {LedgerSearch::Paid, u"2026/04/01"_qs, u"2026/04/30"_qs, LedgerSearch::SecondBook,
                  LedgerSearch::Owing};
        QCOMPARE(Ledger::fileHeads(search),
                 (QList<QStringList>{
                     {u"台帳：Ⅱ"_qs}, {u"残高：あり"_qs}, {u"入　金　日：令和8年04月01日から令和8年04月30日まで"_qs}}));
    }
};

HALVANE_TEST(LedgerTest)
#include "LedgerTest.moc"
