#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Text.h"
#include "price/PriceFiles.h"

#include <random>

class PriceFilesTest : public QObject {
    Q_OBJECT

private slots:
    void everyTableHasItsFields_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("fields");
        QTest::newRow("items") << u"価格種目"_qs << 5;
        QTest::newRow("base") << u"価格基本"_qs << 14;
        QTest::newRow("additions") << u"価格加算"_qs << 8;
        QTest::newRow("elements") << u"価格要素"_qs << 12;
        QTest::newRow("parts") << u"価格部品"_qs << 12;
    }
    void everyTableHasItsFields() {
        QFETCH(QString, table);
        QFETCH(int, fields);
        QCOMPARE(PriceFiles::fieldCount(table), fields);
        const QByteArray line = QByteArray(fields - 1, ',');
        QCOMPARE(PriceFiles::read(table, line + "\r\n").size(), 1);
        for (const QByteArray& damaged : {line + ',', line.chopped(1)})
            QCOMPARE(raised([&] { PriceFiles::read(table, line + "\n" + damaged); }),
                     u"2行目のデータ形式が違います。処理を終了します。"_qs);
    }

    void linesAreRead_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("lines");
        QTest::addColumn<QString>("first");
        QTest::newRow("empty") << QString() << 0 << QString();
        QTest::newRow("quotes mean nothing")
            << u"\"1\",\"義足\",\"B\"\"-1\",名,形\r\n"_qs << 1 << u"1/義足/B-1/名/形"_qs;
        QTest::newRow("empty lines") << u"\r\n1,a,b,c,d\r\n\r\n2,a,b,c,d\n"_qs << 2 << u"1/a/b/c/d"_qs;
        QTest::newRow("no end of line") << u"1,a,b,c,"_qs << 1 << u"1/a/b/c/"_qs;
        QTest::newRow("signs of the code page") << u"1,①表,㈱,髙～,－"_qs << 1 << u"1/①表/㈱/髙～/－"_qs;
        QTest::newRow("blanks stay") << u" 1, a,b ,c,d"_qs << 1 << u" 1/ a/b /c/d"_qs;
    }
    void linesAreRead() {
        QFETCH(QString, file);
        const QList<QStringList> lines = PriceFiles::read(u"価格種目"_qs, Text::toCp932(file));
        QTEST(int(lines.size()), "lines");
        QTEST(lines.value(0).join(u'/'), "first");
    }

    void numberOfTheDamagedLineCountsEmptyOnes() {
        QVERIFY(raised([] { PriceFiles::read(u"価格種目"_qs, "1,a,b,c,d\n\n2,a\n"); }).startsWith(u"3行目"_qs));
    }

    void otherTablesAreRefused() {
        QVERIFY(errorOf([] { PriceFiles::fieldCount(u"採番"_qs); }));
        QVERIFY(errorOf([] { PriceFiles::read(u"採番"_qs, "a"); }));
    }

    void anyBytesAreReadOrRefused() {
        std::mt19937 random(5);
        const QByteArray whole = Text::toCp932(u"1,義足,B-1,\"名\",形①\r\n2,装具,C-1,名,形\r\n"_qs);
        int read = 0, refused = 0;
        for (int round = 0; round < 3000; ++round) {
            QByteArray bytes = whole;
            for (int i = static_cast<int>(random() % 4); i >= 0; --i) {
                const auto at = static_cast<qsizetype>(random() % bytes.size());
                if (random() % 2)
                    bytes[at] = static_cast<char>(random());
                else
                    bytes.remove(at, 1);
            }
            const QString words = raised([&] {
                for (const QStringList& line : PriceFiles::read(u"価格種目"_qs, bytes)) QCOMPARE(line.size(), 5);
                ++read;
            });
            if (words.isEmpty()) continue;
            ++refused;
            QVERIFY(words.endsWith(u"行目のデータ形式が違います。処理を終了します。"_qs));
        }
        QVERIFY(read > 100 && refused > 100);
    }

    void importedRowsAreValidAndKeepTheirNumbers() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        PriceFiles::importInto(database.connection(), u"価格加算"_qs,
                               Text::toCp932(u"7,3,義足,A-1,断端's,3,15900,\r\n"_qs));
        Recordset rows = database.connection().query(u"SELECT * FROM [価格加算]"_qs);
        QVERIFY(rows.next());
        QCOMPARE(rows.value(u"ID"_qs), u"7"_qs);
        QCOMPARE(rows.value(u"加算要素"_qs), u"断端's"_qs);
        QCOMPARE(rows.value(u"新価格"_qs), u"15900"_qs);
        QVERIFY(rows.isNull(u"旧価格"_qs));
        QCOMPARE(rows.value(u"有効Flg"_qs), u"0"_qs);
        QCOMPARE(rows.value(u"編集者No"_qs), u"1"_qs);
        QVERIFY(!rows.next());
    }

    void damagedFileStopsAtItsLineWithAnError_data() {
        QTest::addColumn<QString>("line");
        QTest::newRow("letters as a price") << u"8,3,義足,A-1,断端,3,abc,1"_qs;
        QTest::newRow("letters as a number") << u"x,3,義足,A-1,断端,3,1,1"_qs;
        QTest::newRow("same number") << u"7,3,義足,A-1,断端,3,1,1"_qs;
        QTest::newRow("no number") << u",3,義足,A-1,断端,3,1,1"_qs;
        QTest::newRow("too few fields") << u"8,3"_qs;
    }
    void damagedFileStopsAtItsLineWithAnError() {
        QFETCH(QString, line);
        TestDatabase database(TestDatabase::Contents::Delivered);
        Connection& connection = database.connection();
        QVERIFY(errorOf([&] {
            Transaction transaction(connection);
            PriceFiles::importInto(connection, u"価格加算"_qs,
                                   Text::toCp932(u"7,3,義足,A-1,断端,3,15900,1\r\n"_qs + line));
            transaction.commit();
        }));
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [価格加算]"_qs), u"0"_qs);
    }
};

HALVANE_TEST(PriceFilesTest)
#include "PriceFilesTest.moc"
