#include "HalvaneTest.h"
#include "support/PackedFiles.h"
#include "support/Raised.h"

#include "base/Text.h"
#include "reference/PostalFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

// A line of the published towns.
QString town(const QString& code, const QString& name, const QString& city = u"見本市"_qs) {
    return u"01101,\"060  \",\"%1\",\"ﾐﾎﾝｹﾝ\",\"ﾐﾎﾝｼ\",\"ﾏﾁ\",\"見本県\",\"%2\",\"%3\",0,0,0,0,0,0\r\n"_qs.arg(
        code, city, name);
}

// A line of the large offices.
QString office(const QString& code, const QString& name) {
    return u"01101,\"(ｶ)ﾐﾎﾝ\",\"株式会社見本\",\"見本県\",\"見本市\",\"%2\",\"１丁目２－３\",\"%1\",\"060  \",\"見本\",0,0,0\r\n"_qs
        .arg(code, name);
}

PostalFiles::Book read(const QByteArray& bytes) {
    PostalFiles::Book book;
    PostalFiles::readText(bytes, u"name"_qs, book);
    return book;
}

QStringList townsOf(const PostalFiles::Book& book) {
    QStringList names;
    for (const clsZip& row : book.towns) names << row.Zip + u' ' + row.Town;
    return names;
}

} // namespace

class PostalFilesTest : public QObject {
    Q_OBJECT

private slots:
    void aTownIsReadInBothCodings() {
        const QString line = town(u"0600042"_qs, u"大通西（１〜１９丁目）"_qs);
        for (const QByteArray& bytes : {Text::toCp932(line), line.toUtf8()}) {
            const PostalFiles::Book book = read(bytes);
            QCOMPARE(book.towns.size(), 1);
            QCOMPARE(book.towns.first().Zip, u"060-0042"_qs);
            QCOMPARE(book.towns.first().Pref, u"見本県"_qs);
            QCOMPARE(book.towns.first().City, u"見本市"_qs);
            QCOMPARE(book.towns.first().Town, u"大通西"_qs);
        }
    }

    void townsAreCleanedAsAnAddressIsWritten_data() {
        QTest::addColumn<QString>("published");
        QTest::addColumn<QString>("written");
        const auto row = [](const char* name, const QString& published, const QString& written) {
            QTest::newRow(name) << published << written;
        };
        row("plain", u"千代田"_qs, u"千代田"_qs);
        row("all other places", u"以下に掲載がない場合"_qs, {});
        row("numbers behind the city", u"見本町の次に番地がくる場合"_qs, {});
        row("the whole village", u"利島村一円"_qs, {});
        row("a town of that name", u"一円"_qs, u"一円"_qs);
        row("range", u"大通西（１〜１９丁目）"_qs, u"大通西"_qs);
        row("rest", u"霞が関（次のビルを除く）"_qs, u"霞が関"_qs);
        row("floor", u"霞が関霞が関ビル（３６階）"_qs, u"霞が関霞が関ビル"_qs);
        row("bracket that is never closed", u"南山（４３０番地以上"_qs, u"南山"_qs);
        row("two brackets", u"甲（一）乙（二）"_qs, u"甲乙"_qs);
        row("range of lots", u"種市第１地割〜第３地割"_qs, u"種市"_qs);
        row("one lot", u"種市第１地割"_qs, u"種市第１地割"_qs);
    }
    void townsAreCleanedAsAnAddressIsWritten() {
        QFETCH(QString, published);
        QTEST(PostalFiles::cleanTown(published), "written");
    }

    void aTownOverSeveralLinesIsOne() {
        const QString text = town(u"0660005"_qs, u"協和（８８－２、２７１－１０、"_qs) +
                             town(u"0660005"_qs, u"３４３－２、４０４－１、"_qs) +
                             town(u"0660005"_qs, u"１３９２）"_qs) + town(u"0660006"_qs, u"次"_qs);
        QCOMPARE(townsOf(read(Text::toCp932(text))), (QStringList{u"066-0005 協和"_qs, u"066-0006 次"_qs}));
    }

    void aBracketLeftOpenEndsWithItsCode() {
        const QString text = town(u"0660005"_qs, u"協和（８８－２、"_qs) + town(u"0660006"_qs, u"次"_qs);
        QCOMPARE(townsOf(read(Text::toCp932(text))), (QStringList{u"066-0005 協和"_qs, u"066-0006 次"_qs}));
    }

    void severalTownsOfOneCodeStay() {
        const QString text = town(u"0660005"_qs, u"甲"_qs) + town(u"0660005"_qs, u"乙"_qs) +
                             town(u"0660005"_qs, u"甲（２丁目）"_qs) + town(u"0660005"_qs, u"甲"_qs, u"隣市"_qs);
        QCOMPARE(townsOf(read(Text::toCp932(text))),
                 (QStringList{u"066-0005 甲"_qs, u"066-0005 乙"_qs, u"066-0005 甲"_qs}));
    }

