#include "HalvaneTest.h"

#include "support/FileLimit.h"
#include "support/ProgramFolder.h"

#include "base/AppError.h"
#include "base/KeptDrafts.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

class KeptDraftsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ProgramFolder> m_office;

    static KeptWork work(const QString& text) {
        return {u"見積 "_qs + text, {{u"text"_qs, text}, {u"parts"_qs, u"一\x1D二"_qs}}, u"frmSample"_qs};
    }
    static void keep(DraftKeeping& keeping, const QString& text) {
        keeping.keep([&] { return work(text); });
    }
    static struct stat statusOf(const QString& path) {
        struct stat found {};
        if (::stat(QFile::encodeName(path).constData(), &found) != 0) qFatal("no such file");
        return found;
    }
    static KeptDraft only() {
        const QList<KeptDraft> left = KeptDrafts::left();
        if (left.size() != 1) qFatal("%d drafts", static_cast<int>(left.size()));
        return left.first();
    }
    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("not written");
    }

private slots:
    void init() {
        m_office.reset();
        m_office = std::make_unique<ProgramFolder>();
        m_office->writeProfile("[DB]\r\nProvider=SQLite\r\nDatabase=a.db\r\n");
    }
    void cleanup() { seams().now = defaultSeams().now; }

    void whatIsKeptComesBackWhole() {
        DraftKeeping keeping;
        keep(keeping, u"𠮷田 \"花子\"\n２行目"_qs);
        const KeptDraft draft = only();
        QVERIFY(draft.isReadable && !draft.duringSave);
        QCOMPARE(draft.kind, u"frmSample"_qs);
        QCOMPARE(draft.title, work(u"𠮷田 \"花子\"\n２行目"_qs).title);
        QCOMPARE(draft.content, work(u"𠮷田 \"花子\"\n２行目"_qs).content);
    }

    void onlyTheOwnerReadsIt() {
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        QCOMPARE(statusOf(only().file).st_mode & 0777, 0600u);
        QCOMPARE(statusOf(KeptDrafts::folder()).st_mode & 0777, 0700u);
        keep(keeping, u"b"_qs);
        QCOMPARE(statusOf(only().file).st_mode & 0777, 0600u);
    }

    // Another user of the same office has a folder of his own beside it.
    void theFolderOfAllIsAsOpenAsTheOffice() {
        const QFile::Permissions shared =
            QFile::permissions(m_office->path()) | QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup;
        QVERIFY(QFile::setPermissions(m_office->path(), shared));
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        QCOMPARE(statusOf(m_office->path(u"drafts"_qs)).st_mode & 0777, 0770u);
        QCOMPARE(statusOf(KeptDrafts::folder()).st_mode & 0777, 0700u);
    }

    void workThatEndedLeavesNothing() {
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        keeping.forget();
        QVERIFY(KeptDrafts::left().isEmpty());
        keep(keeping, u"a"_qs); // the same once more is other work
        QCOMPARE(only().content, work(u"a"_qs).content);
    }

    void anEditorHasOneFileHoweverOftenItKeeps() {
        DraftKeeping keeping;
        for (const QString& text : {u"a"_qs, u"b"_qs, u"c"_qs}) keep(keeping, text);
        QCOMPARE(only().content, work(u"c"_qs).content);
    }

    void whatDidNotChangeIsNotWrittenAgain() {
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        const auto before = statusOf(only().file).st_ino;
        keep(keeping, u"a"_qs);
        QCOMPARE(statusOf(only().file).st_ino, before);
        QFile::remove(only().file); // by another hand
        keep(keeping, u"a"_qs);
        QCOMPARE(only().content, work(u"a"_qs).content);
    }

    void twoEditorsKeepTwoFiles() {
        DraftKeeping first, second;
        keep(first, u"a"_qs);
        keep(second, u"b"_qs);
        QCOMPARE(KeptDrafts::left().size(), 2);
        first.forget();
        QCOMPARE(only().content, work(u"b"_qs).content);
    }

    void draftOfAnotherDatabaseIsNotOfferedButStays() {
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        m_office->writeProfile("[DB]\r\nProvider=SQLite\r\nDatabase=b.db\r\n");
        QVERIFY(KeptDrafts::left().isEmpty());
        m_office->writeProfile("[DB]\r\nProvider=SQLite\r\nDatabase=a.db\r\n");
        QCOMPARE(only().content, work(u"a"_qs).content);
    }

    void damagedDraftIsToldAndNotRead_data() {
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("spoilt");
        QTest::newRow("empty") << 0 << -1;
        QTest::newRow("cut within the sum") << 20 << -1;
        QTest::newRow("cut within the work") << 120 << -1;
        QTest::newRow("one byte of the sum") << -1 << 3;
        QTest::newRow("one byte of the work") << -1 << 150;
    }
    void damagedDraftIsToldAndNotRead() {
        QFETCH(int, length);
        QFETCH(int, spoilt);
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        QByteArray bytes = bytesOf(only().file).left(length);
        if (length < 0) bytes = bytesOf(only().file);
        if (spoilt >= 0) bytes[spoilt] = static_cast<char>(bytes.at(spoilt) ^ 1);
        write(only().file, bytes);
        const KeptDraft draft = only();
        QVERIFY(!draft.isReadable);
        QVERIFY(draft.content.isEmpty());
        QVERIFY(draft.kept.isValid());
        KeptDrafts::drop(draft.file);
        QVERIFY(KeptDrafts::left().isEmpty());
    }

    void fullDiskLeavesTheLastWholeOneAndIsRemembered() {
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        {
            const FileLimit full(10);
            keep(keeping, u"b"_qs);
        }
        QCOMPARE(only().content, work(u"a"_qs).content);
        QVERIFY2(KeptDrafts::failure().startsWith(u"下書きに書き込めません。"_qs),
                 qUtf8Printable(KeptDrafts::failure()));
        keep(keeping, u"b"_qs);
        QCOMPARE(only().content, work(u"b"_qs).content);
        QVERIFY(KeptDrafts::failure().isEmpty());
    }

    void folderThatCannotBeMadeIsRemembered() {
        m_office->write(u"drafts"_qs, "a file in the way");
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        QVERIFY(KeptDrafts::failure().contains(u"フォルダ"_qs));
        QVERIFY(KeptDrafts::left().isEmpty());
    }

    // An amount beyond all bounds, for one.
    void workThatCannotBeCollectedIsRemembered() {
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        keeping.keep([]() -> KeptWork { throw AppError(u"桁あふれ"_qs); });
        QCOMPARE(KeptDrafts::failure(), u"桁あふれ"_qs);
        QCOMPARE(only().content, work(u"a"_qs).content);
    }

    void draftOfASaveUnderWaySaysSo() {
        DraftKeeping keeping;
        keep(keeping, u"a"_qs);
        keeping.beginSave();
        QVERIFY(only().duringSave);
        keep(keeping, u"b"_qs); // a minute passes while the save asks something
        QCOMPARE(only().content, work(u"a"_qs).content);
        keeping.endSave();
        QVERIFY(!only().duringSave);
        keeping.beginSave();
        keeping.forget();
        keeping.endSave();
        QVERIFY(KeptDrafts::left().isEmpty());
    }

    void takenUpDraftGoesOnInItsFile() {
        DraftKeeping before;
        keep(before, u"a"_qs);
        DraftKeeping after;
        after.takeUp(only());
        keep(after, u"b"_qs);
        QCOMPARE(only().content, work(u"b"_qs).content);
        after.forget();
        QVERIFY(KeptDrafts::left().isEmpty());
    }

    void clockThatJumpsLosesNothing() {
        const auto at = [](int year) { seams().now = [year] { return QDateTime(QDate(year, 1, 2), QTime(3, 4, 5)); }; };
        DraftKeeping first, second;
        at(2030);
        keep(first, u"a"_qs);
        at(1999);
        keep(first, u"b"_qs);
        keep(second, u"c"_qs);
        QCOMPARE(KeptDrafts::left().size(), 2);
        for (const KeptDraft& draft : KeptDrafts::left()) QCOMPARE(draft.kept.date().year(), 1999);
    }
};

HALVANE_TEST(KeptDraftsTest)
#include "KeptDraftsTest.moc"
