#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/PriceSamples.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Application.h"
#include "base/Seams.h"
#include "base/clsLogger.h"
#include "db/Schema.h"
#include "operations/DatabaseCreation.h"
#include "operations/PriceComparison.h"
#include "operations/PriceRevision.h"
#include "price/PriceTable.h"

#include <QDir>

// What another price list would change, in the sample office.
class PriceComparisonTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile(PriceSamples::profile);
        m_database->prepareManagers();
        gPriceYear = u"2026"_qs;
    }
    void cleanup() {
        gLogger.reset();
        seams() = defaultSeams();
        m_database.reset();
    }

    void theSameListMovesNothing() {
        keepYear(u"2025"_qs);
        const PriceComparison found = compare({}, kept(u"2025"_qs));
        QCOMPARE(found.prices.size(), 0);
        QCOMPARE(found.masters.size(), 0);
        QCOMPARE(found.orders.size(), 0);
    }

    void aDearerYearMovesMastersAndOrders() {
        keepYear(u"2027"_qs, u"UPDATE [価格部品] SET [新価格] = [新価格] + 1000"_qs);
        const PriceComparison found = compare({}, kept(u"2027"_qs));
        QCOMPARE(found.prices.size(), count(u"価格部品"_qs));
        for (const PriceChange& change : found.prices) QCOMPARE(change.move.difference(), u"1000"_qs);
        QVERIFY(!found.masters.isEmpty());
        for (const AmountMove& move : found.masters) {
            const double parts = scalar(u"SELECT SUM([数量]) FROM [マスタ見積完成要素] INNER JOIN [マスタ見積情報] ON"
                                        " [マスタ見積完成要素].[製品ID] = [マスタ見積情報].[製品ID]"
                                        " WHERE [製品コード] = '%1'"_qs.arg(move.code))
                                     .toDouble();
            QCOMPARE(move.move.difference().toDouble(), parts * 1000);
            QCOMPARE(move.move.before, storedPrice(move));
        }
        QVERIFY(!found.orders.isEmpty());
        for (const AmountMove& move : found.orders) {
            const QString where = u" FROM [顧客見積情報] WHERE [見積番号] = '%1'"_qs.arg(move.code);
            QCOMPARE(move.move.before, scalar(u"SELECT [見積総合計]"_qs + where));
            QVERIFY(move.move.after.toInt() > move.move.before.toInt());
            QCOMPARE(move.year, scalar(u"SELECT [価格設定年度]"_qs + where));
            QCOMPARE(scalar(u"SELECT [納品実績日]"_qs + where), QString());
            QVERIFY(move.note.isEmpty());
        }
    }

    void ordersThatAreDeliveredStandStill() {
        keepYear(u"2027"_qs, u"UPDATE [価格部品] SET [新価格] = [新価格] + 1000"_qs);
        const qsizetype open = compare({}, kept(u"2027"_qs)).orders.size();
        QVERIFY(open > 0);
        sql(u"UPDATE [顧客見積情報] SET [処理区分] = 2"_qs);
        QCOMPARE(compare({}, kept(u"2027"_qs)).orders.size(), 0);
        sql(u"UPDATE [顧客見積情報] SET [処理区分] = 99"_qs);
        QCOMPARE(compare({}, kept(u"2027"_qs)).orders.size(), 0);
        sql(u"UPDATE [顧客見積情報] SET [処理区分] = 3"_qs);
        QVERIFY(compare({}, kept(u"2027"_qs)).orders.size() > open);
    }

    void twoKeptYearsAreComparedByTheirOwnPrices() {
        keepYear(u"2024"_qs);
        keepYear(u"2025"_qs, u"UPDATE [価格部品] SET [新価格] = [新価格] + 10"_qs);
        sql(u"UPDATE [価格部品] SET [新価格] = 1"_qs); // in force, and none of the two
        const PriceComparison up = compare(kept(u"2024"_qs), kept(u"2025"_qs));
        const PriceComparison down = compare(kept(u"2025"_qs), kept(u"2024"_qs));
        QCOMPARE(up.prices.size(), count(u"価格部品"_qs));
        QVERIFY(!up.masters.isEmpty() && !up.orders.isEmpty());
        QCOMPARE(up.masters.size(), down.masters.size());
        QCOMPARE(up.orders.size(), down.orders.size());
        QCOMPARE(up.orders.first().move.before, down.orders.first().move.after);
        QCOMPARE(up.orders.first().move.after, down.orders.first().move.before);
        QVERIFY(up.orders.first().move.difference().toInt() > 0);
    }

    void theFilesOfANewYearAreComparedAsARevisionTakesThem() {
        keepYear(u"2025"_qs);
        addOwnPart();
        writeFiles(PriceSamples::filesOfYear(u"100"_qs));
        const PriceComparison found = compare({}, files());
        QVERIFY(found.faults.isEmpty());
        // A user's own row goes over, so that it is neither new nor gone.
        for (const PriceChange& change : found.prices) QVERIFY(!change.what.contains(u"OWN"_qs));
        MessageQueue messages;
        PriceRevision revision(
            m_database->connection(), [](PriceRevision::Part, qint64, qint64) {}, [] {});
        QVERIFY(revision.run({PriceRevision::Request::Files, folder(), u"2027"_qs}));
        for (const AmountMove& move : found.masters) {
            QCOMPARE(move.move.after, storedPrice(move));
        }
        QCOMPARE(compare(kept(u"2026"_qs), {}).prices.size(), found.prices.size());
    }

    void nothingIsWritten() {
        keepYear(u"2025"_qs, u"UPDATE [価格部品] SET [新価格] = 5"_qs);
        writeFiles(PriceSamples::filesOfYear(u"100"_qs));
        gLogger = std::make_unique<clsLogger>();
        const QStringList office = stateOfTheOffice();
        const QByteArray year = bytesOf(yearFile(u"2025"_qs));
        const QStringList kakaku = QDir(PriceRevision::folder()).entryList(QDir::Files);
        m_database->connection().onStatement = [](const QString& statement) {
            QVERIFY2(statement.startsWith(u"SELECT"_qs), qPrintable(statement));
        };
        compare({}, files());
        compare(kept(u"2025"_qs), files());
        m_database->connection().onStatement = {};
        QCOMPARE(stateOfTheOffice(), office);
        QCOMPARE(bytesOf(yearFile(u"2025"_qs)), year);
        QCOMPARE(QDir(PriceRevision::folder()).entryList(QDir::Files), kakaku);
        QVERIFY(!bytesOf(gLogger->FileNm()).contains("\x8d\x58\x90\x56")); // 更新
    }

    void theTablesAreBoundToTheOfficeAgain() {
        keepYear(u"2025"_qs, u"DELETE FROM [価格部品]"_qs);
        const qint64 parts = count(u"価格部品"_qs);
        compare({}, kept(u"2025"_qs));
        QCOMPARE(priceTable(u"価格部品"_qs).rowCount(), parts);
        QVERIFY(errorOf([&] { compare({}, kept(u"1999"_qs)); }));
        QCOMPARE(priceTable(u"価格部品"_qs).rowCount(), parts);
    }

    void linesWithoutAPriceAreNoted() {
        keepYear(u"2027"_qs, u"DELETE FROM [価格部品]"_qs);
        const PriceComparison found = compare({}, kept(u"2027"_qs));
        QVERIFY(!found.orders.isEmpty());
        for (const AmountMove& move : found.orders) QVERIFY(move.note.startsWith(u"価格のない行 "_qs));
    }

    void aMasterThatCannotBeComputedIsTold() {
        keepYear(u"2027"_qs);
        const QString code = scalar(u"SELECT MIN([製品コード]) FROM [マスタ見積情報]"_qs);
        sql(u"DELETE FROM [マスタ見積種目] WHERE [製品ID] IN (SELECT [製品ID] FROM [マスタ見積情報] WHERE [製品コード] "
            u"="
            " '%1')"_qs.arg(code));
        const PriceComparison found = compare({}, kept(u"2027"_qs));
        QCOMPARE(found.masters.size(), 1);
        QCOMPARE(found.masters.first().code, code);
        QCOMPARE(found.masters.first().note, u"インデックスが有効範囲にありません。"_qs);
    }

    void aFileThatBreaksOffIsToldWithItsLine() {
        QStringList texts = PriceSamples::filesOfYear(u"100"_qs);
        texts[4] += u"2,下肢装具,足部\r\n3,下肢装具,足部,単軸,架空工業,K-3,1,○,,,100,90\r\n"_qs;
        writeFiles(texts);
        const PriceComparison found = compare({}, files());
        QCOMPARE(found.faults, QStringList{u"Parts.csv 2行目：インデックスが有効範囲にありません。"_qs});
        qsizetype added = 0;
        for (const PriceChange& change : found.prices)
            if (change.table == u"価格部品" && change.kind == PriceChange::New) ++added;
        QCOMPARE(added, 1);
    }

    void itIsGivenUpAtAnyPart() {
        keepYear(u"2025"_qs);
        int told = 0;
        QVERIFY(!comparePrices(m_database->connection(), {}, kept(u"2025"_qs), [&](const QString&, qint64, qint64) {
            ++told;
            return false;
        }));
        QCOMPARE(told, 1);
    }

    void aYearThatIsNoDatabaseIsNamed() {
        PriceSamples::writeFile(yearFile(u"2020"_qs), u"これはデータベースではありません。"_qs.repeated(100));
        const QString words = raised([this] { compare({}, kept(u"2020"_qs)); });
        QVERIFY2(words.startsWith(u"2020.db：\n"_qs), qPrintable(words));
    }

    void aYearThatAnotherProgramHasLockedIsNamed() {
        keepYear(u"2025"_qs);
        Connection other(ConnectionSettings::sqliteFile(yearFile(u"2025"_qs)));
        other.open();
        other.engineExecute(u"BEGIN EXCLUSIVE"_qs);
        const QString words = raised([this] { compare({}, kept(u"2025"_qs)); });
        QVERIFY2(words.startsWith(u"2025.db：\n"_qs), qPrintable(words));
        other.engineExecute(u"ROLLBACK"_qs);
        QCOMPARE(compare({}, kept(u"2025"_qs)).prices.size(), 0);
    }

