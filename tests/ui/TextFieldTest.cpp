#include "FormUnderTest.h"
#include "HalvaneTest.h"

#include "ui/MemoField.h"
#include "ui/TextField.h"

#include <QClipboard>
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
    void whatWasFilledInIsGoneOnWith() {
        FormUnderTest form;
        auto* field = form.add<TextField>();
        form.open();
        field->fillIn(u"栄"_qs);
        form.enter(field, u"3丁目"_qs);
        QCOMPARE(field->value(), u"栄3丁目"_qs);
        form.enter(field, u"錦"_qs); // written to, it is a field as any other
        QCOMPARE(field->value(), u"錦"_qs);
        field->fillIn(u"栄"_qs);
        field->setValue(u"丸の内"_qs); // another record is shown
        form.enter(field, u"錦"_qs);
        QCOMPARE(field->value(), u"錦"_qs);
        field->fillIn({});
        form.enter(field, u"栄"_qs);
        QCOMPARE(field->value(), u"栄"_qs);
    }

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

    void pastedLinesBecomeTheFirstOne_data() {
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("value");
        QTest::newRow("Windows line end") << u"愛知県\r\n"_qs << u"愛知県"_qs;
        QTest::newRow("blanks around") << u" \t愛知県 \n"_qs << u"愛知県"_qs;
        QTest::newRow("ideographic blanks around") << u"　愛知県　"_qs << u"愛知県"_qs;
        QTest::newRow("empty line ahead") << u"\n愛知県"_qs << u"愛知県"_qs;
        QTest::newRow("second line") << u"愛知県\n岐阜県"_qs << u"愛知県"_qs;
        QTest::newRow("line separator") << u"愛知県\u2028岐阜県"_qs << u"愛知県"_qs;
        QTest::newRow("tab inside") << u"愛知県\t名古屋市"_qs << u"愛知県 名古屋市"_qs;
        QTest::newRow("control character") << u"愛\u0001知県"_qs << u"愛知県"_qs;
        QTest::newRow("lone half") << u"愛"_qs + QChar(0xD842) + u"知県"_qs << u"愛知県"_qs;
        QTest::newRow("sign of two units") << u"𠮷田\n"_qs << u"𠮷田"_qs;
    }
    void pastedLinesBecomeTheFirstOne() {
        QFETCH(QString, pasted);
        FormUnderTest form;
        auto* field = form.add<TextField>();
        form.open();
        field->setFocus(Qt::TabFocusReason);
        QApplication::clipboard()->setText(pasted);
        field->paste();
        QTEST(field->value(), "value");
        form.leave();
        QTEST(field->text(), "value");
    }

    void linePastedIntoATextLeavesItsEnd() {
        FormUnderTest form;
        auto* field = form.add<TextField>();
        field->setText(u"東都"_qs);
        form.open();
        field->setFocus();
        field->setCursorPosition(1);
        QApplication::clipboard()->setText(u"京\n大阪"_qs);
        field->paste();
        QCOMPARE(field->text(), u"東京都"_qs);
        QCOMPARE(field->cursorPosition(), 2);
    }

    // A stored text that the field shows otherwise is no change until somebody makes another of it.
    void setTextIsGivenBackUntilItIsAnotherOne() {
        FormUnderTest form;
        auto* field = form.add<TextField>();
        field->setInputMode(TextField::Off);
        field->setMaxLength(8);
        QSignalSpy changes(field, &EntryField::valueChanged);
        const QString stored = u"０５２ー１２３４５６\r\n"_qs;
        field->setValue(stored);
        QCOMPARE(field->text(), u"052-1234"_qs);
        QCOMPARE(field->value(), stored);
        QCOMPARE(changes.count(), 1);
        form.open();
        field->setFocus(Qt::TabFocusReason);
        form.leave();
        QVERIFY(field->commit());
        QCOMPARE(field->value(), stored);
        QCOMPARE(changes.count(), 1);
        form.enter(field, u"０５２－９"_qs);
        QCOMPARE(field->value(), u"052-9"_qs);
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
        memo.setPlainText(u"一行\n二行目"_qs);
        QCOMPARE(memo.value(), u"一行\n二行"_qs);
        QCOMPARE(changes.count(), 1);
    }

    void memoGivesBackWhatWasSet() {
        MemoField memo;
        memo.setMaxLength(5);
        QSignalSpy changes(&memo, &MemoField::valueChanged);
        const QString stored = u"一行\r\n二行目"_qs;
        memo.setValue(stored);
        QCOMPARE(memo.toPlainText(), u"一行\n二行"_qs);
        QCOMPARE(memo.value(), stored);
        memo.setValue(stored);
        QCOMPARE(changes.count(), 1);
        memo.setPlainText(u"三"_qs + QChar(0xDC00));
        QCOMPARE(memo.value(), u"三\uFFFD"_qs);
    }
};

HALVANE_TEST(TextFieldTest)
#include "TextFieldTest.moc"
