#include "HalvaneTest.h"
#include "support/BoundByRights.h"
#include "support/MessageQueue.h"
#include "support/PriceSamples.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Application.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsLogger.h"
#include "db/Schema.h"
#include "db/clsSysSettingManager.h"
#include "master/MasterManagers.h"
#include "operations/PriceRevision.h"

#include <QDir>

namespace {

using Request = PriceRevision::Request;
using PriceSamples::filesOfYear;

} // namespace

class PriceRevisionTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->writeProfile(PriceSamples::profile);
        m_database->prepareManagers();
        gPriceYear = u"2026"_qs;
        gLogger = std::make_unique<clsLogger>();
        sql(u"INSERT INTO [価格種目] ([ID],[種目],[名称],[有効Flg]) VALUES (7,'装具','前の年',0)"_qs);
        writeYear(u"new"_qs, filesOfYear(u"100"_qs));
    }
    void cleanup() {
        gLogger.reset();
        seams() = defaultSeams();
        m_database.reset();
    }

    void aNewYearReplacesTheTables() {
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QCOMPARE(scalar(u"SELECT [種目] FROM [価格種目]"_qs), u"義足"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [価格種目]"_qs), u"1"_qs);
        QCOMPARE(scalar(u"SELECT [新価格１] FROM [価格基本]"_qs), u"100"_qs);
        QCOMPARE(scalar(u"SELECT [旧価格] FROM [価格部品]"_qs), u"90"_qs);
        QCOMPARE(scalar(u"SELECT [有効Flg] FROM [価格要素]"_qs), u"0"_qs);
        QCOMPARE(scalar(u"SELECT [設定値] FROM [システム設定] WHERE [No] = 20"_qs), u"2027"_qs);
        QCOMPARE(gPriceYear, u"2027"_qs);
        // The choices of the make element grid: five fixed rows, and one of each table.
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [基本要素選択]"_qs), u"8"_qs);
        QVERIFY(messages.isEmpty());
        for (const QString& table : Schema::priceTables())
            QVERIFY(!m_database->connection().tableExists(clsKDBManager::ownRowsTable(table)));
    }

    void aFirstRunMakesThePriceDatabases() {
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QCOMPARE(QDir(PriceRevision::folder()).entryList(QDir::Files, QDir::Name),
                 (QStringList{u"2026.db"_qs, u"2027.db"_qs, u"Kakaku_Org.db"_qs, u"Kbetu.db"_qs}));
        QCOMPARE(PriceRevision::keptYears(), (QStringList{u"2026"_qs, u"2027"_qs}));
        QCOMPARE(inFile(u"2026"_qs, u"SELECT [名称] FROM [価格種目]"_qs), u"前の年"_qs);
        QCOMPARE(inFile(u"2027"_qs, u"SELECT [名称] FROM [価格種目]"_qs), u"名"_qs);
        QCOMPARE(inFile(u"Kakaku_Org"_qs, u"SELECT COUNT(*) FROM [価格種目]"_qs), u"0"_qs);
    }

    void aUsersRowSurvivesTheRevision() {
        addOwnPart();
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QCOMPARE(scalar(u"SELECT [部品コード] FROM [価格部品] WHERE [ID] = 9000001"_qs), u"OWN"_qs);
        QCOMPARE(scalar(u"SELECT [部品コード] FROM [価格部品] WHERE [ID] = 1"_qs), u"K-1"_qs);
        QCOMPARE(m_told.value(PriceRevision::Parts), (std::pair<qint64, qint64>{2, 2}));
        // The file of the new year receives it when that year is kept.
        QCOMPARE(inFile(u"2027"_qs, u"SELECT COUNT(*) FROM [価格部品]"_qs), u"1"_qs);
        QCOMPARE(inFile(u"2026"_qs, u"SELECT [部品コード] FROM [価格部品]"_qs), u"OWN"_qs);
    }

    void aKeptYearComesBackWithTheOwnRowsOfItsTime() {
        addOwnPart();
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        sql(u"INSERT INTO [価格部品] ([ID],[種目],[部品コード]) VALUES (9000002,'下肢装具','LATER')"_qs);
        QVERIFY(run(ofKept(u"2026"_qs)));
        QCOMPARE(scalar(u"SELECT [名称] FROM [価格種目]"_qs), u"前の年"_qs);
        QCOMPARE(scalar(u"SELECT MAX([ID]) FROM [価格部品]"_qs), u"9000001"_qs);
        QCOMPARE(gPriceYear, u"2026"_qs);
        QCOMPARE(inFile(u"2027"_qs, u"SELECT [部品コード] FROM [価格部品] WHERE [ID] = 9000002"_qs), u"LATER"_qs);
        QVERIFY(run(ofKept(u"2027"_qs)));
        QCOMPARE(scalar(u"SELECT MAX([ID]) FROM [価格部品]"_qs), u"9000002"_qs);
    }

    void aYearThatHasAFileIsReplacedAfterAQuestion() {
        {
            MessageQueue messages;
            QVERIFY(run(ofFiles(u"2027"_qs)));
            QVERIFY(run(ofKept(u"2026"_qs)));
        }
        sql(u"UPDATE [価格種目] SET [名称] = '直した'"_qs);
        writeYear(u"new"_qs, filesOfYear(u"200"_qs));
        MessageQueue messages({AnswerNo});
        QVERIFY(!run(ofFiles(u"2027"_qs)));
        QCOMPARE(messages.texts(), (QStringList{u"2027.dbは既に存在しています。上書きしてよろしいですか？"_qs}));
        QCOMPARE(scalar(u"SELECT [名称] FROM [価格種目]"_qs), u"直した"_qs);
        QCOMPARE(gPriceYear, u"2026"_qs);
        QCOMPARE(inFile(u"2026"_qs, u"SELECT [名称] FROM [価格種目]"_qs), u"直した"_qs);
        QCOMPARE(inFile(u"2027"_qs, u"SELECT [新価格１] FROM [価格基本]"_qs), u"100"_qs);
        messages.prepare(AnswerYes);
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QCOMPARE(inFile(u"2027"_qs, u"SELECT [新価格１] FROM [価格基本]"_qs), u"200"_qs);
        QCOMPARE(scalar(u"SELECT [新価格１] FROM [価格基本]"_qs), u"200"_qs);
    }

    void aLineWithAFieldTooManyIsToldAndStored() {
        QStringList files = filesOfYear(u"100"_qs);
        files[0] = u"1,義足,B-1,名,形,余り\r\n2,義足,B-2,名,形\r\n"_qs;
        writeYear(u"new"_qs, files);
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QCOMPARE(messages.texts(), (QStringList{u"1行目のデータ形式が違います。処理を終了します。"_qs}));
        QCOMPARE(scalar(u"SELECT [形式] FROM [価格種目] WHERE [ID] = 1"_qs), u"形"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [価格種目]"_qs), u"2"_qs);
    }

    void aLineWithTooFewFieldsStopsItsTableAlone() {
        QStringList files = filesOfYear(u"100"_qs);
        files[0] = u"1,義足,B-1,名,形\r\n2,義足,B-1\r\n3,義足,B-1,名,形\r\n"_qs;
        writeYear(u"new"_qs, files);
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QCOMPARE(messages.texts().value(0), u"2行目のデータ形式が違います。処理を終了します。"_qs);
        QCOMPARE(messages.texts().size(), 2);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [価格種目]"_qs), u"1"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [価格部品]"_qs), u"1"_qs);
        QCOMPARE(gPriceYear, u"2027"_qs);
        QVERIFY(log().contains(u"インデックスが有効範囲にありません。 (9)"_qs));
        QVERIFY(log().contains(u"Item.csv取り込みエラー： 2行目"_qs));
        QVERIFY(!log().contains(u"取り込み終了：価格種目"_qs));
    }

    void aNumberThatStandsTwiceKeepsTheRowsAheadOfIt() {
        QString lines;
        for (int id = 1; id <= 1200; ++id) lines += u"%1,義足,B-1,名%1,形\r\n"_qs.arg(id);
        QStringList files = filesOfYear(u"100"_qs);
        files[0] = lines + u"3,義足,B-1,名,形\r\n1201,義足,B-1,名,形\r\n"_qs;
        writeYear(u"new"_qs, files);
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QCOMPARE(messages.texts().size(), 1);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [価格種目]"_qs), u"1200"_qs);
    }

    void theLogTellsTheFilesWithTheirLines() {
        addOwnPart();
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QVERIFY(log().contains(u"Item.csv Open"_qs));
        QVERIFY(log().contains(u"取り込み開始：価格種目"_qs));
        QVERIFY(log().contains(u"取り込み終了：価格種目 1件"_qs));
        QCOMPARE(log().count(u"取り込み終了：価格基本 1件"_qs), 2); // 加算 goes by the same name
        QVERIFY(log().contains(u"取り込み終了：価格部品 2件"_qs));
        QVERIFY(log().contains(u"価格更新の終了： 0件"_qs));
    }

    void aPriceDatabaseThatCannotBeReadIsNamed() {
        QDir().mkpath(PriceRevision::folder());
        write(u"kakaku/2027.db"_qs, u"これはデータベースではありません。"_qs.repeated(100));
        MessageQueue messages({AnswerYes});
        const QString words = raised([this] { run(ofFiles(u"2027"_qs)); });
        QVERIFY2(words.startsWith(u"2027.db：\n"_qs), qPrintable(words));
        QCOMPARE(scalar(u"SELECT [名称] FROM [価格種目]"_qs), u"前の年"_qs);
        QCOMPARE(gPriceYear, u"2026"_qs);
        QCOMPARE(scalar(u"SELECT [設定値] FROM [システム設定] WHERE [No] = 20"_qs), u"2026"_qs);
    }

    void aYearThatAnotherProgramHasLockedIsNamed() {
        MessageQueue messages({AnswerYes, AnswerYes});
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QVERIFY(run(ofKept(u"2026"_qs)));
        Connection other(ConnectionSettings::sqliteFile(QDir(PriceRevision::folder()).filePath(u"2027.db"_qs)));
        other.open();
        other.engineExecute(u"BEGIN EXCLUSIVE"_qs);
        const QString words = raised([this] { run(ofFiles(u"2027"_qs)); });
        QVERIFY2(words.startsWith(u"2027.db：\n"_qs), qPrintable(words));
        verifyYearInForce(u"2026"_qs, u"前の年"_qs);
        other.engineExecute(u"ROLLBACK"_qs);
        QVERIFY(run(ofFiles(u"2027"_qs)));
        verifyYearInForce(u"2027"_qs, u"名"_qs);
    }

    void aYearThatMayNotBeWrittenIsNamed() {
        const BoundByRights bound;
        MessageQueue messages({AnswerYes, AnswerYes});
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QVERIFY(run(ofKept(u"2026"_qs)));
        const QString file = QDir(PriceRevision::folder()).filePath(u"2027.db"_qs);
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
        const QString words = raised([this] { run(ofFiles(u"2027"_qs)); });
        QVERIFY2(words.startsWith(u"2027.db：\n"_qs), qPrintable(words));
        verifyYearInForce(u"2026"_qs, u"前の年"_qs);
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
        QVERIFY(run(ofFiles(u"2027"_qs)));
    }

    void aRowWithTheNumberOfAUserStopsItsTable() {
        addOwnPart();
        QStringList files = filesOfYear(u"100"_qs);
        files[4] +=
            u"9000002,下肢装具,足部,単軸,架空工業,K-2,1,○,,,100,90\r\n3,下肢装具,足部,単軸,架空,K-3,1,○,,,1,1\r\n"_qs;
        writeYear(u"new"_qs, files);
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [価格部品]"_qs), u"2"_qs); // the first of the file, and the user's own
        QCOMPARE(scalar(u"SELECT [部品コード] FROM [価格部品] WHERE [ID] = 9000001"_qs), u"OWN"_qs);
        QVERIFY(log().contains(u"Parts.csv取り込みエラー： 2行目"_qs));
        QCOMPARE(gPriceYear, u"2027"_qs);
    }

    void whatIsMissingIsToldBeforeAnythingStarts() {
        const auto told = [](const Request& request) {
            MessageQueue messages;
            return PriceRevision::isPossible(request) ? QString() : messages.texts().join(u'|');
        };
        QCOMPARE(told(ofFiles(u"2027"_qs)), QString());
        QCOMPARE(told(ofFiles({})), u"価格改訂データの[年度]を指定してください。"_qs);
        QCOMPARE(told({Request::Files, m_database->folder() + u"/nowhere"_qs, u"2027"_qs}),
                 u"指定されたフォルダに必要な価格改訂ファイルが存在しませんでした。"_qs);
        QVERIFY(QFile::remove(m_database->folder() + u"/new/Parts.csv"_qs));
        QCOMPARE(told(ofFiles(u"2027"_qs)), u"指定されたフォルダに必要な価格改訂ファイルが存在しませんでした。"_qs);
        QCOMPARE(told(ofKept(u"1999"_qs)), u"指定された年度の価格データは保存されていません。"_qs);
    }

    void masterEstimatesTakeThePricesOfTheYear() {
        const QString id = addMaster(u"A"_qs, {u"支持部"_qs});
        gMstCmpltElmtManager.SaveData(
            {{id, u"1"_qs, u"1"_qs, u"足部"_qs, u"単軸"_qs, u"架空工業"_qs, u"K-1"_qs, u"1.5"_qs, u"1"_qs}});
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        clsMstEstimate master;
        QVERIFY(gMstEstimateManager.GetData(id, master));
        QCOMPARE(master.PriceSedYear, u"2027"_qs);
        QCOMPARE(QStringList({master.PriceSmall, master.PriceMiddle, master.PriceBig}),
                 QStringList({u"350"_qs, u"350"_qs, u"350"_qs}));
        QCOMPARE(gMstMakeElmtManager.rowsOf({id}).first().PriceBig, u"200"_qs);
        QCOMPARE(gMstCmpltElmtManager.rowsOf({id}).first().Price, u"150"_qs);
        QVERIFY(messages.isEmpty());
    }

    void aLineWithoutAPriceTakesThoseOfTheLineBefore() {
        const QString first = addMaster(u"A"_qs, {u"どこにもない"_qs, u"支持部"_qs});
        const QString second = addMaster(u"B"_qs, {u"どこにもない"_qs});
        QString shown;
        seams().openWithShell = [&](const QString& path) { shown = path; };
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        const auto prices = [](const QString& id, int line) {
            const clsMstMakeElmt row = gMstMakeElmtManager.rowsOf({id}).at(line);
            return QStringList{row.PriceSmall, row.PriceMiddle, row.PriceBig}.join(u' ');
        };
        QCOMPARE(prices(first, 0), u"0 0 0"_qs); // nothing was looked up before
        QCOMPARE(prices(first, 1), u"200 200 200"_qs);
        QCOMPARE(prices(second, 0), u"200 200 0"_qs); // from the estimate before
        clsMstEstimate master;
        QVERIFY(gMstEstimateManager.GetData(second, master));
        QCOMPARE(QStringList({master.PriceSmall, master.PriceMiddle, master.PriceBig}),
                 QStringList({u"200"_qs, u"200"_qs, u"0"_qs}));
        QCOMPARE(messages.texts(),
                 (QStringList{u"更新処理中に該当するデータが存在しない。またはデータが複数存在しました。"
                              "ログ内容をご確認ください。"_qs}));
        QCOMPARE(shown, gLogger->FileNm());
        QVERIFY(log().contains(
            u"価格マスタに[製品コード=B],[製品ID=%1],[種目=下肢装具],[採型区分=E-9],[名称=長下肢装具],"
            "[型式=＊],[採型採寸=2],[製作要素=どこにもない],[原材料等=皮革]のデータは存在しません｡"_qs.arg(second)));
    }

    void aFailureInTheMasterEstimatesLeavesThoseBefore() {
        const QString good = addMaster(u"A"_qs, {u"支持部"_qs});
        const QString bad = addMaster(u"B"_qs, {u"支持部"_qs});
        sql(u"DELETE FROM [マスタ見積種目] WHERE [製品ID] = '%1'"_qs.arg(bad));
        MessageQueue messages;
        QVERIFY(run(ofFiles(u"2027"_qs)));
        clsMstEstimate master;
        QVERIFY(gMstEstimateManager.GetData(good, master));
        QCOMPARE(master.PriceSedYear, u"2027"_qs);
        QVERIFY(gMstEstimateManager.GetData(bad, master));
        QCOMPARE(master.PriceSedYear, u"2026"_qs);
        QCOMPARE(messages.texts().size(), 1);
        QCOMPARE(gPriceYear, u"2027"_qs);
    }

