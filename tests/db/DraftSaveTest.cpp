#include "db/DraftSave.h"
#include "HalvaneTest.h"
#include "support/CutLine.h"
#include "support/Raised.h"
#include "support/TestServer.h"

#include <QCoreApplication>

namespace {

struct Note {
    QString id, text;
    SaveDoubt<Note> doubt;

    void takeIdentity(const Note&, const Note& after) { id = after.id; }
};

} // namespace

// Saves whose outcome the screen is not told.
class DraftSaveTest : public QObject {
    Q_OBJECT

    const QString inDoubt = u"データベースから返事がないため、保存が終わったかどうかを確認できません。\n"
                            u"入力は画面に残っています。もう一度実行すると、先に確認してから保存します。"_qs;

    QString m_name;
    std::unique_ptr<CutLine> m_line;
    std::unique_ptr<Connection> m_connection;

    bool save(Note& note) {
        DraftSave::settle(*m_connection, note);
        return DraftSave::run<Note>(*m_connection, note, [&](Note& saved) {
            if (saved.id.isEmpty())
                saved.id = m_connection->engineScalar(
                    u"INSERT INTO notes (text) VALUES ('%1') RETURNING id"_qs.arg(saved.text));
            else
                m_connection->engineExecute(u"UPDATE notes SET text = '%1' WHERE id = %2"_qs.arg(saved.text, saved.id));
            return true;
        });
    }

    // The save of a copy, as of what a screen collects from its fields.
    QString triedInDoubt(const Note& note, CutLine::Cut cut) {
        Note collected = note;
        m_line->cut(cut);
        m_line->take(false);
        const QString told = raised([&] { save(collected); });
        m_line->take(true);
        return told;
    }

    QString notes() {
        return m_connection->engineScalar(u"SELECT string_agg(id || text, ' ' ORDER BY id) FROM notes"_qs);
    }

private slots:
    void init() {
        m_name = u"draft_save_%1"_qs.arg(QCoreApplication::applicationPid());
        TestServer::create(m_name);
        ConnectionSettings settings = TestServer::database(m_name);
        m_line = std::make_unique<CutLine>(settings.path + u"/.s.PGSQL.5432"_qs);
        settings.path = m_line->address();
        settings.timeout = 1;
        m_connection = std::make_unique<Connection>(settings);
        m_connection->open();
        m_connection->engineExecute(u"CREATE TABLE notes (id integer GENERATED ALWAYS AS IDENTITY, text text)"_qs);
    }
    void cleanup() {
        m_connection.reset();
        m_line.reset();
        TestServer::drop(m_name);
    }

    void whatIsStoredIsWrittenOverByTheNextTry() {
        Note note{{}, u"a"_qs, {}};
        QCOMPARE(triedInDoubt(note, CutLine::Cut::CommitAnswer), inDoubt);
        QCOMPARE(note.id, QString());
        note.text = u"b"_qs;
        QVERIFY(save(note));
        QCOMPARE(note.id, u"1"_qs);
        QCOMPARE(notes(), u"1b"_qs);
        note.text = u"c"_qs;
        QVERIFY(save(note));
        QCOMPARE(notes(), u"1c"_qs);
    }

    void whatIsNotStoredIsStoredByTheNextTry() {
        Note note{{}, u"a"_qs, {}};
        QCOMPARE(triedInDoubt(note, CutLine::Cut::Commit), inDoubt);
        QVERIFY(save(note));
        QCOMPARE(notes(), u"2a"_qs); // the number of the first try is spent
    }

    void tryAfterTryIsLookedUp() {
        Note note{{}, u"a"_qs, {}};
        QCOMPARE(triedInDoubt(note, CutLine::Cut::CommitAnswer), inDoubt);
        note.text = u"b"_qs;
        QCOMPARE(triedInDoubt(note, CutLine::Cut::Commit), inDoubt);
        QCOMPARE(notes(), u"1a"_qs);
        note.text = u"c"_qs;
        QCOMPARE(triedInDoubt(note, CutLine::Cut::CommitAnswer), inDoubt);
        QCOMPARE(notes(), u"1c"_qs);
        note.text = u"d"_qs;
        QVERIFY(save(note));
        QCOMPARE(notes(), u"1d"_qs);
    }

    void aDraftOfAnotherThingKnowsNothingOfIt() {
        Note note{{}, u"a"_qs, {}};
        triedInDoubt(note, CutLine::Cut::CommitAnswer);
        note.doubt = {};
        note.text = u"b"_qs;
        QVERIFY(save(note));
        QCOMPARE(notes(), u"1a 2b"_qs);
    }

    void whileTheServerIsAwayNothingIsTried() {
        Note note{{}, u"a"_qs, {}};
        triedInDoubt(note, CutLine::Cut::CommitAnswer);
        m_line->take(false);
        m_line->cut(CutLine::Cut::Closed);
        for (int i = 0; i < 2; ++i) QCOMPARE(raised([&] { save(note); }), inDoubt);
        m_line->take(true);
        QVERIFY(save(note));
        QCOMPARE(notes(), u"1a"_qs);
    }
};

HALVANE_TEST(DraftSaveTest)
#include "DraftSaveTest.moc"
