#include "FormUnderTest.h"
#include "HalvaneTest.h"
#include "support/CapturedMessages.h"

#include "ui/NumberField.h"

#include <QSignalSpy>

class NumberFieldTest : public QObject {
    Q_OBJECT

private slots:
    void showsThousandsSeparatorsWithoutTheFocus() {
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        form.open();
        form.type(field, u"1234567"_qs);
        QCOMPARE(field->text(), u"1234567"_qs);
        form.leave();
        QCOMPARE(field->text(), u"1,234,567"_qs);
        QCOMPARE(field->value(), u"1234567"_qs);
        field->setFocus(Qt::TabFocusReason);
        QCOMPARE(field->text(), u"1234567"_qs);
    }

    void fullWidthDigitsAreNarrowed() {
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        form.open();
        form.enter(field, u"－１２３４"_qs);
        QCOMPARE(field->value(), u"-1234"_qs);
        QCOMPARE(field->text(), u"-1,234"_qs);
    }

    void lettersAreNotTaken() {
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        form.open();
        form.enter(field, u"1a2円3"_qs);
        QCOMPARE(field->value(), u"123"_qs);
    }

    void emptyIsAllowed() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        field->setValue(u"5"_qs);
        form.open();
        form.type(field, QString());
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        form.leave();
        QCOMPARE(field->value(), QString());
        QVERIFY(messages.texts.isEmpty());
    }

    void decimalsAsAllowed() {
        NumberField field;
        field.setDecimals(1);
        field.setValue(u"1234.5"_qs);
        QCOMPARE(field.text(), u"1,234.5"_qs);
        QCOMPARE(field.value(), u"1234.5"_qs);
    }

    // Left out without a word, it would make the number ten times as large.
    void pointWhereNoneBelongsIsToldAndKept() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        form.open();
        form.enter(field, u"1.5"_qs);
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(messages.texts.first().contains(u"整数"_qs));
        QCOMPARE(field->text(), u"1.5"_qs);
        field->setValue(u"1000.5"_qs);
        QCOMPARE(field->value(), u"1000.5"_qs);
    }

    void signsInTheMiddleAreToldAndKept() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        form.open();
        form.enter(field, u"1-2"_qs);
        QCOMPARE(messages.texts.size(), 1);
        QCOMPARE(field->text(), u"1-2"_qs);
        QVERIFY(field->hasFocus());
    }

    void storedDecimalsAreShownInWholeNumbersAndGivenBack() {
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        form.open();
        form.leave();
        field->setValue(u"1234.5"_qs);
        QCOMPARE(field->text(), u"1,234"_qs);
        QCOMPARE(field->value(), u"1234.5"_qs);
        field->setFocus(Qt::TabFocusReason);
        form.leave();
        QCOMPARE(field->text(), u"1,234"_qs);
        QCOMPARE(field->value(), u"1234.5"_qs);
        form.enter(field, u"1235"_qs);
        QCOMPARE(field->value(), u"1235"_qs);
    }

    void numberBeyondItsLimitNamesTheField() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        field->setLimit(999, u"耐用年数"_qs);
        form.open();
        form.enter(field, u"9000"_qs);
        QCOMPARE(messages.texts, QStringList(u"耐用年数がオーバーフローします。"_qs));
        QVERIFY(field->hasFocus());
        form.enter(field, u"999"_qs);
        QCOMPARE(field->text(), u"999"_qs);
    }

    void separatorsAreNoChange() {
        FormUnderTest form;
        auto* field = form.add<NumberField>();
        field->setValue(u"1234"_qs);
        QSignalSpy changes(field, &EntryField::valueChanged);
        form.open();
        field->setFocus(Qt::TabFocusReason);
        form.leave();
        QCOMPARE(changes.count(), 0);
    }
};

HALVANE_TEST(NumberFieldTest)
#include "NumberFieldTest.moc"
