#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "composition/ItemRules.h"
#include "composition/PriceRemark.h"

// On the price list of the sample office.
class PriceRemarkTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static LineContext brace() {
        Cells item(ItemRules::Columns);
        item[ItemRules::RowId] = u"52"_qs;
        ItemRules::edited(item, ItemRules::RowId, {});
        item[ItemRules::PickStyle] = u"1"_qs;
        return LineContext(item, {QString()});
    }

    static Cells line(const QString& element, const QString& quantity, const QString& price) {
        Cells cells(MakeLine::Columns);
        cells[MakeLine::MakeElmt] = element;
        cells[MakeLine::Materials] = u"＊"_qs;
        cells[MakeLine::Suryo] = quantity;
        cells[MakeLine::Price] = price;
        return cells;
    }

    static QString remark(const Cells& cells, const std::optional<Money>& listed) {
        return priceRemark(makeRules(), cells, 0, listed);
    }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }
    void cleanupTestCase() { m_database.reset(); }

    void thePriceOfTheListIsNotRemarkedOn() {
        QCOMPARE(remark(line(u"基本価格"_qs, u"2"_qs, u"24600"_qs), Money::yen(12300)), QString());
        QCOMPARE(remark(line(u"基本価格"_qs, u"0.5"_qs, u"6150"_qs), Money::yen(12300)), QString());
        QCOMPARE(remark(line(u"基本価格"_qs, u"3"_qs, u"1.5"_qs), Money::leadingNumber(u"0.5"_qs)), QString());
        QCOMPARE(remark(line({}, {}, {}), Money::yen(12300)), QString());
    }

    void aPriceTypedOverTellsThatOfTheList() {
        QCOMPARE(remark(line(u"基本価格"_qs, u"2"_qs, u"20000"_qs), Money::yen(12300)), u"価格表 24,600"_qs);
    }

    void noPriceAndNoListAreTold() {
        QCOMPARE(remark(line(u"基本価格"_qs, u"1"_qs, u"0"_qs), Money::yen(12300)), u"0円"_qs);
        QCOMPARE(remark(line(u"特注"_qs, u"1"_qs, u"500"_qs), std::nullopt), u"価格表になし"_qs);
    }

    void theListIsAskedByTheTextsOfTheLine() {
        ListPrices list;
        const auto listed = list.of(makeRules(), line(u"基本価格"_qs, u"1"_qs, u"1"_qs), brace(), {});
        QVERIFY(listed && *listed > Money());
        QCOMPARE(list.of(makeRules(), line(u"基本価格"_qs, u"9"_qs, u"5"_qs), brace(), {}), listed);
        QCOMPARE(list.of(makeRules(), line(u"無い要素"_qs, u"1"_qs, u"1"_qs), brace(), {}), std::nullopt);
        QCOMPARE(list.of(makeRules(), line(u"基本価格"_qs, u"1"_qs, u"1"_qs), LineContext(), {}), std::nullopt);
    }
};

HALVANE_TEST(PriceRemarkTest)
#include "PriceRemarkTest.moc"