private:
    bool run(const Request& request) {
        m_told.clear();
        PriceRevision revision(
            m_database->connection(),
            [this](PriceRevision::Part part, qint64 count, qint64 all) {
                m_told[part] = {count, all};
            },
            [] {});
        return revision.run(request);
    }

    Request ofFiles(const QString& year) const { return {Request::Files, m_database->folder() + u"/new"_qs, year}; }
    static Request ofKept(const QString& year) { return {Request::KeptYear, year, {}}; }

    void write(const QString& name, const QString& text) const {
        PriceSamples::writeFile(QDir(m_database->folder()).filePath(name), text);
    }
    void writeYear(const QString& folder, const QStringList& files) const {
        PriceSamples::writeYear(QDir(m_database->folder()).filePath(folder), files);
    }

    void verifyYearInForce(const QString& year, const QString& item) {
        QCOMPARE(gPriceYear, year);
        QCOMPARE(scalar(u"SELECT [設定値] FROM [システム設定] WHERE [No] = 20"_qs), year);
        QCOMPARE(scalar(u"SELECT [名称] FROM [価格種目]"_qs), item);
        for (const QString& table : Schema::priceTables())
            QVERIFY(!m_database->connection().tableExists(clsKDBManager::ownRowsTable(table)));
    }

    // A master estimate of one item, each of whose lines has 2 of its element.
    QString addMaster(const QString& code, const QStringList& elements) {
        clsMstEstimate master;
        master.ProductCd = code;
        master.PriceSedYear = u"2026"_qs;
        gMstEstimateManager.SaveData(master);
        const QString id = master.ProductId;
        gMstItemManager.SaveData(
            QList<clsMstItem>{{id, u"1"_qs, u"下肢装具"_qs, u"E-9"_qs, u"長下肢装具"_qs, u"＊"_qs, u"2"_qs, u"0"_qs}});
        QList<clsMstMakeElmt> lines;
        for (const QString& element : elements)
            lines << clsMstMakeElmt{id,      u"1"_qs,    QString::number(lines.size() + 1),
                                    element, u"皮革"_qs, u"2"_qs,
                                    u"1"_qs, u"1"_qs,    u"1"_qs};
        gMstMakeElmtManager.SaveData(lines);
        return id;
    }
    void addOwnPart() {
        sql(u"INSERT INTO [価格部品] ([ID],[種目],[部品コード]) VALUES (9000001,'下肢装具','OWN')"_qs);
    }

    void sql(const QString& statement) { m_database->connection().execute(statement); }
    QString scalar(const QString& statement) { return m_database->connection().scalar(statement); }
    static QString inFile(const QString& year, const QString& statement) {
        Connection file(ConnectionSettings::sqliteFile(QDir(PriceRevision::folder()).filePath(year + u".db"_qs)));
        file.open();
        return file.scalar(statement);
    }
    static QString log() {
        QFile file(gLogger->FileNm());
        return file.open(QIODevice::ReadOnly) ? Text::fromCp932(file.readAll()) : QString();
    }

    std::unique_ptr<TestDatabase> m_database;
    QHash<int, std::pair<qint64, qint64>> m_told;
};

HALVANE_TEST(PriceRevisionTest)
#include "PriceRevisionTest.moc"
