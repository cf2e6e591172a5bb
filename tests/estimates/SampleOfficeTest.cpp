#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "base/Numbers.h"
#include "db/clsAssistManager.h"
#include "estimates/EstimateManagers.h"
#include "price/basPriceLookup.h"

#include <QMap>

// The sample office is what everybody looks at first: its figures are those that the program itself would give.
class SampleOfficeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
        for (const clsAssist& style : gAssistManager.group(AssistGroup::PickStyle))
            m_styles.insert(style.AsstNo, style.AsstData);
        gCsEstimateManager.GetList(m_estimates, {}, u"[見積ID]"_qs);
        QCOMPARE(m_estimates.size(), 120);
    }
    void cleanupTestCase() { m_database.reset(); }

    void elementLinesOfThePriceYearAgreeWithTheLookup() {
        int lines = 0;
        for (const clsCsEstimate& estimate : m_estimates) {
            if (estimate.PriceSedYear != u"2026") continue;
            for (const clsCsMakeElmt& line : linesOf(gCsMakeElmtManager, estimate.EstId)) {
                const clsCsItem item = itemOf(estimate.EstId, line.EstItemNo);
                qint16 code = 0;
                const Money unit =
                    GetElementPrice(item.Item, item.PickKbn, item.Name, item.Form, m_styles.value(item.PickStyle),
                                    line.MakeElmt, line.Materials, tierOf(estimate), code);
                QVERIFY2(code == 0, qUtf8Printable(estimate.EstId + u' ' + item.Item + u' ' + line.MakeElmt + u' ' +
                                                   line.Materials));
                QCOMPARE(line.Price, numberText(unit.toDouble() * Val(line.Suryo)));
                QVERIFY(unit.toYen() > 0);
                ++lines;
            }
        }
        QVERIFY2(lines > 50, qPrintable(QString::number(lines)));
    }

    void partLinesOfThePriceYearAgreeWithTheLookup() {
        int lines = 0;
        for (const clsCsEstimate& estimate : m_estimates) {
            if (estimate.PriceSedYear != u"2026") continue;
            for (const clsCsCmpltElmt& line : linesOf(gCsCmpltElmtManager, estimate.EstId)) {
                const clsCsItem item = itemOf(estimate.EstId, line.EstItemNo);
                qint16 code = 0;
                const Money unit = GetPartsPrice(item.Item, line.PartsNm, line.Form, line.PartsCd, code);
                QVERIFY2(code == 0, qUtf8Printable(estimate.EstId + u' ' + line.PartsNm));
                QCOMPARE(line.Price, numberText(unit.toDouble() * Val(line.Suryo)));
                ++lines;
            }
        }
        QVERIFY2(lines > 10, qPrintable(QString::number(lines)));
    }

    void amountsOfEveryEstimateAgreeWithItsLines() {
        for (const clsCsEstimate& estimate : m_estimates) {
            qint32 elements = 0, parts = 0, elementAmount = 0, partAmount = 0, tax = 0, total = 0;
            for (const clsCsMakeElmt& line : linesOf(gCsMakeElmtManager, estimate.EstId)) elements += ToInt(line.Price);
            for (const clsCsCmpltElmt& line : linesOf(gCsCmpltElmtManager, estimate.EstId)) parts += ToInt(line.Price);
            CalcAmounts(elements, parts, ToInt(estimate.Discount1), ToInt(estimate.Discount2),
                        ToInt(estimate.Discount3), Val(estimate.Tax), elementAmount, partAmount, tax, total);
            QVERIFY2(estimate.Total == QString::number(elementAmount + partAmount), qUtf8Printable(estimate.EstId));
            QVERIFY2(estimate.EstSum == QString::number(total), qUtf8Printable(estimate.EstId));
        }
    }

    void estimatesBelongToACustomerAndAChart() {
        for (const clsCsEstimate& estimate : m_estimates) {
            clsCustomer customer;
            clsChart chart;
            QVERIFY(gCustomerManager.GetData(estimate.CustId, estimate.CustSubId, customer));
            QVERIFY(gChartManager.GetData(estimate.CustId, estimate.CustSubId, estimate.ChartNo, chart));
        }
    }

    void countersStandAtTheHighestNumbers() {
        Connection& connection = m_database->connection();
        const auto last = [&](const QString& item) {
            return connection.scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '%1'"_qs.arg(item));
        };
        QCOMPARE(last(u"見積ID"_qs), connection.scalar(u"SELECT MAX([見積ID]) FROM [顧客見積情報]"_qs));
        QCOMPARE(last(u"顧客ID"_qs), connection.scalar(u"SELECT MAX([顧客ID]) FROM [顧客情報]"_qs));
    }

private:
    static QList<clsCsMakeElmt> linesOf(clsCsMakeElmtManager& manager, const QString& id) {
        return listed<clsCsMakeElmt>(manager, id);
    }
    static QList<clsCsCmpltElmt> linesOf(clsCsCmpltElmtManager& manager, const QString& id) {
        return listed<clsCsCmpltElmt>(manager, id);
    }
    template <class Record> static QList<Record> listed(TableManager<Record>& manager, const QString& id) {
        QList<Record> rows;
        manager.GetList(rows, u"[見積ID] = "_qs + sqlText(id), u"[見積種目No],[要素No]"_qs);
        return rows;
    }

    static clsCsItem itemOf(const QString& id, const QString& number) {
        clsCsItem item;
        if (!gCsItemManager.GetData({id, number}, item)) qFatal("line without an item");
        return item;
    }

    static QString tierOf(const clsCsEstimate& estimate) {
        clsCustomer customer;
        gCustomerManager.GetData(estimate.CustId, estimate.CustSubId, customer);
        return customer.PriceType;
    }

    std::unique_ptr<TestDatabase> m_database;
    QMap<QString, QString> m_styles;
    QList<clsCsEstimate> m_estimates;
};

HALVANE_TEST(SampleOfficeTest)
#include "SampleOfficeTest.moc"
