#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "app/OfficeFolder.h"
#include "app/basMain.h"
#include "base/clsProfile.h"
#include "db/Connection.h"
#include "operations/screens/frmFirstStart.h"
#include "ui/EntryField.h"
#include "ui/Style.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

// The first start of an office: before it has a folder, an INI file and a database.
class FirstStartTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<TestDatabase> m_database; // its engine; on a server its name is taken

    QString home(const QString& name) const { return m_home->filePath(name); }
    QString officeFolder() const { return home(u"Halvane"_qs); }

    std::unique_ptr<frmFirstStart> screen() const {
        return std::make_unique<frmFirstStart>(officeFolder(), officeFolder() + u"-sample"_qs);
    }
    static void type(const frmFirstStart& screen, const QString& field, const QString& text) {
        screen.findChild<EntryField*>(field)->setValue(text);
    }
    static void press(const frmFirstStart& screen, const QString& name) {
        screen.findChild<QAbstractButton*>(name)->click();
    }
    // Fills in where the data will be on the engine of this run; gives the database's place.
    void choosePlace(const frmFirstStart& screen, const QString& name) const {
        if (!TestDatabase::isPostgres()) return;
        press(screen, u"optPlace_1"_qs);
        const ConnectionSettings& server = m_database->settings();
        type(screen, u"txtHost"_qs, server.path);
        type(screen, u"txtDatabase"_qs, name);
        type(screen, u"txtUserId"_qs, server.user);
        screen.findChild<QLineEdit*>(u"txtPassWd"_qs)->setText(server.password);
    }
    static QString scalar(const QString& folder, const QString& sql) {
        Connection connection(ConnectionSettings::fromProfile(clsProfile(QDir(folder).filePath(u"Halvane.ini"_qs))));
        connection.open();
        return connection.scalar(sql);
    }
    void dropMade(const QString& name) const {
        if (TestDatabase::isPostgres())
            m_database->another()->engineExecute(u"DROP DATABASE IF EXISTS \"%1\""_qs.arg(name));
    }
    QString newName() const { return m_database->settings().database + u"_first"_qs; }

