#include "FormUnderTest.h"
#include "HalvaneTest.h"
#include "support/CapturedMessages.h"

#include "ui/DateField.h"
#include "ui/EraField.h"
#include "ui/frmCalendar.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

class DateFieldTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;

private slots:
    void initTestCase() { // the calendar keeps its place in the INI file
        QFile ini(m_folder.filePath(u"Halvane.ini"_qs));
        QVERIFY(ini.open(QIODevice::WriteOnly));
        seams().programFolder = [this] { return m_folder.path(); };
    }
    void cleanupTestCase() { seams() = defaultSeams(); }

    void takesEveryForm_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("slashes") << u"2005/3/1"_qs << u"2005/03/01"_qs;
        QTest::newRow("digits") << u"20050301"_qs << u"2005/03/01"_qs;
        QTest::newRow("era digits") << u"h170301"_qs << u"2005/03/01"_qs;
        QTest::newRow("era points") << u"R6.4.1"_qs << u"2024/04/01"_qs;
        QTest::newRow("full width") << u"２００５／３／１"_qs << u"2005/03/01"_qs;
        QTest::newRow("empty") << QString() << QString();
    }

    void takesEveryForm() {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<DateField>();
        form.open();
        form.enter(field, typed);
        QCOMPARE(field->text(), shown);
        QCOMPARE(field->value(), shown);
        QVERIFY(messages.texts.isEmpty());
    }

    void wrongInputIsToldAndKept() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<DateField>();
        form.open();
        form.enter(field, u"2005/2/30"_qs);
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(messages.texts.first().startsWith(u"日付が正しくありません。"_qs));
        QCOMPARE(field->text(), u"2005/2/30"_qs);
        QCOMPARE(field->value(), QString());
        QVERIFY(field->hasFocus());
    }

    void dateBeforeTheFloorIsToldAndKept() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<DateField>();
        form.open();
        for (const QString& typed : {u"1752/12/31"_qs, u"17521231"_qs, u"0099/1/1"_qs}) {
            form.enter(field, typed);
            QCOMPARE(field->value(), QString());
        }
        QCOMPARE(messages.texts.size(), 3);
        form.enter(field, u"1753/1/1"_qs);
        QCOMPARE(field->value(), u"1753/01/01"_qs);
    }

    // What is stored may have a time, or be no date that anybody would type.
    void storedDateIsGivenBackUntilItIsAnotherOne() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<DateField>();
        form.open();
        field->setValue(u"2005/03/01 9:05:00"_qs);
        QCOMPARE(field->text(), u"2005/03/01"_qs);
        QCOMPARE(field->value(), u"2005/03/01 9:05:00"_qs);
        field->setValue(u"1600/01/01"_qs);
        field->setFocus(Qt::TabFocusReason);
        form.leave();
        QVERIFY(field->commit());
        QCOMPARE(field->value(), u"1600/01/01"_qs);
        QVERIFY(messages.texts.isEmpty());
        form.enter(field, u"2005/03/01"_qs);
        QCOMPARE(field->value(), u"2005/03/01"_qs);
    }

    void eraFieldTakesDatesByTheirEraAlone() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<EraField>();
        form.open();
        QSignalSpy settled(field, &EntryField::valueSettled);
        form.enter(field, u"ｈ010401"_qs);
        QCOMPARE(field->value(), u"1989/04/01"_qs);
        QCOMPARE(settled.count(), 1);
        form.enter(field, u"2005/3/1"_qs);
        QCOMPARE(messages.texts,
                 QStringList(u"2005/3/1は日付として入力できません。 h010203 のように入力してください"_qs));
        QVERIFY(field->hasFocus());
        QCOMPARE(field->value(), QString());
    }

    void wrongInputMayBeLeftByAButtonThatGivesUp() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<DateField>();
        auto* cancel = form.add<QPushButton>();
        cancel->setProperty("leavesUnchecked", true);
        form.open();
        form.type(field, u"99"_qs);
        cancel->setFocus(Qt::MouseFocusReason);
        QCoreApplication::processEvents();
        QVERIFY(messages.texts.isEmpty());
        QVERIFY(cancel->hasFocus());
    }

    void valueIsKnownWhileTyping() {
        FormUnderTest form;
        auto* field = form.add<DateField>();
        QSignalSpy changes(field, &EntryField::valueChanged);
        form.open();
        form.type(field, u"R6.4.1"_qs);
        QCOMPARE(field->value(), u"2024/04/01"_qs);
        QCOMPARE(changes.count(), 1);
        form.leave();
        QCOMPARE(changes.count(), 1);
    }

    void calendarFillsTheField() {
        FormUnderTest form;
        auto* field = form.add<DateField>();
        field->setValue(u"2005/03/01"_qs);
        form.open();
        QTimer::singleShot(0, field, [] {
            auto* calendar = qobject_cast<frmCalendar*>(QApplication::activeModalWidget());
            QVERIFY(calendar);
            QCOMPARE(calendar->SetDate, QDate(2005, 3, 1));
            calendar->findChild<QPushButton*>(u"cbToday"_qs)->click();
            calendar->findChild<QPushButton*>(u"cbSelect"_qs)->click();
        });
        const CapturedMessages messages;
        field->openCalendar();
        QVERIFY2(messages.texts.isEmpty(), qPrintable(messages.texts.join(u' ')));
        QCOMPARE(field->value(), QDate::currentDate().toString(u"yyyy/MM/dd"_qs));
    }

    void closedCalendarLeavesTheField() {
        FormUnderTest form;
        auto* field = form.add<DateField>();
        field->setValue(u"2005/03/01"_qs);
        form.open();
        QTimer::singleShot(0, field, [] { QApplication::activeModalWidget()->close(); });
        field->openCalendar();
        QCOMPARE(field->value(), u"2005/03/01"_qs);
    }
};

HALVANE_TEST(DateFieldTest)
#include "DateFieldTest.moc"
