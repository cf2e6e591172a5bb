#include "HalvaneTest.h"

#include "ui/FormPieces.h"

#include <QPushButton>

class FormPiecesTest : public QObject {
    Q_OBJECT

private slots:
    void aControlThatCannotBeUsedSaysWhyAndGetsItsHintBack() {
        QPushButton button;
        button.setToolTip(u"Alt+Y"_qs);
        FormPieces::allow(&button, u"行がありません。"_qs);
        QVERIFY(!button.isEnabled());
        QCOMPARE(button.toolTip(), u"Alt+Y\n行がありません。"_qs);
        FormPieces::allow(&button, u"まだです。"_qs);
        QCOMPARE(button.toolTip(), u"Alt+Y\nまだです。"_qs);
        FormPieces::allow(&button, {});
        QVERIFY(button.isEnabled());
        QCOMPARE(button.toolTip(), u"Alt+Y"_qs);
    }

    void withoutAHintOfItsOwnTheReasonStandsAlone() {
        QPushButton button;
        FormPieces::allow(&button, u"行がありません。"_qs);
        QCOMPARE(button.toolTip(), u"行がありません。"_qs);
        FormPieces::allow(&button, {});
        QCOMPARE(button.toolTip(), QString());
    }
};

HALVANE_TEST(FormPiecesTest)
#include "FormPiecesTest.moc"
