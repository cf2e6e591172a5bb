#include "FormUnderTest.h"
#include "HalvaneTest.h"
#include "support/CapturedMessages.h"

#include "ui/ChoiceBox.h"
#include "ui/basControlUtil.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTabBar>

class ChoiceBoxTest : public QObject {
    Q_OBJECT

private:
    static void fill(ChoiceBox& box) {
        box.addEntry(u"東京都"_qs, u"13"_qs);
        box.addEntry(u"大阪府"_qs, u"27"_qs);
    }

private slots:
    void nothingIsChosenAfterFilling() {
        ChoiceBox box;
        fill(box);
        QCOMPARE(box.text(), QString());
        QCOMPARE(box.data(), QString());
    }

    void longEntryDoesNotWidenTheForm() {
        ChoiceBox box;
        fill(box);
        const int former = box.sizeHint().width();
        box.addEntry(QString(40, u'長'));
        QVERIFY(box.sizeHint().width() >= former);
        QVERIFY(box.sizeHint().width() < box.fontMetrics().horizontalAdvance(QString(40, u'長')) / 2);
        QVERIFY(box.minimumSizeHint().width() <= box.sizeHint().width());
    }

    void longTextShowsItsBeginning() {
        ChoiceBox box;
        box.setEditable(true);
        fill(box);
        box.setFixedWidth(60);
        box.setText(u"名古屋市守山区大字中志段味"_qs);
        QCOMPARE(box.lineEdit()->cursorPosition(), 0);
    }

    void chosenEntryGivesItsData() {
        ChoiceBox box;
        fill(box);
        box.setText(u"大阪府"_qs);
        QCOMPARE(box.data(), u"27"_qs);
        QVERIFY(box.chooseByData(u"13"_qs));
        QCOMPARE(box.text(), u"東京都"_qs);
        QVERIFY(!box.chooseByData(u"99"_qs));
        QCOMPARE(box.data(), QString());
    }

    void deleteTakesAChoiceBackWhereItMayBeEmpty() {
        ChoiceBox box;
        fill(box);
        box.setText(u"大阪府"_qs);
        QTest::keyClick(&box, Qt::Key_Delete);
        QCOMPARE(box.text(), u"大阪府"_qs);
        box.setProperty("mayBeEmpty", true);
        QSignalSpy changes(&box, &ChoiceBox::valueChanged);
        QTest::keyClick(&box, Qt::Key_Delete);
        QCOMPARE(box.text(), QString());
        QCOMPARE(box.data(), QString());
        QCOMPARE(changes.count(), 1);
    }

    void showsATextThatIsNotInTheList() {
        for (const bool editable : {false, true}) {
            ChoiceBox box;
            box.setEditable(editable);
            fill(box);
            box.setText(u"琉球"_qs);
            QCOMPARE(box.text(), u"琉球"_qs);
            QCOMPARE(box.data(), QString());
            box.setText(u"大阪府"_qs);
            QCOMPARE(box.data(), u"27"_qs);
        }
    }

    void typedTextBesideAnOlderChoiceHasNoData() {
        ChoiceBox box;
        box.setEditable(true);
        fill(box);
        box.setText(u"大阪府"_qs);
        box.setEditText(u"大阪"_qs);
        QCOMPARE(box.data(), QString());
        box.setEditText(u"東京都"_qs);
        QCOMPARE(box.data(), u"13"_qs);
    }

    void pastedLineChoosesItsEntry() {
        ChoiceBox box;
        box.setEditable(true);
        fill(box);
        box.setEditText(u" 大阪府 \n"_qs);
        QCOMPARE(box.text(), u"大阪府"_qs);
        QCOMPARE(box.data(), u"27"_qs);
        box.setEditText(u"琉球\r\n二"_qs);
        QCOMPARE(box.text(), u"琉球"_qs);
    }

    void storedTextIsGivenBackUntilItIsAnotherOne() {
        ChoiceBox box;
        box.setEditable(true);
        box.setMaxLength(3);
        fill(box);
        box.setText(u" 琉球王国 "_qs);
        QCOMPARE(box.currentText(), u"琉球王"_qs);
        QCOMPARE(box.text(), u" 琉球王国 "_qs);
        box.setEditText(u"琉球"_qs);
        QCOMPARE(box.text(), u"琉球"_qs);
    }