    void aRowForAllOtherPlacesKeepsItsCode() {
        QCOMPARE(townsOf(read(Text::toCp932(town(u"0600000"_qs, u"以下に掲載がない場合"_qs)))),
                 QStringList(u"060-0000 "_qs));
    }

    void anOfficesAddressIsItsTownAndItsRest() {
        const PostalFiles::Book book = read(Text::toCp932(office(u"0608588"_qs, u"北三条西"_qs)));
        QCOMPARE(book.offices.size(), 1);
        QCOMPARE(book.offices.first().Zip, u"060-8588"_qs);
        QCOMPARE(book.offices.first().Town, u"北三条西１丁目２－３"_qs);
    }

    void whatIsNoneOfTheShapesIsRefusedByNameAndLine_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        QTest::newRow("nothing") << QByteArray() << u"データがありません。"_qs;
        QTest::newRow("prices") << QByteArray("1,2,3\r\n") << u"1 行目"_qs;
        QTest::newRow("code of six digits") << Text::toCp932(town(u"060004"_qs, u"町"_qs)) << u"1 行目"_qs;
        QTest::newRow("no city") << Text::toCp932(town(u"0600042"_qs, u"町"_qs, {})) << u"1 行目"_qs;
        QTest::newRow("cut") << Text::toCp932(town(u"0600042"_qs, u"町"_qs) + u"01101,\"060"_qs) << u"2 行目"_qs;
        QTest::newRow("two shapes") << Text::toCp932(town(u"0600042"_qs, u"町"_qs) + office(u"0608588"_qs, u"町"_qs))
                                    << u"2 行目"_qs;
        QTest::newRow("noise") << QByteArray(3000, '\x81') << u"1 行目"_qs;
    }
    void whatIsNoneOfTheShapesIsRefusedByNameAndLine() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const QString words = raised([&] { read(bytes); });
        QVERIFY2(words.contains(u"name"_qs) && words.contains(reason), qPrintable(words));
    }

    void packedFilesAreRead() {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"ken_all.zip"_qs);
        PackedFiles::write(
            path, {{u"読んで.txt"_qs, "x"}, {u"data/KEN_ALL.CSV"_qs, Text::toCp932(town(u"0600042"_qs, u"町"_qs))}});
        PostalFiles::Book book;
        PostalFiles::read(path, book);
        QCOMPARE(townsOf(book), QStringList(u"060-0042 町"_qs));
    }

    void anArchiveWithoutAnythingToReadIsRefusedByName_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTemporaryDir folder;
        const QString path = folder.filePath(u"a.zip"_qs);
        PackedFiles::write(path, {{u"KEN_ALL.CSV"_qs, QByteArray(100'000, 'x')}});
        QFile whole(path);
        QVERIFY(whole.open(QIODevice::ReadOnly));
        const QByteArray bytes = whole.readAll();
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("noise") << QByteArray(5000, 'x');
        QTest::newRow("cut") << bytes.left(bytes.size() / 2);
        PackedFiles::write(path, {{u"readme.txt"_qs, "x"}});
        QFile other(path);
        QVERIFY(other.open(QIODevice::ReadOnly));
        QTest::newRow("no table") << other.readAll();
    }
    void anArchiveWithoutAnythingToReadIsRefusedByName() {
        QFETCH(QByteArray, bytes);
        QTemporaryDir folder;
        const QString path = folder.filePath(u"b.zip"_qs);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        PostalFiles::Book book;
        const QString words = raised([&] { PostalFiles::read(path, book); });
        QVERIFY2(words.contains(QDir::toNativeSeparators(path)), qPrintable(words));
    }

    void aFolderOffersItsPublishedFiles() {
        QTemporaryDir folder;
        const auto put = [&](const QString& name) { QVERIFY(QFile(folder.filePath(name)).open(QIODevice::WriteOnly)); };
        QCOMPARE(PostalFiles::find(folder.path()), QStringList());
        put(u"KEN_ALL.CSV"_qs);
        put(u"other.csv"_qs);
        QCOMPARE(PostalFiles::find(folder.path()), QStringList(folder.filePath(u"KEN_ALL.CSV"_qs)));
        put(u"utf_ken_all.zip"_qs);
        put(u"JIGYOSYO.CSV"_qs);
        QCOMPARE(PostalFiles::find(folder.path()),
                 (QStringList{folder.filePath(u"utf_ken_all.zip"_qs), folder.filePath(u"JIGYOSYO.CSV"_qs)}));
    }
};

HALVANE_TEST(PostalFilesTest)
#include "PostalFilesTest.moc"
