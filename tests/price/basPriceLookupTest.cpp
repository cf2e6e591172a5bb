#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "price/basPriceLookup.h"

namespace {

const qint16 untouched = -7;

} // namespace

class basPriceLookupTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->prepareManagers();
    }
    void cleanupTestCase() { m_database.reset(); }
    void init() {
        m_database->connection().begin();
        m_queries.clear();
        m_database->connection().onStatement = [this](const QString& statement) { m_queries << statement; };
        m_code = untouched;
    }
    void cleanup() { m_database->connection().rollback(); }

    void lineReadsItsTable_data() {
        QTest::addColumn<QStringList>("line");
        QTest::addColumn<QString>("price");
        const auto row = [](const char* name, const QStringList& line, const char* price) {
            QTest::newRow(name) << line << QString::fromLatin1(price);
        };
        const QString base = u"基本価格"_qs, add = u"加算"_qs;
        for (const QString& item : {u"車椅子"_qs, u"車いす"_qs}) {
            row(qUtf8Printable(item + u" order-made"_qs),
                {item, u"＊"_qs, u"普通"_qs, u"A"_qs, u"0"_qs, base, u"オーダーメイド"_qs}, "1001");
            row(qUtf8Printable(item + u" ready-made"_qs),
                {item, u"＊"_qs, u"普通"_qs, u"A"_qs, u"0"_qs, base, u"レディメイド"_qs}, "1002");
            row(qUtf8Printable(item + u" adjusted order"_qs),
                {item, u"＊"_qs, u"普通"_qs, u"A"_qs, u"0"_qs, add, u"調整加算（オーダーメイド）"_qs}, "1003");
            row(qUtf8Printable(item + u" adjusted ready"_qs),
                {item, u"＊"_qs, u"普通"_qs, u"A"_qs, u"0"_qs, add, u"調整加算（レディメイド）"_qs}, "1004");
            row(qUtf8Printable(item + u" other addition"_qs),
                {item, u"＊"_qs, u"普通"_qs, u"A"_qs, u"0"_qs, add, u"枕"_qs}, "2001");
        }
        for (const QString& item : {u"電動車椅子"_qs, u"電動車いす"_qs}) {
            row(qUtf8Printable(item + u" base"_qs), {item, u"＊"_qs, u"電動"_qs, u"A"_qs, u"0"_qs, base, {}}, "1011");
            row(qUtf8Printable(item + u" adjusted"_qs),
                {item, u"＊"_qs, u"調整"_qs, u"A"_qs, u"0"_qs, add, u"調整加算"_qs}, "1013");
            row(qUtf8Printable(item + u" adjusted, more text"_qs),
                {item, u"＊"_qs, u"調整"_qs, u"A"_qs, u"0"_qs, add, u"調整加算（レディメイド）"_qs}, "1013");
        }
        for (const QString& item : {u"殻構造義手"_qs, u"殻構造義足"_qs, u"骨格構造義手"_qs, u"骨格構造義足"_qs})
            row(qUtf8Printable(item), {item, u"A-1"_qs, u"別名"_qs, u"F"_qs, {}, base, {}}, "1021");
        for (const QString& item : {u"下肢装具"_qs, u"靴型装具"_qs, u"体幹装具"_qs, u"上肢装具"_qs, u"座位保持装置"_qs})
            row(qUtf8Printable(item), {item, u"A-1"_qs, u"別名"_qs, u"別形"_qs, u"2"_qs, base, {}}, "1032");
        row("other kind", {u"補助つえ"_qs, u"別区分"_qs, u"多点杖"_qs, u"＊"_qs, {}, base, {}}, "1041");
        row("seating adjusted is an addition",
            {u"座位保持装置"_qs, u"＊"_qs, {}, {}, {}, add, u"調整加算（オーダーメイド）"_qs}, "2002");
        row("make element", {u"下肢装具"_qs, u"A-1"_qs, {}, {}, {}, u"継手'"_qs, u"鋼"_qs}, "3001");
    }
    void lineReadsItsTable() {
        QFETCH(QStringList, line);
        fillAll(line.at(0));
        QTEST(price(line).toText(), "price");
        QCOMPARE(m_code, untouched);
        QCOMPARE(m_queries.size(), 1);
    }

    void lineThatLacksSomethingAsksNothing_data() {
        QTest::addColumn<QStringList>("line");
        const auto row = [](const char* name, const QStringList& line) { QTest::newRow(name) << line; };
        const QString base = u"基本価格"_qs, add = u"加算"_qs;
        row("no element", {u"下肢装具"_qs, u"A"_qs, u"n"_qs, u"f"_qs, u"1"_qs, {}, u"m"_qs});
        row("no item", {{}, u"A"_qs, u"n"_qs, u"f"_qs, u"1"_qs, base, u"m"_qs});
        row("no casting class", {u"下肢装具"_qs, {}, u"n"_qs, u"f"_qs, u"1"_qs, base, u"m"_qs});
        row("base without a name", {u"殻構造義手"_qs, u"A"_qs, {}, u"f"_qs, u"1"_qs, base, u"m"_qs});
        row("base without a form", {u"下肢装具"_qs, u"A"_qs, u"n"_qs, {}, u"1"_qs, base, u"m"_qs});
        row("wheelchair without a material", {u"車いす"_qs, u"A"_qs, u"n"_qs, u"f"_qs, u"1"_qs, base, {}});
        row("wheelchair of another material", {u"車椅子"_qs, u"A"_qs, u"n"_qs, u"f"_qs, u"1"_qs, base, u"＊"_qs});
        row("wheelchair adjusted otherwise", {u"車椅子"_qs, u"A"_qs, u"n"_qs, u"f"_qs, u"1"_qs, add, u"調整加算"_qs});
        row("wheelchair addition without a name", {u"車椅子"_qs, u"A"_qs, {}, u"f"_qs, u"1"_qs, add, u"枕"_qs});
        row("electric addition without a form", {u"電動車いす"_qs, u"A"_qs, u"n"_qs, {}, u"1"_qs, add, u"枕"_qs});
        row("addition without a material", {u"下肢装具"_qs, u"A"_qs, u"n"_qs, u"f"_qs, u"1"_qs, add, {}});
        row("element without a material", {u"下肢装具"_qs, u"A"_qs, u"n"_qs, u"f"_qs, u"1"_qs, u"継手"_qs, {}});
        for (const char* style : {"0", "", "x", "0.4"})
            row(qPrintable(u"orthosis of style "_qs + QString::fromLatin1(style)),
                {u"下肢装具"_qs, u"A"_qs, u"n"_qs, u"f"_qs, QString::fromLatin1(style), base, {}});
    }
    void lineThatLacksSomethingAsksNothing() {
        QFETCH(QStringList, line);
        QCOMPARE(price(line).toText(), u"0"_qs);
        QCOMPARE(m_code, untouched);
        QVERIFY(m_queries.isEmpty());
    }

    void tiersHaveTheirColumn_data() {
        QTest::addColumn<QString>("tier");
        QTest::addColumn<QString>("price");
        QTest::newRow("adult") << u"大人"_qs << u"100"_qs;
        QTest::newRow("youth") << u"中人"_qs << u"80.5"_qs;
        QTest::newRow("child") << u"小人"_qs << u"60"_qs;
        QTest::newRow("none") << QString() << u"100"_qs;
        QTest::newRow("another") << u"老人"_qs << u"100"_qs;
    }
    void tiersHaveTheirColumn() {
        QFETCH(QString, tier);
        addBase(1, u"つえ"_qs, u"n"_qs, u"100, 80.5, 60"_qs);
        QTEST(price({u"つえ"_qs, u"A"_qs, u"n"_qs, u"f"_qs, {}, u"基本価格"_qs, {}}, tier).toText(), "price");
        sql(u"INSERT INTO 価格加算 ([ID], [種目], [採型区分], [加算要素], [新価格]) VALUES (1, 'つえ', 'A', 'm', 7)"_qs);
        QCOMPARE(price({u"つえ"_qs, u"A"_qs, {}, {}, {}, u"加算"_qs, u"m"_qs}, tier).toText(), u"7"_qs);
    }

    void severalRowsAreCompared_data() {
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QString>("tier");
        QTest::addColumn<QString>("price");
        QTest::addColumn<int>("code");
        const int none = untouched;
        QTest::newRow("no row") << QStringList{} << u"大人"_qs << u"0"_qs << 1;
        QTest::newRow("one row") << QStringList{u"5,5,5"_qs} << u"大人"_qs << u"5"_qs << none;
        QTest::newRow("rows that agree") << QStringList{u"5,5,5"_qs, u"5,5,5"_qs} << u"大人"_qs << u"5"_qs << none;
        QTest::newRow("zero at the head is passed over")
            << QStringList{u"0,0,0"_qs, u"5000,0,0"_qs, u"5000,0,0"_qs} << u"大人"_qs << u"0"_qs << none;
        QTest::newRow("zero behind differs")
            << QStringList{u"5000,0,0"_qs, u"0,0,0"_qs} << u"大人"_qs << u"5000"_qs << 2;
        QTest::newRow("first counts") << QStringList{u"7,0,0"_qs, u"5,0,0"_qs} << u"大人"_qs << u"7"_qs << 2;
        for (const QString& tier : {u"大人"_qs, u"中人"_qs, u"小人"_qs})
            QTest::newRow(qUtf8Printable(u"third price alone differs, "_qs + tier))
                << QStringList{u"5,6,7"_qs, u"5,6,8"_qs} << tier
                << (tier == u"大人"   ? u"5"_qs
                    : tier == u"中人" ? u"6"_qs
                                      : u"7"_qs)
                << none;
        QTest::newRow("first price differs, child asked")
            << QStringList{u"5,6,7"_qs, u"9,6,7"_qs} << u"小人"_qs << u"7"_qs << 2;
    }
    void severalRowsAreCompared() {
        QFETCH(QStringList, rows);
        QFETCH(QString, tier);
        for (qsizetype i = 0; i < rows.size(); ++i) addBase(static_cast<int>(i) + 1, u"つえ"_qs, u"n"_qs, rows.at(i));
        QTEST(price({u"つえ"_qs, u"A"_qs, u"n"_qs, u"f"_qs, {}, u"基本価格"_qs, {}}, tier).toText(), "price");
        QTEST(int(m_code), "code");
    }

    void invalidRowIsFound() {
        addBase(1, u"つえ"_qs, u"n"_qs, u"5,5,5"_qs);
        sql(u"UPDATE [価格基本] SET [有効Flg] = 1"_qs);
        QCOMPARE(price({u"つえ"_qs, u"A"_qs, u"n"_qs, u"f"_qs, {}, u"基本価格"_qs, {}}).toText(), u"5"_qs);
    }

    void rowWithoutAPriceIsAnError() {
        addBase(1, u"つえ"_qs, u"n"_qs, u"NULL,NULL,NULL"_qs);
        const auto error = errorOf([this] { price({u"つえ"_qs, u"A"_qs, u"n"_qs, u"f"_qs, {}, u"基本価格"_qs, {}}); });
        QVERIFY(error);
        QCOMPARE(error->number(), 13);
    }

    void partsAreFoundByTheirWords_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("price");
        QTest::addColumn<int>("result");
        QTest::newRow("code") << u"P-1"_qs << u"f"_qs << u"11"_qs << int(untouched);
        QTest::newRow("code in another case") << u"p-1"_qs << u"f"_qs << u"11"_qs << int(untouched);
        QTest::newRow("no code finds NULL and empty") << QString() << u"f"_qs << u"12"_qs << int(untouched);
        QTest::newRow("not usable") << u"P-9"_qs << u"f"_qs << u"0"_qs << 1;
        QTest::newRow("unknown code") << u"x"_qs << u"f"_qs << u"0"_qs << 1;
        QTest::newRow("prices differ") << u"P-2"_qs << u"f"_qs << u"21"_qs << 2;
        QTest::newRow("quote") << u"P'3"_qs << u"f'"_qs << u"31"_qs << int(untouched);
    }
    void partsAreFoundByTheirWords() {
        QFETCH(QString, code);
        QFETCH(QString, form);
        const auto add = [this](int id, const QString& value, const QString& shape, int usable, int yen) {
            sql(u"INSERT INTO 価格部品 ([ID], [種目], [名称], [形式], [部品コード], [使用設定], [新価格], [有効Flg]) "
                u"VALUES (%1, '義足', '継手', '%2', %3, %4, %5, 1)"_qs.arg(id)
                    .arg(shape, value)
                    .arg(usable)
                    .arg(yen));
        };
        add(1, u"'P-1'"_qs, u"f"_qs, 1, 11);
        add(2, u"NULL"_qs, u"f"_qs, 1, 12);
        add(3, u"''"_qs, u"f"_qs, 1, 12);
        add(4, u"'P-9'"_qs, u"f"_qs, 2, 19);
        add(5, u"'P-2'"_qs, u"f"_qs, 1, 21);
        add(6, u"'P-2'"_qs, u"f"_qs, 1, 22);
        add(7, u"'P''3'"_qs, u"f''"_qs, 1, 31);
        m_queries.clear();
        QTEST(GetPartsPrice(u"義足"_qs, u"継手"_qs, form, code, m_code).toText(), "price");
        QTEST(int(m_code), "result");
        QCOMPARE(m_queries.size(), 1);
    }

    void amountsAreCalculated_data() {
        QTest::addColumn<QList<int>>("given");
        QTest::addColumn<double>("tax");
        QTest::addColumn<QList<int>>("amounts");
        const auto row = [](const char* name, const QList<int>& given, double tax, const QList<int>& amounts) {
            QTest::newRow(name) << given << tax << amounts;
        };
        row("nothing taken off", {10000, 1000, 100, 100, 100}, 5, {10000, 1000, 550, 11550});
        row("each percentage", {10000, 1000, 95, 90, 50}, 6, {8550, 500, 543, 9593});
        row("half to the even below", {25, 0, 10, 100, 100}, 0, {2, 0, 0, 2});
        row("half to the even above", {35, 0, 10, 100, 100}, 0, {4, 0, 0, 4});
        row("tax is cut off", {199, 0, 100, 100, 100}, 6, {199, 0, 11, 210});
        row("tax with decimals", {1000, 0, 100, 100, 100}, 4.8, {1000, 0, 48, 1048});
        row("below zero the tax goes down", {-199, 0, 100, 100, 100}, 6, {-199, 0, -12, -211});
        row("nothing", {0, 0, 100, 100, 100}, 10, {0, 0, 0, 0});
        row("no percentage", {10000, 1000, 0, 100, 0}, 10, {0, 0, 0, 0});
    }
    void amountsAreCalculated() {
        QFETCH(QList<int>, given);
        QFETCH(double, tax);
        qint32 elements = 0, parts = 0, taxAmount = 0, total = 0;
        CalcAmounts(given.at(0), given.at(1), given.at(2), given.at(3), given.at(4), tax, elements, parts, taxAmount,
                    total);
        QTEST((QList<int>{elements, parts, taxAmount, total}), "amounts");
    }

    void amountsBeyondTheRangeAreAnError_data() {
        QTest::addColumn<qint32>("elements");
        QTest::addColumn<qint32>("parts");
        QTest::addColumn<double>("tax");
        QTest::newRow("sum") << 2000000000 << 2000000000 << 0.0;
        QTest::newRow("tax") << 2000000000 << 0 << 5.0;
        QTest::newRow("total") << 2140000000 << 0 << 1.0;
    }
    void amountsBeyondTheRangeAreAnError() {
        QFETCH(qint32, elements);
        QFETCH(qint32, parts);
        QFETCH(double, tax);
        qint32 a = 0, b = 0, c = 0, d = 0;
        const auto error = errorOf([&] { CalcAmounts(elements, parts, 100, 100, 100, tax, a, b, c, d); });
        QVERIFY(error);
        QCOMPARE(error->number(), 6);
    }

