#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "master/MasterManagers.h"
#include "master/screens/frmMstEstimateDialog.h"
#include "ui/TextField.h"

#include <QPushButton>

class frmMstEstimateDialogTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<frmMstEstimateDialog> m_dialog;

    TextField* field(const QString& name) { return m_dialog->findChild<TextField*>(name); }
    void open(const QString& code, const QString& name) {
        m_dialog = std::make_unique<frmMstEstimateDialog>();
        m_dialog->ProductCd = code;
        m_dialog->ProductNm = name;
        QVERIFY(m_dialog->Load());
        m_dialog->show();
    }
    void fill(const QString& code, const QString& name) {
        field(u"txtProductCd"_qs)->setValue(code);
        field(u"txtProductNm"_qs)->setValue(name);
    }
    void press(const QString& button) { m_dialog->findChild<QPushButton*>(button)->click(); }
    // Presses 登録, which is refused with these words, and gives the field that the operator is sent to.
    QString refused(const QString& words) {
        const MessageQueue messages;
        press(u"cmdInsert"_qs);
        const bool asTold = messages.texts() == QStringList{words} && !m_dialog->Updated && m_dialog->isVisible();
        QWidget* place = m_dialog->focusWidget();
        return asTold && place ? place->objectName() : messages.texts().join(u'|');
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->writeProfile();
        m_database->prepareManagers();
        clsMstEstimate known;
        known.ProductCd = u"A'[1]%"_qs;
        known.ProductNm = u"既存"_qs;
        gMstEstimateManager.SaveData(known);
    }
    void cleanup() {
        m_dialog.reset();
        m_database.reset();
    }

    void startsWithWhatTheCallerGives() {
        open(u"B-1"_qs, u"短下肢装具"_qs);
        QCOMPARE(m_dialog->windowTitle(), u"マスタ見積登録"_qs);
        QCOMPARE(field(u"txtProductCd"_qs)->value(), u"B-1"_qs);
        QCOMPARE(field(u"txtProductNm"_qs)->value(), u"短下肢装具"_qs);
        QCOMPARE(m_dialog->focusWidget()->objectName(), u"txtProductCd"_qs);
    }

    void emptyCodeIsRefused() {
        open({}, u"名"_qs);
        QCOMPARE(refused(u"製品コードを入力して下さい。"_qs), u"txtProductCd"_qs);
        fill(u"   "_qs, u"名"_qs);
        QCOMPARE(refused(u"製品コードを入力して下さい。"_qs), u"txtProductCd"_qs);
    }

    void emptyNameIsRefused() {
        open(u"B-1"_qs, u"  "_qs);
        QCOMPARE(refused(u"通称を入力して下さい。"_qs), u"txtProductNm"_qs);
    }

    void knownCodeIsRefused_data() {
        QTest::addColumn<QString>("code");
        QTest::newRow("as it is") << u"A'[1]%"_qs;
        QTest::newRow("with blanks behind it") << u"A'[1]%  "_qs;
        QTest::newRow("in small letters") << u"a'[1]%"_qs;
    }
    void knownCodeIsRefused() {
        QFETCH(QString, code);
        open(code, u"名"_qs);
        QCOMPARE(refused(u"製品コードが重複しています。"_qs), u"txtProductCd"_qs);
    }

    // The signs of a pattern mean themselves here, too.
    void codeThatAPatternWouldFindIsTaken() {
        open(u"A'1%"_qs, u"名"_qs);
        press(u"cmdInsert"_qs);
        QVERIFY(m_dialog->Updated);
    }

    void newCodeIsTakenWithoutBlanksBehindIt() {
        open({}, {});
        fill(u"B-1 "_qs, u" 短下肢装具 "_qs);
        press(u"cmdInsert"_qs);
        QVERIFY(m_dialog->Updated);
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(m_dialog->ProductCd + u'|' + m_dialog->ProductNm, u"B-1| 短下肢装具"_qs);
        QList<clsMstEstimate> rows;
        gMstEstimateManager.GetList(rows, {}, u"[製品コード]"_qs);
        QCOMPARE(rows.size(), 1); // storing is the caller's part
    }

    void longestCodeIsTakenWhole() {
        open({}, u"名"_qs);
        field(u"txtProductCd"_qs)->setFocus();
        field(u"txtProductCd"_qs)->setText(QString(255, u'X'));
        press(u"cmdInsert"_qs);
        QCOMPARE(m_dialog->ProductCd, QString(255, u'X'));
    }

    void closingTakesNothing() {
        open(u"B-1"_qs, u"名"_qs);
        press(u"cmdClose"_qs);
        QVERIFY(!m_dialog->Updated);
        QVERIFY(!m_dialog->isVisible());
    }
};

HALVANE_TEST(frmMstEstimateDialogTest)
#include "frmMstEstimateDialogTest.moc"
