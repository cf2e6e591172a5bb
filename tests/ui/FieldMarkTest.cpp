#include "FormUnderTest.h"
#include "HalvaneTest.h"

#include "ui/ChoiceBox.h"
#include "ui/FieldMark.h"
#include "ui/TextField.h"

class FieldMarkTest : public QObject {
    Q_OBJECT

private slots:
    void aMarkStandsAtTheEndOfItsFieldAndLeavesRoomForTheText() {
        FormUnderTest form;
        auto* field = form.add<TextField>();
        form.open();
        FieldMark::set(field, u"新規"_qs);
        QCOMPARE(FieldMark::of(field), u"新規"_qs);
        const auto* mark = field->findChild<FieldMark*>();
        QVERIFY(mark->isVisible());
        QVERIFY(field->rect().contains(mark->geometry()));
        QVERIFY(field->textMargins().right() >= mark->width());
        QCOMPARE(field->accessibleDescription(), u"新規"_qs);
        field->resize(field->width() + 50, field->height());
        QVERIFY(mark->geometry().right() > field->width() - 10);
        FieldMark::set(field, {});
        QVERIFY(!mark->isVisible());
        QCOMPARE(field->textMargins().right(), 0);
        QCOMPARE(FieldMark::of(field), QString());
    }

    void theArrowOfAListStaysFree() {
        FormUnderTest form;
        auto* box = form.add<ChoiceBox>();
        box->setEditable(true);
        form.open();
        FieldMark::set(box, u"新規"_qs);
        QVERIFY(box->findChild<FieldMark*>()->geometry().right() < box->width() - 16);
        QVERIFY(box->lineEdit()->textMargins().right() > 0);
    }

    void withoutWordsNothingIsMade() {
        QLabel label;
        FieldMark::set(&label, {});
        QVERIFY(!label.findChild<FieldMark*>());
    }
};

HALVANE_TEST(FieldMarkTest)
#include "FieldMarkTest.moc"