private:
    Money price(const QStringList& line, const QString& tier = u"大人"_qs) {
        m_queries.clear();
        return GetElementPrice(line.at(0), line.at(1), line.at(2), line.at(3), line.at(4), line.at(5), line.at(6), tier,
                               m_code);
    }
    void sql(const QString& statement) { m_database->connection().execute(statement); }

    void addBase(int id, const QString& item, const QString& name, const QString& prices, const QString& kbn = u"A"_qs,
                 const QString& form = u"f"_qs, int style = 0, int apply = 0) {
        sql(u"INSERT INTO 価格基本 ([ID], [種目], [採型区分], [名称], [形式], [採型採寸区分], [適用], [新価格１], "
            u"[新価格２], [新価格３]) "
            u"VALUES (%1, '%2', '%3', '%4', '%5', %6, %7, %8)"_qs.arg(id)
                .arg(item, kbn, name, form)
                .arg(style)
                .arg(apply)
                .arg(prices));
    }

    // Rows for a line of this 種目 that differ in what each group filters by.
    void fillAll(const QString& item) {
        const auto three = [](int price) { return u"%1,%1,%1"_qs.arg(price); };
        int id = 0;
        for (int apply = 1; apply <= 4; ++apply)
            addBase(++id, item, u"普通"_qs, three(1000 + apply), u"＊"_qs, u"A"_qs, 0, apply);
        addBase(++id, item, u"電動"_qs, three(1011), u"＊"_qs, u"A"_qs, 0, 1);
        addBase(++id, item, u"殻"_qs, three(1021), u"A-1"_qs, u"F"_qs, 7);
        for (int style = 1; style <= 2; ++style)
            addBase(++id, item, u"装具"_qs, three(1030 + style), u"A-1"_qs, u"G"_qs, style);
        addBase(++id, item, u"多点杖"_qs, three(1041), u"＊"_qs, u"＊"_qs, 9);
        addBase(++id, item, u"調整"_qs, three(1012), u"＊"_qs, u"A"_qs, 0, 1);
        addBase(++id, item, u"調整"_qs, three(1013), u"＊"_qs, u"A"_qs, 0, 3);
        sql(u"INSERT INTO 価格加算 ([ID], [種目], [採型区分], [加算要素], [新価格]) VALUES (1, '%1', '＊', '枕', 2001)"_qs
                .arg(item));
        sql(u"INSERT INTO 価格加算 ([ID], [種目], [採型区分], [加算要素], [新価格]) VALUES (2, '%1', '＊', '調整加算（オーダーメイド）', 2002)"_qs
                .arg(item));
        sql(u"INSERT INTO 価格要素 ([ID], [種目], [採型区分], [製作要素], [原材料], [新価格１]) VALUES (1, '%1', 'A-1', '継手''', '鋼', 3001)"_qs
                .arg(item));
    }
    std::unique_ptr<TestDatabase> m_database;
    QStringList m_queries;
    qint16 m_code = untouched;
};

HALVANE_TEST(basPriceLookupTest)
#include "basPriceLookupTest.moc"
