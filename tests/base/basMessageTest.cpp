#include "HalvaneTest.h"

#include "base/Text.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "support/MessageQueue.h"
#include "support/ProgramFolder.h"
#include "support/Raised.h"

#include <stdexcept>

Q_DECLARE_METATYPE(MessageIcon)
Q_DECLARE_METATYPE(MessageButtons)

class basMessageTest : public QObject {
    Q_OBJECT

private slots:
    void everyCodeHasItsBox_data() {
        using enum MessageIcon;
        using enum MessageButtons;
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::addColumn<MessageIcon>("icon");
        QTest::addColumn<MessageButtons>("buttons");
        QTest::addColumn<bool>("defaultIsNo");
        const auto row = [](int code, const QString& text, MessageIcon icon, MessageButtons buttons, bool no = false) {
            QTest::addRow("%d", code) << code << text << icon << buttons << no;
        };
        row(101, u"名前を入力して下さい。"_qs, Warning, Ok);
        row(102, u"名前を選択して下さい。"_qs, Warning, Ok);
        row(111, u"名前が無効です。"_qs, Warning, Ok);
        row(112, u"名前が重複しています。"_qs, Warning, Ok);
        row(121, u"名前が見つかりません。"_qs, Warning, Ok);
        row(122, u"名前がありません。"_qs, Warning, Ok);
        row(123, u"名前がオーバーフローします。"_qs, Warning, Ok);
        row(124, u"名前が設定されていません。"_qs, Warning, Ok);
        row(201, u"名前は変更されています。保存しますか？"_qs, Question, YesNoCancel);
        row(202, u"名前を削除しますか？"_qs, Question, YesNo, true);
        row(203, u"名前印刷を開始しますか？"_qs, Question, YesNo);
        row(204, u"名前をクリアしますか？\n\n※クリアすると現在の消費税相当額で金額を再計算します。"_qs, Question, YesNo,
            true);
        row(205, u"名前を実行します。よろしいですか？\n\n※実行すると現在の消費税相当額で金額を再計算します。"_qs,
            Question, YesNo, true);
        row(301, u"名前を保存した後、実行して下さい。"_qs, Warning, Ok);
        row(302, u"名前の編集を取り消します。よろしいですか？"_qs, Question, YesNo);
        row(901, u"名前"_qs, Warning, Ok);
        row(902, u"名前"_qs, Information, Ok);
        row(904, u"名前"_qs, Question, YesNo);
        row(905, u"名前"_qs, Question, YesNo, true);
        row(908, u"名前"_qs, Question, RetryCancel);
        row(909, u"名前"_qs, Question, YesNoCancel);
        row(992, u"名前"_qs, Question, YesNo);
        row(0, u"未定義ｴﾗｰ"_qs, Warning, Ok);
        row(103, u"未定義ｴﾗｰ"_qs, Warning, Ok);
        row(-1, u"未定義ｴﾗｰ"_qs, Warning, Ok);
    }
    void everyCodeHasItsBox() {
        QFETCH(int, code);
        MessageQueue boxes({AnswerYes});
        ShowMessage(code, u"名前"_qs);
        QCOMPARE(boxes.requests().size(), 1);
        const MessageBoxRequest& box = boxes.requests().first();
        QCOMPARE(box.title, u"Halvane"_qs);
        QTEST(box.text, "text");
        QTEST(box.icon, "icon");
        QTEST(box.buttons, "buttons");
        QTEST(box.defaultIsNo, "defaultIsNo");
    }

    void pressedButtonIsTheAnswer_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<qint16>("answer");
        QTest::newRow("yes") << 201 << qint16(6);
        QTest::newRow("no") << 202 << qint16(7);
        QTest::newRow("cancel") << 909 << qint16(2);
        QTest::newRow("retry") << 908 << qint16(4);
    }
    void pressedButtonIsTheAnswer() {
        QFETCH(int, code);
        QFETCH(qint16, answer);
        MessageQueue boxes({MessageAnswer(answer)});
        QCOMPARE(ShowMessage(code, {}), answer);
    }

    void boxWithOkAloneAnswersZero() {
        MessageQueue boxes;
        QCOMPARE(ShowMessage(901, u"x"_qs), qint16(0));
    }

    void currentErrorIsShownWithItsNumber() {
        MessageQueue boxes;
        try {
            throw AppError(u"壊れています。"_qs);
        } catch (const AppError&) {
            ShowMessage(991, {});
        }
        QCOMPARE(boxes.texts(), QStringList{u"壊れています。 (-2147220991)"_qs});
        QCOMPARE(boxes.requests().first().icon, MessageIcon::Critical);
    }

    void reportedErrorGoesToTheLogAndTheScreen() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10 9:05:07"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\n");
        gLogger = std::make_unique<clsLogger>();
        bool cursorBack = false;
        seams().waitCursor = [&](bool on) { cursorBack = !on; };
        MessageQueue boxes;
        const bool well = guarded([] { throw AppError(u"失敗"_qs, u"どこか"_qs); });
        gLogger.reset();
        seams().waitCursor = defaultSeams().waitCursor;
        QVERIFY(!well);
        QVERIFY(cursorBack);
        QCOMPARE(boxes.texts(), QStringList{u"失敗"_qs});
        QCOMPARE(folder.read(u"log/Log20240310.txt"_qs),
                 Text::toCp932(u"\"2024/03/10 09:05:07\",\"失敗 (どこか)\"\r\n"_qs));
    }

    void errorOfAnotherKindIsReportedInItsOwnWords() {
        MessageQueue boxes;
        guarded([] { throw std::runtime_error("odd"); });
        guarded([] { throw 5; });
        QCOMPARE(boxes.texts(), (QStringList{u"odd"_qs, u"未定義ｴﾗｰ"_qs}));
    }

    void workThatEndsWellReportsNothing() {
        MessageQueue boxes;
        QVERIFY(guarded([] {}));
        QVERIFY(boxes.isEmpty());
    }
};

HALVANE_TEST(basMessageTest)
#include "basMessageTest.moc"
