#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/ProgramFolder.h"

#include "price/screens/frmCalcPrice.h"
#include "ui/NumberField.h"

#include <QLabel>
#include <QPushButton>

class frmCalcPriceTest : public QObject {
    Q_OBJECT

private:
    struct Opened {
        explicit Opened(qint32 difference) {
            folder.writeProfile({});
            screen.AskDiff = difference;
            screen.xpos = 40;
            screen.ypos = 60;
            screen.Edited = true; // the load clears it
            screen.Load();
            screen.show();
        }
        NumberField* percent() { return screen.findChild<NumberField*>(u"numPercent"_qs); }
        QString price() { return screen.findChild<QLabel*>(u"lblPrice"_qs)->text(); }
        void press(const QString& button) { screen.findChild<QPushButton*>(button)->click(); }

        ProgramFolder folder;
        frmCalcPrice screen;
    };

private slots:
    void opensWithTheWholeRemainder() {
        Opened form(12345);
        QVERIFY(form.screen.Loaded);
        QVERIFY(!form.screen.Edited);
        QCOMPARE(form.screen.windowTitle(), u"金額計算"_qs);
        QCOMPARE(form.percent()->value(), u"100"_qs);
        QCOMPARE(form.price(), u"12,345"_qs);
        QCOMPARE(form.screen.pos(), QPoint(40, 60));
    }

    void priceFollowsThePercentage_data() {
        QTest::addColumn<QString>("percent");
        QTest::addColumn<int>("difference");
        QTest::addColumn<QString>("price");
        QTest::newRow("ninety") << u"90"_qs << 12340 << u"11,106"_qs;
        QTest::newRow("half to even, down") << u"50"_qs << 5 << u"2"_qs;
        QTest::newRow("half to even, up") << u"50"_qs << 7 << u"4"_qs;
        QTest::newRow("half that a binary fraction misses") << u"70"_qs << 10245 << u"7,172"_qs;
        QTest::newRow("fraction") << u"33.3"_qs << 1000 << u"333"_qs;
        QTest::newRow("more than all") << u"150"_qs << 1000 << u"1,500"_qs;
        QTest::newRow("negative remainder") << u"50"_qs << -3000 << u"-1,500"_qs;
        QTest::newRow("empty") << QString() << 1000 << u"0"_qs;
        QTest::newRow("no remainder") << u"90"_qs << 0 << u"0"_qs;
    }

    void priceFollowsThePercentage() {
        QFETCH(QString, percent);
        QFETCH(int, difference);
        Opened form(difference);
        form.percent()->setValue(percent);
        QTEST(form.price(), "price");
    }

    void execTakesTheAmount() {
        const MessageQueue messages;
        Opened form(12340);
        form.percent()->setValue(u"90"_qs);
        form.press(u"cmdExec"_qs);
        QVERIFY(form.screen.Edited);
        QCOMPARE(form.screen.AskPrice, u"11106"_qs);
        QVERIFY(!form.screen.isVisible());
        QVERIFY(messages.isEmpty());
    }

    void zeroIsAskedAndRefused() {
        MessageQueue messages({AnswerNo});
        Opened form(1000);
        form.percent()->setValue(u"0"_qs);
        form.press(u"cmdExec"_qs);
        QCOMPARE(messages.texts(), QStringList({u"金額 [　0] が設定されますがよろしいですか？"_qs}));
        QCOMPARE(messages.requests().first().buttons, MessageButtons::YesNo);
        QVERIFY(!form.screen.Edited);
        QVERIFY(!form.screen.isVisible());
    }

    void zeroIsAskedAndTaken() {
        MessageQueue messages({AnswerYes});
        Opened form(1000);
        form.percent()->setValue(u"0"_qs);
        form.press(u"cmdExec"_qs);
        QVERIFY(form.screen.Edited);
        QCOMPARE(form.screen.AskPrice, u"0"_qs);
        QVERIFY(!form.screen.isVisible());
    }

    void cancelTakesNothing() {
        const MessageQueue messages;
        Opened form(1000);
        form.percent()->setValue(u"50"_qs);
        form.press(u"cmdCancel"_qs);
        QVERIFY(!form.screen.Edited);
        QVERIFY(form.screen.AskPrice.isEmpty());
        QVERIFY(!form.screen.isVisible());
    }

    void amountBeyondTheRangeIsReportedAndNotTaken() {
        MessageQueue messages;
        Opened form(2'000'000'000);
        form.percent()->setValue(u"999"_qs);
        form.press(u"cmdExec"_qs);
        QCOMPARE(messages.requests().size(), 1);
        QVERIFY(!form.screen.Edited);
    }

    void staysOnTheDisplay() {
        const ProgramFolder folder;
        folder.writeProfile({});
        frmCalcPrice screen;
        screen.xpos = 100'000;
        screen.ypos = 100'000;
        QVERIFY(screen.Load());
        QVERIFY(screen.screen()->availableGeometry().contains(screen.geometry()));
    }
};

HALVANE_TEST(frmCalcPriceTest)
#include "frmCalcPriceTest.moc"
