#include "HalvaneTest.h"

#include "support/FileLimit.h"
#include "support/Raised.h"

#include "base/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

class WholeFileTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString path(const QString& name = u"a.txt"_qs) const { return m_folder.filePath(name); }

    static QByteArray contents(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void write(const QByteArray& bytes) const {
        WholeFile file(path(), u"見本"_qs);
        file.write(bytes);
        file.commit();
    }

    static int modeOf(const QString& path) {
        struct stat found {};
        return ::stat(QFile::encodeName(path).constData(), &found) == 0 ? found.st_mode & 0777 : -1;
    }

private slots:
    void cleanup() {
        QDir folder(m_folder.path());
        for (const QString& name : folder.entryList(QDir::Files)) folder.remove(name);
    }

    void nothingStandsThereBeforeTheCommit() {
        write("before");
        {
            WholeFile file(path());
            file.write("after");
        }
        QCOMPARE(contents(path()), QByteArray("before"));
        write("after");
        QCOMPARE(contents(path()), QByteArray("after"));
    }

    // A few bytes wait in memory; that the disk cannot take them shows when they are flushed.
    void aDiskThatTakesNoMoreLeavesTheFileAsItWas() {
        write("before");
        const FileLimit limit(0);
        const QString told = raised([this] { write("after"); });
        QVERIFY2(told.startsWith(u"見本に書き込めません。\n"_qs + path()), qUtf8Printable(told));
        QCOMPARE(contents(path()), QByteArray("before"));
        QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files), QStringList(u"a.txt"_qs));
    }

    void manyBytesFailAsTheyAreWritten() {
        const FileLimit limit(1000);
        QVERIFY(!raised([this] { write(QByteArray(1'000'000, 'x')); }).isEmpty());
        QVERIFY(!QFile::exists(path()));
    }

    void aFolderThatIsGoneIsTold() {
        const QString told = raised([this] { WholeFile(path(u"none/a.txt"_qs)); });
        QVERIFY2(told.endsWith(u"フォルダがありません。"), qUtf8Printable(told));
    }

    void aNewFileIsForItsOwnerAlone() {
        write("x");
        QCOMPARE(modeOf(path()), 0600);
    }

    void aRewrittenFileKeepsItsMode() {
        write("x");
        QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        write("y");
        QCOMPARE(modeOf(path()), 0640);
    }
};

HALVANE_TEST(WholeFileTest)
#include "WholeFileTest.moc"
