#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "db/clsDbManager.h"
#include "estimates/screens/frmCsEstimate.h"
#include "operations/Managers.h"
#include "ui/Style.h"

#include <QLabel>
#include <QPushButton>

// What the editor makes of a save after which the database is not to be had.
class EditorSaveTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<MessageQueue> m_messages;
    std::unique_ptr<frmCsEstimate> m_screen;
    std::unique_ptr<Connection> m_other;

    static Connection& connection() { return gDbManager.Connection(); }

    QString count(const QString& table) {
        return m_database->another()->scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table));
    }
    QString shown(const QString& name) { return m_screen->findChild<QLabel*>(name)->text(); }
    void press(const QString& name) { m_screen->findChild<QPushButton*>(name)->click(); }

    // From the end of the save on, every statement of the screen fails: another machine holds the file, or the server
    // takes no connection any more.
    void failAfterTheSave() {
        connection().onStatement = [this](const QString&) {
            if (connection().transactionDepth() > 0) m_saving = true;
            if (!m_saving || m_other || connection().transactionDepth() > 0) return;
            m_other = m_database->another();
            if (TestDatabase::isPostgres()) {
                const QString database = m_database->settings().database;
                m_other->engineExecute(u"ALTER DATABASE %1 ALLOW_CONNECTIONS false"_qs.arg(database));
                m_other->engineExecute(u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                                       u"WHERE datname = '%1' AND pid <> pg_backend_pid()"_qs.arg(database));
            } else {
                m_other->engineExecute(u"BEGIN EXCLUSIVE"_qs);
            }
        };
    }

    void comeBack() {
        connection().onStatement = nullptr;
        if (TestDatabase::isPostgres())
            m_other->engineExecute(u"ALTER DATABASE %1 ALLOW_CONNECTIONS true"_qs.arg(m_database->settings().database));
        m_other.reset();
    }

    bool m_saving = false;

private slots:
    void init() {
        Style::apply(*qApp);
        m_saving = false;
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile(u"ConnectionTimeout=1\r\n"_qs);
        m_database->prepareManagers();
        gDbManager.DBOpen();
        Managers::prepare(connection());
        m_messages = std::make_unique<MessageQueue>();
        m_screen = std::make_unique<frmCsEstimate>();
        m_screen->EstId = u"0000000001"_qs;
        m_screen->EditMode = frmCsEstimate::Edit;
        QVERIFY(m_screen->Load());
    }
    void cleanup() {
        m_screen.reset();
        m_messages.reset();
        m_other.reset();
        Managers::release();
        gDbManager.DBClose();
        m_database.reset();
    }

    void aSaveThatCannotBeShownIsStoredOnce() {
        for (const MessageAnswer answer : {AnswerYes, AnswerYes, AnswerYes}) m_messages->prepare(answer);
        press(u"cmdReCome"_qs); // the same lines once more, as a new order
        QCOMPARE(shown(u"lblEstId"_qs), QString());
        const auto told = m_messages->texts().size();
        failAfterTheSave();
        press(u"cmdExec"_qs);
        QVERIFY(m_other);
        const QStringList texts = m_messages->texts().mid(told);
        QVERIFY2(texts.size() >= 2, qPrintable(texts.join(u'\n')));
        QVERIFY(texts.at(texts.size() - 2).endsWith(u" で新規登録しました。"_qs));
        QVERIFY(texts.last().startsWith(u"保存は終わっていますが、"_qs));
        QVERIFY(m_screen->Updated);
        QCOMPARE(m_screen->EditMode, qint16(frmCsEstimate::Edit));
        comeBack();
        QCOMPARE(count(u"顧客見積情報"_qs), u"121"_qs);
        QCOMPARE(m_screen->EstId, u"0000000121"_qs);

        press(u"cmdExec"_qs);
        QCOMPARE(m_messages->texts().last(), u"保存しました。"_qs);
        QCOMPARE(shown(u"lblEstId"_qs), u"0000000121"_qs);
        QCOMPARE(count(u"顧客見積情報"_qs), u"121"_qs);
        QCOMPARE(count(u"顧客情報"_qs), u"33"_qs);
    }
};

HALVANE_TEST(EditorSaveTest)
#include "EditorSaveTest.moc"
