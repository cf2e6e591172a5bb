#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/TestDatabase.h"

#include "base/AppError.h"
#include "ui/Grid.h"
#include "ui/KeyedList.h"

#include <QLabel>

namespace {

// Nobody else reads the estimates until it is opened again.
class Closed {
public:
    explicit Closed(const TestDatabase& database) : m_connection(database.another()) {
        const QStringList locks = TestDatabase::isPostgres()
                                      ? QStringList{u"BEGIN"_qs, u"LOCK TABLE \"顧客見積情報\""_qs}
                                      : QStringList{u"BEGIN EXCLUSIVE"_qs};
        for (const QString& statement : locks) m_connection->engineExecute(statement);
    }
    void open() { m_connection->engineExecute(u"ROLLBACK"_qs); }

private:
    std::unique_ptr<Connection> m_connection;
};

} // namespace

// The rows of a list as the grid is given them: by keys that are read beside the window.
class KeyedListTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<Grid> m_grid;
    QLabel m_count;
    KeyedList* m_list = nullptr;
    QList<qsizetype> m_fetched; // how many rows at a time
    bool m_fails = false;
    CapturedMessages m_messages;

    QHash<QString, QStringList> fetch(const QStringList& keys) {
        if (m_fails) throw AppError(u"切れました。"_qs, u"test"_qs);
        m_fetched << keys.size();
        QHash<QString, QStringList> rows;
        for (const QString& key : keys) rows.insert(key, {key});
        return rows;
    }

    void show(const QString& statement) {
        m_list->show(statement);
        QVERIFY(QTest::qWaitFor([this] { return !m_grid->isFilling(); }, patience));
    }

    inline static const QString all = u"SELECT [見積ID] FROM [顧客見積情報] ORDER BY [見積ID]"_qs;
    inline static const QString backwards = all + u" DESC"_qs;
    inline static const QString wrong = u"SELECT nothing at all"_qs;

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample); }
    void init() {
        m_grid = std::make_unique<Grid>();
        GridColumn column;
        column.title = u"見積ID"_qs;
        m_grid->setColumns({column});
        ConnectionSettings patient = m_database->settings();
        patient.timeout = patience / 1000;
        m_list =
            new KeyedList(m_grid.get(), &m_count, patient, [this](const QStringList& keys) { return fetch(keys); });
        m_fetched.clear();
        m_fails = false;
        m_messages.texts.clear();
    }
    void cleanupTestCase() {
        m_grid.reset();
        m_database.reset();
    }

    void rowsAreFetchedWhereTheyAreLookedAt() {
        show(all);
        QCOMPARE(m_grid->rows(), 120);
        QCOMPARE(m_count.text(), u"120件"_qs);
        QCOMPARE(m_fetched, QList<qsizetype>());
        QCOMPARE(m_grid->value(120, 0), u"0000000120"_qs);
        QCOMPARE(m_fetched.size(), 1);
        QVERIFY(m_fetched.first() < 120);
        QCOMPARE(m_grid->value(119, 0), u"0000000119"_qs);
        QCOMPARE(m_fetched.size(), 1);
        QCOMPARE(m_grid->value(1, 0), u"0000000001"_qs);
        QCOMPARE(m_fetched.size(), 2);
    }

    void aFailureToReadLeavesWhatIsShown() {
        show(all);
        m_grid->setCurrent(7);
        show(wrong);
        QCOMPARE(m_messages.texts.size(), 1);
        QCOMPARE(m_grid->rows(), 120);
        QCOMPARE(m_count.text(), u"120件"_qs);
        QCOMPARE(m_grid->value(3, 0), u"0000000003"_qs);
        QCOMPARE(m_grid->currentRow(), 7);
    }

    void rowsOfTheListBeforeCannotBeActedOn() {
        show(all);
        m_grid->setCurrent(7);
        Closed closed(*m_database);
        m_list->show(backwards);
        QVERIFY(m_grid->isFilling());
        QTRY_COMPARE(m_grid->rows(), 0);
        QCOMPARE(m_grid->currentRow(), 0);
        QVERIFY(!m_list->isEmpty());
        closed.open();
        QVERIFY(QTest::qWaitFor([this] { return m_list->awaitRows(); }, patience));
        QCOMPARE(m_grid->value(1, 0), u"0000000120"_qs);
        QCOMPARE(m_grid->currentRow(), 1);
    }

    void aFailureToReadBringsTheRowsBackThatWereHidden() {
        show(all);
        m_grid->setCurrent(7);
        Closed closed(*m_database);
        m_list->show(backwards);
        QTRY_COMPARE(m_grid->rows(), 0);
        m_grid->setSortMark(0, false);
        m_list->show(wrong);
        closed.open();
        QVERIFY(QTest::qWaitFor([this] { return !m_messages.texts.isEmpty(); }, patience));
        QCOMPARE(m_grid->rows(), 120);
        QCOMPARE(m_count.text(), u"120件"_qs);
        QCOMPARE(m_grid->currentRow(), 7);
        QCOMPARE(m_grid->sortColumn(), -1); // as it was read without one
    }

    void aFailureToFetchLeavesItsRowsEmptyAndIsToldOnce() {
        show(all);
        m_fails = true;
        QCOMPARE(m_grid->value(1, 0), QString());
        QCOMPARE(m_grid->value(2, 0), QString());
        QCoreApplication::sendPostedEvents(m_list);
        QCOMPARE(m_messages.texts, QStringList{u"切れました。"_qs});
        QCOMPARE(m_grid->rows(), 120);
        QCOMPARE(m_count.text(), u"120件"_qs);
        m_fails = false;
        QCOMPARE(m_grid->value(120, 0), u"0000000120"_qs);
        show(all);
        QCOMPARE(m_grid->value(1, 0), u"0000000001"_qs);
    }
};

HALVANE_TEST(KeyedListTest)
#include "KeyedListTest.moc"
