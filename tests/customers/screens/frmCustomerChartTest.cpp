#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "base/basMessage.h"
#include "customers/screens/frmCustomerChart.h"
#include "reference/ReferenceManagers.h"
#include "ui/ChoiceBox.h"
#include "ui/DateField.h"
#include "ui/Grid.h"
#include "ui/MemoField.h"
#include "ui/TextField.h"

#include <QPushButton>
#include <QTimer>

class frmCustomerChartTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static constexpr qint16 add = 0;
    static constexpr qint16 edit = 1;
    static constexpr qint16 remove = 2;

    static void addOrder(const QString& code, const QString& name, const QString& useFlg = u"0"_qs) {
        clsOrder order;
        order.OrderCd = code;
        order.OrderNm = name;
        order.UseFlg = useFlg;
        gOrderManager.SaveData(order);
    }

    static QString orderNo(const QString& code) { return gOrderManager.CheckExistData(code); }

    static void addDoctor(const QString& code, const QString& name, const QString& orderCode) {
        clsDoctor doctor;
        doctor.DoctorCd = code;
        doctor.DoctorNm = name;
        doctor.OrderNo = orderNo(orderCode);
        doctor.UseFlg = u"0"_qs;
        gDoctorManager.SaveData(doctor);
    }

    static clsChart storedChart() {
        clsDoctor doctor;
        gDoctorManager.GetDataCd(u"D1"_qs, doctor);
        clsChart chart;
        chart.CustId = u"00000001"_qs;
        chart.CustSubId = u"1"_qs;
        chart.ChartNo = u"3"_qs;
        chart.ChartCd = u"240001-1"_qs;
        chart.DiseaseNm = u"脳梗塞後遺症"_qs;
        chart.LR = u"右"_qs;
        chart.HospDate = u"2024/03/18"_qs;
        chart.OrderNo = orderNo(u"A01"_qs);
        chart.OrderNm = u"中央病院"_qs;
        chart.DoctorNo = doctor.DoctorNo;
        chart.DoctorNm = doctor.DoctorNm;
        chart.Memo = u"備考"_qs;
        return chart;
    }

    // A screen under test, loaded and shown.
    struct Opened {
        explicit Opened(qint16 mode, const clsChart& chart = {}) {
            screen.EditMode = mode;
            screen.Chart = chart;
            screen.Load();
            screen.show();
            QApplication::setActiveWindow(&screen);
        }
        ~Opened() {
            screen.EditMode = remove; // closes without a question
            screen.close();
        }
        template <class Control> Control* at(const char16_t* name) {
            return screen.findChild<Control*>(QString::fromUtf16(name));
        }
        TextField* text(const char16_t* name) { return at<TextField>(name); }
        QPushButton* button(const char16_t* name) { return at<QPushButton>(name); }
        QStringList doctors() {
            QStringList names;
            const auto* box = at<ChoiceBox>(u"cboDoctor");
            for (int i = 0; i < box->count(); ++i) names << box->itemText(i);
            names.sort();
            return names;
        }
        frmCustomerChart screen;
    };

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->writeProfile();
        m_database->prepareManagers();
        addOrder(u"A01"_qs, u"中央病院"_qs);
        addOrder(u"A02"_qs, u"市民病院"_qs);
        addOrder(u"B_1"_qs, u"整形外科"_qs);
        addOrder(u"A09"_qs, u"閉院"_qs, u"1"_qs);
        addDoctor(u"D1"_qs, u"松風　明"_qs, u"A01"_qs);
        addDoctor(u"D2"_qs, u"山吹　薫"_qs, u"A02"_qs);
        addDoctor(u"D3"_qs, u"朝日　登"_qs, u"B_1"_qs);
    }
    void cleanup() { m_database.reset(); }

    void titleTellsTheMode() {
        QCOMPARE(Opened(add).screen.windowTitle(), u"顧客情報（カルテ）（追加）"_qs);
        QCOMPARE(Opened(edit, storedChart()).screen.windowTitle(), u"顧客情報（カルテ）（編集）"_qs);
        QCOMPARE(Opened(remove, storedChart()).screen.windowTitle(), u"顧客情報（カルテ）（削除）"_qs);
    }

    void newChartHasNoNumberYet() { QCOMPARE(Opened(add).text(u"txtChartNo")->value(), u"(追加)"_qs); }

    void showsTheChart() {
        Opened form(edit, storedChart());
        QCOMPARE(form.text(u"txtChartNo")->value(), u"3"_qs);
        QVERIFY(form.text(u"txtChartNo")->isReadOnly());
        QCOMPARE(form.text(u"txtChartCd")->value(), u"240001-1"_qs);
        QCOMPARE(form.at<ChoiceBox>(u"cboLR")->text(), u"右"_qs);
        QCOMPARE(form.text(u"txtDiseaseNm")->value(), u"脳梗塞後遺症"_qs);
        QCOMPARE(form.at<DateField>(u"idtHospDate")->value(), u"2024/03/18"_qs);
        QCOMPARE(form.text(u"txtOrderCd")->value(), u"A01"_qs);
        QCOMPARE(form.text(u"txtOrderNm")->value(), u"中央病院"_qs);
        QCOMPARE(form.at<ChoiceBox>(u"cboDoctor")->text(), u"松風　明"_qs);
        QCOMPARE(form.at<MemoField>(u"txtMemo")->value(), u"備考"_qs);
    }

    void deleteModeLetsOnlyDelete() {
        Opened form(remove, storedChart());
        QVERIFY(!form.text(u"txtChartCd")->isEnabled());
        QVERIFY(!form.button(u"cmdOrderSelect")->isEnabled());
        QVERIFY(!form.button(u"cmdExec")->isEnabled());
        QVERIFY(!form.button(u"cmdCancel")->isEnabled());
        QVERIFY(form.button(u"cmdDel")->isEnabled());
    }

    void otherModesDoNotDelete() {
        QVERIFY(!Opened(add).button(u"cmdDel")->isEnabled());
        QVERIFY(!Opened(edit, storedChart()).button(u"cmdDel")->isEnabled());
    }

    void typedCodeFindsThePartyAndItsDoctors() {
        Opened form(add);
        QCOMPARE(form.doctors(), QStringList({u"山吹　薫"_qs, u"朝日　登"_qs, u"松風　明"_qs}));
        form.text(u"txtOrderCd")->setFocus();
        QTest::keyClicks(form.text(u"txtOrderCd"), u"A02"_qs);
        QCOMPARE(form.text(u"txtOrderNm")->value(), u"市民病院"_qs);
        QCOMPARE(form.doctors(), QStringList({u"山吹　薫"_qs}));
    }

    void doctorsFollowTheBeginningOfTheCode() {
        Opened form(add);
        form.text(u"txtOrderCd")->setValue(u"A"_qs);
        QCOMPARE(form.doctors(), QStringList({u"山吹　薫"_qs, u"松風　明"_qs}));
        QCOMPARE(form.text(u"txtOrderNm")->value(), QString());
    }

    void retiredDoctorsAreNotOffered() {
        clsDoctor doctor;
        QVERIFY(gDoctorManager.GetDataCd(u"D2"_qs, doctor));
        doctor.UseFlg = u"1"_qs;
        gDoctorManager.SaveData(doctor);
        Opened form(add);
        form.text(u"txtOrderCd")->setValue(u"A"_qs);
        QCOMPARE(form.doctors(), QStringList({u"松風　明"_qs}));
    }

    void codeWithPatternCharactersIsTakenAsItStands() {
        Opened form(add);
        form.text(u"txtOrderCd")->setValue(u"B_"_qs);
        QCOMPARE(form.doctors(), QStringList({u"朝日　登"_qs}));
        form.text(u"txtOrderCd")->setValue(u"_"_qs);
        QVERIFY(form.doctors().isEmpty());
        form.text(u"txtOrderCd")->setValue(u"'"_qs);
        QVERIFY(form.doctors().isEmpty());
    }

    void typedDoctorStaysWhenTheListChanges() {
        Opened form(add);
        form.at<ChoiceBox>(u"cboDoctor")->setText(u"新任　太郎"_qs);
        form.text(u"txtOrderCd")->setValue(u"A02"_qs);
        QCOMPARE(form.at<ChoiceBox>(u"cboDoctor")->text(), u"新任　太郎"_qs);
    }

    void partyIsChosenFromTheActiveOnesOfTheCode() {
        Opened form(add);
        form.text(u"txtOrderCd")->setValue(u"A"_qs);
        QTimer::singleShot(0, [] {
            QWidget* list = QApplication::activeModalWidget();
            QCOMPARE(list->windowTitle(), u"受注先"_qs);
            auto* grid = list->findChild<Grid*>(u"flxData"_qs);
            QCOMPARE(grid->rows(), 2);
            for (int row = 1; row <= 2; ++row)
                if (grid->rowValues(row).contains(u"A02"_qs)) grid->setCurrent(row);
            list->findChild<QPushButton*>(u"cbSelect"_qs)->click();
        });
        form.button(u"cmdOrderSelect")->click();
        QCOMPARE(form.text(u"txtOrderCd")->value(), u"A02"_qs);
        QCOMPARE(form.text(u"txtOrderNm")->value(), u"市民病院"_qs);
        QCOMPARE(form.doctors(), QStringList({u"山吹　薫"_qs}));
    }

    void cancelledSelectionChangesNothing() {
        Opened form(edit, storedChart());
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        form.button(u"cmdOrderSelect")->click();
        QCOMPARE(form.text(u"txtOrderCd")->value(), u"A01"_qs);
        const MessageQueue questions;
        form.screen.close();
        QVERIFY(questions.isEmpty());
    }

    void execGivesTheFieldsToTheCaller() {
        Opened form(add);
        form.text(u"txtChartCd")->setValue(u"C-9"_qs);
        form.at<ChoiceBox>(u"cboLR")->setText(u"左"_qs);
        form.text(u"txtDiseaseNm")->setValue(u"骨折"_qs);
        form.at<DateField>(u"idtHospDate")->setValue(u"h170301"_qs);
        form.text(u"txtOrderCd")->setValue(u"A01"_qs);
        form.at<ChoiceBox>(u"cboDoctor")->setText(u"松風　明"_qs);
        form.at<MemoField>(u"txtMemo")->setValue(u"一行目\n二行目"_qs);
        form.button(u"cmdExec")->click();
        const clsChart& chart = form.screen.Chart;
        QVERIFY(form.screen.Updated);
        QVERIFY(!form.screen.isVisible());
        QCOMPARE(chart.ChartCd, u"C-9"_qs);
        QCOMPARE(chart.LR, u"左"_qs);
        QCOMPARE(chart.DiseaseNm, u"骨折"_qs);
        QCOMPARE(chart.HospDate, u"2005/03/01"_qs);
        QCOMPARE(chart.OrderNo, orderNo(u"A01"_qs));
        QCOMPARE(chart.OrderNm, u"中央病院"_qs);
        QCOMPARE(chart.DoctorNm, u"松風　明"_qs);
        QCOMPARE(chart.Memo, u"一行目\n二行目"_qs);
        QCOMPARE(form.screen.Order.OrderCd, u"A01"_qs);
        QCOMPARE(form.screen.Doctor.DoctorCd, u"D1"_qs);
        QCOMPARE(chart.DoctorNo, form.screen.Doctor.DoctorNo);
    }

    void nothingIsWrittenToTheDatabase() {
        Opened form(add);
        form.text(u"txtOrderCd")->setValue(u"Z99"_qs);
        form.text(u"txtOrderNm")->setValue(u"新しい病院"_qs);
        form.at<ChoiceBox>(u"cboDoctor")->setText(u"新任　太郎"_qs);
        form.button(u"cmdExec")->click();
        QVERIFY(form.screen.Updated);
        QCOMPARE(m_database->connection().scalar(u"SELECT COUNT(*) FROM [顧客カルテ]"_qs), u"0"_qs);
        QCOMPARE(orderNo(u"Z99"_qs), u"0"_qs);
        QCOMPARE(m_database->connection().scalar(u"SELECT COUNT(*) FROM [主治医]"_qs), u"3"_qs);
        QCOMPARE(form.screen.Order.OrderNm, u"新しい病院"_qs);
        QVERIFY(form.screen.Order.OrderNo.isEmpty());
        QCOMPARE(form.screen.Doctor.DoctorNm, u"新任　太郎"_qs);
        QVERIFY(form.screen.Doctor.DoctorNo.isEmpty());
    }

    void codeOfAnotherPartyIsRefused() {
        MessageQueue messages;
        Opened form(add);
        form.text(u"txtOrderCd")->setValue(u"A01"_qs);
        form.text(u"txtOrderNm")->setValue(u"別の病院"_qs);
        form.button(u"cmdExec")->click();
        QCOMPARE(messages.texts(),
                 QStringList({u"受注先コードは　A01　で登録済みです。\n受注先コードを変更してください。"_qs}));
        QVERIFY(!form.screen.Updated);
        QVERIFY(form.screen.isVisible());
        QCOMPARE(form.screen.focusWidget(), form.text(u"txtOrderCd"));
    }

    void renamedPartyOfAnUnchangedChartIsNotRefused() {
        const clsChart chart = storedChart();
        clsOrder order;
        QVERIFY(gOrderManager.GetDataCd(u"A01"_qs, order));
        order.OrderNm = u"中央総合病院"_qs;
        gOrderManager.SaveData(order);
        const MessageQueue messages;
        Opened form(edit, chart);
        form.text(u"txtDiseaseNm")->setValue(u"骨折"_qs);
        form.button(u"cmdExec")->click();
        QVERIFY(messages.isEmpty());
        QVERIFY(form.screen.Updated);
        QCOMPARE(form.screen.Chart.OrderNm, u"中央病院"_qs);
    }

    void cancelAsksAndBringsTheChartBack() {
        MessageQueue messages({AnswerNo, AnswerYes});
        Opened form(edit, storedChart());
        form.text(u"txtDiseaseNm")->setValue(u"骨折"_qs);
        form.text(u"txtOrderCd")->setValue(u"A02"_qs);
        form.button(u"cmdCancel")->click();
        QCOMPARE(form.text(u"txtDiseaseNm")->value(), u"骨折"_qs);
        form.button(u"cmdCancel")->click();
        QCOMPARE(messages.texts(), QStringList(2, GetMessageText(302, u"顧客カルテ"_qs)));
        QCOMPARE(form.text(u"txtDiseaseNm")->value(), u"脳梗塞後遺症"_qs);
        QCOMPARE(form.text(u"txtOrderNm")->value(), u"中央病院"_qs);
        form.screen.close(); // nothing is left to ask about
        QCOMPARE(messages.requests().size(), 2);
    }

    void deleteAsksFirst() {
        MessageQueue messages({AnswerNo, AnswerYes});
        Opened form(remove, storedChart());
        form.button(u"cmdDel")->click();
        QVERIFY(!form.screen.Updated);
        QVERIFY(form.screen.isVisible());
        form.button(u"cmdDel")->click();
        QVERIFY(form.screen.Updated);
        QVERIFY(!form.screen.isVisible());
        QCOMPARE(messages.texts(), QStringList(2, GetMessageText(202, u"顧客カルテ"_qs)));
    }

    void closingAnUnchangedScreenAsksNothing() {
        const MessageQueue messages;
        Opened form(edit, storedChart());
        form.button(u"cmdClose")->click();
        QVERIFY(messages.isEmpty());
        QVERIFY(!form.screen.isVisible());
        QVERIFY(!form.screen.Updated);
    }

    void closingAChangedScreenAsks_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<bool>("updated");
        QTest::newRow("yes") << int(AnswerYes) << true << true;
        QTest::newRow("no") << int(AnswerNo) << true << false;
        QTest::newRow("cancel") << int(AnswerCancel) << false << false;
    }

    void closingAChangedScreenAsks() {
        QFETCH(int, answer);
        MessageQueue messages({MessageAnswer(answer)});
        Opened form(edit, storedChart());
        form.text(u"txtDiseaseNm")->setValue(u"骨折"_qs);
        form.screen.close();
        QCOMPARE(messages.texts(), QStringList({GetMessageText(201, u"顧客カルテ"_qs)}));
        QTEST(!form.screen.isVisible(), "closed");
        QTEST(form.screen.Updated, "updated");
        QCOMPARE(form.screen.Chart.DiseaseNm, form.screen.Updated ? u"骨折"_qs : u"脳梗塞後遺症"_qs);
    }

    void savingOnCloseIsRefusedWithAForeignCode() {
        MessageQueue messages({AnswerYes});
        Opened form(edit, storedChart());
        form.text(u"txtOrderCd")->setValue(u"A02"_qs);
        form.text(u"txtOrderNm")->setValue(u"別の病院"_qs);
        form.screen.close();
        QVERIFY(form.screen.isVisible());
        QVERIFY(!form.screen.Updated);
        QCOMPARE(messages.requests().size(), 2);
    }

    void deleteModeClosesWithoutAQuestion() {
        const MessageQueue messages;
        Opened form(remove, storedChart());
        form.button(u"cmdClose")->click();
        QVERIFY(messages.isEmpty());
        QVERIFY(!form.screen.isVisible());
    }
};

HALVANE_TEST(frmCustomerChartTest)
#include "frmCustomerChartTest.moc"
