#include "HalvaneTest.h"
#include "support/PaymentSamples.h"
#include "support/ReportSamples.h"
#include "support/TestDatabase.h"

#include "base/Money.h"
#include "base/Numbers.h"
#include "db/clsDbManager.h"
#include "payments/screens/frmCsPayList.h"
#include "payments/screens/frmCsUrikakeList.h"
#include "payments/screens/frmStMoneyEndList.h"
#include "reports/ReportClasses.h"
#include "reports/clsReportManager.h"
#include "reports/engine/PaperGlyphs.h"
#include "ui/Grid.h"

namespace {

constexpr int orders = 500;

// The texts that a control prints, down the pages, as amounts.
Money printed(const QList<ReportPage>& pages, const QString& control) {
    Money sum;
    for (const ReportPage& page : pages)
        for (const ReportPageText& text : page.texts)
            if (text.control == control) sum += Money::leadingNumber(QString(text.text).remove(u'\\'));
    return sum;
}

QStringList texts(const QList<ReportPage>& pages, const QString& control) {
    QStringList found;
    for (const ReportPage& page : pages)
        for (const ReportPageText& text : page.texts)
            if (text.control == control) found << text.text;
    return found;
}

} // namespace

// What an order book of five hundred random orders adds up to, on every road to the operator.
class PaymentSumsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    clsReportManager m_manager;

    Money bySql(const QString& column, const QString& condition) {
        const QString table = column == u"見積総合計" || column == u"値引額" ? u"顧客見積情報"_qs : u"顧客見積請求"_qs;
        return Money::leadingNumber(m_database->connection().scalar(
            u"SELECT SUM([%1].[%2]) FROM [%1] WHERE [%1].[見積ID] IN (SELECT [顧客見積情報].[見積ID] FROM "
            u"[顧客見積情報] WHERE %3)"_qs.arg(table, column, condition)));
    }

    static QList<ReportPage> pagesOf(const QString& name, const ReportRecordset& records) {
        const ReportClass& report = reportClass(name);
        return reportPages(report, loadReportLayout(name), records, report.readHeader(), measurePaperText);
    }

    template <class Form> static Money down(Form& form, int column) {
        auto* grid = form.template findChild<Grid*>(u"flxEstList"_qs);
        form.show();
        if (!QTest::qWaitFor([grid] { return !grid->isFilling(); }, patience)) qFatal("the list did not come");
        Money sum;
        for (int row = 1; row <= grid->rows(); ++row) sum += Money::leadingNumber(grid->text(row, column));
        return sum;
    }

    inline static const QString unpaid = u"[顧客見積情報].[処理区分] <> 1"_qs;
    inline static const QString paid = u"[顧客見積情報].[処理区分] = 1"_qs;

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile();
        gDbManager.DBOpen();
        m_database->prepareManagers();
        PaymentSamples::addOrders(m_database->connection(), orders, 7);
        m_manager.Prepare(m_database->connection());
    }
    void cleanupTestCase() {
        gDbManager.DBClose();
        m_database.reset();
    }

    void whatIsAskedAndReceivedAgrees_data() {
        QTest::addColumn<QString>("report");
        QTest::addColumn<bool>("isPaid");
        QTest::newRow("unpaid") << u"repStNoPayment"_qs << false;
        QTest::newRow("paid") << u"repStMoneyEnd"_qs << true;
    }
    void whatIsAskedAndReceivedAgrees() {
        QFETCH(QString, report);
        QFETCH(bool, isPaid);
        ReportRecordset records;
        if (isPaid)
            m_manager.GetStPaymentData({}, {}, records);
        else
            m_manager.GetStNoPaymentData({}, {}, records);
        QVERIFY(records.rowCount() > 50);
        const QList<ReportPage> pages = pagesOf(report, records);
        const QString condition = isPaid ? paid : unpaid;
        for (const auto& [field, column] :
             {std::pair{u"AskPrice"_qs, u"請求金額"_qs}, {u"PayPrice"_qs, u"領収金額"_qs}}) {
            const Money sum = bySql(column, condition);
            // The sum of each page, and that of the report, which has the same name.
            const QStringList told = texts(pages, u"sum"_qs + field);
            QCOMPARE(told.size(), pages.size() + 1);
            QVERIFY(told.contains(formatThousands(sum.toText())));
            QCOMPARE(printed(pages, u"sum"_qs + field), sum + sum);
        }
    }

    void theListOfBalancesAgrees() {
        ReportRecordset records;
        m_manager.GetStNoPaymentData({}, {}, records);
        const QList<ReportPage> pages = pagesOf(u"repStNoPayment2"_qs, records);
        const Money total = bySql(u"見積総合計"_qs, unpaid), received = bySql(u"領収金額"_qs, unpaid);
        const Money advance = Money::leadingNumber(m_database->connection().scalar(
            u"SELECT SUM([顧客見積請求].[領収金額]) FROM [顧客見積請求] WHERE [請求No] = 1 AND [見積ID] IN (SELECT "
            u"[顧客見積情報].[見積ID] FROM [顧客見積情報] WHERE "_qs +
            unpaid + u')'));
        QCOMPARE(printed(pages, u"txtAllEstTotal"_qs), total);
        QCOMPARE(printed(pages, u"txtAllUtikinTotal"_qs), advance);
        QCOMPARE(printed(pages, u"txtAllEstBalanceTotal"_qs), total - received);
        QCOMPARE(printed(pages, u"sumEstPrice"_qs), total);
        QCOMPARE(printed(pages, u"txtEstPrice"_qs), total);
        QCOMPARE(printed(pages, u"txtEstBalance"_qs), total - received);
        frmCsPayList list;
        QVERIFY(list.Load());
        QCOMPARE(down(list, 8), total);
    }

    void thePaidListAgrees() {
        frmStMoneyEndList list;
        QVERIFY(list.Load());
        QCOMPARE(down(list, 7), bySql(u"見積総合計"_qs, paid));
    }

    void theLedgerAgrees() {
        frmCsUrikakeList list;
        QVERIFY(list.Load());
        const QString all = u"NOT [顧客見積情報].[見積ID] IS NULL"_qs;
        const Money total = bySql(u"見積総合計"_qs, all), received = bySql(u"領収金額"_qs, all);
        QCOMPARE(down(list, Ledger::EstPrice), total);
        QCOMPARE(down(list, Ledger::AskPrice), bySql(u"請求金額"_qs, all));
        QCOMPARE(down(list, Ledger::PayPrice), received);
        QCOMPARE(down(list, Ledger::Remaining), total - received - bySql(u"値引額"_qs, all));
    }

    void thePlanAgrees() {
        for (const bool byOrder : {false, true}) {
            WorkPlanSearch search;
            search.prices = true;
            search.byOrder = byOrder;
            ReportRecordset records;
            m_manager.GetStWorkPlanData(search, records);
            QCOMPARE(records.rowCount(), 3 * (120 + orders));
            const QList<ReportPage> pages = pagesOf(byOrder ? u"repStWorkPlanTO2"_qs : u"repStWorkPlanTD2"_qs, records);
            const QString all = u"NOT [顧客見積情報].[見積ID] IS NULL"_qs;
            const Money total = bySql(u"見積総合計"_qs, all), received = bySql(u"領収金額"_qs, all);
            QCOMPARE(printed(pages, u"txtAllEstTotal"_qs), total + total + total);
            QCOMPARE(printed(pages, u"sumEstTotal"_qs), total + total + total);
            QCOMPARE(printed(pages, u"txtEstTotal"_qs), total + total + total);
            const Money balance = total - received;
            QCOMPARE(printed(pages, u"txtAllEstBalanceTotal"_qs), balance + balance + balance);
            QCOMPARE(printed(pages, u"sumEstBalance"_qs), balance + balance + balance);
        }
    }

    // Up to four claims of a kind, as the paper has lines; the orders have up to six.
    void theSalesAgree() {
        PaymentSearch search;
        search.Status = u"3"_qs;
        ReportRecordset records;
        m_manager.GetStOrderSalesData(search, records);
        const QList<ReportPage> pages = pagesOf(u"repStOrderSales"_qs, records);
        const Money total = bySql(u"見積総合計"_qs, u"[顧客見積情報].[処理区分] <= 3"_qs);
        Money own, open;
        for (int n = 1; n <= 4; ++n) {
            own += printed(pages, u"txtMPayPrice%1"_qs.arg(n));
            open += printed(pages, u"txtPPayPrice%1"_qs.arg(n));
        }
        const Money both = own + open;
        QCOMPARE(printed(pages, u"txtSumPrice"_qs), both);
        QCOMPARE(printed(pages, u"txtDiffPrice"_qs), total - both);
        QCOMPARE(printed(pages, u"sumSumPrice"_qs), both + both); // groups and report
        QCOMPARE(Money::leadingNumber(texts(pages, u"sumMPayPrice"_qs).last().remove(u'\\')), own);
        QCOMPARE(Money::leadingNumber(texts(pages, u"sumPPayPrice"_qs).last().remove(u'\\')), open);
        QCOMPARE(Money::leadingNumber(texts(pages, u"sumDiffPrice"_qs).last().remove(u'\\')), total - both);
    }
};

HALVANE_TEST(PaymentSumsTest)
#include "PaymentSumsTest.moc"
