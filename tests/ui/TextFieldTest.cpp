#include "FormUnderTest.h"
#include "HalvaneTest.h"

#include "ui/MemoField.h"
#include "ui/TextField.h"

#include <QInputMethodEvent>
#include <QSignalSpy>

namespace {

void compose(TextField* field, const QString& preedit) {
    QInputMethodEvent event(preedit, {});
    QApplication::sendEvent(field, &event);
}

void commitText(TextField* field, const QString& text, const QString& nextPreedit = {}) {
    QInputMethodEvent event(nextPreedit, {});
    event.setCommitString(text);
    QApplication::sendEvent(field, &event);
}

} // namespace

class TextFieldTest : public QObject {
    Q_OBJECT

private slots:
    void lengthCountsCharacters() {
        TextField field;
        field.setMaxLength(3);
        field.setText(u"𠮷野家本店"_qs);
        QCOMPARE(field.text(), u"𠮷野家"_qs);
    }

    void whatGoesBeyondTheLengthIsNotTaken() {
        FormUnderTest form;
        auto* field = form.add<TextField>();
        field->setMaxLength(4);
        field->setText(u"山田花子"_qs);
        form.open();
        field->setFocus();
        field->setCursorPosition(2);
        field->insert(u"太郎"_qs);
        QCOMPARE(field->text(), u"山田花子"_qs);
    }

    void longTextShowsItsBeginning() {
        FormUnderTest form;
        auto* field = form.add<TextField>();
        form.open();
        form.leave();
        field->setValue(QString(100, u'院'));
        QCOMPARE(field->cursorPosition(), 0);
        form.type(field, QString(100, u'医'));
        form.leave();
        QCOMPARE(field->cursorPosition(), 0);
    }

    void numbersAndCodesBecomeNarrowWhenLeft() {
        FormUnderTest form;
        auto* field = form.add<TextField>();
        field->setInputMode(TextField::Off);
        form.open();
        form.type(field, u"４９８－００１７"_qs);
        QCOMPARE(field->value(), u"498-0017"_qs);
        form.leave();
        QCOMPARE(field->text(), u"498-0017"_qs);
    }

    void readingBecomesHalfWidthKatakanaWhenLeft() {
        FormUnderTest form;
        auto* field = form.add<TextField>();
        field->setInputMode(TextField::HalfKana);
        form.open();
        form.type(field, u"やまダ"_qs);
        QCOMPARE(field->text(), u"やまダ"_qs);
        QCOMPARE(field->value(), u"ﾔﾏﾀﾞ"_qs);
        form.leave();
        QCOMPARE(field->text(), u"ﾔﾏﾀﾞ"_qs);
    }

    void nameFillsItsReadingFromTheInputMethod() {
        TextField name, reading;
        reading.setInputMode(TextField::HalfKana);
        name.setReadingField(&reading);
        for (const QString& spelled : {u"や"_qs, u"やｍ"_qs, u"やま"_qs, u"やまだ"_qs, u"山田"_qs, u"山打"_qs})
            compose(&name, spelled);
        commitText(&name, u"山田"_qs);
        QCOMPARE(name.text(), u"山田"_qs);
        QCOMPARE(reading.text(), u"ﾔﾏﾀﾞ"_qs);
    }

    void secondWordIsAppendedToTheReading() {
        TextField name, reading;
        name.setReadingField(&reading);
        compose(&name, u"やま"_qs);
        compose(&name, u"山"_qs);
        commitText(&name, u"山"_qs, u"だ"_qs); // typing on commits the word before
        compose(&name, u"田"_qs);
        commitText(&name, u"田"_qs);
        QCOMPARE(reading.text(), u"ﾔﾏﾀﾞ"_qs);
    }

    void nameTypedAnewReplacesTheReading() {
        TextField name, reading;
        name.setReadingField(&reading);
        name.setText(u"佐藤"_qs);
        reading.setText(u"ｻﾄｳ"_qs);
        name.selectAll();
        compose(&name, u"すずき"_qs);
        commitText(&name, u"鈴木"_qs);
        QCOMPARE(name.text(), u"鈴木"_qs);
        QCOMPARE(reading.text(), u"ｽｽﾞｷ"_qs);
    }

    void abandonedCompositionLeavesTheReading() {
        TextField name, reading;
        name.setReadingField(&reading);
        compose(&name, u"やま"_qs);
        compose(&name, QString());
        commitText(&name, u"A"_qs);
        QCOMPARE(reading.text(), QString());
    }

    void tellsItsChanges() {
        TextField field;
        QSignalSpy changes(&field, &EntryField::valueChanged);
        field.setText(u"a"_qs);
        field.setText(u"a"_qs);
        QCOMPARE(changes.count(), 1);
    }

    void memoKeepsItsLength() {
        MemoField memo;
        memo.setMaxLength(5);
        QSignalSpy changes(&memo, &MemoField::valueChanged);
        memo.setValue(u"一行\n二行目"_qs);
        QCOMPARE(memo.value(), u"一行\n二行"_qs);
        QCOMPARE(changes.count(), 1);
    }
};

HALVANE_TEST(TextFieldTest)
#include "TextFieldTest.moc"
