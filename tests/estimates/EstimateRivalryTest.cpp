#include "HalvaneTest.h"
#include "support/EstimateSamples.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "estimates/EstimateDraft.h"
#include "estimates/EstimateManagers.h"

#include <QDeadlineTimer>
#include <QTest>

#include <future>
#include <thread>

namespace {

// A machine that has written an order and not committed yet. It commits as soon as somebody waits for it; where the
// wait cannot be seen, at once: there nobody comes in before the commit.
class Rival {
public:
    Rival(const TestDatabase& database, const QStringList& statements)
        : m_thread([this, &database, statements] { run(database, statements); }) {
        m_written.get_future().wait();
    }
    ~Rival() { m_thread.join(); }
    Rival(const Rival&) = delete;
    Rival& operator=(const Rival&) = delete;

private:
    void run(const TestDatabase& database, const QStringList& statements) {
        const auto connection = database.another();
        connection->begin();
        connection->lockForWriting(u"顧客見積情報"_qs);
        for (const QString& statement : statements) connection->execute(statement);
        m_written.set_value();
        if (TestDatabase::isPostgres()) waitForOthers(*connection);
        connection->commit();
    }

    static void waitForOthers(Connection& connection) {
        const QString waiting = u"SELECT count(*) FROM pg_locks WHERE NOT granted AND pid IN"
                                u" (SELECT pid FROM pg_stat_activity WHERE datname = current_database())"_qs;
        const QDeadlineTimer end(patience);
        while (connection.engineScalar(waiting) == u"0" && !end.hasExpired()) std::this_thread::yield();
    }

    std::promise<void> m_written;
    std::thread m_thread;
};

QString ofOrder(const QString& statement, const EstimateDraft& draft) {
    return statement + u" WHERE [見積ID] = '%1'"_qs.arg(draft.estimate.EstId);
}

} // namespace

// Two machines at one order in the same moment.
class EstimateRivalryTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    EstimateDraft m_mine;

    SaveResult save(EstimateDraft& draft) { return saveEstimate(m_database->connection(), draft, {}); }
    QString scalar(const QString& sql) { return m_database->connection().scalar(sql); }

    QStringList rows() {
        QStringList counts;
        for (const QString& table : {u"顧客見積情報"_qs, u"顧客見積種目"_qs, u"顧客見積基本製作要素"_qs,
                                     u"顧客見積完成要素"_qs, u"顧客見積請求"_qs})
            counts << scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table));
        return counts;
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->prepareManagers();
        EstimateDraft draft = EstimateSamples::order(2, 1);
        QCOMPARE(save(draft), SaveResult::Saved);
        QVERIFY(loadEstimate(draft.estimate.EstId, m_mine));
    }
    void cleanup() { m_database.reset(); }

    void ofTwoSaversAtOnceTheSecondIsAsked() {
        MessageQueue boxes({AnswerNo});
        m_mine.estimate.EstNm = u"後の保存"_qs;
        const Rival rival(
            *m_database,
            {ofOrder(u"UPDATE [顧客見積情報] SET [見積名称] = '先の保存', [更新日] = #2099/01/01#"_qs, m_mine)});
        QCOMPARE(save(m_mine), SaveResult::Refused);
        QCOMPARE(boxes.texts(), QStringList(u"他の端末で更新されています。上書きしますか？"_qs));
        QCOMPARE(scalar(u"SELECT [見積名称] FROM [顧客見積情報]"_qs), u"先の保存"_qs);
    }

    void aSaveOfAnOrderThatIsJustBeingDeletedLeavesNoRows() {
        QStringList deletions;
        for (const QString& table :
             {u"顧客見積請求"_qs, u"顧客見積基本製作要素"_qs, u"顧客見積種目"_qs, u"顧客見積情報"_qs})
            deletions << ofOrder(u"DELETE FROM [%1]"_qs.arg(table), m_mine);
        const Rival rival(*m_database, deletions);
        QVERIFY(raised([&] { save(m_mine); }).startsWith(u"この見積は他の端末で削除されています。"_qs));
        QCOMPARE(rows(), QStringList(5, u"0"_qs));
    }

    void anOrderStoredSinceItWasShownIsNotDeletedUnseen() {
        const QStringList whole = rows();
        m_database->another()->execute(ofOrder(u"UPDATE [顧客見積情報] SET [更新日] = #2099/01/01#"_qs, m_mine));
        const auto remove = [&](const QString& UpdDate) {
            return raised([&] { deleteEstimate(m_database->connection(), m_mine.estimate.EstId, UpdDate); });
        };
        QVERIFY(remove(m_mine.estimate.UpdDate).startsWith(u"この見積は他の端末で更新されています。"_qs));
        QCOMPARE(rows(), whole);
        QCOMPARE(remove(u"2099/01/01"_qs), QString());
        QCOMPARE(rows(), QStringList(5, u"0"_qs));
        QCOMPARE(remove(u"2099/01/01"_qs), QString()); // gone already
    }

    void aDeleteOfAnOrderThatIsJustBeingSavedLeavesNoRows() {
        const QString EstId = m_mine.estimate.EstId;
        {
            const Rival rival(
                *m_database,
                {ofOrder(u"DELETE FROM [顧客見積請求]"_qs, m_mine),
                 u"INSERT INTO [顧客見積請求] ([見積ID], [請求No], [請求金額]) VALUES ('%1', 1, 500)"_qs.arg(EstId),
                 ofOrder(u"DELETE FROM [顧客見積種目]"_qs, m_mine),
                 u"INSERT INTO [顧客見積種目] ([見積ID], [見積種目No], [種目]) VALUES ('%1', 1, '義足')"_qs.arg(EstId),
                 ofOrder(u"UPDATE [顧客見積情報] SET [見積名称] = '先の保存'"_qs, m_mine)});
            deleteEstimate(m_database->connection(), EstId);
        }
        QCOMPARE(rows(), QStringList(5, u"0"_qs));
    }
};

HALVANE_TEST(EstimateRivalryTest)
#include "EstimateRivalryTest.moc"
