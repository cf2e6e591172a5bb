#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "operations/DatabaseCreation.h"
#include "price/PriceChanges.h"

namespace {

QString told(const QList<PriceChange>& changes) {
    QStringList lines;
    for (const PriceChange& change : changes)
        lines << QStringList{priceTableWord(change.table),
                             change.kindName(),
                             change.what,
                             change.tiers,
                             change.move.before,
                             change.move.after,
                             change.isFurther ? u"+"_qs : QString()}
                     .join(u'|');
    return lines.join(u'\n');
}

} // namespace

// Two price lists side by side.
class PriceChangesTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_before = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        const QString other = m_before->folder() + u"/other.db"_qs;
        DatabaseCreation::createPrices(other);
        m_after = std::make_unique<Connection>(ConnectionSettings::sqliteFile(other));
        m_after->open();
    }
    void cleanup() {
        m_after.reset();
        m_before.reset();
    }

    void equalListsHaveNoChange() {
        both(u"INSERT INTO [価格部品] ([ID],[種目],[名称],[使用設定],[新価格]) VALUES (1,'義足','足部',1,100)"_qs);
        QCOMPARE(changes(), QString());
    }

    void anotherNumberIsNoChange() {
        const QString row =
            u"INSERT INTO [価格部品] ([ID],[種目],[名称],[使用設定],[新価格]) VALUES (%1,'義足',%2,1,100)"_qs;
        before(row.arg(u"1"_qs, u"'足部'"_qs));
        before(row.arg(u"2"_qs, u"'膝継手'"_qs));
        after(row.arg(u"5"_qs, u"'膝継手'"_qs));
        after(row.arg(u"6"_qs, u"'足部'"_qs));
        QCOMPARE(changes(), QString());
    }

    void rowsAreNewGoneOrChanged() {
        const QString row =
            u"INSERT INTO [価格部品] ([ID],[種目],[名称],[形式],[メーカ名],[部品コード],[使用設定],[新価格])"
            " VALUES (%1,'義足','足部','単軸','架空',%2,1,%3)"_qs;
        before(row.arg(u"1"_qs, u"'GONE'"_qs, u"10"_qs));
        before(row.arg(u"2"_qs, u"'SAME'"_qs, u"20"_qs));
        before(row.arg(u"3"_qs, u"'MOVES'"_qs, u"30"_qs));
        after(row.arg(u"1"_qs, u"'NEW'"_qs, u"40"_qs));
        after(row.arg(u"2"_qs, u"'SAME'"_qs, u"20"_qs));
        after(row.arg(u"3"_qs, u"'MOVES'"_qs, u"45"_qs));
        QCOMPARE(changes(), u"完成部品|廃止|義足／足部／単軸／架空／GONE||10||\n"
                            "完成部品|変更|義足／足部／単軸／架空／MOVES||30|45|\n"
                            "完成部品|新規|義足／足部／単軸／架空／NEW|||40|"_qs);
    }

    void anItemHasNoPrice() {
        before(u"INSERT INTO [価格種目] ([ID],[種目],[採型区分],[名称],[形式]) VALUES (1,'義足','B-1','名','形')"_qs);
        after(u"INSERT INTO [価格種目] ([ID],[種目],[採型区分],[名称],[形式]) VALUES (1,'義足','B-2','名','形')"_qs);
        QCOMPARE(changes(), u"種目|廃止|義足／B-1／名／形||||\n種目|新規|義足／B-2／名／形||||"_qs);
    }

    void tiersThatMoveAlikeStandInOneLine_data() {
        QTest::addColumn<QStringList>("from");
        QTest::addColumn<QStringList>("to");
        QTest::addColumn<QString>("lines");
        QTest::newRow("all") << QStringList{u"1"_qs, u"1"_qs, u"1"_qs} << QStringList{u"2"_qs, u"2"_qs, u"2"_qs}
                             << u"全年齢 1>2"_qs;
        QTest::newRow("two") << QStringList{u"1"_qs, u"5"_qs, u"1"_qs} << QStringList{u"2"_qs, u"5"_qs, u"2"_qs}
                             << u"大人・小人 1>2"_qs;
        QTest::newRow("apart") << QStringList{u"1"_qs, u"5"_qs, u"7"_qs} << QStringList{u"2"_qs, u"6"_qs, u"7"_qs}
                               << u"大人 1>2/中人 5>6"_qs;
        QTest::newRow("same value otherwise spelled")
            << QStringList{u"1.0"_qs, u"5"_qs, u"7"_qs} << QStringList{u"1"_qs, u"5.00"_qs, u"7"_qs} << QString();
        QTest::newRow("none and 0 are not the same")
            << QStringList{u""_qs, u"5"_qs, u"7"_qs} << QStringList{u"0"_qs, u"5"_qs, u"7"_qs} << u"大人 >0"_qs;
        QTest::newRow("a single price") << QStringList{u"1"_qs} << QStringList{u"3"_qs} << u" 1>3"_qs;
    }
    void tiersThatMoveAlikeStandInOneLine() {
        QFETCH(QStringList, from);
        QFETCH(QStringList, to);
        QStringList lines;
        for (const TierMove& move : movesOf(from, to))
            lines << move.tiers + u' ' + move.move.before + u'>' + move.move.after;
        QTEST(lines.join(u'/'), "lines");
    }

    void aRowOfThreePricesIsOneRow() {
        const QString row = u"INSERT INTO [価格基本] ([ID],[種目],[採型区分],[名称],[形式],[採型採寸区分],[新価格１],"
                            "[新価格２],[新価格３]) VALUES (1,'下肢装具','E-9','名','＊',2,%1,%2,30)"_qs;
        before(row.arg(10).arg(20));
        after(row.arg(11).arg(22));
        QCOMPARE(changes(), u"基本価格|変更|下肢装具／E-9／名／＊／採寸|大人|10|11|\n"
                            "基本価格|変更|下肢装具／E-9／名／＊／採寸|中人|20|22|+"_qs);
    }

    void rowsOfTheSameWordsAnswerInTheirOrder() {
        const QString row =
            u"INSERT INTO [価格加算] ([ID],[種目],[採型区分],[加算要素],[新価格]) VALUES (%1,'義足','B-1','断端',%2)"_qs;
        before(row.arg(1).arg(10));
        before(row.arg(2).arg(20));
        after(row.arg(3).arg(10));
        after(row.arg(4).arg(25));
        after(row.arg(5).arg(30));
        QCOMPARE(changes(), u"加算価格|変更|義足／B-1／断端||20|25|\n加算価格|新規|義足／B-1／断端|||30|"_qs);
    }

    void aPartThatIsNoLongerOfferedIsAnotherRow() {
        const QString row =
            u"INSERT INTO [価格部品] ([ID],[種目],[名称],[使用設定],[新価格]) VALUES (1,'義足','足部',%1,100)"_qs;
        before(row.arg(1));
        after(row.arg(0));
        QCOMPARE(changes(), u"完成部品|廃止|義足／足部||100||\n完成部品|新規|義足／足部／使用しない|||100|"_qs);
    }

    void differenceAndPercentAreThoseOfThePrices_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("difference");
        QTest::addColumn<QString>("percent");
        QTest::newRow("dearer") << u"1000"_qs << u"1035"_qs << u"35"_qs << u"3.5"_qs;
        QTest::newRow("cheaper") << u"300"_qs << u"200"_qs << u"-100"_qs << u"-33.3"_qs;
        QTest::newRow("from nothing") << u"0"_qs << u"200"_qs << u"200"_qs << QString();
        QTest::newRow("to nothing") << u"200"_qs << u"0"_qs << u"-200"_qs << u"-100.0"_qs;
        QTest::newRow("new") << QString() << u"200"_qs << QString() << QString();
        QTest::newRow("gone") << u"200"_qs << QString() << QString() << QString();
    }
    void differenceAndPercentAreThoseOfThePrices() {
        QFETCH(QString, from);
        QFETCH(QString, to);
        const PriceMove move{from, to};
        QTEST(move.difference(), "difference");
        QTEST(move.percent(), "percent");
    }

    void itIsGivenUpWhenItIsTold() {
        both(u"INSERT INTO [価格部品] ([ID],[種目],[新価格]) VALUES (1,'義足',1)"_qs);
        int rows = 0;
        QVERIFY(priceChanges(m_before->connection(), *m_after, [&](const QString&, qint64) {
                    ++rows;
                    return false;
                }).isEmpty());
        QCOMPARE(rows, 1);
    }

private:
    void before(const QString& statement) { m_before->connection().execute(statement); }
    void after(const QString& statement) { m_after->execute(statement); }
    void both(const QString& statement) {
        before(statement);
        after(statement);
    }
    QString changes() {
        return told(priceChanges(m_before->connection(), *m_after, [](const QString&, qint64) { return true; }));
    }

    std::unique_ptr<TestDatabase> m_before;
    std::unique_ptr<Connection> m_after;
};

HALVANE_TEST(PriceChangesTest)
#include "PriceChangesTest.moc"
