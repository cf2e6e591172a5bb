#include "HalvaneTest.h"

#include "ui/MemoField.h"
#include "ui/Screen.h"
#include "ui/TextField.h"

#include <QVBoxLayout>

namespace {

struct MemoScreen : Screen {
    void load() override {}

    TextField* before = add<TextField>();
    MemoField* memo = add<MemoField>();
    TextField* behind = add<TextField>();

    template <class Field> Field* add() {
        if (!layout()) new QVBoxLayout(this);
        auto* field = new Field(this);
        layout()->addWidget(field);
        return field;
    }
};

} // namespace

class MemoFieldTest : public QObject {
    Q_OBJECT

private slots:
    void returnMovesOnAndAltReturnBreaksTheLine() {
        MemoScreen form;
        MemoField* memo = form.memo;
        form.show();
        QApplication::setActiveWindow(&form);
        const auto press = [&](Qt::KeyboardModifiers modifiers) {
            memo->setFocus();
            QTest::keyClick(memo, Qt::Key_Return, modifiers);
            QCoreApplication::processEvents();
        };
        memo->setValue(u"一行目"_qs);
        press(Qt::NoModifier);
        QVERIFY(form.behind->hasFocus());
        press(Qt::ControlModifier);
        QVERIFY(form.behind->hasFocus());
        press(Qt::ShiftModifier);
        QVERIFY(form.before->hasFocus());
        QCOMPARE(memo->value(), u"一行目"_qs);
        memo->moveCursor(QTextCursor::End);
        press(Qt::AltModifier);
        QVERIFY(memo->hasFocus());
        QTest::keyClicks(memo, u"b"_qs);
        QCOMPARE(memo->value(), u"一行目\nb"_qs);
    }
};

HALVANE_TEST(MemoFieldTest)
#include "MemoFieldTest.moc"
