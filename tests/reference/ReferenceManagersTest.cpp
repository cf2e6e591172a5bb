#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "reference/ReferenceManagers.h"

namespace {

template <class Manager, class Record>
QStringList listed(Manager& manager, QString Record::*member, Direction direction, const QString& sort = bySeq,
                   const QString& where = {}) {
    QList<Record> rows;
    manager.GetList(rows, where, sort, direction);
    QStringList values;
    for (const Record& row : rows) values << row.*member;
    return values;
}

} // namespace

class ReferenceManagersTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_clock = std::make_unique<FixedClock>(u"2024/03/10 9:05:07"_qs);
        m_database->prepareManagers();
        for (const char* table : {"主治医", "製作担当者", "請求先", "受注先", "装具", "都道府県", "法別請求対応"})
            sql(u"DELETE FROM [%1]"_qs.arg(QString::fromUtf8(table)));
        m_database->connection().onStatement = [this](const QString& statement) { m_statements << statement; };
        m_statements.clear();
    }
    void cleanup() {
        m_clock.reset();
        m_database.reset();
    }

    void rowsInUseStandAheadOfRetiredOnes() {
        for (const auto& [code, seq, flag] :
             {std::tuple{"a", "3", "1"}, {"b", "1", "0"}, {"c", "2", "0"}, {"d", "4", "1"}, {"e", "2", "1"}})
            addDoctor(QString::fromLatin1(code), u"医"_qs, QString::fromLatin1(seq), QString::fromLatin1(flag));
        QCOMPARE(listed(gDoctorManager, &clsDoctor::DoctorCd, Direction::Descending).join(u' '), u"c b d a e"_qs);
        QCOMPARE(listed(gDoctorManager, &clsDoctor::DoctorCd, Direction::Ascending).join(u' '), u"b c e a d"_qs);
        QCOMPARE(listed(gDoctorManager, &clsDoctor::DoctorCd, Direction::Descending, u"[主治医コード]"_qs).join(u' '),
                 u"e d c b a"_qs);
        QCOMPARE(
            listed(gDoctorManager, &clsDoctor::DoctorCd, Direction::Descending, bySeq, u"[有効Flg] = 0"_qs).join(u' '),
            u"c b"_qs);
    }

    void listByOrderNamesTheFlagFirst() {
        QList<clsDoctor> rows;
        gDoctorManager.GetList(rows, {}, bySeq, Direction::Descending);
        QCOMPARE(m_statements.last(), u"SELECT * FROM [主治医] ORDER BY [有効Flg],[順番] DESC ;"_qs);
    }

    void newRowGetsItsNumberAndPlace() {
        clsDoctor doctor;
        doctor.DoctorCd = u"D'1"_qs;
        doctor.DoctorNm = u"𠮷田"_qs;
        doctor.UseFlg = u"0"_qs;
        gDoctorManager.SaveData(doctor);
        QCOMPARE(doctor.Seq, u"20240310090507"_qs);
        clsDoctor stored;
        QVERIFY(gDoctorManager.GetData(doctor.DoctorNo, stored));
        QCOMPARE(stored.DoctorNm, u"𠮷田"_qs);
        QCOMPARE(stored.OrderNo, QString());
        QVERIFY(gDoctorManager.GetDataCd(u"D'1"_qs, stored));
        QCOMPARE(stored.DoctorNo, doctor.DoctorNo);
        QVERIFY(!gDoctorManager.GetDataCd(u"none"_qs, stored));
    }

    void knownRowIsUpdatedAndKeepsItsPlace() {
        clsDoctor doctor = addDoctor(u"a"_qs, u"医"_qs, u"5"_qs, u"0"_qs);
        doctor.DoctorNm = u"別"_qs;
        gDoctorManager.SaveData(doctor);
        QCOMPARE(listed(gDoctorManager, &clsDoctor::DoctorNm, Direction::Ascending), QStringList{u"別"_qs});
        QCOMPARE(listed(gDoctorManager, &clsDoctor::Seq, Direction::Ascending), QStringList{u"5"_qs});
    }

    void moveChangesTheOrderAlone() {
        clsDoctor doctor = addDoctor(u"a"_qs, u"医"_qs, u"5"_qs, u"0"_qs);
        doctor.DoctorNm = u"別"_qs;
        doctor.Seq = u"7"_qs;
        gDoctorManager.SaveData(doctor, SaveMode::OrderOnly);
        clsDoctor stored;
        QVERIFY(gDoctorManager.GetData(doctor.DoctorNo, stored));
        QCOMPARE(stored.DoctorNm, u"医"_qs);
        QCOMPARE(stored.Seq, u"7"_qs);
        doctor.Seq.clear();
        gDoctorManager.SaveData(doctor, SaveMode::OrderOnly);
        QCOMPARE(doctor.Seq, u"20240310090507"_qs);
    }

    void deletionNeedsANumber() {
        const clsDoctor doctor = addDoctor(u"a"_qs, u"医"_qs, u"5"_qs, u"0"_qs);
        addDoctor(u"b"_qs, u"医"_qs, u"6"_qs, u"0"_qs);
        QVERIFY(errorOf([] { gDoctorManager.DeleteData({}); }));
        QVERIFY(errorOf([] { gDoctorManager.DeleteData(u"1 OR 1=1"_qs); }));
        gDoctorManager.DeleteData(doctor.DoctorNo);
        QCOMPARE(listed(gDoctorManager, &clsDoctor::DoctorCd, Direction::Ascending), QStringList{u"b"_qs});
    }

    void codesThatStandAreFound() {
        const clsDoctor doctor = addDoctor(u"O'N"_qs, u"医"_qs, u"5"_qs, u"0"_qs);
        QCOMPARE(gDoctorManager.CheckExistData(u"o'n"_qs), doctor.DoctorNo);
        QCOMPARE(gDoctorManager.CheckExistData(u"O'N"_qs, u"医"_qs), doctor.DoctorNo);
        QCOMPARE(gDoctorManager.CheckExistData(u"O'N"_qs, u"他"_qs), u"0"_qs);
        QCOMPARE(gDoctorManager.CheckExistData(u"x"_qs), u"0"_qs);
    }

    void selectionListRunsDownward() {
        addDoctor(u"a"_qs, u"医1"_qs, u"1"_qs, u"0"_qs);
        addDoctor(u"b"_qs, u"医2"_qs, u"2"_qs, u"0"_qs);
        Recordset rows = gDoctorManager.GetSelectList(u"[有効Flg] = 0"_qs, u"[主治医コード]"_qs);
        QCOMPARE(rows.fields(), (QStringList{u"主治医No"_qs, u"主治医コード"_qs, u"主治医"_qs}));
        QVERIFY(rows.next());
        QCOMPARE(rows.value(u"主治医"_qs), u"医2"_qs);
    }

    void nameTypedByHandTakesTheRowOfThatName() {
        addDoctor(u"a"_qs, u"同名"_qs, u"1"_qs, u"0"_qs);
        const clsDoctor newest = addDoctor(u"b"_qs, u"同名"_qs, u"2"_qs, u"0"_qs);
        addDoctor(u"c"_qs, u"同名"_qs, u"3"_qs, u"1"_qs);
        clsDoctor typed;
        typed.DoctorNm = u"同名"_qs;
        gDoctorManager.AddByName(typed);
        QCOMPARE(typed.DoctorNo, newest.DoctorNo);
        QCOMPARE(typed.DoctorCd, u"b"_qs);
        QCOMPARE(listed(gDoctorManager, &clsDoctor::DoctorCd, Direction::Ascending).size(), 3);
    }

    void nameTypedByHandIsRegisteredUnderANewCode() {
        sql(u"UPDATE [採番] SET [最終値] = '0007', [桁] = 4 WHERE [項目名] = '製作担当者コード'"_qs);
        clsProducer typed;
        typed.ProducerNm = u"新人'"_qs;
        gProducerManager.AddByName(typed);
        QCOMPARE(typed.ProducerCd, u"0008"_qs);
        clsProducer stored;
        QVERIFY(gProducerManager.GetData(typed.ProducerNo, stored));
        QCOMPARE(stored.ProducerNm, u"新人'"_qs);
        QCOMPARE(stored.UseFlg, u"0"_qs);
        QCOMPARE(stored.Seq, u"20240310090507"_qs);
    }

    void drawnCodeThatIsTakenUpdatesItsRow() {
        sql(u"UPDATE [採番] SET [最終値] = '0007', [桁] = 4 WHERE [項目名] = '主治医コード'"_qs);
        const clsDoctor taken = addDoctor(u"0008"_qs, u"旧名"_qs, u"1"_qs, u"1"_qs);
        clsDoctor typed;
        typed.DoctorNm = u"新名"_qs;
        gDoctorManager.AddByName(typed);
        QCOMPARE(typed.DoctorNo, taken.DoctorNo);
        QCOMPARE(listed(gDoctorManager, &clsDoctor::DoctorNm, Direction::Ascending), QStringList{u"新名"_qs});
    }

    void failedCodeIsToldAndAddsNothing() {
        sql(u"DELETE FROM [採番]"_qs);
        MessageQueue boxes;
        clsDoctor doctor;
        doctor.DoctorNm = u"新"_qs;
        gDoctorManager.AddByName(doctor);
        clsProducer producer;
        producer.ProducerNm = u"新"_qs;
        gProducerManager.AddByName(producer);
        QCOMPARE(boxes.texts(),
                 (QStringList{u"主治医コードを自動的に取得できませんでした。\n手動で設定して下さい。"_qs,
                              u"製作担当者コードを自動的に取得できませんでした。\n手動で設定して下さい。"_qs}));
        QCOMPARE(boxes.requests().first().icon, MessageIcon::Information);
        QCOMPARE(doctor.DoctorNo, QString());
        QVERIFY(listed(gDoctorManager, &clsDoctor::DoctorCd, Direction::Ascending).isEmpty());
    }

    void newLawFollowsTheHighestBelowTheOneHeldApart() {
        sql(u"DELETE FROM [法別]"_qs);
        for (int i = 1; i <= 14; ++i) sql(u"INSERT INTO 法別 ([法別No], [法別]) VALUES (%1, '法%1')"_qs.arg(i));
        sql(u"INSERT INTO 法別 ([法別No], [法別]) VALUES (99, '自己負担')"_qs);
        clsIns law;
        law.InsNm = u"新法"_qs;
        gInsManager.SaveData(law);
        QCOMPARE(law.InsNo, u"15"_qs);
        clsIns byName;
        byName.InsNm = u"次法"_qs;
        gInsManager.SaveData2(byName);
        QCOMPARE(byName.InsNo, u"16"_qs);
        byName.InsNm = u"改名"_qs;
        gInsManager.SaveData2(byName);
        QVERIFY(gInsManager.GetData(u"16"_qs, byName));
        QCOMPARE(byName.InsNm, u"改名"_qs);
        QCOMPARE(byName.UseFlg, u"0"_qs);
        clsIns alike;
        alike.InsNm = u"自己負担"_qs;
        gInsManager.SaveData(alike);
        QCOMPARE(alike.InsNo, u"17"_qs);
    }

    void lawsWithAFixedMeaningAreDelivered() {
        for (const char* number : {"9", "10", "11", "14", "99"}) {
            clsIns law;
            QVERIFY2(gInsManager.GetData(QString::fromLatin1(number), law), number);
        }
    }

    void firstEquipmentOfAnEmptyTableIsNumberOne() {
        clsEquip equip;
        equip.EquipNm = u"短下肢装具"_qs;
        gEquipmentManager.SaveData(equip);
        QCOMPARE(equip.EquipNo, u"1"_qs);
        clsEquip next;
        next.EquipNm = u"靴"_qs;
        gEquipmentManager.SaveData(next);
        QCOMPARE(next.EquipNo, u"2"_qs);
    }

    void typedPartyEqualToTheMasterAsksNothing() {
        MessageQueue boxes;
        const clsClaim master = addClaim(u"A1"_qs, u"市役所"_qs);
        clsClaim typed;
        typed.ClaimCd = u"A1"_qs;
        typed.ClaimNm = u"市役所"_qs;
        QCOMPARE(gClaimManager.ReconcileData(typed), Reconciled::Done);
        QCOMPARE(typed.ClaimNo, master.ClaimNo);
        QVERIFY(boxes.isEmpty());
    }

    void typedPartyThatDiffersIsAskedFor_data() {
        QTest::addColumn<qint16>("answer");
        QTest::addColumn<bool>("cancelled");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("master");
        QTest::newRow("yes takes the master") << qint16(AnswerYes) << false << u"市役所"_qs << u"市役所"_qs;
        QTest::newRow("no overwrites the master") << qint16(AnswerNo) << false << u"区役所"_qs << u"区役所"_qs;
        QTest::newRow("cancel changes nothing") << qint16(AnswerCancel) << true << u"区役所"_qs << u"市役所"_qs;
    }
    void typedPartyThatDiffersIsAskedFor() {
        QFETCH(qint16, answer);
        QFETCH(bool, cancelled);
        MessageQueue boxes({MessageAnswer(answer)});
        const clsClaim master = addClaim(u"A1"_qs, u"市役所"_qs);
        clsClaim typed;
        typed.ClaimCd = u"A1"_qs;
        typed.ClaimNm = u"区役所"_qs;
        QCOMPARE(gClaimManager.ReconcileData(typed) == Reconciled::Cancelled, cancelled);
        QTEST(typed.ClaimNm, "entry");
        clsClaim stored;
        QVERIFY(gClaimManager.GetDataCd(u"A1"_qs, stored));
        QTEST(stored.ClaimNm, "master");
        QCOMPARE(stored.Tel, master.Tel);
        QCOMPARE(boxes.requests().first().buttons, MessageButtons::YesNoCancel);
        QCOMPARE(
            boxes.texts().first(),
            u"入力された請求先はマスタ登録内容と異なります。\nマスタの内容に置き換えますか？\n\n　　請求先コード：A1\n"
            u"　　(入力)区役所\n　　(マスタ)市役所\n\n※「いいえ」ボタンを選択するとマスタの内容が上書きされます。"_qs);
    }

    void unknownCodeOfAPartyIsRegistered() {
        MessageQueue boxes;
        clsOrder typed;
        typed.OrderCd = u"B'2"_qs;
        typed.OrderNm = u"病院"_qs;
        QCOMPARE(gOrderManager.ReconcileData(typed), Reconciled::Done);
        clsOrder stored;
        QVERIFY(gOrderManager.GetData(typed.OrderNo, stored));
        QCOMPARE(stored.OrderNm, u"病院"_qs);
        QCOMPARE(stored.UseFlg, u"0"_qs);
        clsOrder blank;
        blank.OrderNm = u"名だけ"_qs;
        QCOMPARE(gOrderManager.ReconcileData(blank), Reconciled::Done);
        QCOMPARE(gOrderManager.CheckExistData(u"B'2"_qs), stored.OrderNo);
        QCOMPARE(listed(gOrderManager, &clsOrder::OrderNm, Direction::Ascending).size(), 1);
        QVERIFY(boxes.isEmpty());
    }

    void blanksAtTheEndMakeNoOtherParty() {
        MessageQueue boxes;
        const clsClaim master = addClaim(u"A1"_qs, u"市役所"_qs);
        clsClaim typed;
        typed.ClaimCd = u"A1  "_qs;
        typed.ClaimNm = u"市役所 "_qs;
        QCOMPARE(gClaimManager.ReconcileData(typed), Reconciled::Done);
        QCOMPARE(typed.ClaimNo, master.ClaimNo);
        QCOMPARE(typed.ClaimCd, u"A1"_qs);
        QCOMPARE(gClaimManager.CheckExistData(u"A1 "_qs, u"市役所 "_qs), master.ClaimNo);
        QVERIFY(gClaimManager.GetDataCd(u"A1 "_qs, typed));

        clsClaim blank;
        blank.ClaimCd = u" "_qs;
        blank.ClaimNm = u"名"_qs;
        QCOMPARE(gClaimManager.ReconcileData(blank), Reconciled::Done);
        QVERIFY(blank.ClaimNo.isEmpty());
        QCOMPARE(listed(gClaimManager, &clsClaim::ClaimCd, Direction::Ascending).size(), 1);
        QVERIFY(boxes.isEmpty());

        const clsDoctor doctor = addDoctor(u"a"_qs, u"同名"_qs, u"1"_qs, u"0"_qs);
        clsDoctor again;
        again.DoctorNm = u"同名 "_qs;
        gDoctorManager.AddByName(again);
        QCOMPARE(again.DoctorNo, doctor.DoctorNo);
    }

    void orderingPartyIsAskedForInItsOwnWords() {
        MessageQueue boxes({AnswerCancel});
        clsOrder master;
        master.OrderCd = u"A1"_qs;
        master.OrderNm = u"病院"_qs;
        gOrderManager.SaveData(master);
        clsOrder typed = master;
        typed.OrderNm = u"%3 医院"_qs;
        gOrderManager.ReconcileData(typed);
        QVERIFY(boxes.texts().first().startsWith(u"入力された受注先はマスタ登録内容と異なります。"_qs));
        QVERIFY(boxes.texts().first().contains(u"　　受注先コード：A1\n　　(入力)%3 医院\n"_qs));
    }

    void everyColumnOfAPartyIsSaved() {
        clsClaim claim{{},      u"1"_qs, u"2"_qs, u"3"_qs,  u"4"_qs,  u"5"_qs,  u"6"_qs,
                       u"7"_qs, u"8"_qs, u"9"_qs, u"10"_qs, u"11"_qs, u"12"_qs, u"0"_qs};
        gClaimManager.SaveData(claim);
        clsClaim stored;
        QVERIFY(gClaimManager.GetData(claim.ClaimNo, stored));
        for (const auto& field : gClaimManager.fields()) QCOMPARE(stored.*field.member, claim.*field.member);
    }

    void pairOfPrefectureAndCityStandsOnce() {
        clsPrefecture pair{u"0"_qs, u"東京都"_qs, u"港区"_qs, {}};
        gPrefectureManager.SaveData(pair);
        clsPrefecture again{u"0"_qs, u"東京都"_qs, u"港区"_qs, {}};
        gPrefectureManager.SaveData(again);
        QCOMPARE(again.PrefNo, pair.PrefNo);
        clsPrefecture alone{{}, u"東京都"_qs, {}, {}};
        gPrefectureManager.SaveData(alone);
        QVERIFY(alone.PrefNo != pair.PrefNo);
        QCOMPARE(gPrefectureManager.CheckExistData(u"東京都"_qs, {}), alone.PrefNo);
        QCOMPARE(gPrefectureManager.CheckExistData({}, u"港区"_qs), u"0"_qs);
        QCOMPARE(listed(gPrefectureManager, &clsPrefecture::City, Direction::Ascending).size(), 2);
    }

    void lastUsedPrefecturesStandFirst() {
        for (const auto& [pref, city, seq] :
             {std::tuple{"東京都", "港区", "1"}, {"大阪府", "北区", "2"}, {"東京都", "北区", "3"}}) {
            clsPrefecture pair{{}, QString::fromUtf8(pref), QString::fromUtf8(city), QString::fromUtf8(seq)};
            gPrefectureManager.SaveData(pair);
        }
        QList<clsPrefecture> prefs, cities;
        gPrefectureManager.GetPrefGrpList(prefs);
        gPrefectureManager.GetCityGrpList(cities, u"[都道府県] = '東京都'"_qs);
        QCOMPARE(prefs.size(), 2);
        QCOMPARE(prefs.first().Pref, u"東京都"_qs);
        QCOMPARE(cities.size(), 2);
        QCOMPARE(cities.first().City, u"北区"_qs);
    }

    void staffAreSavedWithoutOrder() {
        clsStaff staff{{}, u"S1"_qs, u"従業員"_qs};
        gStaffManager.SaveData(staff);
        staff.StaffNm = u"改名"_qs;
        gStaffManager.SaveData(staff);
        clsStaff stored;
        QVERIFY(gStaffManager.GetData(staff.StaffNo, stored));
        QCOMPARE(stored.StaffNm, u"改名"_qs);
        gStaffManager.DeleteData(staff.StaffNo);
        QVERIFY(!gStaffManager.GetData(staff.StaffNo, stored));
    }

    void statusNamesAreRead() {
        QList<clsProcKbn> all;
        gProcKbnManager.GetList(all, {}, u"[処理区分番号]"_qs);
        QVERIFY(all.size() > 3);
        QCOMPARE(gProcKbnManager.nameOf(all.first().ProcKbnNo), all.first().ProcKbnNm1);
        QCOMPARE(gProcKbnManager.nameOf(u"12345"_qs), QString());
        QCOMPARE(gProcKbnManager.nameOf({}), QString());
    }

    void pairOfLawAndPayerIsRegisteredOrRefreshed() {
        const clsClaim claim = addClaim(u"A1"_qs, u"市役所"_qs);
        gInsClaimManager.ReconcileData(u"1"_qs, claim.ClaimNo);
        const QString number = gInsClaimManager.CheckExistData(u"1"_qs, claim.ClaimNo);
        QVERIFY(number != u"0");
        m_clock->set(u"2024/03/11 10:00:00"_qs);
        gInsClaimManager.ReconcileData(u"1"_qs, claim.ClaimNo);
        QList<clsInsClaim> pairs;
        gInsClaimManager.GetList(pairs, u"[法別請求対応].[法別No] = 1 AND [請求先].[有効Flg] = 0"_qs,
                                 u"[法別請求対応].[順番]"_qs, Direction::Descending);
        QCOMPARE(pairs.size(), 1);
        QCOMPARE(pairs.first().InsClaimNo, number);
        QCOMPARE(pairs.first().Seq, u"20240311100000"_qs);
        QCOMPARE(pairs.first().ClaimNm, u"市役所"_qs);
        QVERIFY(!pairs.first().InsNm.isEmpty());
    }

    void payersOfALawAreThoseInUse() {
        clsClaim retired = addClaim(u"2"_qs, u"県庁"_qs);
        const clsClaim claim = addClaim(u"1"_qs, u"市役所"_qs);
        gInsClaimManager.ReconcileData(u"1"_qs, claim.ClaimNo);
        gInsClaimManager.ReconcileData(u"1"_qs, retired.ClaimNo);
        gInsClaimManager.ReconcileData(u"2"_qs, claim.ClaimNo);
        QCOMPARE(gInsClaimManager.payersOf(u"1"_qs).size(), 2);
        retired.UseFlg = u"1"_qs;
        gClaimManager.SaveData(retired);
        const QList<clsClaim> payers = gInsClaimManager.payersOf(u"1"_qs);
        QCOMPARE(payers.size(), 1);
        QCOMPARE(payers.first().ClaimNo + payers.first().ClaimCd + payers.first().ClaimNm,
                 claim.ClaimNo + u"1市役所"_qs);
    }

    void doctorsOfThePartiesWithACode() {
        clsOrder order;
        order.OrderCd = u"A%1"_qs;
        order.OrderNm = u"中央病院"_qs;
        gOrderManager.SaveData(order);
        for (const QString& party : {order.OrderNo, QString()}) {
            clsDoctor doctor{{}, u"d"_qs + party, u"医"_qs, party, u"1"_qs, u"0"_qs};
            gDoctorManager.SaveData(doctor);
        }
        const auto doctors = [](const QString& code) {
            return listed(gDoctorManager, &clsDoctor::OrderNo, Direction::Ascending, bySeq,
                          gDoctorManager.ofOrders(code).text());
        };
        QCOMPARE(doctors(u"A%"_qs), QStringList{order.OrderNo});
        QCOMPARE(doctors(u"%"_qs), QStringList());
        QCOMPARE(doctors({}).size(), 2);
    }

    void pairWithoutANumberIsNone() {
        gInsClaimManager.ReconcileData(u"0"_qs, u"1"_qs);
        gInsClaimManager.ReconcileData(u"1"_qs, u"0"_qs);
        gInsClaimManager.ReconcileData({}, u"1"_qs);
        QCOMPARE(m_database->connection().scalar(u"SELECT COUNT(*) FROM [法別請求対応]"_qs), u"0"_qs);
    }

    void pairWhoseSidesAreGoneIsStillListed() {
        gInsClaimManager.ReconcileData(u"77"_qs, u"88"_qs);
        QList<clsInsClaim> pairs;
        gInsClaimManager.GetList(pairs, {}, bySeq);
        QCOMPARE(pairs.size(), 1);
        QCOMPARE(pairs.first().InsNm + pairs.first().ClaimNm, QString());
    }

private:
    void sql(const QString& statement) { m_database->connection().execute(statement); }

    clsDoctor addDoctor(const QString& code, const QString& name, const QString& seq, const QString& flag) {
        clsDoctor doctor{{}, code, name, {}, seq, flag};
        gDoctorManager.SaveData(doctor);
        return doctor;
    }

    clsClaim addClaim(const QString& code, const QString& name) {
        clsClaim claim;
        claim.ClaimCd = code;
        claim.ClaimNm = name;
        claim.Tel = u"03"_qs;
        claim.UseFlg = u"0"_qs;
        gClaimManager.SaveData(claim);
        return claim;
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<FixedClock> m_clock;
    QStringList m_statements;
};

HALVANE_TEST(ReferenceManagersTest)
#include "ReferenceManagersTest.moc"
