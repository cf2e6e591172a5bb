#include "HalvaneTest.h"
#include "support/FileLimit.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/WholeFile.h"
#include "operations/Backup.h"
#include "operations/BackupFiles.h"
#include "operations/DatabaseCreation.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

namespace {

const QString stamp = u"20261122014553"_qs;

void execute(const QString& file, const QString& statement) {
    Connection connection(ConnectionSettings::sqliteFile(file));
    connection.open();
    connection.execute(statement);
}

} // namespace

class BackupTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    QString m_folder;

    QString make(const Backup::Progress& progress = {}) {
        return Backup::make(m_database->settings(), m_folder, stamp, Backup::Made::ByOperator, progress);
    }
    QStringList present() const { return QDir(m_folder).entryList(QDir::Files, QDir::Name); }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile(u"[Backup]\r\nPath=backup\r\n"_qs);
        m_folder = m_database->folder() + u"/backup"_qs;
        QDir().mkpath(m_folder);
    }
    void cleanup() { m_database.reset(); }

    void aPairStandsUnderItsStamp() {
        const QString file = make();
        QCOMPARE(file, QDir(m_folder).filePath(u"Halvane20261122014553.db"_qs));
        QCOMPARE(present(), (QStringList{u"Halvane20261122014553.db"_qs, u"Halvane20261122014553.ini"_qs}));
        QFile copy(m_folder + u"/Halvane20261122014553.ini"_qs), profile(m_database->folder() + u"/Halvane.ini"_qs);
        QVERIFY(copy.open(QIODevice::ReadOnly) && profile.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), profile.readAll());
    }

    void theCopyHoldsEveryRowAndYen() {
        const Backup::Proof proof = Backup::prove(make());
        QCOMPARE(proof.tables.size(), Schema::tables().size());
        for (qsizetype i = 0; i < proof.tables.size(); ++i)
            QCOMPARE(proof.counts.at(i), DatabaseCopy::countOf(m_database->connection(), proof.tables.at(i)));
        QVERIFY(!proof.isOlder());
    }

    void bothFilesAreForTheirOwnerAndGroupAlone() {
        make();
        for (const QString& name : present()) {
            const auto others = QFile::permissions(QDir(m_folder).filePath(name)) &
                                (QFile::ReadOther | QFile::WriteOther | QFile::ExeOther);
            QVERIFY2(!others, qPrintable(name));
        }
    }

    void oneThatMadeItselfSaysSo() {
        Backup::make(m_database->settings(), m_folder, stamp, Backup::Made::ByItself);
        QCOMPARE(BackupFiles::automatic(m_folder), QStringList(stamp));
    }

    void aFolderThatIsGoneIsToldByItsPath() {
        QVERIFY(QDir(m_folder).removeRecursively());
        QVERIFY(raised([&] { make(); }).contains(QDir::toNativeSeparators(m_folder)));
    }

    void aFileInTheFoldersPlaceIsToldByItsPath() {
        QVERIFY(QDir(m_folder).removeRecursively());
        QFile file(m_folder);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(raised([&] { make(); }).contains(QDir::toNativeSeparators(m_folder)));
    }

    void aFullDiskLeavesNothingAndIsTold() {
        QString words;
        {
            const FileLimit limit(200'000);
            words = raised([&] { make(); });
        }
        QVERIFY2(!words.isEmpty(), "no failure");
        QCOMPARE(present(), QStringList());
        QVERIFY(Backup::prove(make()).counts.size() > 0);
    }

    void aStoppedBackupLeavesNothing() {
        QCOMPARE(raised([&] { make([](const QString&, qint64, qint64) { return false; }); }), u"中止しました。"_qs);
        QCOMPARE(present(), QStringList());
    }

    // What a program that was killed has left of the same moment.
    void anUnfinishedCopyIsOverwritten() {
        QFile left(m_folder + u"/Halvane20261122014553.db.part"_qs);
        QVERIFY(left.open(QIODevice::WriteOnly));
        left.write(QByteArray(3'000'000, 'x'));
        left.close();
        Backup::prove(make());
        QCOMPARE(present().size(), 2);
    }

    void whatOthersSaveMeanwhileIsInItOrNotAtAll() {
        const auto other = m_database->another();
        int saves = 0;
        const QString file = make([&](const QString& part, qint64, qint64) {
            if (part.contains(u"写して"_qs) || part.contains(u":"_qs)) {
                Transaction transaction(*other);
                other->execute(u"UPDATE [企業情報] SET [企業名] = '%1' WHERE [番号] = 1"_qs.arg(++saves));
                other->execute(u"UPDATE [採番] SET [最終値] = '%1' WHERE [項目名] = '見積ID'"_qs.arg(saves));
                transaction.commit();
            }
            return true;
        });
        QVERIFY(saves > 0);
        Connection copy(ConnectionSettings::sqliteFile(file));
        copy.open();
        const QString name = copy.scalar(u"SELECT [企業名] FROM [企業情報]"_qs);
        const QString number = copy.scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '見積ID'"_qs);
        if (TestDatabase::isPostgres()) { // of the moment when it began
            QVERIFY2(name.toInt() < saves, qPrintable(name));
        } else { // of the moment when it ended
            QCOMPARE(name, QString::number(saves));
        }
        QCOMPARE(number, name);
    }

    void aCopyThatCannotBeUsedIsRefusedWithItsPath_data() {
        QTest::addColumn<QString>("fault");
        for (const char* fault : {"missing", "empty", "noise", "cut", "scratched", "foreign", "lacks a column"})
            QTest::newRow(fault) << QString::fromLatin1(fault);
    }
    void aCopyThatCannotBeUsedIsRefusedWithItsPath() {
        QFETCH(QString, fault);
        const QString file = make();
        QFile copy(file);
        if (fault == u"missing") QVERIFY(copy.remove());
        if (fault == u"empty") QVERIFY(copy.resize(0));
        if (fault == u"noise") {
            QVERIFY(copy.open(QIODevice::WriteOnly));
            copy.write(QByteArray(20'000, 'x'));
        }
        if (fault == u"cut") QVERIFY(copy.resize(copy.size() / 2));
        if (fault == u"scratched") {
            QVERIFY(copy.open(QIODevice::ReadWrite));
            copy.seek(copy.size() / 2 / 4096 * 4096);
            copy.write(QByteArray(8192, 'x'));
        }
        copy.close();
        if (fault == u"foreign") execute(file, u"DROP TABLE [顧客情報]"_qs);
        if (fault == u"lacks a column") {
            Connection connection(ConnectionSettings::sqliteFile(file));
            connection.open();
            connection.engineExecute(u"ALTER TABLE [装具] DROP COLUMN [順番]"_qs);
        }
        const QString words = raised([&] { Backup::prove(file); });
        QVERIFY2(words.contains(QDir::toNativeSeparators(file)), qPrintable(words));
    }

    void anOlderCopyIsKnownAsOne() {
        const QString file = make();
        execute(file, u"UPDATE [システム設定] SET [設定値] = '020104' WHERE [No] = 99"_qs);
        const Backup::Proof proof = Backup::prove(file);
        QVERIFY(proof.isOlder());
        QCOMPARE(proof.version, u"020104"_qs);
    }

    void removingTakesWhatIsThereOfAPair() {
        make();
        QVERIFY(QFile::remove(m_folder + u"/Halvane20261122014553.ini"_qs));
        Backup::remove(m_folder, stamp);
        QCOMPARE(present(), QStringList());
    }
};

HALVANE_TEST(BackupTest)
#include "BackupTest.moc"
