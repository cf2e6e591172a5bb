#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Application.h"
#include "customers/clsCustomerManager.h"

namespace {

clsCustomer person() {
    clsCustomer customer;
    customer.CustNm1 = u"山田"_qs;
    customer.CustNm2 = u"太郎"_qs;
    customer.CustKn1 = u"ﾔﾏﾀﾞ"_qs;
    customer.Sex = u"男"_qs;
    customer.Birth = u"1960/05/01"_qs;
    customer.Zip = u"100-0001"_qs;
    customer.Pref = u"東京都"_qs;
    customer.City = u"千代田区"_qs;
    customer.Addr1 = u"千代田1-1"_qs;
    customer.Addr2 = u"コーポ"_qs;
    customer.Tel = u"03-1"_qs;
    customer.mail = u"a@b"_qs;
    customer.UpdUserNo = u"1"_qs;
    return customer;
}

} // namespace

class clsCustomerManagerTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->prepareManagers();
        setSystemDate(u"2026/04/01"_qs);
        m_database->connection().onStatement = [this](const QString& statement) {
            m_statements << statement.trimmed();
        };
    }
    void cleanup() {
        setSystemDate({});
        m_database.reset();
    }

    void firstBranchOfAPersonIsOne() {
        clsCustomer customer = person();
        customer.CustNo = u"(自動採番)"_qs;
        QVERIFY(gCustomerManager.SaveData(customer));
        QCOMPARE(customer.CustSubId, u"1"_qs);
        QVERIFY(customer.CustNo.startsWith(u"2026"_qs));
        clsCustomer stored;
        QVERIFY(gCustomerManager.GetData(customer.CustId, u"1"_qs, stored));
        for (const auto& field : gCustomerManager.fields()) {
            if (field.column == u"登録日" || field.column == u"更新日")
                QVERIFY(!(stored.*field.member).isEmpty());
            else
                QCOMPARE(stored.*field.member, customer.*field.member);
        }
    }

    void samePersonIsAskedFor() {
        const clsCustomer first = saved();
        MessageQueue boxes({AnswerYes});
        clsCustomer again = person();
        again.Tel = u"03-2"_qs; // another telephone and street are still the same person
        again.Addr1 = u"千代田9"_qs;
        QVERIFY(gCustomerManager.SaveData(again));
        QCOMPARE(again.CustId, first.CustId);
        QCOMPARE(again.CustSubId, u"2"_qs);
        QCOMPARE(again.CustNo, first.CustNo);
        QCOMPARE(boxes.requests().first().buttons, MessageButtons::YesNoCancel);
        QCOMPARE(
            boxes.texts().first(),
            u"  氏    名：（山田 太郎）\n  生年月日：（1960/05/01）\n  住    所：（東京都 千代田区千代田9コーポ）\n"
            u"  電話番号：（03-2）\n\nが同一のデータが既に登録済みです。同一顧客として枝番管理しますか？"_qs);
    }

    void samePersonMayBeAnother() {
        const clsCustomer first = saved();
        MessageQueue boxes({AnswerNo});
        clsCustomer again = person();
        QVERIFY(gCustomerManager.SaveData(again));
        QVERIFY(again.CustId != first.CustId);
        QCOMPARE(again.CustSubId, u"1"_qs);
        QVERIFY(again.CustNo != first.CustNo);
    }

    void cancelWritesNothingAndDrawsNothing() {
        saved();
        const QString numbers = series();
        MessageQueue boxes({AnswerCancel});
        clsCustomer again = person();
        QVERIFY(!gCustomerManager.SaveData(again));
        QCOMPARE(again.CustId, QString());
        QCOMPARE(series(), numbers);
        QCOMPARE(count(), u"1"_qs);
    }

    void personIsAnotherWhenOneOfTheComparedDiffers_data() {
        QTest::addColumn<QString>("column");
        for (const char* column : {"名前1", "名前2", "性別", "生年月日", "郵便番号", "都道府県", "市区郡"})
            QTest::newRow(column) << QString::fromUtf8(column);
    }
    void personIsAnotherWhenOneOfTheComparedDiffers() {
        QFETCH(QString, column);
        saved();
        MessageQueue boxes;
        for (const QString& value : {column == u"生年月日" ? u"1960/05/02"_qs : u"他"_qs, QString()}) {
            clsCustomer again = person();
            for (const auto& field : gCustomerManager.fields())
                if (field.column == column) again.*field.member = value;
            QVERIFY(gCustomerManager.SaveData(again));
        }
        QCOMPARE(count(), u"3"_qs);
    }

    void personWithEmptyFieldsIsFoundByEmptyFields() {
        clsCustomer first;
        first.CustNm1 = u"山田"_qs;
        QVERIFY(gCustomerManager.SaveData(first));
        clsCustomer same, typed;
        typed.CustNm1 = u"山田"_qs;
        QVERIFY(gCustomerManager.FindSame(typed, same));
        QCOMPARE(same.CustId, first.CustId);
    }

    void numberTakenByHandIsSkipped() {
        sql(u"UPDATE [採番] SET [最終値] = '0004', [桁] = 4, [年度] = '2026' WHERE [項目名] = '顧客番号'"_qs);
        clsCustomer byHand = person();
        byHand.CustNo = u"20260005"_qs;
        QVERIFY(gCustomerManager.SaveData(byHand));
        QCOMPARE(byHand.CustNo, u"20260005"_qs);
        clsCustomer next = person();
        next.CustNm1 = u"鈴木"_qs;
        QVERIFY(gCustomerManager.SaveData(next));
        QCOMPARE(next.CustNo, u"20260006"_qs);
    }

    // Cut, it would be given to the next customers once more.
    void numberThatItsColumnDoesNotHoldIsRefused() {
        sql(u"UPDATE [採番] SET [最終値] = '99999998', [桁] = 8, [年度] = '2026' WHERE [項目名] = '顧客番号'"_qs);
        clsCustomer last = person();
        QVERIFY(gCustomerManager.SaveData(last));
        QCOMPARE(last.CustNo, u"202699999999"_qs);
        clsCustomer next = person();
        next.CustNm1 = u"鈴木"_qs;
        QCOMPARE(raised([&] { gCustomerManager.SaveData(next); }),
                 u"新しい顧客番号 2026100000000 は 12 文字を超えるため登録できません。"
                 u"採番の最終値を確認してください。"_qs);
    }

    void numberThatCannotBeDrawnIsTold_data() {
        QTest::addColumn<QString>("item");
        QTest::newRow("id") << u"顧客ID"_qs;
        QTest::newRow("number") << u"顧客番号"_qs;
    }
    void numberThatCannotBeDrawnIsTold() {
        QFETCH(QString, item);
        sql(u"DELETE FROM [採番] WHERE [項目名] = '%1'"_qs.arg(item));
        MessageQueue boxes;
        clsCustomer customer = person();
        QVERIFY(!gCustomerManager.SaveData(customer));
        QVERIFY(!gCustomerManager.SaveDataFromEstimate(customer = person(), {}));
        const QString text = u"新規の%1を自動的に取得できませんでした。\n手動で設定して下さい。"_qs.arg(item);
        QCOMPARE(boxes.texts(), (QStringList{text, text}));
        QCOMPARE(count(), u"0"_qs);
    }

    void knownBranchIsOverwritten() {
        clsCustomer customer = saved();
        customer.Tel = u"06"_qs;
        customer.PriceType = u"小人"_qs;
        QVERIFY(gCustomerManager.SaveData(customer));
        QCOMPARE(count(), u"1"_qs);
        QCOMPARE(stored(customer).Tel, u"06"_qs);
        QCOMPARE(stored(customer).PriceType, u"小人"_qs);
    }

    void knownPersonWithoutABranchGetsTheNext() {
        clsCustomer customer = saved();
        customer.CustSubId.clear();
        QVERIFY(gCustomerManager.SaveData(customer));
        QCOMPARE(customer.CustSubId, u"2"_qs);
        QCOMPARE(gCustomerManager.GetNewSubId(customer.CustId), u"3"_qs);
        QCOMPARE(gCustomerManager.GetNewSubId(u"none"_qs), u"1"_qs);
    }

    void estimateWithoutAChangeWritesNothing() {
        clsCustomer customer = saved();
        customer.mail = u"x@y"_qs; // neither is compared
        customer.PriceType = u"小人"_qs;
        m_statements.clear();
        QVERIFY(gCustomerManager.SaveDataFromEstimate(customer, {}));
        QVERIFY(m_statements.filter(QRegularExpression(u"^(INSERT|UPDATE)"_qs)).isEmpty());
        QCOMPARE(stored(customer).mail, u"a@b"_qs);
    }

    void everyOtherFieldIsCompared_data() {
        QTest::addColumn<QString>("column");
        QTest::addColumn<bool>("changes");
        for (const auto& field : gCustomerManager.fields()) {
            static const QStringList left{u"顧客ID"_qs, u"顧客枝番"_qs, u"EMAIL"_qs,   u"価格区分"_qs,
                                          u"登録日"_qs, u"更新日"_qs,   u"編集者No"_qs};
            QTest::newRow(qUtf8Printable(field.column)) << field.column << !left.contains(field.column);
        }
    }
    void everyOtherFieldIsCompared() {
        QFETCH(QString, column);
        clsCustomer typed = person();
        for (const auto& field : gCustomerManager.fields())
            if (field.column == column) typed.*field.member = u"9"_qs;
        QTEST(clsCustomerManager::IsChanged(typed, person()), "changes");
    }

    void changeInAnEstimateIsPutToTheOperator_data() {
        QTest::addColumn<int>("selected");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QString>("branch");
        QTest::addColumn<bool>("samePerson");
        QTest::addColumn<QString>("rows");
        QTest::newRow("closed") << 0 << false << u"1"_qs << true << u"1"_qs;
        QTest::newRow("overwrite") << 1 << true << u"1"_qs << true << u"1"_qs;
        QTest::newRow("new branch") << 2 << true << u"2"_qs << true << u"2"_qs;
        QTest::newRow("new customer") << 3 << true << u"1"_qs << false << u"2"_qs;
    }
    void changeInAnEstimateIsPutToTheOperator() {
        QFETCH(int, selected);
        const clsCustomer first = saved();
        clsCustomer typed = first;
        typed.Tel = u"06"_qs;
        QString shown;
        const ConfirmUpdate confirm = [&](const clsCustomer& old, const clsCustomer& entered) {
            shown = old.Tel + u'>' + entered.Tel;
            return static_cast<CustomerUpdate>(selected);
        };
        QTEST(gCustomerManager.SaveDataFromEstimate(typed, confirm), "ok");
        QCOMPARE(shown, u"03-1>06"_qs);
        QTEST(typed.CustSubId, "branch");
        QTEST(typed.CustId == first.CustId, "samePerson");
        QTEST(typed.CustNo == first.CustNo, "samePerson");
        QTEST(count(), "rows");
        QCOMPARE(stored(first).Tel, selected == 1 ? u"06"_qs : u"03-1"_qs);
    }

    void newCustomerOfAnEstimateIsNotAskedFor() {
        const clsCustomer first = saved();
        MessageQueue boxes;
        clsCustomer typed = person();
        QVERIFY(gCustomerManager.SaveDataFromEstimate(typed, {}));
        QVERIFY(typed.CustId != first.CustId);
        QVERIFY(boxes.isEmpty());
    }

    void customerGoneInTheMeantimeIsNew() {
        clsCustomer customer = saved();
        const QString id = customer.CustId;
        gCustomerManager.DeleteData(id, u"1"_qs);
        QVERIFY(gCustomerManager.SaveDataFromEstimate(customer, {}));
        QVERIFY(customer.CustId != id);
        QCOMPARE(count(), u"1"_qs);
    }

    void branchWithEstimatesIsDeleted() {
        const clsCustomer customer = saved();
        sql(u"INSERT INTO 顧客見積情報 ([見積ID], [顧客ID], [顧客枝番]) VALUES ('1', '%1', 1)"_qs.arg(customer.CustId));
        sql(u"INSERT INTO 顧客カルテ ([顧客ID], [顧客枝番], [カルテNo]) VALUES ('%1', 1, 1)"_qs.arg(customer.CustId));
        gCustomerManager.DeleteData(customer.CustId, u"1"_qs);
        QCOMPARE(count(), u"0"_qs);
        QCOMPARE(m_database->connection().scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"1"_qs);
        QCOMPARE(m_database->connection().scalar(u"SELECT COUNT(*) FROM [顧客カルテ]"_qs), u"1"_qs);
    }

    void numberOfADeletedBranchIsNotGivenWhileSomethingHangsOnIt() {
        const clsCustomer customer = saved();
        for (const QString& table : {u"顧客カルテ"_qs, u"顧客保険"_qs}) {
            const QString key = table == u"顧客カルテ" ? u"カルテNo"_qs : u"項番"_qs;
            sql(u"INSERT INTO %1 ([顧客ID], [顧客枝番], [%2]) VALUES ('%3', 2, 1)"_qs.arg(table, key, customer.CustId));
            QCOMPARE(gCustomerManager.GetNewSubId(customer.CustId), u"3"_qs);
            sql(u"DELETE FROM "_qs + table);
        }
        sql(u"INSERT INTO 顧客見積情報 ([見積ID], [顧客ID], [顧客枝番]) VALUES ('1', '%1', 2)"_qs.arg(customer.CustId));
        sql(u"INSERT INTO 顧客見積情報 ([見積ID], [顧客ID], [顧客枝番]) VALUES ('2', '%1', 3)"_qs.arg(customer.CustId));
        QCOMPARE(gCustomerManager.GetNewSubId(customer.CustId), u"4"_qs);
    }

    void selectionListJoinsNamesAndAddress() {
        saved();
        Recordset rows = gCustomerManager.GetSelectList(u"[名前1] = '山田'"_qs, u"[顧客番号]"_qs);
        QVERIFY(rows.next());
        QCOMPARE(rows.value(u"顧客名"_qs), u"山田　太郎"_qs);
        QCOMPARE(rows.value(u"住所"_qs), u"東京都千代田区千代田1-1コーポ"_qs);
        QCOMPARE(rows.value(u"生年月日"_qs), u"1960/05/01"_qs);
    }

    void selectionListIsSearchedByWhatItShows() {
        clsCustomer customer = person();
        customer.Addr2 = u"コーポ5%_['Ｂ棟"_qs;
        QVERIFY(gCustomerManager.SaveData(customer));
        QCOMPARE(gCustomerManager.Count({}), 1);
        const auto found = [](const QString& text) {
            const SqlTerm where = clsCustomerManager::SelectContaining(text);
            const bool listed = gCustomerManager.GetSelectList(where, {}).next();
            return listed && gCustomerManager.Count(where) == 1;
        };
        for (const QString& text : {u"山田　太"_qs, u"代田区千"_qs, u"03-"_qs, u"1960/05"_qs, u"ｺｰﾎﾟ"_qs, u"コーポ"_qs,
                                    u"5%_['"_qs, u"b棟"_qs, u"Ｂ棟"_qs, u"ﾔﾏﾀﾞ"_qs})
            QVERIFY2(found(text), qPrintable(text));
        for (const QString& text : {u"太郎山"_qs, u"%棟"_qs, u"_棟"_qs, u"[B]"_qs, u"ﾔﾏﾀﾅ"_qs, u"a@b"_qs})
            QVERIFY2(!found(text), qPrintable(text));
    }

    void customersWithEstimatesAreListedOnce() {
        const clsCustomer customer = saved();
        clsCustomer without = person();
        without.CustNm1 = u"鈴木"_qs;
        QVERIFY(gCustomerManager.SaveData(without));
        for (int i = 1; i <= 2; ++i)
            sql(u"INSERT INTO 顧客見積情報 ([見積ID], [顧客ID], [顧客枝番], [カルテNo], [製作担当者No]) VALUES ('%1', '%2', 1, 1, %1)"_qs
                    .arg(i)
                    .arg(customer.CustId));
        sql(u"INSERT INTO 顧客カルテ ([顧客ID], [顧客枝番], [カルテNo], [病名原因]) VALUES ('%1', 1, 1, '切断')"_qs.arg(
            customer.CustId));
        const auto found = [](const QString& where) {
            QList<clsCustomer> list;
            gCustomerManager.GetListWithEst(list, where, u"[顧客情報].[顧客番号]"_qs);
            return list.size();
        };
        QCOMPARE(found({}), 1);
        QCOMPARE(found(u"[顧客カルテ].[病名原因] LIKE '切%' AND [顧客見積情報].[製作担当者No] = 2"_qs), 1);
        QCOMPARE(found(u"[受注先].[受注先コード] = 'x'"_qs), 0);
    }

private:
    clsCustomer saved() {
        clsCustomer customer = person();
        if (!gCustomerManager.SaveData(customer)) qFatal("not saved");
        return customer;
    }
    clsCustomer stored(const clsCustomer& key) {
        clsCustomer row;
        gCustomerManager.GetData(key.CustId, key.CustSubId, row);
        return row;
    }
    void sql(const QString& statement) { m_database->connection().execute(statement); }
    QString count() { return m_database->connection().scalar(u"SELECT COUNT(*) FROM [顧客情報]"_qs); }
    QString series() {
        Recordset rows = m_database->connection().query(u"SELECT [最終値] FROM [採番] ORDER BY [項目名]"_qs);
        QString all;
        while (rows.next()) all += rows.value(0) + u' ';
        return all;
    }

    std::unique_ptr<TestDatabase> m_database;
    QStringList m_statements;
};

HALVANE_TEST(clsCustomerManagerTest)
#include "clsCustomerManagerTest.moc"
