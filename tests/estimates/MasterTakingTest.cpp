#include "HalvaneTest.h"
#include "support/EstimateSamples.h"
#include "support/MasterSamples.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "base/Application.h"
#include "composition/LineRules.h"
#include "estimates/EstimateDates.h"
#include "estimates/MasterTaking.h"
#include "master/MasterManagers.h"

#include <QTest>

// What an estimate takes out of a master estimate, and what becomes of it as one.
class MasterTakingTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    clsMstEstimate stored(MasterDraft draft) {
        if (saveMaster(m_database->connection(), draft, [](const QString&) { return false; }) != MasterSave::Saved)
            qFatal("not stored");
        return draft.master;
    }

    clsMstEstimate brace(const QString& code = u"T-1"_qs) {
        MasterDraft draft = MasterSamples::master(code, 2);
        draft.composition.item(1).make[1][MakeLine::Suryo] = u"2"_qs;
        draft.composition.item(1).parts << MasterSamples::partsLine(u"足継手"_qs, u"遊動"_qs, u"KO"_qs, u"500"_qs);
        return stored(draft);
    }

    static EstimateDraft taken(const clsMstEstimate& master, const QString& tier) {
        EstimateDraft draft = newEstimate();
        takeMaster(draft, master, tier);
        return draft;
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
        gPriceYear = u"2026"_qs;
    }
    void cleanup() { m_database.reset(); }

    void amountsAreThoseOfTheCustomersTier() {
        const clsMstEstimate master = brace();
        const auto amounts = [&](const QString& tier) {
            return taken(master, tier).composition.column(&ComposedItem::make, MakeLine::Price);
        };
        QCOMPARE(amounts(u"小人"_qs), QStringList(2, u"100"_qs));
        QCOMPARE(amounts(u"中人"_qs), QStringList(2, u"200"_qs));
        QCOMPARE(amounts(u"大人"_qs), QStringList(2, u"300"_qs));
    }

    void customerWithoutATierGetsTheAmountsOfAdults() {
        const EstimateDraft draft = taken(brace(), {});
        QCOMPARE(draft.composition.column(&ComposedItem::make, MakeLine::Price), QStringList(2, u"300"_qs));
        QCOMPARE(draft.composition.column(&ComposedItem::parts, PartsLine::Price), QStringList({u"500"_qs}));
    }

    void unitPriceMakesTheAmountOfItsQuantity() {
        const EstimateDraft draft = taken(brace(), {});
        QCOMPARE(draft.composition.column(&ComposedItem::make, MakeLine::UnitPrice),
                 QStringList({u"300"_qs, u"150"_qs}));
    }

    void pricesAreNotLookedUpAnew() {
        const clsMstEstimate master = brace();
        QStringList statements;
        m_database->connection().onStatement = [&](const QString& statement) { statements << statement; };
        taken(master, {});
        m_database->connection().onStatement = {};
        QVERIFY(!statements.isEmpty());
        for (const QString& statement : statements) QVERIFY2(!statement.contains(u"価格"), qUtf8Printable(statement));
    }

    void contentsAndDatesGiveWayAndTheRestStays() {
        EstimateDraft draft = EstimateSamples::order(3, 1);
        draft.estimate.EstId = u"0000000007"_qs;
        draft.estimate.EstNo = u"N-7"_qs;
        draft.estimate.Tax = u"10"_qs;
        draft.estimate.Discount1 = u"95"_qs;
        draft.estimate.LifeYear = u"3"_qs;
        draft.estimate.Category = u"区分"_qs;
        draft.estimate.Frame = u"骨"_qs;
        draft.estimate.Memo = u"備考"_qs;
        draft.estimate.GrantNo = u"K-1"_qs;
        draft.estimate.RecvDate = u"2026/10/01"_qs;
        draft.estimate.EstPrtDate = u"2026/10/02"_qs;
        draft.partialPayment = u"1000"_qs;
        draft.uncollected = true;
        takeMaster(draft, brace(), {});
        QCOMPARE(draft.estimate.ProductCd, u"T-1"_qs);
        QCOMPARE(draft.composition.items().size(), 1);
        QCOMPARE(draft.composition.item(1).make.size(), 2);
        for (const QString& gone : {draft.estimate.EstNm, draft.estimate.RecvDate, draft.estimate.EstPrtDate,
                                    draft.partialPayment, draft.claims.first().ask.AskPrice})
            QCOMPARE(gone, QString());
        QCOMPARE(draft.estimate.ProcKbnNo, WorkStatus::Nothing);
        QCOMPARE(draft.estimate.EstId, u"0000000007"_qs);
        QCOMPARE(draft.estimate.EstNo, u"N-7"_qs);
        QCOMPARE(draft.estimate.Tax, u"10"_qs);
        QCOMPARE(draft.estimate.Discount1, u"95"_qs);
        QCOMPARE(draft.estimate.LifeYear, u"3"_qs);
        QCOMPARE(draft.estimate.Category, u"区分"_qs);
        QCOMPARE(draft.estimate.Frame, u"骨"_qs);
        QCOMPARE(draft.estimate.Memo, u"備考"_qs);
        QCOMPARE(draft.estimate.GrantNo, u"K-1"_qs);
        QCOMPARE(draft.claims.first().InsNo, u"1"_qs);
        QCOMPARE(draft.customer.CustNm1, u"見本"_qs);
        QCOMPARE(draft.estimate.Total, u"1070"_qs); // 95 % of 600, and the part
    }

    void orderBecomesAMasterPricedInAllTiers() {
        EstimateDraft draft = newEstimate();
        ComposedItem brace = MasterSamples::item(u"下肢装具"_qs, u"短下肢装具"_qs, u"両側支柱"_qs, u"1"_qs);
        brace.make << EstimateSamples::makeLine(u"基本価格"_qs, u"＊"_qs, u"1"_qs);
        brace.make[0][MakeLine::Suryo] = u"2"_qs;
        draft.composition.add(brace);
        draft.composition.fillUp(5);
        bool incomplete = true;
        const MasterDraft master = masterOf(draft, incomplete);
        QVERIFY(!incomplete);
        QCOMPARE(master.master.PriceSedYear, gPriceYear);
        const Cells line = master.composition.item(1).make.first();
        for (const auto& [tier, column] :
             {std::pair(0, u"新価格３"_qs), std::pair(1, u"新価格２"_qs), std::pair(2, u"新価格１"_qs)}) {
            const int price =
                m_database->connection()
                    .scalar(u"SELECT [%1] FROM [価格基本] WHERE [種目] = '下肢装具' AND [採型区分] = 'E-4' "
                            u"AND [採型採寸区分] = 1 ORDER BY [ID]"_qs.arg(column))
                    .toInt();
            QVERIFY(price > 0);
            QCOMPARE(line.at(makeRules().amount(tier)).toInt(), 2 * price);
        }
    }

    void lineThatThePriceListLacksCosts0AsAMaster() {
        EstimateDraft draft = EstimateSamples::order(1, 0);
        draft.composition.item(1).parts << MasterSamples::partsLine(u"架空"_qs, u"型"_qs, u"X"_qs, u"777"_qs);
        bool incomplete = false;
        const MasterDraft master = masterOf(draft, incomplete);
        QVERIFY(incomplete);
        QCOMPARE(master.composition.column(&ComposedItem::parts, PartsLine::Price), QStringList({u"0"_qs}));
        QCOMPARE(draft.composition.column(&ComposedItem::parts, PartsLine::Price), QStringList({u"777"_qs}));
    }

    void codeIsThatOfOneMasterOrOfNone() {
        brace(u"T-1"_qs);
        brace(u"T-10"_qs);
        brace(u"T%"_qs);
        clsMstEstimate found;
        QVERIFY(masterOfCode(u"t-1"_qs, found));
        QCOMPARE(found.ProductCd, u"T-1"_qs);
        QVERIFY(!masterOfCode(u"T"_qs, found));
        m_database->connection().execute(
            u"UPDATE [マスタ見積情報] SET [製品コード] = 'T-1' WHERE [製品コード] = 'T-10'"_qs);
        QVERIFY(!masterOfCode(u"T-1"_qs, found));
    }
};

HALVANE_TEST(MasterTakingTest)
#include "MasterTakingTest.moc"
