#include "HalvaneTest.h"
#include "support/MasterSamples.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Application.h"
#include "composition/ItemRules.h"
#include "composition/LineRules.h"
#include "master/MasterComposition.h"
#include "master/MasterManagers.h"

#include <QTest>

// A master estimate as it is priced, named, checked, stored and loaded, without its screen.
class MasterDraftTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    bool m_isUsed = false;

    Connection& connection() { return m_database->connection(); }
    QString scalar(const QString& sql) { return connection().scalar(sql); }

    MasterSave save(MasterDraft& draft) {
        return saveMaster(connection(), draft, [this](const QString&) { return m_isUsed; });
    }

    MasterDraft saved(const QString& code, int lines = 1) {
        MasterDraft draft = MasterSamples::master(code, lines);
        if (save(draft) != MasterSave::Saved) qFatal("not stored");
        return draft;
    }

    static MasterDraft loaded(const QString& id) {
        MasterDraft draft;
        if (!loadMaster(id, draft)) qFatal("not found");
        return draft;
    }

    QStringList rowCounts() {
        QStringList counts;
        for (const QString& table :
             {u"マスタ見積情報"_qs, u"マスタ見積種目"_qs, u"マスタ見積基本製作要素"_qs, u"マスタ見積完成要素"_qs})
            counts << scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table));
        return counts;
    }

    static QString nameOf(const QList<ComposedItem>& items) {
        MasterDraft draft;
        for (const ComposedItem& item : items) draft.composition.add(item);
        return draft.proposedName();
    }

    // Stands for the machine beside this one: it stores the row as it is, at another time.
    void storeElsewhere(const QString& id) {
        m_database->another()->execute(
            u"UPDATE [マスタ見積情報] SET [製品名称] = '他', [更新日] = #2030/01/01# WHERE [製品ID] = '%1'"_qs.arg(id));
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
        gPriceYear = u"2026"_qs;
        for (const QString& table :
             {u"マスタ見積情報"_qs, u"マスタ見積種目"_qs, u"マスタ見積基本製作要素"_qs, u"マスタ見積完成要素"_qs})
            connection().execute(u"DELETE FROM [%1]"_qs.arg(table));
        m_isUsed = false;
    }
    void cleanup() { m_database.reset(); }

    // --- the name ---

    void shellAndBraceAreNamedTogether() {
        QCOMPARE(nameOf({MasterSamples::item(u"殻構造義手"_qs, u"A"_qs, u"B"_qs, u"0"_qs),
                         MasterSamples::item(u"下肢装具"_qs, u"C"_qs, u"x"_qs, u"1"_qs)}),
                 u"殻構造ABおよびC採型"_qs);
    }

    void wheelchairIsNamedBehindItsForm() {
        QCOMPARE(nameOf({MasterSamples::item(u"車椅子"_qs, u"A"_qs, u"B"_qs, u"0"_qs)}), u"AB車椅子"_qs);
    }

    void shoeWithAnyNameIsNamedByItsKind() {
        QCOMPARE(nameOf({MasterSamples::item(u"靴型装具"_qs, u"＊"_qs, u"x"_qs, u"2"_qs)}), u"靴型装具採寸"_qs);
    }

    void braceAndShoeStayTwoArticles() {
        QCOMPARE(nameOf({MasterSamples::item(u"下肢装具"_qs, u"A"_qs, {}, u"1"_qs),
                         MasterSamples::item(u"靴型装具"_qs, u"B"_qs, {}, u"1"_qs)}),
                 u"A採型およびB靴型装具採型"_qs);
    }

    void withoutAnItemThatCountsTheNameIsEmpty() {
        QCOMPARE(nameOf({MasterSamples::item(u"＊"_qs, u"A"_qs, u"B"_qs), ComposedItem{0, Cells(8), {}, {}}}),
                 QString());
    }

    // --- the amounts ---

    void totalOfEveryTierShowsTheTaxOfTheAdults() {
        connection().execute(u"UPDATE [システム設定] SET [設定値] = '8' WHERE [No] = 2"_qs);
        MasterDraft draft = MasterSamples::master(u"A"_qs, 1);
        QCOMPARE(draft.taxRate, 8.0);
        draft.composition.item(1).make = {
            MasterSamples::makeLine(u"x"_qs, u"y"_qs, {u"101"_qs, u"202"_qs, u"1303"_qs})};
        draft.composition.item(1).parts = {MasterSamples::partsLine(u"p"_qs, u"f"_qs, {}, u"1000"_qs)};
        const MasterAmounts amounts = draft.amounts();
        QCOMPARE(amounts.makeElements, 1303);
        QCOMPARE(amounts.completeParts, 1000);
        QCOMPARE(amounts.totals.tax, 184); // of 2303: 184.24
        QCOMPARE(amounts.totals.small, 101 + 1000 + 184);
        QCOMPARE(amounts.totals.middle, 202 + 1000 + 184);
        QCOMPARE(amounts.totals.big, 1303 + 1000 + 184);
    }

    void taxOfHalfAPercentIsRoundedBeforeItIsCut() {
        QCOMPARE(masterTotals(0, 0, 1009, 5.5).tax, 55); // 5549.5 becomes 5550, and its hundredth is cut
    }

    void amountsBeyondTheRangeAreAnErrorAndNothingIsStored() {
        MasterDraft draft = MasterSamples::master(u"A"_qs, 1);
        draft.composition.item(1).make = {
            MasterSamples::makeLine(u"x"_qs, u"y"_qs, {u"1"_qs, u"1"_qs, u"2147483647"_qs})};
        QVERIFY(!raised([&] { save(draft); }).isEmpty());
        QCOMPARE(rowCounts(), QStringList(4, u"0"_qs));
    }

    // --- storing ---

    void headerStoresTheAmountsWithoutTax() {
        const MasterDraft draft = saved(u"P-1"_qs, 3);
        QVERIFY(!draft.master.ProductId.isEmpty());
        QCOMPARE(scalar(u"SELECT [小人価格] FROM [マスタ見積情報]"_qs), u"300"_qs);
        QCOMPARE(scalar(u"SELECT [中人価格] FROM [マスタ見積情報]"_qs), u"600"_qs);
        QCOMPARE(scalar(u"SELECT [大人価格] FROM [マスタ見積情報]"_qs), u"900"_qs);
        QCOMPARE(scalar(u"SELECT [価格設定年度] FROM [マスタ見積情報]"_qs), gPriceYear);
        QCOMPARE(scalar(u"SELECT [編集者No] FROM [マスタ見積情報]"_qs), u"1"_qs);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"1"_qs, u"3"_qs, u"0"_qs}));
    }

    void whatWasStoredIsLoadedAgain() {
        MasterDraft draft = MasterSamples::master(u"P-1"_qs, 2);
        draft.master.Memo = u"一行目\n二行目"_qs;
        draft.composition.item(1).parts << MasterSamples::partsLine(u"足継手"_qs, u"遊動"_qs, u"KO"_qs, u"500"_qs);
        draft.composition.fillUp(5);
        QCOMPARE(save(draft), MasterSave::Saved);
        const MasterDraft again = loaded(draft.master.ProductId);
        QCOMPARE(again.master.Memo, u"一行目\n二行目"_qs);
        QCOMPARE(again.composition.items().size(), 1);
        const ComposedItem& item = again.composition.item(1);
        QCOMPARE(item.cells.at(ItemRules::RowId), u"52"_qs);
        QCOMPARE(item.make.size(), 2);
        QCOMPARE(item.make.at(1), draft.composition.item(1).make.at(1));
        QCOMPARE(item.parts, draft.composition.item(1).parts);
        QCOMPARE(again.amounts().totals.big, draft.amounts().totals.big);
    }

    void itemsAreNumberedAnewAndTakeTheirLinesAlong() {
        MasterDraft draft = MasterSamples::master(u"P-1"_qs, 1);
        draft.composition.fillUp(2);
        ComposedItem shoe = MasterSamples::item(u"靴型装具"_qs, u"長靴"_qs, u"整形靴"_qs, u"1"_qs);
        shoe.make << MasterSamples::makeLine(u"靴"_qs, u"革"_qs, {u"1"_qs, u"2"_qs, u"3"_qs});
        draft.composition.add(shoe);
        draft.composition.rearrange({3, 2, 1});
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(scalar(u"SELECT [種目] FROM [マスタ見積種目] WHERE [製品種目No] = 1"_qs), u"靴型装具"_qs);
        QCOMPARE(scalar(u"SELECT [製作要素] FROM [マスタ見積基本製作要素] WHERE [製品種目No] = 1 AND [要素No] = 1"_qs),
                 u"靴"_qs);
        QCOMPARE(scalar(u"SELECT MAX([製品種目No]) FROM [マスタ見積種目]"_qs), u"2"_qs);
    }

    void itemWithoutACategoryIsStoredWithoutLines() {
        MasterDraft draft = MasterSamples::master(u"P-1"_qs, 1);
        ComposedItem half = MasterSamples::item(u"靴型装具"_qs, {}, {});
        half.cells[ItemRules::PickKbn].clear();
        half.make << MasterSamples::makeLine(u"靴"_qs, u"革"_qs, {u"1"_qs, u"2"_qs, u"3"_qs});
        draft.composition.add(half);
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"2"_qs, u"1"_qs, u"0"_qs}));
        QCOMPARE(scalar(u"SELECT [大人価格] FROM [マスタ見積情報]"_qs), u"300"_qs);
    }

    void lineWithoutAPriceRowShows0AndIsStored() {
        MasterDraft draft = MasterSamples::master(u"P-1"_qs, 0);
        ComposedItem& item = draft.composition.item(1);
        Cells line(makeRules().columns(3));
        const LineContext context(item.cells, masterTiers());
        line[MakeLine::MakeElmt] = u"架空要素"_qs;
        line[MakeLine::Materials] = u"架空材"_qs;
        makeRules().edited(line, MakeLine::Materials, {}, context);
        QCOMPARE(line.at(makeRules().amount(2)), u"0"_qs);
        item.make << line;
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(scalar(u"SELECT [大人価格] FROM [マスタ見積基本製作要素]"_qs), u"0"_qs);
    }

    void unitPricesAreThoseOfThePriceListInForce() {
        MasterDraft draft = MasterSamples::master(u"P-1"_qs, 0);
        draft.composition.item(1).make << MasterSamples::makeLine(u"基本価格"_qs, u"＊"_qs,
                                                                  {u"1"_qs, u"2"_qs, u"3"_qs});
        QCOMPARE(save(draft), MasterSave::Saved);
        MasterDraft again = loaded(draft.master.ProductId);
        lookUpUnitPrices(again.composition.item(1));
        const Cells line = again.composition.item(1).make.first();
        const QString price = scalar(u"SELECT [新価格３] FROM [価格基本] WHERE [種目] = '下肢装具' AND [採型区分] = "
                                     u"'E-4' AND [採型採寸区分] = 1 ORDER BY [ID]"_qs);
        QVERIFY(price.toInt() > 3);
        QCOMPARE(line.at(makeRules().unitPrice(0)), price);
        QCOMPARE(line.at(makeRules().amount(0)), u"1"_qs);
        QCOMPARE(line.at(makeRules().amount(2)), u"3"_qs);
    }

    // --- what is refused ---

    void emptyCodeAndEmptyNameAreRefused() {
        MessageQueue messages;
        MasterDraft draft = MasterSamples::master(u"   "_qs, 1);
        QCOMPARE(save(draft), MasterSave::WrongCode);
        draft.master.ProductCd = u"P-1"_qs;
        draft.master.ProductNm = u"  "_qs;
        QCOMPARE(save(draft), MasterSave::WrongName);
        QCOMPARE(messages.texts(), QStringList({u"製品コードを入力して下さい。"_qs, u"製品名称を入力して下さい。"_qs}));
        QCOMPARE(rowCounts().first(), u"0"_qs);
    }

    void blanksAtTheEndOfCodeAndNameAreNotStored() {
        MasterDraft draft = MasterSamples::master(u"P-1  "_qs, 1);
        draft.master.ProductNm = u"名前 "_qs;
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(scalar(u"SELECT [製品コード] FROM [マスタ見積情報]"_qs), u"P-1"_qs);
        QCOMPARE(scalar(u"SELECT [製品名称] FROM [マスタ見積情報]"_qs), u"名前"_qs);
    }

    void codeOfAnotherMasterIsRefused() {
        saved(u"P-1"_qs);
        MasterDraft other = saved(u"P-2"_qs);
        MessageQueue messages;
        MasterDraft third = MasterSamples::master(u"p-1 "_qs, 1);
        QCOMPARE(save(third), MasterSave::WrongCode);
        QVERIFY(third.master.ProductId.isEmpty());
        other.master.ProductCd = u"P-1"_qs;
        QCOMPARE(save(other), MasterSave::WrongCode);
        QCOMPARE(messages.texts(), QStringList(2, u"製品コードが重複しています。"_qs));
        QCOMPARE(rowCounts().first(), u"2"_qs);
    }

    // Another program may have stored two of one code; neither is written over the other.
    void codeThatStandsTwiceIsRefusedAlsoWhenItStays() {
        saved(u"P-1"_qs, 1);
        MasterDraft second = saved(u"P-2"_qs, 2);
        connection().execute(u"UPDATE [マスタ見積情報] SET [製品コード] = 'P-1'"_qs);
        second = loaded(second.master.ProductId);
        MessageQueue messages;
        QCOMPARE(save(second), MasterSave::WrongCode);
        QCOMPARE(rowCounts(), QStringList({u"2"_qs, u"2"_qs, u"3"_qs, u"0"_qs}));
    }

    void codesOfAnySignsFindThemselvesAlone() {
        const QString longest = QString(252, u'長') + u"'[%"_qs;
        const QStringList codes{u"A'B"_qs, u"A''B"_qs, u"[A]"_qs, u"%"_qs, u"_"_qs, u"𠮷野"_qs, longest};
        for (const QString& code : codes) saved(code);
        QCOMPARE(rowCounts().first(), QString::number(codes.size()));
        MessageQueue messages;
        for (const QString& code : codes) {
            MasterDraft again = MasterSamples::master(code, 1);
            QCOMPARE(save(again), MasterSave::WrongCode);
        }
    }

    void itemsWithoutLinesAreRefused() {
        MessageQueue messages;
        MasterDraft draft = MasterSamples::master(u"P-1"_qs, 0);
        QCOMPARE(save(draft), MasterSave::Refused);
        QCOMPARE(messages.texts(), QStringList({u"見積明細(基本・製作要素／完成要素)が設定されていません。"_qs}));
        QCOMPARE(rowCounts(), QStringList(4, u"0"_qs));
    }

    void changedCodeThatOrdersNameAsksAndLeavesThemAlone() {
        MasterDraft draft = saved(u"P-1"_qs);
        connection().execute(u"UPDATE [顧客見積情報] SET [製品コード] = 'P-1' WHERE [見積ID] = '0000000003'"_qs);
        m_isUsed = true;
        draft.master.ProductCd = u"P-9"_qs;
        {
            MessageQueue messages({AnswerNo});
            QCOMPARE(save(draft), MasterSave::Refused);
            QCOMPARE(messages.texts(),
                     QStringList({u"変更前の製品コードは顧客見積に登録されています。変更を反映しますか？"_qs}));
            QCOMPARE(scalar(u"SELECT [製品コード] FROM [マスタ見積情報]"_qs), u"P-1"_qs);
        }
        MessageQueue messages({AnswerYes});
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(rowCounts().first(), u"1"_qs);
        QCOMPARE(scalar(u"SELECT [製品コード] FROM [マスタ見積情報]"_qs), u"P-9"_qs);
        QCOMPARE(scalar(u"SELECT [製品コード] FROM [顧客見積情報] WHERE [見積ID] = '0000000003'"_qs), u"P-1"_qs);
    }

    void codeAsItWasAsksNothing() {
        MasterDraft draft = saved(u"P-1"_qs);
        m_isUsed = true;
        MessageQueue messages;
        QCOMPARE(save(draft), MasterSave::Saved);
        QVERIFY(messages.isEmpty());
    }

    // --- another machine ---

    void codeStoredElsewhereWhileTheDialogIsOpenIsRefusedWithoutASecondRow() {
        MasterDraft draft = MasterSamples::master(u"P-1"_qs, 1);
        const auto other = m_database->another();
        other->execute(
            u"INSERT INTO [マスタ見積情報] ([製品ID], [製品コード], [製品名称]) VALUES ('X', 'P-1', '他')"_qs);
        MessageQueue messages;
        QCOMPARE(save(draft), MasterSave::WrongCode);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"0"_qs, u"0"_qs, u"0"_qs}));
        QCOMPARE(scalar(u"SELECT [製品名称] FROM [マスタ見積情報]"_qs), u"他"_qs);
    }

    void changedElsewhereAsksBeforeItIsOverwritten() {
        MasterDraft draft = loaded(saved(u"P-1"_qs).master.ProductId);
        storeElsewhere(draft.master.ProductId);
        {
            MessageQueue messages({AnswerNo});
            QCOMPARE(save(draft), MasterSave::Refused);
            QCOMPARE(messages.texts(), QStringList({u"他の端末で更新されています。上書きしますか？"_qs}));
            QCOMPARE(scalar(u"SELECT [製品名称] FROM [マスタ見積情報]"_qs), u"他"_qs);
        }
        MessageQueue messages({AnswerYes});
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(scalar(u"SELECT [製品名称] FROM [マスタ見積情報]"_qs), MasterSamples::nameFor(1));
    }

    // The time of a save has whole seconds.
    void changedElsewhereWithinTheSameSecondAsks() {
        MasterDraft draft = loaded(saved(u"P-1"_qs).master.ProductId);
        m_database->another()->execute(u"UPDATE [マスタ見積基本製作要素] SET [原材料等] = '他'"_qs);
        MessageQueue messages({AnswerNo});
        QCOMPARE(save(draft), MasterSave::Refused);
        QCOMPARE(messages.texts(), QStringList({u"他の端末で更新されています。上書きしますか？"_qs}));
        QCOMPARE(scalar(u"SELECT [原材料等] FROM [マスタ見積基本製作要素]"_qs), u"他"_qs);
    }

    void deletedElsewhereIsToldAndCanBeStoredAnew() {
        MasterDraft draft = loaded(saved(u"P-1"_qs).master.ProductId);
        deleteMaster(connection(), draft.master.ProductId);
        MessageQueue messages;
        QCOMPARE(save(draft), MasterSave::Gone);
        QVERIFY(messages.texts().first().startsWith(u"このマスタ見積は他の端末で削除されています。"_qs));
        QCOMPARE(rowCounts(), QStringList(4, u"0"_qs));
        draft.becomeNew();
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"1"_qs, u"1"_qs, u"0"_qs}));
    }

    void ownSaveIsNoChangeByAnother() {
        MasterDraft draft = saved(u"P-1"_qs);
        MessageQueue messages;
        for (int i = 0; i < 3; ++i) QCOMPARE(save(draft), MasterSave::Saved);
        QVERIFY(messages.isEmpty());
    }

    // --- as a whole ---

    void failedSaveLeavesNothingBehind() {
        MasterDraft draft = saved(u"P-1"_qs, 2);
        connection().execute(u"DROP TABLE [マスタ見積完成要素]"_qs);
        draft.master.ProductNm = u"新しい名"_qs;
        draft.composition.item(1).make.removeLast();
        QVERIFY(!raised([&] { save(draft); }).isEmpty());
        QCOMPARE(scalar(u"SELECT [製品名称] FROM [マスタ見積情報]"_qs), MasterSamples::nameFor(2));
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [マスタ見積基本製作要素]"_qs), u"2"_qs);
        QCOMPARE(draft.composition.item(1).make.size(), 1);
    }

    void lastLineOfAKindCanGo() {
        MasterDraft draft = MasterSamples::master(u"P-1"_qs, 1);
        draft.composition.item(1).parts << MasterSamples::partsLine(u"足継手"_qs, u"遊動"_qs, {}, u"500"_qs);
        QCOMPARE(save(draft), MasterSave::Saved);
        draft.composition.item(1).make.clear();
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"1"_qs, u"0"_qs, u"1"_qs}));
        draft.composition.item(1).make << MasterSamples::makeLine(u"x"_qs, u"y"_qs, {u"1"_qs, u"2"_qs, u"3"_qs});
        draft.composition.item(1).parts.clear();
        QCOMPARE(save(draft), MasterSave::Saved);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"1"_qs, u"1"_qs, u"0"_qs}));
    }

    void deletedWithAllItsRows() {
        const MasterDraft kept = saved(u"P-1"_qs, 2);
        const MasterDraft gone = saved(u"P-2"_qs, 3);
        deleteMaster(connection(), gone.master.ProductId);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"1"_qs, u"2"_qs, u"0"_qs}));
        QCOMPARE(scalar(u"SELECT [製品コード] FROM [マスタ見積情報]"_qs), kept.master.ProductCd);
    }

    void changedElsewhereIsNotDeletedUnseen() {
        const MasterDraft draft = loaded(saved(u"P-1"_qs).master.ProductId);
        storeElsewhere(draft.master.ProductId);
        const auto remove = [&] { deleteMaster(connection(), draft.master.ProductId, draft.master.UpdDate); };
        QVERIFY(raised(remove).startsWith(u"このマスタ見積は他の端末で更新されています。"_qs));
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"1"_qs, u"1"_qs, u"0"_qs}));
        deleteMaster(connection(), draft.master.ProductId, loaded(draft.master.ProductId).master.UpdDate);
        QCOMPARE(rowCounts(), QStringList(4, u"0"_qs));
    }

    void copyIsStoredBesideItsOriginal() {
        MasterDraft copy = loaded(saved(u"P-1"_qs, 2).master.ProductId);
        copy.becomeNew();
        {
            MessageQueue messages;
            QCOMPARE(save(copy), MasterSave::WrongCode);
        }
        copy.master.ProductCd = u"P-2"_qs;
        QCOMPARE(save(copy), MasterSave::Saved);
        QCOMPARE(rowCounts(), QStringList({u"2"_qs, u"2"_qs, u"4"_qs, u"0"_qs}));
    }

    void masterThatIsGoneIsNotLoaded() {
        MasterDraft draft;
        QVERIFY(!loadMaster(u"9999"_qs, draft));
    }
};

HALVANE_TEST(MasterDraftTest)
#include "MasterDraftTest.moc"
