#include "HalvaneTest.h"
#include "support/ProgramFolder.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"
#include "support/TestServer.h"

#include "base/Csv.h"
#include "base/clsProfile.h"
#include "operations/DatabaseCreation.h"
#include "operations/Managers.h"
#include "price/PriceManagers.h"

#include <QCoreApplication>
#include <QDir>

using DatabaseCreation::Contents;

// Where a new database goes: a file in a folder of its own, or a name on the server.
class DatabaseCreationTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        m_settings = ConnectionSettings::sqliteFile(m_folder->filePath(u"new folder/office.db"_qs));
        if (!TestDatabase::isPostgres()) return;
        m_settings = TestServer::database(u"halvane_creation_%1"_qs.arg(QCoreApplication::applicationPid()));
        TestServer::drop(m_settings.database);
    }
    void cleanup() {
        if (TestDatabase::isPostgres()) TestServer::drop(m_settings.database);
    }

    void newDatabaseHoldsEveryTableAndTheDeliveredRows() {
        QStringList steps;
        DatabaseCreation::create(m_settings, Contents::Delivered, [&](const QString& step) { steps << step; });
        QVERIFY(!steps.isEmpty());
        const auto connection = opened();
        for (const Schema::Table& table : Schema::tables())
            QVERIFY2(connection->tableExists(table.name), qUtf8Printable(table.name));
        for (const QString& table : Managers::tables()) QVERIFY(connection->tableExists(table));
        compareWithSeed(*connection);
    }

    void everyManagersFieldIsAColumn() {
        for (const QString& table : Managers::tables()) QVERIFY(Schema::table(table));
        DatabaseCreation::create(m_settings, Contents::Delivered);
        const auto connection = opened();
        Managers::prepare(*connection); // each reads its columns
        Managers::release();
        const auto check = [](const auto& manager) {
            for (const auto& field : manager.fields())
                QVERIFY2(Schema::table(manager.table())->column(field.column),
                         qUtf8Printable(manager.table() + field.column));
        };
        check(gPriceItemManager);
        check(gPriceBaseManager);
        check(gPriceAddManager);
        check(gPriceElmtManager);
        check(gPricePartsManager);
        check(gBaseElmtSelectManager);
    }

    void sampleOfficeStandsOnTheDeliveredRows() {
        DatabaseCreation::create(m_settings, Contents::WithSample);
        const auto connection = opened();
        QCOMPARE(connection->scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"120"_qs);
        QCOMPARE(connection->scalar(u"SELECT COUNT(*) FROM [企業情報]"_qs), u"1"_qs);
        QVERIFY(!connection->scalar(u"SELECT [企業名] FROM [企業情報]"_qs).isEmpty());
        QVERIFY(connection->scalar(u"SELECT MAX([ID]) FROM [価格基本]"_qs).toInt() < 9000000);
        connection->execute(u"INSERT INTO 主治医 ([主治医コード]) VALUES ('new')"_qs);
        QVERIFY(connection->scalar(u"SELECT COUNT(*) FROM [主治医] WHERE [主治医No] = 1"_qs) == u"1");
    }

    void picturesAndTextsGoWhereTheProfileAsksForThem() {
        const ProgramFolder program;
        program.writeProfile("[Image]\r\nPath=drawings\r\nType=PNG\r\n[Text]\r\nPath=words\r\nType=.txt\r\n");
        QVERIFY(QDir().mkpath(program.path(u"words"_qs)));
        program.write(u"words/靴型装具.txt"_qs, "ours");
        DatabaseCreation::writeSampleHelp(clsProfile());
        QVERIFY(program.read(u"drawings/靴型装具.png"_qs).startsWith("\x89PNG"));
        QCOMPARE(program.read(u"words/靴型装具.txt"_qs), QByteArray("ours"));
        QVERIFY(program.has(u"words/車椅子.txt"_qs));
    }

    void profileThatAsksForOtherFilesGetsNone() {
        const ProgramFolder program;
        program.writeProfile("[Image]\r\nPath=drawings\r\nType=jpg\r\n[Text]\r\nType=txt\r\n");
        DatabaseCreation::writeSampleHelp(clsProfile());
        QVERIFY(!program.has(u"drawings"_qs));
        QCOMPARE(QDir(program.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList({u"Halvane.ini"_qs}));
    }

    void existingDatabaseIsRefusedAndLeftAlone() {
        DatabaseCreation::create(m_settings, Contents::Delivered);
        opened()->execute(u"UPDATE [企業情報] SET [企業名] = '大切'"_qs);
        QVERIFY(raised([&] {
                    DatabaseCreation::create(m_settings, Contents::WithSample);
                }).startsWith(u"データベースは既に存在します。"_qs));
        QCOMPARE(opened()->scalar(u"SELECT [企業名] FROM [企業情報]"_qs), u"大切"_qs);
        QCOMPARE(opened()->scalar(u"SELECT COUNT(*) FROM [顧客情報]"_qs), u"0"_qs);
    }

    void databaseOfAnotherProgramIsRefused() {
        if (TestDatabase::isPostgres()) {
            TestServer::create(m_settings.database);
            opened()->engineExecute(u"CREATE TABLE other (a integer)"_qs);
        } else {
            writeFile("some text");
        }
        QVERIFY(raised([&] {
                    DatabaseCreation::create(m_settings, Contents::Delivered);
                }).startsWith(u"データベースは既に存在します。"_qs));
        if (TestDatabase::isPostgres())
            QCOMPARE(opened()->engineScalar(u"SELECT COUNT(*) FROM other"_qs), u"0"_qs);
        else
            QCOMPARE(readFile(), QByteArray("some text"));
    }

    void failureLeavesNothingBehind() {
        ConnectionSettings settings = m_settings;
        if (TestDatabase::isPostgres()) {
            settings.user = u"nobody_there"_qs;
            QVERIFY(errorOf([&] { DatabaseCreation::create(settings, Contents::Delivered); }));
            QVERIFY(!TestServer::has(m_settings.database));
        } else {
            QVERIFY(
                QDir().mkpath(m_folder->filePath(u"new folder/office.db.new"_qs))); // in the way of the unfinished one
            QVERIFY(errorOf([&] { DatabaseCreation::create(settings, Contents::Delivered); }));
            QVERIFY(!QFile::exists(settings.path));
        }
    }

    void creationBrokenOffBeforeIsTakenUpAnew() {
        if (TestDatabase::isPostgres()) { // an empty database is what such a creation leaves
            TestServer::create(m_settings.database);
        } else {
            m_settings.path += u".new"_qs;
            writeFile("half");
            m_settings.path.chop(4);
        }
        DatabaseCreation::create(m_settings, Contents::Delivered);
        compareWithSeed(*opened());
        QVERIFY(!QFile::exists(m_settings.path + u".new"_qs));
    }

    void newFileIsForItsOwnerAlone() {
        if (TestDatabase::isPostgres()) QSKIP("the server keeps its own files");
        DatabaseCreation::create(m_settings, Contents::Delivered);
        const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(!(QFile::permissions(m_settings.path) & others));
    }

    void unfinishedTablesAreRolledBack() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        QVERIFY(errorOf([&] { DatabaseCreation::createTables(connection); }));
        connection.execute(u"DROP TABLE [価格部品]"_qs);
        QVERIFY(errorOf([&] {
            Transaction transaction(connection);
            DatabaseCreation::loadSample(connection); // no table for the parts
        }));
        QCOMPARE(connection.transactionDepth(), 0);
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [価格種目]"_qs), u"0"_qs);
    }

