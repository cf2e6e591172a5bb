#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "base/AppError.h"
#include "base/basMessage.h"
#include "customers/CustomerSave.h"
#include "reference/ReferenceManagers.h"

class CustomerSaveTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    Connection& connection() { return m_database->connection(); }
    QString scalar(const QString& sql) { return connection().scalar(sql); }
    QString count(const QString& table) { return scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table)); }

    static CustomerChart chart(const QString& code, const QString& orderCd = {}, const QString& orderNm = {}) {
        CustomerChart row;
        row.chart.ChartCd = code;
        row.chart.OrderNm = orderNm;
        row.orderCd = orderCd;
        return row;
    }

    static CustomerDraft newPerson() {
        CustomerDraft draft;
        draft.customer.CustNo = automaticNumber;
        draft.customer.CustNm1 = u"見本"_qs;
        draft.customer.CustNm2 = u"花子"_qs;
        draft.customer.Birth = u"1960/04/01"_qs;
        draft.customer.Pref = u"愛知県"_qs;
        draft.customer.City = u"弥富市"_qs;
        draft.customer.Tel = u"1"_qs;
        draft.laws = QStringList{u"1"_qs, u"11"_qs};
        draft.charts = {chart(u"K-1"_qs), chart(u"K-2"_qs)};
        return draft;
    }

    CustomerDraft stored() {
        CustomerDraft draft = newPerson();
        if (saveCustomer(connection(), draft) != CustomerSaveResult::Added) throw AppError(u"not saved"_qs);
        return draft;
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void newPersonIsTheFirstBranch() {
        const CustomerDraft draft = stored();
        QCOMPARE(draft.customer.CustSubId, u"1"_qs);
        QVERIFY(!draft.customer.CustId.isEmpty());
        QVERIFY(draft.customer.CustNo != automaticNumber);
        QCOMPARE(draft.charts.at(1).chart.ChartNo, u"2"_qs);
        QCOMPARE(count(u"顧客保険"_qs), u"2"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [都道府県] WHERE [都道府県] = '愛知県' AND [市区郡] = '弥富市'"_qs),
                 u"1"_qs);
    }

    void whatWasSavedIsReadBack() {
        const CustomerDraft draft = stored();
        CustomerDraft read;
        QVERIFY(loadCustomer(draft.customer.CustId, u"1"_qs, read));
        QCOMPARE(read.customer.CustNm2, u"花子"_qs);
        QCOMPARE(read.laws, draft.laws);
        QCOMPARE(read.charts.size(), 2);
        QCOMPARE(read.charts.first().chart.ChartCd, u"K-1"_qs);
        QVERIFY(!loadCustomer(draft.customer.CustId, u"2"_qs, read));
    }

    void anotherTelephoneIsTheSamePerson() {
        const CustomerDraft first = stored();
        CustomerDraft again = newPerson();
        again.customer.Tel = u"2"_qs;
        MessageQueue messages({AnswerYes});
        QCOMPARE(saveCustomer(connection(), again), CustomerSaveResult::Added);
        QCOMPARE(again.customer.CustId, first.customer.CustId);
        QCOMPARE(again.customer.CustSubId, u"2"_qs);
        QCOMPARE(again.customer.CustNo, first.customer.CustNo);
    }

    void cancelledQuestionWritesNothingAndDrawsNothing() {
        stored();
        const QString numbers = scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '顧客ID'"_qs);
        CustomerDraft again = newPerson();
        MessageQueue messages({AnswerCancel});
        QCOMPARE(saveCustomer(connection(), again), CustomerSaveResult::Refused);
        QCOMPARE(again.customer.CustId, QString());
        QCOMPARE(again.customer.CustNo, automaticNumber);
        QCOMPARE(count(u"顧客情報"_qs), u"1"_qs);
        QCOMPARE(scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '顧客ID'"_qs), numbers);
        QCOMPARE(connection().transactionDepth(), 0);
    }

    void numberTypedByHandIsSkipped() {
        CustomerDraft first = stored();
        const qint64 next = first.customer.CustNo.toLongLong() + 1;
        CustomerDraft byHand = newPerson();
        byHand.customer.CustNm1 = u"手入力"_qs;
        byHand.customer.CustNo = QString::number(next);
        QCOMPARE(saveCustomer(connection(), byHand), CustomerSaveResult::Added);
        CustomerDraft third = newPerson();
        third.customer.CustNm1 = u"次"_qs;
        QCOMPARE(saveCustomer(connection(), third), CustomerSaveResult::Added);
        QCOMPARE(third.customer.CustNo, QString::number(next + 1));
    }

    void newBranchTakesChartsAndLawsAlong() {
        CustomerDraft draft = stored();
        draft.customer.Addr1 = u"移転先"_qs;
        QCOMPARE(saveCustomer(connection(), draft, CustomerSaveAs::NewBranch), CustomerSaveResult::Added);
        QCOMPARE(draft.customer.CustSubId, u"2"_qs);
        for (const QString& table : {u"顧客カルテ"_qs, u"顧客保険"_qs})
            for (const QString& branch : {u"1"_qs, u"2"_qs})
                QCOMPARE(scalar(u"SELECT COUNT(*) FROM [%1] WHERE [顧客枝番] = %2"_qs.arg(table, branch)), u"2"_qs);
        QCOMPARE(scalar(u"SELECT [住所1] FROM [顧客情報] WHERE [顧客枝番] = 1"_qs), QString());
    }

    void lawsThatAreMissingGo() {
        CustomerDraft draft = stored();
        draft.laws = QStringList{u"11"_qs};
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Updated);
        QCOMPARE(count(u"顧客保険"_qs), u"1"_qs);
        QCOMPARE(scalar(u"SELECT [法別No] FROM [顧客保険] WHERE [項番] = 1"_qs), u"11"_qs);
    }

    void newChartNeverTakesTheNumberOfOneThatGoes() {
        CustomerDraft draft = stored();
        draft.charts.removeLast();
        draft.charts << chart(u"K-3"_qs);
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Updated);
        QCOMPARE(scalar(u"SELECT [カルテNo] FROM [顧客カルテ] WHERE [カルテ番号] = 'K-3'"_qs), u"3"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客カルテ] WHERE [カルテ番号] = 'K-2'"_qs), u"0"_qs);
        QCOMPARE(scalar(u"SELECT [カルテNo] FROM [顧客カルテ] WHERE [カルテ番号] = 'K-1'"_qs), u"1"_qs);
    }

    void noOtherMachineWaitsWhileAQuestionIsOpen() {
        clsOrder order;
        order.OrderCd = u"A01"_qs;
        order.OrderNm = u"中央病院"_qs;
        order.UseFlg = u"0"_qs;
        gOrderManager.SaveData(order);
        CustomerDraft draft = newPerson();
        draft.charts = {chart(u"K-2"_qs, u"A01"_qs, u"別の病院"_qs)};
        const auto other = m_database->another();
        const auto before = seams().message;
        int depth = -1;
        seams().message = [&](const MessageBoxRequest&) {
            depth = connection().transactionDepth();
            other->execute(u"UPDATE [採番] SET [最終値] = '00000041' WHERE [項目名] = '顧客ID'"_qs);
            return qint16(AnswerYes);
        };
        const CustomerSaveResult result = saveCustomer(connection(), draft);
        seams().message = before;
        QCOMPARE(result, CustomerSaveResult::Added);
        QCOMPARE(depth, 0);
        QCOMPARE(draft.customer.CustId, u"00000042"_qs);
        QCOMPARE(count(u"顧客カルテ"_qs), u"1"_qs);
    }

    void refusedNameOfAPartyWritesNothing() {
        clsOrder order;
        order.OrderCd = u"A01"_qs;
        order.OrderNm = u"中央病院"_qs;
        order.UseFlg = u"0"_qs;
        gOrderManager.SaveData(order);
        CustomerDraft draft = newPerson();
        draft.charts = {chart(u"K-1"_qs, u"B02"_qs, u"新病院"_qs), chart(u"K-2"_qs, u"A01"_qs, u"別の病院"_qs)};
        MessageQueue messages({AnswerCancel});
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Refused);
        for (const QString& table : {u"顧客情報"_qs, u"顧客カルテ"_qs, u"顧客保険"_qs}) QCOMPARE(count(table), u"0"_qs);
        QCOMPARE(count(u"受注先"_qs), u"1"_qs);
    }

    void aPartyRenamedInOneChartIsAskedAboutOnce_data() {
        QTest::addColumn<int>("renamed");
        QTest::newRow("in the first chart") << 0;
        QTest::newRow("in the second chart") << 1;
    }
    void aPartyRenamedInOneChartIsAskedAboutOnce() {
        QFETCH(int, renamed);
        CustomerDraft draft = newPerson();
        draft.charts = {chart(u"K-1"_qs, u"A01"_qs, u"中央病院"_qs), chart(u"K-2"_qs, u"A01"_qs, u"中央病院"_qs)};
        const QString renamedCharts = u"SELECT COUNT(*) FROM [顧客カルテ] WHERE [受注先] = '新中央病院'"_qs;
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Added);
        draft.charts[renamed].chart.OrderNm = u"新中央病院"_qs;
        MessageQueue messages({AnswerNo});
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Updated);
        QCOMPARE(messages.texts().size(), 1);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [受注先] WHERE [受注先] = '新中央病院'"_qs), u"1"_qs);
        QCOMPARE(scalar(renamedCharts), u"2"_qs);
        draft.charts[renamed].chart.OrderNm = u"旧病院"_qs;
        messages.prepare(AnswerYes);
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Updated);
        QCOMPARE(messages.texts().size(), 2);
        QCOMPARE(scalar(renamedCharts), u"2"_qs);
    }

    // Else the next save of the customer would ask which of two names holds, though nobody touched the chart.
    void aPartyRenamedElsewhereIsShownByItsNewName() {
        CustomerDraft draft = newPerson();
        draft.charts = {chart(u"K-1"_qs, u"A01"_qs, u"中央病院"_qs)};
        draft.charts.first().chart.DoctorNm = u"見本　一郎"_qs;
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Added);
        connection().execute(u"UPDATE [受注先] SET [受注先] = '新中央病院' WHERE [受注先コード] = 'A01'"_qs);
        connection().execute(u"UPDATE [主治医] SET [主治医] = '見本　二郎' WHERE [主治医] = '見本　一郎'"_qs);
        CustomerDraft again;
        QVERIFY(loadCustomer(draft.customer.CustId, draft.customer.CustSubId, again));
        QCOMPARE(again.charts.first().chart.OrderNm, u"新中央病院"_qs);
        QCOMPARE(again.charts.first().chart.DoctorNm, u"見本　二郎"_qs);
        MessageQueue messages;
        QCOMPARE(saveCustomer(connection(), again), CustomerSaveResult::Updated);
        QCOMPARE(messages.texts(), QStringList());
        QCOMPARE(count(u"受注先"_qs), u"1"_qs);
        connection().execute(u"DELETE FROM [受注先]"_qs);
        QVERIFY(loadCustomer(draft.customer.CustId, draft.customer.CustSubId, again));
        QCOMPARE(again.charts.first().chart.OrderNm, u"新中央病院"_qs);
    }

    // --- another machine in between ---

    void whatAnotherMachineChangedIsAskedAbout_data() {
        QTest::addColumn<QString>("change");
        QTest::addColumn<QString>("told");
        QTest::newRow("telephone") << u"UPDATE [顧客情報] SET [電話] = '9'"_qs << u"\n\n他の端末の内容\n電話：9"_qs;
        QTest::newRow("mail") << u"UPDATE [顧客情報] SET [EMAIL] = 'a@b'"_qs << u"\n\n他の端末の内容\nEMAIL：a@b"_qs;
        QTest::newRow("age tier") << u"UPDATE [顧客情報] SET [価格区分] = '小人'"_qs
                                  << u"\n\n他の端末の内容\n価格区分：小人"_qs;
        QTest::newRow("time alone") << u"UPDATE [顧客情報] SET [更新日] = #2001/01/01#"_qs << QString();
        QTest::newRow("law taken off") << u"DELETE FROM [顧客保険] WHERE [項番] = 2"_qs
                                       << u"\n\n他の端末の内容\n保険（法別）"_qs;
        QTest::newRow("chart") << u"UPDATE [顧客カルテ] SET [病名原因] = '別' WHERE [カルテNo] = 1"_qs
                               << u"\n\n他の端末の内容\nカルテNo 1：[病名原因]"_qs;
        QTest::newRow("chart taken off") << u"DELETE FROM [顧客カルテ] WHERE [カルテNo] = 2"_qs
                                         << u"\n\n他の端末の内容\nカルテNo 2：削除"_qs;
    }
    void whatAnotherMachineChangedIsAskedAbout() {
        QFETCH(QString, change);
        QFETCH(QString, told);
        const FixedClock clock(u"2026/04/01 9:00:00"_qs); // all of it in one second
        CustomerDraft draft = stored();
        m_database->another()->execute(change);
        draft.customer.Addr1 = u"移転先"_qs;
        MessageQueue messages({AnswerNo});
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Refused);
        QCOMPARE(messages.texts(), QStringList(u"他の端末で更新されています。上書きしますか？"_qs + told));
        QVERIFY(messages.requests().first().defaultIsNo);
        QCOMPARE(scalar(u"SELECT [住所1] FROM [顧客情報]"_qs), QString());
        messages.prepare(AnswerYes);
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Updated);
        QCOMPARE(scalar(u"SELECT [住所1] FROM [顧客情報]"_qs), u"移転先"_qs);
        QCOMPARE(scalar(u"SELECT [電話] FROM [顧客情報]"_qs), u"1"_qs);
        QCOMPARE(count(u"顧客保険"_qs), u"2"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客カルテ] WHERE [病名原因] IS NULL"_qs), u"2"_qs);
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Updated); // its own save is no question
        QCOMPARE(messages.unused(), 0);
    }

    void whatAnotherMachineAddedStaysWithoutAQuestion() {
        CustomerDraft draft = stored();
        const auto other = m_database->another();
        const QString owner = draft.customer.CustId;
        other->execute(
            u"INSERT INTO [顧客カルテ] ([顧客ID], [顧客枝番], [カルテNo], [病名原因]) VALUES ('%1', 1, 3, '別')"_qs.arg(
                owner));
        other->execute(
            u"INSERT INTO [顧客保険] ([顧客ID], [顧客枝番], [項番], [法別No]) VALUES ('%1', 1, 3, 7)"_qs.arg(owner));
        draft.charts << chart(u"K-4"_qs);
        MessageQueue messages;
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Updated);
        QVERIFY(messages.isEmpty());
        QCOMPARE(scalar(u"SELECT [病名原因] FROM [顧客カルテ] WHERE [カルテNo] = 3"_qs), u"別"_qs);
        QCOMPARE(scalar(u"SELECT [カルテ番号] FROM [顧客カルテ] WHERE [カルテNo] = 4"_qs), u"K-4"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客保険] WHERE [法別No] = 7"_qs), u"1"_qs);
    }

    void aYesHoldsForWhatWasAskedAboutAlone() {
        CustomerDraft draft = stored();
        const auto other = m_database->another();
        other->execute(u"UPDATE [顧客情報] SET [電話] = '2'"_qs);
        const auto before = seams().message;
        QStringList asked;
        seams().message = [&](const MessageBoxRequest& request) {
            asked << request.text.section(u'\n', -1);
            if (asked.size() == 1) other->execute(u"UPDATE [顧客情報] SET [電話] = '3'"_qs);
            return qint16(asked.size() == 1 ? AnswerYes : AnswerNo);
        };
        const CustomerSaveResult result = saveCustomer(connection(), draft);
        seams().message = before;
        QCOMPARE(asked, QStringList({u"電話：2"_qs, u"電話：3"_qs}));
        QCOMPARE(result, CustomerSaveResult::Refused);
        QCOMPARE(scalar(u"SELECT [電話] FROM [顧客情報]"_qs), u"3"_qs);
    }

    void aChartThatAnOrderUsesIsKept() {
        CustomerDraft draft = stored();
        m_database->another()->execute(
            u"INSERT INTO [顧客見積情報] ([見積ID], [顧客ID], [顧客枝番], [カルテNo]) VALUES ('1', '%1', 1, 2)"_qs.arg(
                draft.customer.CustId));
        draft.charts.clear();
        MessageQueue messages;
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Updated);
        QCOMPARE(messages.texts(), QStringList(u"カルテNo 2 は見積で使われているため、削除せずに残します。"_qs));
        QCOMPARE(scalar(u"SELECT [カルテ番号] FROM [顧客カルテ]"_qs), u"K-2"_qs);
        QCOMPARE(draft.charts.size(), 1);
    }

    void aCustomerDeletedElsewhereIsAskedAbout() {
        CustomerDraft draft = stored();
        m_database->another()->execute(u"DELETE FROM [顧客情報]"_qs);
        MessageQueue messages({AnswerNo, AnswerYes});
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Refused);
        QCOMPARE(count(u"顧客情報"_qs), u"0"_qs);
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Added);
        QCOMPARE(messages.texts().last(), u"この顧客は他の端末で削除されています。もう一度登録しますか？"_qs);
        QCOMPARE(count(u"顧客情報"_qs), u"1"_qs);
    }

    void aNewBranchAsksNothingAndTakesNothingOff() {
        CustomerDraft draft = stored();
        m_database->another()->execute(u"UPDATE [顧客情報] SET [電話] = '2'"_qs);
        draft.charts.removeLast();
        MessageQueue messages;
        QCOMPARE(saveCustomer(connection(), draft, CustomerSaveAs::NewBranch), CustomerSaveResult::Added);
        QVERIFY(messages.isEmpty());
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客カルテ] WHERE [顧客枝番] = 1"_qs), u"2"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客カルテ] WHERE [顧客枝番] = 2"_qs), u"1"_qs);
    }

    void failureRollsEverythingBack() {
        CustomerDraft draft = newPerson();
        draft.laws << u"no number"_qs;
        QVERIFY_EXCEPTION_THROWN(saveCustomer(connection(), draft), AppError);
        QCOMPARE(count(u"顧客情報"_qs), u"0"_qs);
        QCOMPARE(connection().transactionDepth(), 0);
    }

    void deletingABranchLeavesWhatHangsOnIt() {
        CustomerDraft draft = stored();
        connection().execute(
            u"INSERT INTO [顧客見積情報] ([見積ID], [顧客ID], [顧客枝番]) VALUES ('1', '%1', 1)"_qs.arg(
                draft.customer.CustId));
        deleteCustomer(connection(), draft.customer);
        QCOMPARE(count(u"顧客情報"_qs), u"0"_qs);
        QCOMPARE(count(u"顧客カルテ"_qs), u"2"_qs);
        QCOMPARE(count(u"顧客保険"_qs), u"2"_qs);
        QCOMPARE(count(u"顧客見積情報"_qs), u"1"_qs);
    }

    void characterOfTwoUnitsCountsOnce() {
        CustomerDraft draft = newPerson();
        draft.customer.CustNm1 = QString(u"𠮷"_qs).repeated(20);
        QCOMPARE(saveCustomer(connection(), draft), CustomerSaveResult::Added);
        QCOMPARE(scalar(u"SELECT [名前1] FROM [顧客情報]"_qs), QString(u"𠮷"_qs).repeated(15));
    }
};

HALVANE_TEST(CustomerSaveTest)
#include "CustomerSaveTest.moc"
