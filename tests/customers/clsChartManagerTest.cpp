#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "customers/clsChartManager.h"

namespace {

clsChart chartOf(const QString& branch = u"1"_qs) {
    clsChart chart;
    chart.CustId = u"C'1"_qs;
    chart.CustSubId = branch;
    chart.ChartCd = u"K-1"_qs;
    chart.DiseaseNm = u"切断"_qs;
    chart.LR = u"右"_qs;
    chart.HospDate = u"2024/01/05"_qs;
    chart.OrderNo = u"3"_qs;
    chart.OrderNm = u"病院"_qs;
    chart.DoctorNo = u"4"_qs;
    chart.DoctorNm = u"医師"_qs;
    chart.UpdUserNo = u"1"_qs;
    chart.Memo = u"メモ"_qs;
    return chart;
}

} // namespace

class clsChartManagerTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Empty);
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void chartsAreNumberedWithinTheBranch() {
        for (const auto& [branch, number] : {std::pair{"1", "1"}, {"1", "2"}, {"2", "1"}}) {
            clsChart chart = chartOf(QString::fromLatin1(branch));
            gChartManager.SaveData(chart);
            QCOMPARE(chart.ChartNo, QString::fromLatin1(number));
        }
        QCOMPARE(gChartManager.GetNewChartNo(u"C'1"_qs, u"1"_qs), u"3"_qs);
        gChartManager.DeleteData(u"C'1"_qs, u"1"_qs, u"1"_qs);
        QVERIFY(!gChartManager.CheckExist(u"C'1"_qs, u"1"_qs, u"1"_qs));
        QVERIFY(gChartManager.CheckExist(u"C'1"_qs, u"1"_qs, u"2"_qs));
        QCOMPARE(gChartManager.GetNewChartNo(u"C'1"_qs, u"1"_qs), u"3"_qs);
    }

    void savedChartReadsBack() {
        clsChart chart = chartOf();
        gChartManager.SaveData(chart);
        chart.DiseaseNm = u"改"_qs;
        gChartManager.SaveData(chart);
        clsChart stored;
        QVERIFY(gChartManager.GetData(chart.CustId, chart.CustSubId, chart.ChartNo, stored));
        QCOMPARE(stored.DiseaseNm, u"改"_qs);
        QCOMPARE(clsChartManager::GetDiffText(chart, stored), QString());
        QVERIFY(!gChartManager.GetData(chart.CustId, chart.CustSubId, {}, stored));
        QCOMPARE(count(), u"1"_qs);
    }

    void differencesAreNamed_data() {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("names");
        const auto row = [](const QString& column, const QString& value, const QString& names) {
            QTest::newRow(qUtf8Printable(column + value)) << column << value << names;
        };
        row(u"カルテ番号"_qs, u"x"_qs, u"[カルテ番号]"_qs);
        row(u"病名原因"_qs, u"x"_qs, u"[病名原因]"_qs);
        row(u"左右区分"_qs, u"左"_qs, u"[左右区分]"_qs);
        row(u"入通院開始日"_qs, u"2024/01/06"_qs, u"[入通院開始日]"_qs);
        row(u"入通院開始日"_qs, u"2024/1/5"_qs, {});
        row(u"入通院開始日"_qs, {}, u"[入通院開始日]"_qs);
        row(u"受注先No"_qs, u"9"_qs, u"[受注先No]"_qs);
        row(u"受注先"_qs, u"x"_qs, u"[受注先名]"_qs);
        row(u"主治医No"_qs, u"9"_qs, u"['主治医No]"_qs);
        row(u"主治医"_qs, u"x"_qs, u"[主治医名]"_qs);
        row(u"備考"_qs, u"x"_qs, u"[備考]"_qs);
        row(u"編集者No"_qs, u"9"_qs, {});
        row(u"カルテ番号"_qs, u"K-1  "_qs, {});
    }
    void differencesAreNamed() {
        QFETCH(QString, column);
        QFETCH(QString, value);
        clsChart chart = chartOf();
        for (const auto& field : gChartManager.fields())
            if (field.column == column) chart.*field.member = value;
        QTEST(clsChartManager::GetDiffText(chart, chartOf()), "names");
    }

    void noNumberIsNoDifferenceWhetherEmptyOr0() {
        for (const auto member : {&clsChart::OrderNo, &clsChart::DoctorNo}) {
            clsChart none = chartOf(), zero = chartOf();
            (none.*member).clear();
            zero.*member = u"0"_qs;
            QCOMPARE(clsChartManager::GetDiffText(none, zero), QString());
            QCOMPARE(clsChartManager::GetDiffText(zero, none), QString());
            QVERIFY(!clsChartManager::GetDiffText(zero, chartOf()).isEmpty());
        }
    }

    void newEstimateMakesAChartForAnyOneDifference_data() {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("value");
        for (const auto& [column, value] : {std::pair{"カルテ番号", "K-2"},
                                            {"病名原因", "骨折"},
                                            {"左右区分", "左"},
                                            {"入通院開始日", "2024/01/06"},
                                            {"受注先No", "9"},
                                            {"受注先", "別の病院"},
                                            {"主治医No", "9"},
                                            {"主治医", "別の医師"}})
            QTest::newRow(column) << QString::fromUtf8(column) << QString::fromUtf8(value);
    }
    void newEstimateMakesAChartForAnyOneDifference() {
        QFETCH(QString, column);
        QFETCH(QString, value);
        clsChart first = chartOf();
        gChartManager.SaveData(first);
        clsChart other = chartOf();
        for (const auto& field : gChartManager.fields())
            if (field.column == column) other.*field.member = value;
        gChartManager.SaveFromEstimate(other, clsChartManager::Mode::NewEstimate);
        QCOMPARE(other.ChartNo, u"2"_qs);
        QCOMPARE(count(), u"2"_qs);
    }

    void newEstimateUsesAChartThatFits() {
        MessageQueue boxes;
        clsChart first = chartOf();
        gChartManager.SaveData(first);
        clsChart same = chartOf();
        same.Memo = u"他"_qs; // the note is not compared
        gChartManager.SaveFromEstimate(same, clsChartManager::Mode::NewEstimate);
        QCOMPARE(same.ChartNo, first.ChartNo);
        QCOMPARE(count(), u"1"_qs);
        clsChart other = chartOf();
        other.DiseaseNm = u"骨折"_qs;
        gChartManager.SaveFromEstimate(other, clsChartManager::Mode::NewEstimate);
        QCOMPARE(other.ChartNo, u"2"_qs);
        clsChart otherBranch = chartOf(u"2"_qs);
        gChartManager.SaveFromEstimate(otherBranch, clsChartManager::Mode::NewEstimate);
        QCOMPARE(count(), u"3"_qs);
        QVERIFY(boxes.isEmpty());
    }

    void newEstimateWithoutChartFieldsUsesTheFirstChart() {
        for (int i = 0; i < 2; ++i) {
            clsChart chart = chartOf();
            gChartManager.SaveData(chart);
        }
        clsChart empty;
        empty.CustId = u"C'1"_qs;
        empty.CustSubId = u"1"_qs;
        empty.OrderNo = u"0"_qs;
        gChartManager.SaveFromEstimate(empty, clsChartManager::Mode::NewEstimate);
        QCOMPARE(empty.ChartNo, u"1"_qs);
    }

    void changedChartOfAStoredEstimateIsAskedFor_data() {
        QTest::addColumn<qint16>("answer");
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("old");
        QTest::newRow("kept apart") << qint16(AnswerYes) << u"2"_qs << u"切断"_qs;
        QTest::newRow("overwritten") << qint16(AnswerNo) << u"1"_qs << u"骨折"_qs;
    }
    void changedChartOfAStoredEstimateIsAskedFor() {
        QFETCH(qint16, answer);
        clsChart chart = chartOf();
        gChartManager.SaveData(chart);
        chart.DiseaseNm = u"骨折"_qs;
        chart.LR = u"左"_qs;
        MessageQueue boxes({MessageAnswer(answer)});
        gChartManager.SaveFromEstimate(chart, clsChartManager::Mode::StoredEstimate);
        QTEST(chart.ChartNo, "number");
        clsChart first;
        QVERIFY(gChartManager.GetData(chart.CustId, chart.CustSubId, u"1"_qs, first));
        QTEST(first.DiseaseNm, "old");
        QCOMPARE(boxes.texts(),
                 QStringList{u"[病名原因][左右区分]が変更されています。\n顧客カルテ情報を別管理しますか?"_qs});
        QCOMPARE(boxes.requests().first().buttons, MessageButtons::YesNo);
    }

    void unchangedChartOfAStoredEstimateIsLeft() {
        MessageQueue boxes;
        clsChart chart = chartOf();
        gChartManager.SaveData(chart);
        gChartManager.SaveFromEstimate(chart, clsChartManager::Mode::StoredEstimate);
        QVERIFY(boxes.isEmpty());
        QCOMPARE(count(), u"1"_qs);
    }

    void chartThatIsGoneIsMadeAnew() {
        MessageQueue boxes;
        clsChart chart = chartOf();
        chart.ChartNo = u"7"_qs;
        gChartManager.SaveFromEstimate(chart, clsChartManager::Mode::StoredEstimate);
        QCOMPARE(chart.ChartNo, u"1"_qs);
        QVERIFY(boxes.isEmpty());
    }

    void copyKeepsTheNumbersAndTheOldCharts() {
        for (int i = 0; i < 2; ++i) {
            clsChart chart = chartOf();
            chart.DiseaseNm = u"病%1"_qs.arg(i);
            gChartManager.SaveData(chart);
        }
        gChartManager.CopyData(u"C'1"_qs, u"1"_qs, u"C2"_qs, u"5"_qs, 1);
        for (const QString& owner : {u"C'1"_qs, u"C2"_qs}) {
            clsChart copy;
            QVERIFY(gChartManager.GetData(owner, owner == u"C2" ? u"5"_qs : u"1"_qs, u"2"_qs, copy));
            QCOMPARE(copy.DiseaseNm, u"病1"_qs);
            QCOMPARE(copy.HospDate, u"2024/01/05"_qs);
            QCOMPARE(copy.Memo, u"メモ"_qs);
            QVERIFY(!copy.AddDate.isEmpty());
        }
        QCOMPARE(count(), u"4"_qs);
    }

    void selectionListHasItsColumns() {
        clsChart chart = chartOf();
        gChartManager.SaveData(chart);
        Recordset rows = gChartManager.GetSelectList(u"[顧客枝番] = 1"_qs, u"[カルテNo]"_qs);
        QCOMPARE(rows.fields(), (QStringList{u"顧客ID"_qs, u"顧客枝番"_qs, u"カルテNo"_qs, u"カルテ番号"_qs,
                                             u"病名原因"_qs, u"受注先"_qs}));
        QVERIFY(rows.next());
    }

private:
    QString count() { return m_database->connection().scalar(u"SELECT COUNT(*) FROM [顧客カルテ]"_qs); }

    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(clsChartManagerTest)
#include "clsChartManagerTest.moc"