private slots:
    void initTestCase() {
        QApplication::setQuitOnLastWindowClosed(false);
        Style::apply(*qApp);
    }
    void init() {
        m_home = std::make_unique<QTemporaryDir>();
        m_database = std::make_unique<TestDatabase>();
    }
    void cleanup() {
        dropMade(newName());
        m_database.reset();
        seams().programFolder = defaultSeams().programFolder;
    }

    void anOfficeIsMadeAndStarts() {
        const CapturedMessages messages;
        const auto first = screen();
        type(*first, u"txtOfficeNm"_qs, u"みほん義肢　製作所"_qs);
        choosePlace(*first, newName());
        press(*first, u"cmdExec"_qs);
        QVERIFY2(messages.texts.isEmpty(), qUtf8Printable(messages.texts.join(u'\n')));
        QCOMPARE(first->chosenFolder(), officeFolder());
        QCOMPARE(scalar(officeFolder(), u"SELECT [企業名] FROM [企業情報]"_qs), u"みほん義肢　製作所"_qs);
        QCOMPARE(scalar(officeFolder(), u"SELECT COUNT(*) FROM [顧客情報]"_qs), u"0"_qs);
        QCOMPARE(QFile::permissions(officeFolder() + u"/Halvane.ini"_qs) & (QFile::ReadGroup | QFile::ReadOther),
                 QFile::Permissions());
        QCOMPARE(QFile::permissions(officeFolder()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        QVERIFY(!QFile::exists(officeFolder() + u"/Halvane.ini.new"_qs));

        seams().programFolder = [folder = officeFolder()] { return folder; };
        QVERIFY(Main());
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == u"frmMenu") window->close();
    }

    void theSampleStandsApartAndIsGoneOnWith() {
        const auto first = screen();
        press(*first, u"cmdSample"_qs);
        QCOMPARE(first->chosenFolder(), officeFolder() + u"-sample"_qs);
        QVERIFY(!QFile::exists(officeFolder()));
        QVERIFY(scalar(first->chosenFolder(), u"SELECT COUNT(*) FROM [顧客見積情報]"_qs) == u"120"_qs);
        {
            Connection connection(
                ConnectionSettings::fromProfile(clsProfile(first->chosenFolder() + u"/Halvane.ini"_qs)));
            connection.open();
            connection.execute(u"DELETE FROM [顧客見積情報]"_qs);
        }
        const auto second = screen();
        press(*second, u"cmdSample"_qs);
        QCOMPARE(scalar(second->chosenFolder(), u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"0"_qs);
    }

    // The second machine of an office, or one that is set up again.
    void aDatabaseThatIsThereIsJoinedAsItStands() {
        {
            const auto first = screen();
            type(*first, u"txtOfficeNm"_qs, u"先の名前"_qs);
            choosePlace(*first, newName());
            press(*first, u"cmdExec"_qs);
        }
        QVERIFY(QFile::remove(officeFolder() + u"/Halvane.ini"_qs));
        const auto second = screen();
        type(*second, u"txtOfficeNm"_qs, u"後の名前"_qs);
        choosePlace(*second, newName());
        {
            const CapturedMessages messages({AnswerNo});
            press(*second, u"cmdExec"_qs);
            QVERIFY(messages.texts.value(0).startsWith(u"データベースはすでにあります。"_qs));
        }
        QVERIFY(second->chosenFolder().isEmpty());
        QVERIFY(!QFile::exists(officeFolder() + u"/Halvane.ini"_qs));
        const CapturedMessages messages({AnswerYes});
        press(*second, u"cmdExec"_qs);
        QCOMPARE(scalar(second->chosenFolder(), u"SELECT [企業名] FROM [企業情報]"_qs), u"先の名前"_qs);
    }

    void whatCannotBeMadeIsToldAndAskedAgain() {
        const CapturedMessages messages;
        const auto first = screen();
        press(*first, u"optPlace_1"_qs);
        type(*first, u"txtHost"_qs, u"/nowhere"_qs);
        press(*first, u"cmdExec"_qs);
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(!messages.texts.first().isEmpty());
        QVERIFY(first->chosenFolder().isEmpty());
        QCOMPARE(QDir(officeFolder()).entryList(QDir::Files | QDir::Hidden), QStringList());
    }

    void aServerNeedsTheNameOfItsDatabase() {
        const CapturedMessages messages;
        const auto first = screen();
        press(*first, u"optPlace_1"_qs);
        type(*first, u"txtDatabase"_qs, {});
        press(*first, u"cmdExec"_qs);
        QCOMPARE(messages.texts, QStringList{u"データベース名を入力して下さい。"_qs});
        QVERIFY(!QFile::exists(officeFolder()));
    }

    void leavingMakesNothing() {
        const auto first = screen();
        press(*first, u"cmdClose"_qs);
        QVERIFY(first->chosenFolder().isEmpty());
        QVERIFY(QDir(m_home->path()).isEmpty());
    }

    void thePageFitsASmallDisplay() {
        const auto first = screen();
        first->show();
        QCoreApplication::processEvents();
        QVERIFY(first->width() <= 1000 && first->height() <= 600);
        if (const QByteArray place = qgetenv("HALVANE_PICTURES"); !place.isEmpty())
            first->grab().save(QString::fromLocal8Bit(place) + u"/first-start.png"_qs);
    }

    // --- which folder a start works in ---

    void theOptionNamesTheOfficeAndLeavesTheOtherWords() {
        QStringList words{u"--office"_qs, u"/a/./b/"_qs, u"--backup"_qs};
        const OfficeFolder office = OfficeFolder::of(words);
        QCOMPARE(office.path, u"/a/b"_qs);
        QVERIFY(office.isOwn && !office.isSetUp());
        QCOMPARE(words, QStringList{u"--backup"_qs});
    }

    void theOptionNeedsAFolder() {
        for (QStringList words : {QStringList{u"--office"_qs}, QStringList{u"--office"_qs, u"--backup"_qs}})
            QVERIFY(raised([&] { OfficeFolder::of(words); }).contains(u"--office"_qs));
    }

    // As it always was: what a program copied into its office lacks is told, and nothing is set up beside it.
    void aProgramThatIsNotInstalledWorksWhereItStands() {
        QStringList words;
        const OfficeFolder office = OfficeFolder::of(words);
        QCOMPARE(office.path, QCoreApplication::applicationDirPath());
        QVERIFY(office.isSetUp());
    }

    // The program as a whole, as it lies on a machine for all its users.
    void anInstalledProgramWorksInTheHomeOfItsUser() {
        const QDir root(m_home->path());
        QVERIFY(root.mkpath(u"usr/bin"_qs) && root.mkpath(u"usr/share/halvane"_qs));
        QVERIFY(QFile::copy(QStringLiteral(HALVANE_PROGRAM), home(u"usr/bin/halvane"_qs)));
        QVERIFY(QFile::copy(QStringLiteral(HALVANE_SOURCE_DIR) + u"/packaging/Halvane.ini"_qs,
                            home(u"usr/share/halvane/Halvane.ini"_qs)));
        const auto run = [&](const QStringList& words) {
            QProcess program;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(u"HOME"_qs, m_home->path());
            program.setProcessEnvironment(environment);
            program.setProcessChannelMode(QProcess::MergedChannels);
            program.start(home(u"usr/bin/halvane"_qs), words);
            program.waitForFinished(patience);
            return QString::fromUtf8(program.readAll());
        };
        QVERIFY(run({u"--backup"_qs}).contains(u"INIﾌｧｲﾙが見つかりません。"_qs)); // of an office that is not there
        QVERIFY(QDir().mkpath(officeFolder()));
        m_database->writeProfile();
        QVERIFY(QFile::copy(m_database->folder() + u"/Halvane.ini"_qs, officeFolder() + u"/Halvane.ini"_qs));
        m_database->connection().close();
        const QString said = run({u"--backup"_qs});
        if (TestDatabase::isPostgres()) QVERIFY2(said.contains(u"バックアップしました。"_qs), qUtf8Printable(said));
        QVERIFY2(said.contains(officeFolder()), qUtf8Printable(said));
        QVERIFY(!QFile::exists(home(u"usr/bin/log"_qs)) && !QFile::exists(home(u"usr/bin/backup"_qs)));
    }
};

HALVANE_TEST(FirstStartTest)
#include "FirstStartTest.moc"