    void numericBoxTakesNumbersAlone() {
        const CapturedMessages messages;
        FormUnderTest form;
        auto* box = form.add<ChoiceBox>();
        box->setNumeric(true);
        box->addEntry(u"8"_qs, u"2"_qs);
        form.open();
        form.enter(box, u"１０"_qs);
        QCOMPARE(box->text(), u"10"_qs);
        box->lineEdit()->selectAll();
        form.enter(box, u"8"_qs);
        QCOMPARE(box->data(), u"2"_qs);
        box->lineEdit()->selectAll();
        form.enter(box, u"1-2"_qs);
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(box->hasFocus());
        QCOMPARE(box->currentText(), u"1-2"_qs);
    }

    void returnTakesTheOnlySuggestionForWhatWasTyped() {
        FormUnderTest form;
        auto* box = form.add<ChoiceBox>();
        box->setEditable(true);
        fill(*box);
        box->addEntry(u"大分県"_qs, u"44"_qs);
        box->addEntry(u"95"_qs, u"95"_qs);
        form.open();
        const auto typed = [&](const QString& text) {
            form.leave();
            box->lineEdit()->selectAll();
            form.type(box, text);
            QTest::keyClick(box, Qt::Key_Return);
            QCoreApplication::processEvents();
            return box->text();
        };
        QCOMPARE(typed(u"阪"_qs), u"大阪府"_qs);
        QCOMPARE(box->data(), u"27"_qs);
        QCOMPARE(typed(u"大"_qs), u"大"_qs); // two of them
        QCOMPARE(typed(u"琉球"_qs), u"琉球"_qs);
        QCOMPARE(typed(u"東京都"_qs), u"東京都"_qs);
        QCOMPARE(typed(u"5"_qs), u"5"_qs);
        form.leave();
        box->setText(u"大阪"_qs); // as it is stored
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->text(), u"大阪"_qs);
    }

    void changesAreTold() {
        ChoiceBox box;
        fill(box);
        QSignalSpy changes(&box, &ChoiceBox::valueChanged);
        box.setText(u"大阪府"_qs);
        box.setText(u"大阪府"_qs);
        box.setText(u"琉球"_qs);
        QCOMPARE(changes.count(), 2);
    }

    void allEntryReadsAsNoFilter() {
        ChoiceBox box;
        FillCommaList(&box, u"100,95,70"_qs, {true, true});
        QCOMPARE(box.count(), 5);
        box.setText(allEntry);
        QCOMPARE(FilterText(&box), QString());
        QCOMPARE(box.data(), QString());
        box.setText(noneEntry);
        QCOMPARE(FilterText(&box), QString());
        box.setText(u"95"_qs);
        QCOMPARE(FilterText(&box), u"95"_qs);
        QCOMPARE(box.data(), u"95"_qs);
    }

    void kanaTabsGiveRanges() {
        QTabBar tabs;
        FillKanaTabs(&tabs);
        QCOMPARE(tabs.count(), 12);
        QCOMPARE(KanaTabFilter(u"[フリガナ1]"_qs, 0), QString());
        QCOMPARE(KanaTabFilter(u"[フリガナ1]"_qs, 1), u"[フリガナ1] >= 'ｱ' AND [フリガナ1] < 'ｶ'"_qs);
        QCOMPARE(KanaTabFilter(u"[フリガナ1]"_qs, 11), u"[フリガナ1] < 'ｱ' OR [フリガナ1] > 'ﾝ'"_qs);
    }

    void aReadingHasItsTab() {
        QCOMPARE(KanaTabOf({}), -1);
        const QStringList rows{u"ｱｵ"_qs, u"ｶｺ"_qs, u"ｻｿ"_qs, u"ﾀﾄ"_qs, u"ﾅﾉ"_qs,
                               u"ﾊﾎ"_qs, u"ﾏﾓ"_qs, u"ﾔﾖ"_qs, u"ﾗﾛ"_qs, u"ﾜﾝ"_qs};
        for (int row = 0; row < rows.size(); ++row)
            for (const QChar end : rows.at(row)) QCOMPARE(KanaTabOf(end + u"ﾊﾅ"_qs), row + 1);
        for (const QString& other : {u"Smith"_qs, u"9"_qs, u"山"_qs, u"%"_qs, u"ｯ"_qs}) QCOMPARE(KanaTabOf(other), 11);
    }
};

HALVANE_TEST(ChoiceBoxTest)
#include "ChoiceBoxTest.moc"
