#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "reference/CodeTable.h"

namespace {

using Maker = std::unique_ptr<CodeTable> (*)();

const QList<Maker>& all() {
    static const QList<Maker> makers{CodeTables::doctors,     CodeTables::producers, CodeTables::claims,
                                     CodeTables::orders,      CodeTables::laws,      CodeTables::lawClaims,
                                     CodeTables::prefectures, CodeTables::equipment};
    return makers;
}

QList<CodeRow> byHand(CodeTable& table) { return table.rows(table.form().bySeq, Direction::Descending); }

CodeRow rowOf(const QStringList& values) { return {{}, {}, values}; }

} // namespace

class CodeTableTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void everyTableListsItsRowsByHandAndByEveryColumn() {
        for (const Maker make : all()) {
            const auto table = make();
            const QList<CodeRow> rows = byHand(*table);
            QVERIFY2(rows.size() > 5, qPrintable(table->form().screen));
            for (const CodeRow& row : rows) {
                QVERIFY(!row.number.isEmpty() && row.seq.size() == 14);
                QCOMPARE(row.values.size(), table->form().columns.size());
            }
            for (const CodeColumn& column : table->form().columns)
                if (!column.sort.isEmpty())
                    QCOMPARE(table->rows(column.sort, Direction::Ascending).size(), rows.size());
        }
    }

    void everyRowIsWrittenAsItWasRead() {
        for (const Maker make : all()) {
            const auto table = make();
            const QList<CodeRow> before = byHand(*table);
            for (CodeRow row : before) table->save(row);
            QCOMPARE(byHand(*table), before);
        }
    }

    void aNewRowGetsNumberAndPlaceAndGoesAgain() {
        for (const Maker make : all()) {
            const auto table = make();
            const QList<CodeRow> before = byHand(*table);
            CodeRow row = before.first();
            row.number.clear();
            row.seq.clear();
            for (const int column : table->form().identity)
                row.values[column] = table->form().columns.at(column).kind == CodeColumn::Choice ? u"2"_qs : u"新規"_qs;
            table->save(row);
            QVERIFY2(!row.number.isEmpty() && !row.seq.isEmpty(), qPrintable(table->form().screen));
            QCOMPARE(byHand(*table).size(), before.size() + 1);
            table->remove(row);
            QCOMPARE(byHand(*table), before);
        }
    }

    // Between the look at the rows and the save.
    void aCodeThatAnotherMachineStoresMeanwhileIsRefused() {
        const auto table = CodeTables::doctors();
        CodeRow row = byHand(*table).first();
        row.number.clear();
        row.seq.clear();
        row.values[0] = u"0777"_qs;
        QVERIFY(table->complaintOf(row, byHand(*table)).isEmpty());
        CodeRow other = row;
        table->save(other);
        QCOMPARE(raised([&] { table->save(row); }), u"既に同じ主治医コードが存在しています｡"_qs);
        QVERIFY(row.number.isEmpty());
        QCOMPARE(m_database->connection().scalar(u"SELECT COUNT(*) FROM [主治医] WHERE [主治医コード] = '0777'"_qs),
                 u"1"_qs);
        QCOMPARE(m_database->connection().transactionDepth(), 0);
    }

    void rowsInUseComeFirstNewestFirst() {
        const auto table = CodeTables::producers();
        CodeRow newest = byHand(*table).first();
        newest.values[table->flagColumn()] = u"1"_qs;
        table->save(newest);
        const QList<CodeRow> rows = byHand(*table);
        QCOMPARE(rows.last().number, newest.number);
        QVERIFY(rows.at(0).seq > rows.at(1).seq);
    }

    void placeWritesTheOrderAlone() {
        const auto table = CodeTables::doctors();
        CodeRow row = byHand(*table).at(12); // the last one in use
        const QStringList stored = row.values;
        row.seq = u"20990101000000"_qs;
        row.values[1] = u"書かれない"_qs;
        table->place(row);
        QCOMPARE(byHand(*table).first().number, row.number);
        QCOMPARE(byHand(*table).first().values, stored);
    }

    void everyTableTellsOfItsMissingIdentity_data() {
        QTest::addColumn<int>("table");
        QTest::addColumn<QString>("word");
        const QStringList words{u"主治医コード"_qs, u"製作担当者コード"_qs, u"請求先コード"_qs,     u"受注先コード"_qs,
                                u"法別"_qs,         u"法別と請求先"_qs,     u"都道府県と市区郡"_qs, u"装具"_qs};
        for (int i = 0; i < words.size(); ++i) QTest::addRow("%d", i) << i << words.at(i);
    }
    void everyTableTellsOfItsMissingIdentity() {
        QFETCH(int, table);
        QFETCH(QString, word);
        const auto made = all().at(table)();
        CodeRow row = byHand(*made).first();
        QCOMPARE(made->complaintOf(row, {}), QString());
        QCOMPARE(made->complaintOf(row, {row}), u"既に同じ%1が存在しています｡"_qs.arg(word));
        for (const int column : made->form().identity) row.values[column] = u"  "_qs;
        QCOMPARE(made->complaintOf(row, {}), word + u"が入力されていません。適切なデータを入力してください。"_qs);
    }

    void codesAreTheSameWithoutCaseAndBlanksBehind() {
        const auto table = CodeTables::doctors();
        const CodeRow other = rowOf({u"ab1"_qs, {}, {}, u"0"_qs});
        QVERIFY(!table->complaintOf(rowOf({u"AB1  "_qs, {}, {}, u"0"_qs}), {other}).isEmpty());
        QVERIFY(table->complaintOf(rowOf({u"ab10"_qs, {}, {}, u"0"_qs}), {other}).isEmpty());
    }

    void limitsAreThoseOfTheColumnsInSigns() {
        const auto table = CodeTables::producers();
        const QString rare = u"𠮷"_qs; // two units, one sign
        QCOMPARE(table->complaintOf(rowOf({u"1"_qs, rare.repeated(30), u"0"_qs}), {}), QString());
        QCOMPARE(table->complaintOf(rowOf({u"1"_qs, rare.repeated(31), u"0"_qs}), {}),
                 u"入力できる最大数(30)を超えています。"_qs);
    }

    void oneOfPrefectureAndCityWillDo() {
        const auto table = CodeTables::prefectures();
        QCOMPARE(table->complaintOf(rowOf({{}, u"中野区"_qs}), {}), QString());
        QVERIFY(table->complaintOf(rowOf({{}, u"中野区"_qs}), {rowOf({u"東京都"_qs, u"中野区"_qs})}).isEmpty());
    }

    void aLawThatCustomersOrClaimsNameIsInUse() {
        const auto table = CodeTables::laws();
        CodeRow row = byHand(*table).first();
        row.number = u"1"_qs;
        QVERIFY(table->isInUse(row));
        row.number = u"98"_qs;
        QVERIFY(!table->isInUse(row));
    }

    void orderedSeqsKeepWhatIsDistinct() {
        QCOMPARE(orderedSeqs({u"20240101000002"_qs, u"20240101000009"_qs, u"20240101000005"_qs}),
                 (QStringList{u"20240101000009"_qs, u"20240101000005"_qs, u"20240101000002"_qs}));
    }

    void aNewRowIsTheNewestAlsoWithinASecond() {
        const FixedClock clock(u"2026/11/22 18:00:00"_qs);
        QCOMPARE(newestSeq({}), u"20261122180000"_qs);
        QCOMPARE(newestSeq({u"20261122175959"_qs, {}}), u"20261122180000"_qs);
        QCOMPARE(newestSeq({u"20261122180000"_qs}), u"20261122180001"_qs);
        QCOMPARE(newestSeq({u"20300101000000"_qs, u"20261122180000"_qs}),
                 u"20300101000001"_qs); // a clock that was wrong
    }

    void orderedSeqsPartEqualOnesAndFillBlanks() {
        QCOMPARE(orderedSeqs({u"20240101000005"_qs, {}, u"20240101000005"_qs, {}}),
                 (QStringList{u"20240101000006"_qs, u"20240101000005"_qs, u"00000000000002"_qs, u"00000000000001"_qs}));
        QCOMPARE(orderedSeqs({}), QStringList());
    }
};

HALVANE_TEST(CodeTableTest)
#include "CodeTableTest.moc"
