#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "base/Numbers.h"
#include "db/clsAssistManager.h"
#include "master/MasterManagers.h"
#include "price/basPriceLookup.h"

#include <QMap>
#include <QSet>

// The master estimates of the sample office cost what the program itself would find.
class SampleMastersTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
        m_reading = std::make_unique<Transaction>(m_database->connection()); // a file is locked once for all looks
        for (const clsAssist& style : gAssistManager.group(AssistGroup::PickStyle))
            m_styles.insert(style.AsstNo, style.AsstData);
        gMstEstimateManager.GetList(m_masters, {}, u"[製品コード]"_qs);
        QVERIFY(m_masters.size() >= 40);
    }
    void cleanupTestCase() {
        m_reading.reset();
        m_database.reset();
    }

    void elementLinesAgreeWithTheLookupForEveryTier() {
        for (const clsMstEstimate& master : m_masters)
            for (const clsMstMakeElmt& line : gMstMakeElmtManager.rowsOf({master.ProductId})) {
                const clsMstItem item = itemOf(line.ProductId, line.ProductItemNo);
                for (const auto& [tier, member] : tiers()) {
                    qint16 code = 0;
                    const Money unit =
                        GetElementPrice(item.Item, item.PickKbn, item.Name, item.Form, m_styles.value(item.PickStyle),
                                        line.MakeElmt, line.Materials, tier, code);
                    // The basic price of an electric wheelchair shares its search with that of the adjustment.
                    const bool shared = item.Item == u"電動車椅子" && line.MakeElmt == u"基本価格";
                    QVERIFY2(code == (shared ? 2 : 0), qUtf8Printable(master.ProductCd + u' ' + line.Materials));
                    QVERIFY(unit.toYen() > 0);
                    QCOMPARE(line.*member, numberText(unit.toDouble() * Val(line.Suryo)));
                }
            }
    }

    void partLinesAgreeWithTheLookup() {
        for (const clsMstEstimate& master : m_masters)
            for (const clsMstCmpltElmt& line : gMstCmpltElmtManager.rowsOf({master.ProductId})) {
                const clsMstItem item = itemOf(line.ProductId, line.ProductItemNo);
                qint16 code = 0;
                const Money unit = GetPartsPrice(item.Item, line.PartsNm, line.Form, line.PartsCd, code);
                QVERIFY2(code == 0, qUtf8Printable(master.ProductCd + u' ' + line.PartsNm));
                QCOMPARE(line.Price, numberText(unit.toDouble() * Val(line.Suryo)));
            }
    }

    void amountsAreTheSumsOfTheLines() {
        for (const clsMstEstimate& master : m_masters)
            for (const auto& [member, header] : {std::pair{&clsMstMakeElmt::PriceSmall, &clsMstEstimate::PriceSmall},
                                                 {&clsMstMakeElmt::PriceMiddle, &clsMstEstimate::PriceMiddle},
                                                 {&clsMstMakeElmt::PriceBig, &clsMstEstimate::PriceBig}}) {
                double sum = 0;
                for (const clsMstMakeElmt& line : gMstMakeElmtManager.rowsOf({master.ProductId}))
                    sum += Val(line.*member);
                for (const clsMstCmpltElmt& line : gMstCmpltElmtManager.rowsOf({master.ProductId}))
                    sum += Val(line.Price);
                QVERIFY2(master.*header == numberText(sum), qUtf8Printable(master.ProductCd));
            }
    }

    void everyItemOfThePriceListHasOne() {
        QList<clsMstItem> items;
        gMstItemManager.GetList(items);
        QSet<QString> kinds;
        for (const clsMstItem& item : items) kinds << item.Item;
        Recordset rows = m_database->connection().query(u"SELECT DISTINCT [種目] FROM [価格種目]"_qs);
        while (rows.next()) QVERIFY2(kinds.contains(rows.value(0)), qUtf8Printable(rows.value(0)));
    }

    void someOrdersNameOne() {
        Connection& connection = m_database->connection();
        const QString named = u"SELECT COUNT(*) FROM [顧客見積情報] WHERE NOT ISNULL([製品コード])"_qs;
        QVERIFY(connection.scalar(named).toInt() > 10);
        QCOMPARE(connection.scalar(named + u" AND [製品コード] IN (SELECT [製品コード] FROM [マスタ見積情報])"_qs),
                 connection.scalar(named));
    }

    void counterStandsAtTheHighestId() {
        Connection& connection = m_database->connection();
        QCOMPARE(connection.scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '製品ID'"_qs),
                 connection.scalar(u"SELECT MAX([製品ID]) FROM [マスタ見積情報]"_qs));
    }

private:
    using Tier = std::pair<QString, QString clsMstMakeElmt::*>;
    static QList<Tier> tiers() {
        return {{u"小人"_qs, &clsMstMakeElmt::PriceSmall},
                {u"中人"_qs, &clsMstMakeElmt::PriceMiddle},
                {u"大人"_qs, &clsMstMakeElmt::PriceBig}};
    }

    static clsMstItem itemOf(const QString& id, const QString& number) {
        clsMstItem item;
        if (!gMstItemManager.GetData({id, number}, item)) qFatal("line without an item");
        return item;
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<Transaction> m_reading;
    QMap<QString, QString> m_styles;
    QList<clsMstEstimate> m_masters;
};

HALVANE_TEST(SampleMastersTest)
#include "SampleMastersTest.moc"
