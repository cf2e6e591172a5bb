#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Text.h"
#include "price/PriceFiles.h"

#include <QTemporaryDir>

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

    // What is wrong in a file of 価格加算 is told with its line; nothing but the fault is told.
    void damagedFilesAreTold_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("faults");
        const QByteArray good = Text::toCp932(u"7,3,義足,A-1,断端,3,15900,1\r\n"_qs);
        const auto cp932 = [](const QString& line) { return Text::toCp932(line + u"\r\n"_qs); };
        QTest::newRow("good") << good << QStringList();
        QTest::newRow("LF only") << QByteArray(good).replace("\r\n", "\n") << QStringList();
        QTest::newRow("a last line without its end") << good + good.chopped(2).replace(0, 1, "8") << QStringList();
        QTest::newRow("empty lines") << "\r\n" + good + "\r\n\n" << QStringList();
        QTest::newRow("0 bytes") << QByteArray() << QStringList{u"0 ファイルが空です。"_qs};
        QTest::newRow("another code page") << u"7,3,義足,A-1,断端,3,15900,1\r\n"_qs.toUtf8()
                                           << QStringList{u"1 文字コードが Shift_JIS ではありません。"_qs};
        QTest::newRow("a BOM") << "\xEF\xBB\xBF" + good
                               << QStringList{u"0 文字コードが UTF-8 です。Shift_JIS で保存し直してください。"_qs};
        QTest::newRow("a BOM of 16 bits")
            << QByteArray("\xFF\xFE\x37\x00", 4)
            << QStringList{u"0 文字コードが UTF-16 です。Shift_JIS で保存し直してください。"_qs};
        QTest::newRow("100 columns") << good.chopped(2) + QByteArray(92, ',') + "\r\n"
                                     << QStringList{u"1 項目の数が違います（8 のところ 100）。"_qs};
        QTest::newRow("too few columns") << good + "8,3\r\n"
                                         << QStringList{u"2 項目の数が違います（8 のところ 2）。"_qs};
        QTest::newRow("an ID twice") << good + good << QStringList{u"2 ID 7 が重複しています。"_qs};
        QTest::newRow("an ID of a user") << cp932(u"9000001,3,義足,A-1,断端,3,1,1"_qs)
                                         << QStringList{u"1 ID が範囲を超えています（9000001）。"_qs};
        QTest::newRow("no ID") << cp932(u",3,義足,A-1,断端,3,1,1"_qs) << QStringList{u"1 ID がありません。"_qs};
        QTest::newRow("a price of 1e9") << cp932(u"7,3,義足,A-1,断端,3,1e9,1"_qs)
                                        << QStringList{u"1 新価格 が数字ではありません（1e9）。"_qs};
        QTest::newRow("a price beyond all") << cp932(u"7,3,義足,A-1,断端,3,1000000000,1"_qs)
                                            << QStringList{u"1 新価格 が範囲を超えています（1000000000）。"_qs};
        QTest::newRow("a letter as a price")
            << cp932(u"7,3,義足,A-1,断端,3,x,1"_qs) << QStringList{u"1 新価格 が数字ではありません（x）。"_qs};
        QTest::newRow("a price below 0") << cp932(u"7,3,義足,A-1,断端,3,-5,1"_qs)
                                         << QStringList{u"1 新価格 が範囲を超えています（-5）。"_qs};
        QTest::newRow("a text too long") << cp932(u"7,3,義足,A-1,%1,3,1,1"_qs.arg(QString(51, u'長')))
                                         << QStringList{u"1 加算要素 が長すぎます（50文字まで）。"_qs};
    }
    void damagedFilesAreTold() {
        QFETCH(QByteArray, file);
        QTemporaryDir folder;
        QFile stored(folder.filePath(u"Add.csv"_qs));
        QVERIFY(stored.open(QIODevice::WriteOnly));
        stored.write(file);
        stored.close();
        QStringList told;
        for (const PriceFiles::Fault& fault : PriceFiles::faultsOf(u"価格加算"_qs, stored.fileName())) {
            QCOMPARE(fault.file, u"Add.csv"_qs);
            told << u"%1 %2"_qs.arg(fault.line).arg(fault.reason);
        }
        QTEST(told, "faults");
    }

    void aFileThatCannotBeReadIsTold() {
        const QList<PriceFiles::Fault> faults = PriceFiles::faultsOf(u"価格加算"_qs, u"/nowhere/Add.csv"_qs);
        QCOMPARE(faults.size(), 1);
        QVERIFY(faults.first().reason.startsWith(u"ファイルが読めません。"_qs));
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
