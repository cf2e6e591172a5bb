#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "app/DraftOffer.h"
#include "app/basMain.h"
#include "estimates/EstimateDraft.h"
#include "estimates/EstimateDraftJson.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

// The menu's line for work that was left behind, where it is not as it should be.
class DraftOfferTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static QWidget* screen(const QString& name) {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == name && window->isVisible()) return window;
        return nullptr;
    }
    static QString line() { return screen(u"frmMenu"_qs)->findChild<QLabel*>(u"lblDraft"_qs)->text(); }
    static void press(const QString& name) { screen(u"frmMenu"_qs)->findChild<QPushButton*>(name)->click(); }

    // What an editor of this machine would have left.
    static void leave(const QString& name, bool duringSave = false) {
        EstimateDraft draft = newEstimate();
        draft.customer.CustNm1 = name;
        DraftKeeping keeping;
        keeping.keep([&] {
            return KeptWork{
                titleOf(draft), {{u"estimate"_qs, estimateToJson(draft)}, {u"mode"_qs, 0}}, u"frmCsEstimate"_qs};
        });
        if (duringSave) keeping.beginSave();
    }
    static void damage() {
        QFile file(KeptDrafts::left().first().file);
        if (!file.resize(file.size() - 5)) qFatal("not cut");
    }

private slots:
    void init() {
        QApplication::setQuitOnLastWindowClosed(false);
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile(u"[Log]\r\nPath=log\r\n[Backup]\r\nAuto=0\r\n"_qs);
        m_database->prepareManagers();
    }
    void cleanup() {
        if (QWidget* menu = screen(u"frmMenu"_qs)) menu->close();
        m_database.reset();
    }

    void aDamagedDraftIsToldAndOnlyThrownAway() {
        leave(u"損傷"_qs);
        damage();
        const CapturedMessages messages({AnswerNone, AnswerYes});
        QVERIFY(Main());
        QVERIFY2(line().contains(u"壊れているか"_qs), qUtf8Printable(line()));
        QVERIFY(messages.texts.isEmpty());
        press(u"cmdDraftOpen"_qs);
        QVERIFY(messages.texts.value(0).contains(u"壊れているか"_qs));
        QVERIFY(screen(u"frmMenu"_qs));
        press(u"cmdDraftDrop"_qs);
        QVERIFY(messages.texts.value(1).startsWith(u"下書きを捨てます。"_qs));
        QVERIFY(KeptDrafts::left().isEmpty());
    }

    void aSaveUnderWayIsToldBeforeTheEditorOpens() {
        leave(u"途中"_qs, true);
        const CapturedMessages messages({AnswerNone, AnswerNo});
        QVERIFY(Main());
        QVERIFY2(line().contains(u"（反映の途中）"_qs), qUtf8Printable(line()));
        QString title;
        QTimer::singleShot(0, [&] {
            title = screen(u"frmCsEstimate"_qs)->windowTitle();
            screen(u"frmCsEstimate"_qs)->close();
        });
        press(u"cmdDraftOpen"_qs);
        QVERIFY(messages.texts.value(0).contains(u"すでに登録されていることがあります。"_qs));
        QCOMPARE(title, u"顧客見積作成（追加）"_qs);
        QVERIFY(KeptDrafts::left().isEmpty());
    }

    void ofSeveralTheNewestIsNamedAndTheOthersCounted() {
        seams().now = [] { return QDateTime(QDate(2026, 10, 3), QTime(14, 5)); };
        leave(u"古い"_qs);
        seams().now = [] { return QDateTime(QDate(2026, 10, 3), QTime(14, 9)); };
        leave(u"新しい"_qs);
        seams().now = defaultSeams().now;
        QCOMPARE(DraftOffer::text(KeptDrafts::left()),
                 u"反映されていない下書き：顧客見積（新規）新しい　10月3日 14:09　ほか 1 件"_qs);
    }

    void nothingLeftSaysNothing() {
        QVERIFY(Main());
        QVERIFY(line().isEmpty());
        QVERIFY(!screen(u"frmMenu"_qs)->findChild<QWidget*>(u"fraDrafts"_qs)->isVisible());
    }
};

HALVANE_TEST(DraftOfferTest)
#include "DraftOfferTest.moc"
