#include "HalvaneTest.h"

#include "base/Seams.h"
#include "ui/DialogSeams.h"

#include <QPushButton>

class DialogSeamsTest : public QObject {
    Q_OBJECT

private:
    static QStringList buttonTexts(const QMessageBox& box) {
        QStringList texts;
        for (const QAbstractButton* button : box.buttons()) texts << button->text();
        texts.sort();
        return texts;
    }

private slots:
    void boxesSpeakJapaneseWithAltLetters() {
        QMessageBox box;
        prepareMessageBox(box,
                          {u"Halvane"_qs, u"保存しますか？"_qs, MessageIcon::Question, MessageButtons::YesNoCancel});
        QCOMPARE(buttonTexts(box), (QStringList{u"いいえ(&N)"_qs, u"はい(&Y)"_qs, u"キャンセル(&C)"_qs}));
        QCOMPARE(box.windowTitle(), u"Halvane"_qs);
        QCOMPARE(box.icon(), QMessageBox::Question);
        QCOMPARE(box.defaultButton()->text(), u"はい(&Y)"_qs);
        QCOMPARE(box.escapeButton()->text(), u"キャンセル(&C)"_qs);
    }

    void defaultMayBeNo() {
        QMessageBox box;
        prepareMessageBox(box,
                          {u"Halvane"_qs, u"削除しますか？"_qs, MessageIcon::Question, MessageButtons::YesNo, true});
        QCOMPARE(box.defaultButton()->text(), u"いいえ(&N)"_qs);
        QCOMPARE(box.escapeButton()->text(), u"いいえ(&N)"_qs);
    }

    void retryOffersItsOwnButtons() {
        QMessageBox box;
        prepareMessageBox(box, {u"Halvane"_qs, u"接続"_qs, MessageIcon::Question, MessageButtons::RetryCancel});
        QCOMPARE(buttonTexts(box), (QStringList{u"キャンセル(&C)"_qs, u"再試行(&R)"_qs}));
        QCOMPARE(box.defaultButton()->text(), u"再試行(&R)"_qs);
    }

    void waitCursorGoesOffAtOnce() {
        fillSeamsWithDialogs();
        seams().waitCursor(true);
        seams().waitCursor(true);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        seams().waitCursor(false);
        QVERIFY(!QGuiApplication::overrideCursor());
        seams() = defaultSeams();
    }
};

HALVANE_TEST(DialogSeamsTest)
#include "DialogSeamsTest.moc"