private:
    std::unique_ptr<Connection> opened() const {
        auto connection = std::make_unique<Connection>(m_settings);
        connection->open();
        return connection;
    }
    void writeFile(const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(m_settings.path).path());
        QFile file(m_settings.path);
        if (!file.open(QIODevice::WriteOnly)) qFatal("no file");
        file.write(bytes);
    }
    QByteArray readFile() const {
        QFile file(m_settings.path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Every delivered row, field by field, and no other.
    static void compareWithSeed(Connection& connection) {
        for (const Schema::Table& table : Schema::tables()) {
            QFile file(QStringLiteral(HALVANE_SOURCE_DIR) + u"/data/seed/%1.csv"_qs.arg(table.name));
            QList<QStringList> lines;
            if (file.open(QIODevice::ReadOnly)) lines = Csv::read(QString::fromUtf8(file.readAll()));
            const QStringList heads = lines.isEmpty() ? QStringList() : lines.takeFirst();
            QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table.name)), QString::number(lines.size()));
            if (lines.isEmpty()) continue;
            Recordset rows = connection.query(u"SELECT * FROM [%1]"_qs.arg(table.name));
            QSet<QStringList> stored, delivered(lines.begin(), lines.end());
            while (rows.next()) {
                QStringList fields;
                for (const QString& head : heads) fields << rows.value(head);
                stored << fields;
            }
            QVERIFY2(stored == delivered, qUtf8Printable(table.name));
        }
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    ConnectionSettings m_settings;
};

HALVANE_TEST(DatabaseCreationTest)
#include "DatabaseCreationTest.moc"