private:
    static PriceList kept(const QString& year) { return {PriceList::KeptYear, year}; }
    PriceList files() const { return {PriceList::Files, folder()}; }
    QString folder() const { return m_database->folder() + u"/new"_qs; }
    static QString yearFile(const QString& year) {
        return QDir(PriceRevision::folder()).filePath(PriceRevision::fileName(year));
    }

    PriceComparison compare(const PriceList& before, const PriceList& after) {
        return *comparePrices(m_database->connection(), before, after,
                              [](const QString&, qint64, qint64) { return true; });
    }

    // Keeps the list in force as that of a year, with a difference.
    void keepYear(const QString& year, const QString& difference = {}) {
        DatabaseCreation::createPrices(yearFile(year));
        Connection file(ConnectionSettings::sqliteFile(yearFile(year)));
        file.open();
        Transaction transaction(file);
        for (const QString& table : Schema::priceTables()) file.copyRows(m_database->connection(), table, table);
        if (!difference.isEmpty()) file.execute(difference);
        transaction.commit();
    }
    void writeFiles(const QStringList& texts) const { PriceSamples::writeYear(folder(), texts); }
    void addOwnPart() {
        sql(u"INSERT INTO [価格部品] ([ID],[種目],[部品コード]) VALUES (9000001,'下肢装具','OWN')"_qs);
    }

    QStringList stateOfTheOffice() {
        QStringList state;
        for (const Schema::Table& table : Schema::tables()) {
            Recordset rows = m_database->connection().query(u"SELECT * FROM [%1]"_qs.arg(table.name));
            while (rows.next()) {
                QStringList row{table.name};
                for (int i = 0; i < rows.fields().size(); ++i) row << rows.value(i);
                state << row.join(u'|');
            }
        }
        state.sort();
        return state;
    }
    // The stored price of a master estimate for the first of the tiers that move.
    QString storedPrice(const AmountMove& move) {
        const QString tier = move.tiers == u"全年齢" ? u"大人"_qs : move.tiers.section(u'・', 0, 0);
        return scalar(u"SELECT [%1価格] FROM [マスタ見積情報] WHERE [製品コード] = '%2'"_qs.arg(tier, move.code));
    }
    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    qsizetype count(const QString& table) { return scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table)).toLongLong(); }
    void sql(const QString& statement) { m_database->connection().execute(statement); }
    QString scalar(const QString& statement) { return m_database->connection().scalar(statement); }

    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(PriceComparisonTest)
#include "PriceComparisonTest.moc"
