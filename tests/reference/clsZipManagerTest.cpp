#include "HalvaneTest.h"
#include "support/FileLimit.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "reference/clsZipManager.h"

#include <QFileInfo>

namespace {

void add(Connection& connection, const QString& zip, const QString& pref, const QString& city, const QString& town) {
    connection.execute(u"INSERT INTO 郵便番号簿 VALUES ('%1', '%2', '%3', %4)"_qs.arg(
        zip, pref, city, town.isEmpty() ? u"NULL"_qs : u'\'' + town + u'\''));
}

QStringList column(Recordset rows, const QString& name) {
    QStringList values;
    while (rows.next()) values << rows.value(name);
    return values;
}

} // namespace

class clsZipManagerTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->prepareManagers();
        Connection& connection = m_database->connection();
        connection.execute(u"DELETE FROM [郵便番号簿]"_qs);
        add(connection, u"1000001"_qs, u"東京都"_qs, u"千代田区"_qs, u"千代田"_qs);
        add(connection, u"1000002"_qs, u"東京都"_qs, u"千代田区"_qs, u"皇居外苑"_qs);
        add(connection, u"5300001"_qs, u"大阪府"_qs, u"大阪市北区"_qs, {});
    }
    void cleanup() { m_database.reset(); }

    void firstFittingRowIsFound_data() {
        QTest::addColumn<QStringList>("asked");
        QTest::addColumn<QString>("zip");
        QTest::newRow("code") << QStringList{u"1000002"_qs, {}, {}, {}} << u"1000002"_qs;
        QTest::newRow("parts") << QStringList{{}, u"東京"_qs, u"千代"_qs, u"外苑"_qs} << u"1000002"_qs;
        QTest::newRow("code and a part that does not fit")
            << QStringList{u"1000002"_qs, u"大阪"_qs, {}, {}} << QString();
        QTest::newRow("sign of LIKE") << QStringList{{}, u"%"_qs, {}, {}} << QString();
        QTest::newRow("underscore") << QStringList{{}, u"東_都"_qs, {}, {}} << QString();
        QTest::newRow("quote") << QStringList{{}, u"'"_qs, {}, {}} << QString();
        QTest::newRow("nothing asked") << QStringList{{}, {}, {}, {}} << QString();
    }
    void firstFittingRowIsFound() {
        QFETCH(QStringList, asked);
        clsZip zip;
        const bool found = gZipManager.GetZipData(zip, asked.at(0), asked.at(1), asked.at(2), asked.at(3));
        QTEST(zip.Zip, "zip");
        QCOMPARE(found, !zip.Zip.isEmpty());
    }

    void listsByAddressStartWithWhatWasTyped() {
        MessageQueue boxes;
        const auto found = [](const QString& pref, const QString& address) {
            return column(gZipManager.GetSelectListFromAddr(pref, address, u"[郵便番号]"_qs), u"郵便番号"_qs)
                .join(u' ');
        };
        QCOMPARE(found(u"東京都"_qs, u"千代田区"_qs), u"1000001 1000002"_qs);
        QCOMPARE(found(u"東京都"_qs, u"千代田区皇居"_qs), u"1000002"_qs);
        QCOMPARE(found(u"大阪府"_qs, u"大阪市北区"_qs), u"5300001"_qs);
        QVERIFY(boxes.isEmpty());
        QCOMPARE(found(u"東京都"_qs, u"%"_qs), QString());
        QCOMPARE(boxes.texts(), QStringList{u"該当する郵便番号情報は登録されていません。"_qs});
    }

    void listsByCodeStartWithWhatWasTyped() {
        Recordset rows = gZipManager.GetSelectListFromZip(u"100"_qs, u"[郵便番号] DESC"_qs);
        QCOMPARE(rows.fields(), (QStringList{u"郵便番号"_qs, u"都道府県名"_qs, u"市区町村名"_qs, u"住所"_qs}));
        QCOMPARE(column(std::move(rows), u"住所"_qs), (QStringList{u"皇居外苑"_qs, u"千代田"_qs}));
    }

    void importReplacesTheBookAndItsIndexes() {
        QStringList statements;
        m_database->connection().onStatement = [&](const QString& statement) { statements << statement; };
        const QString path = bookWith(2);
        for (int round = 0; round < 2; ++round) { // the second with five indexes present
            Transaction transaction(m_database->connection());
            gZipManager.ImportCsv(path);
            transaction.commit();
            QCOMPARE(gZipManager.GetCount(), 2);
        }
        QCOMPARE(statements.filter(u"CREATE INDEX"_qs).size(), 10);
        QCOMPARE(statements.first(), u"DROP TABLE [郵便番号簿]"_qs);
        clsZip zip;
        QVERIFY(gZipManager.GetZipData(zip, u"9000001"_qs, {}, {}, {}));
        QCOMPARE(zip.Town, QString());
    }

    void publishedRowsReplaceTheBookAndItsIndexes() {
        QStringList statements;
        m_database->connection().onStatement = [&](const QString& statement) { statements << statement; };
        PostalFiles::Book book;
        for (int i = 0; i < 700; ++i) // more than one statement takes
            book.towns << clsZip{u"900-%1"_qs.arg(i, 4, 10, QLatin1Char('0')), u"沖縄県"_qs, u"那覇市"_qs, {}};
        book.offices << clsZip{u"900-8601"_qs, u"沖縄県"_qs, u"那覇市"_qs, u"𠮷"_qs.repeated(130)};
        QList<qint64> told;
        for (int round = 0; round < 2; ++round) {
            Transaction transaction(m_database->connection());
            gZipManager.ImportPublished(book, [&](qint64 rows) { told << rows; });
            transaction.commit();
            QCOMPARE(gZipManager.GetCount(), 701);
        }
        QCOMPARE(statements.filter(u"CREATE INDEX"_qs).size(), 10);
        QCOMPARE(told.last(), 701);
        clsZip zip;
        QVERIFY(gZipManager.GetZipData(zip, u"900-0699"_qs, {}, {}, {}));
        QCOMPARE(zip.Town, QString());
        QVERIFY(gZipManager.GetZipData(zip, u"900-8601"_qs, {}, {}, {}));
        QCOMPARE(zip.Town, u"𠮷"_qs.repeated(120));
    }

    void codesOfOfficesAloneAreAddedToTheBook() {
        PostalFiles::Book book;
        book.offices << clsZip{u"1000002"_qs, u"東京都"_qs, u"千代田区"_qs, u"皇居外苑１－１"_qs}
                     << clsZip{u"1008111"_qs, u"東京都"_qs, u"千代田区"_qs, u"千代田１－１"_qs};
        gZipManager.ImportPublished(book);
        QCOMPARE(gZipManager.GetCount(), 4);
        clsZip zip;
        QVERIFY(gZipManager.GetZipData(zip, u"1000002"_qs, {}, {}, {}));
        QCOMPARE(zip.Town, u"皇居外苑１－１"_qs);
    }

    void failedPublishedImportLeavesTheOldBook() {
        PostalFiles::Book book;
        for (int i = 0; i < 700; ++i) book.towns << clsZip{u"900-0000"_qs, u"沖縄県"_qs, u"那覇市"_qs, {}};
        QCOMPARE(raised([&] {
                     Transaction transaction(m_database->connection());
                     gZipManager.ImportPublished(book, [](qint64) { throw AppError(u"stop"_qs); });
                     transaction.commit();
                 }),
                 u"stop"_qs);
        QCOMPARE(gZipManager.GetCount(), 3);
    }

    void aFullDiskLeavesTheOldBook() {
        if (TestDatabase::isPostgres()) QSKIP("The server writes its files itself.");
        PostalFiles::Book book;
        for (int i = 0; i < 20'000; ++i)
            book.towns << clsZip{u"%1"_qs.arg(i, 7, 10, QLatin1Char('0')), u"沖縄県"_qs, u"那覇市"_qs, u"町"_qs};
        const auto import = [&] {
            Transaction transaction(m_database->connection());
            gZipManager.ImportPublished(book);
            transaction.commit();
        };
        {
            const FileLimit limit(QFileInfo(m_database->settings().path).size() + 100'000);
            QVERIFY(!raised(import).isEmpty());
        }
        QCOMPARE(gZipManager.GetCount(), 3);
        QCOMPARE(m_database->connection().engineScalar(u"PRAGMA integrity_check"_qs), u"ok"_qs);
        import(); // with room again
        QCOMPARE(gZipManager.GetCount(), 20'000);
    }

    void failedImportLeavesTheOldBook_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("no file") << QByteArray();
        QTest::newRow("no database") << QByteArray(5000, 'x');
    }
    void failedImportLeavesTheOldBook() {
        QFETCH(QByteArray, bytes);
        const QString path = m_database->folder() + u"/ziplist.mdb"_qs;
        if (!bytes.isEmpty()) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(bytes);
        }
        QVERIFY(!raised([&] {
                     Transaction transaction(m_database->connection());
                     gZipManager.ImportCsv(path);
                     transaction.commit();
                 }).isEmpty());
        QCOMPARE(gZipManager.GetCount(), 3);
        QCOMPARE(column(gZipManager.GetSelectListFromZip(u"53"_qs, u"[郵便番号]"_qs), u"市区町村名"_qs),
                 QStringList{u"大阪市北区"_qs});
    }

private:
    QString bookWith(int rows) {
        const QString path = m_database->folder() + u"/ziplist.mdb"_qs;
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) qFatal("no file");
        Connection book(ConnectionSettings::sqliteFile(path));
        book.open();
        book.createTable(*Schema::table(u"郵便番号簿"_qs));
        for (int i = 1; i <= rows; ++i) add(book, u"900000%1"_qs.arg(i), u"沖縄県"_qs, u"那覇市"_qs, {});
        return path;
    }

    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(clsZipManagerTest)
#include "clsZipManagerTest.moc"
