#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Text.h"
#include "base/clsLogger.h"
#include "db/TableMaintenance.h"

#include <QDir>

namespace {

QString settingOf(Connection& connection, int No) {
    return connection.scalar(u"SELECT [設定値] FROM [システム設定] WHERE [No] = %1"_qs.arg(No));
}

} // namespace

class TableMaintenanceTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->connection().onStatement = [this](const QString& statement) {
            m_statements << statement.trimmed();
        };
        m_statements.clear();
    }
    void cleanup() { m_database.reset(); }

    void olderDatabasesAreBroughtUp_data() {
        QTest::addColumn<QString>("version"); // empty: no version row
        QTest::addColumn<bool>("hasSetting44");
        QTest::addColumn<QStringList>("writes");
        QTest::addColumn<QString>("kept");
        const QString version = u"INSERT 99"_qs, alter = u"ALTER"_qs, setting = u"INSERT 44"_qs, update = u"UPDATE"_qs;
        QTest::newRow("no version row") << QString() << false << QStringList{version, alter, setting, update}
                                        << u"020206"_qs;
        QTest::newRow("no version row, setting there")
            << QString() << true << QStringList{version, alter, update} << u"020206"_qs;
        QTest::newRow("000000") << u"000000"_qs << false << QStringList{alter, setting, update} << u"020206"_qs;
        QTest::newRow("020104") << u"020104"_qs << false << QStringList{alter, setting, update} << u"020206"_qs;
        QTest::newRow("020105") << u"020105"_qs << false << QStringList{setting, update} << u"020206"_qs;
        QTest::newRow("020205") << u"020205"_qs << true << QStringList{update} << u"020206"_qs;
        QTest::newRow("the program's") << u"020206"_qs << true << QStringList() << u"020206"_qs;
        QTest::newRow("the program's, no setting") << u"020206"_qs << false << QStringList{setting} << u"020206"_qs;
        QTest::newRow("a later one") << u"030000"_qs << true << QStringList() << u"030000"_qs;
    }
    void olderDatabasesAreBroughtUp() {
        QFETCH(QString, version);
        QFETCH(bool, hasSetting44);
        setUp(version, hasSetting44);
        TableMaintenance(m_database->connection());
        QTEST(writes(), "writes");
        QTEST(settingOf(m_database->connection(), 99), "kept");
        QCOMPARE(settingOf(m_database->connection(), 44), u"0"_qs);
    }

    void eachStepIsSafeToRepeat() {
        setUp({}, false);
        TableMaintenance(m_database->connection());
        m_statements.clear();
        TableMaintenance(m_database->connection());
        QCOMPARE(writes(), QStringList());
    }

    void rowsAreWrittenWithTheirWords() {
        setUp({}, false);
        TableMaintenance(m_database->connection());
        const auto words = [&](int No) {
            Recordset rows = m_database->connection().query(u"SELECT * FROM [システム設定] WHERE [No] = %1"_qs.arg(No));
            return rows.next() ? rows.value(u"設定項目"_qs) + u'/' + rows.value(u"備考"_qs) : QString();
        };
        QCOMPARE(words(99), u"ＤＢバージョン/ＤＢのバージョン番号"_qs);
        QCOMPARE(words(44), u"マスタ見積名称利用/0：なし、1：あり"_qs);
    }

    void numbersOfSettingsStayWhole() {
        setUp(u"020104"_qs, true);
        const QString count = m_database->connection().scalar(u"SELECT COUNT(*) FROM [システム設定]"_qs);
        TableMaintenance(m_database->connection());
        Connection& connection = m_database->connection();
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [システム設定]"_qs), count);
        QCOMPARE(connection.scalar(u"SELECT [No] FROM [システム設定] WHERE [No] > 98"_qs), u"99"_qs);
        QVERIFY(errorOf([&] { connection.execute(u"INSERT INTO システム設定 ([設定項目]) VALUES ('x')"_qs); }));
    }

    void bothEndsAreLogged() {
        setUp(u"020206"_qs, true);
        QCOMPARE(logOf([&] { TableMaintenance(m_database->connection()); }),
                 (QStringList{u"テーブルメンテナンスの開始"_qs, u"テーブルメンテナンスの終了"_qs}));
    }

    void failureLeavesTheWorkForTheNextStart() {
        setUp({}, false);
        m_database->connection().onStatement = [](const QString& statement) {
            if (statement.contains(u"44, 'マスタ"_qs)) throw AppError(u"stop"_qs);
        };
        const QStringList log =
            logOf([&] { QCOMPARE(raised([&] { TableMaintenance(m_database->connection()); }), u"stop"_qs); });
        QCOMPARE(log, QStringList{u"テーブルメンテナンスの開始"_qs});
        QCOMPARE(settingOf(m_database->connection(), 99), u"000000"_qs);
        m_database->connection().onStatement = nullptr;
        TableMaintenance(m_database->connection());
        QCOMPARE(settingOf(m_database->connection(), 99), u"020206"_qs);
    }

private:
    void setUp(const QString& version, bool hasSetting44) {
        Connection& connection = m_database->connection();
        connection.execute(u"DELETE FROM [システム設定] WHERE [No] IN (44,99)"_qs);
        const QString insert = u"INSERT INTO システム設定 ([No], [設定値]) VALUES (%1, '%2')"_qs;
        if (!version.isEmpty()) connection.execute(insert.arg(99).arg(version));
        if (hasSetting44) connection.execute(insert.arg(44).arg(0));
        m_statements.clear();
    }

    // The statements that wrote, shortly.
    QStringList writes() const {
        QStringList words;
        for (const QString& statement : m_statements) {
            if (statement.startsWith(u"INSERT"_qs))
                words << (statement.contains(u"   99,"_qs) ? u"INSERT 99"_qs : u"INSERT 44"_qs);
            else if (!statement.startsWith(u"SELECT"_qs))
                words << statement.section(u' ', 0, 0);
        }
        return words;
    }

    template <class Work> QStringList logOf(Work&& work) {
        FixedClock clock(u"2024/03/10"_qs);
        m_database->writeProfile(u"[Log]\r\nPath=log\r\n"_qs);
        gLogger = std::make_unique<clsLogger>();
        work();
        gLogger.reset();
        QFile file(m_database->folder() + u"/log/Log20240310.txt"_qs);
        if (!file.open(QIODevice::ReadOnly)) return {};
        QStringList lines;
        for (const QString& line : Text::fromCp932(file.readAll()).split(u"\r\n"_qs, Qt::SkipEmptyParts))
            lines << line.section(u'"', 3, 3);
        return lines;
    }

    std::unique_ptr<TestDatabase> m_database;
    QStringList m_statements;
};

HALVANE_TEST(TableMaintenanceTest)
#include "TableMaintenanceTest.moc"
