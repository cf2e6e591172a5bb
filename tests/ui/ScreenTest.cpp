#include "FormUnderTest.h"
#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/FileLimit.h"

#include "base/AppError.h"
#include "base/clsProfile.h"
#include "ui/ChoiceBox.h"
#include "ui/DateField.h"
#include "ui/MemoField.h"
#include "ui/NumberField.h"
#include "ui/Screen.h"
#include "ui/TextField.h"

#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>

namespace {

// A screen with one field of each kind, a helper button between them and a command.
class frmTest : public Screen {
public:
    explicit frmTest(QWidget* parent = nullptr) : Screen(parent) {
        setObjectName(u"frmTest"_qs);
        auto* box = new QVBoxLayout(this);
        pages.addTab(new QWidget, u"基本"_qs);
        pages.addTab(new QWidget, u"予定"_qs);
        (new QVBoxLayout(pages.widget(0)))->addWidget(&ticket);
        box->addWidget(&pages);
        cancel.setText(u"キャンセル(&E)"_qs);
        cancel.setProperty("leavesUnchecked", true);
        box->addWidget(&cancel);
        for (QWidget* widget : std::initializer_list<QWidget*>{&name, &helper, &day, &price, &choice, &memo, &save})
            box->addWidget(widget);
        helper.setText(u"検索"_qs);
        save.setText(u"反映(&U)"_qs);
        onClick(&save, [this] { work(); });
    }

    using Screen::leaveField;
    using Screen::onReturn;
    using Screen::wrappers;

    QString input;
    bool fails = false;
    bool stays = false;
    std::function<void()> work = [] {};
    QTabWidget pages;
    DateField ticket; // on the first page
    QPushButton cancel;
    TextField name;
    QPushButton helper;
    DateField day;
    NumberField price;
    ChoiceBox choice;
    MemoField memo;
    QPushButton save;

protected:
    void load() override {
        if (fails) throw AppError(u"読めません。"_qs);
        name.setText(input);
        AttachControls(this, wrappers);
        ClearEdited(wrappers);
    }
    bool queryUnload() override { return !stays; }
};

} // namespace

class ScreenTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    void writeIni(const QByteArray& text) {
        QFile ini(m_folder.filePath(u"Halvane.ini"_qs));
        QVERIFY(ini.open(QIODevice::WriteOnly));
        ini.write(text);
    }

    static void show(Screen& screen) {
        screen.show();
        QApplication::setActiveWindow(&screen);
        QCoreApplication::processEvents();
    }

private slots:
    void init() {
        seams().programFolder = [this] { return m_folder.path(); };
        writeIni("[Misc]\r\n");
    }
    void cleanupTestCase() { seams() = defaultSeams(); }

    void aSheetStaysInsideItsScreen() {
        frmTest form;
        form.setStyleSheet(u"QPushButton { min-height: 200px; }"_qs);
        QVERIFY(form.Load());
        frmTest opened(&form);
        QVERIFY(opened.Load());
        for (QPushButton* button : {&form.save, &opened.save}) button->ensurePolished();
        QVERIFY(form.save.sizeHint().height() >= 200);
        QVERIFY(opened.save.sizeHint().height() < 200);
    }

    void opensInFixedSteps() {
        QStringList steps;
        QTimer::singleShot(0, [&steps] {
            steps << u"run"_qs;
            QApplication::activeModalWidget()->close();
        });
        const bool opened = openScreen<frmTest>(
            nullptr,
            [&](frmTest& screen) {
                steps << u"prepare"_qs;
                QVERIFY(!screen.Loaded);
                screen.input = u"山田"_qs;
            },
            [&](frmTest& screen) {
                steps << u"read"_qs;
                QVERIFY(screen.Loaded);
                QCOMPARE(screen.name.text(), u"山田"_qs);
            });
        QVERIFY(opened);
        QCOMPARE(steps, (QStringList{u"prepare"_qs, u"run"_qs, u"read"_qs}));
    }

    void screenThatCannotLoadIsNotShown() {
        const CapturedMessages messages;
        bool read = false;
        QVERIFY(!openScreen<frmTest>(
            nullptr, [](frmTest& screen) { screen.fails = true; }, [&read](frmTest&) { read = true; }));
        QVERIFY(!read);
        QCOMPARE(messages.texts, QStringList{u"読めません。"_qs});
    }

    void failureInAButtonIsReportedAndTheScreenStays() {
        const CapturedMessages messages;
        frmTest screen;
        QVERIFY(screen.Load());
        show(screen);
        screen.work = [] { throw AppError(u"書けません。"_qs); };
        screen.save.click();
        QCOMPARE(messages.texts, QStringList{u"書けません。"_qs});
        QVERIFY(screen.isVisible());
    }

    void returnGoesToTheNextFieldAndShiftReturnBack() {
        frmTest screen;
        QVERIFY(screen.Load());
        show(screen);
        screen.name.setFocus();
        QTest::keyClick(&screen.name, Qt::Key_Return);
        QVERIFY(screen.day.hasFocus()); // the helper button is passed over
        QTest::keyClick(&screen.day, Qt::Key_Return, Qt::ShiftModifier);
        QVERIFY(screen.name.hasFocus());
        screen.choice.setFocus();
        QTest::keyClick(&screen.choice, Qt::Key_Return);
        QVERIFY(screen.memo.hasFocus());
    }

    void returnBehindTheLastFieldReachesTheCommandAndPressesIt() {
        frmTest screen;
        screen.memo.hide();
        QVERIFY(screen.Load());
        show(screen);
        bool saved = false;
        screen.work = [&saved] { saved = true; };
        screen.choice.setFocus();
        QTest::keyClick(&screen.choice, Qt::Key_Return);
        QVERIFY(screen.save.hasFocus());
        QTest::keyClick(&screen.save, Qt::Key_Return);
        QVERIFY(saved);
    }

    void returnInAFieldMayHaveWorkOfItsOwn() {
        frmTest screen;
        QVERIFY(screen.Load());
        show(screen);
        QString sought;
        screen.onReturn(&screen.name, [&] { sought = screen.name.text(); });
        screen.name.setText(u"10"_qs);
        screen.name.setFocus();
        QTest::keyClick(&screen.name, Qt::Key_Return);
        QCOMPARE(sought, u"10"_qs);
        QVERIFY(screen.day.hasFocus());
    }

    void altLetterTakesOverWhatIsBeingTyped() {
        frmTest screen;
        QVERIFY(screen.Load());
        show(screen);
        QString saved;
        screen.work = [&] { saved = screen.day.text(); };
        screen.day.setFocus();
        QTest::keyClicks(&screen.day, u"h170301"_qs);
        QTest::keyClick(&screen.day, Qt::Key_U, Qt::AltModifier);
        QTRY_COMPARE(saved, u"2005/03/01"_qs);
    }

    void altLetterIsRefusedWithAWrongDate() {
        const CapturedMessages messages;
        frmTest screen;
        QVERIFY(screen.Load());
        show(screen);
        bool saved = false;
        screen.work = [&saved] { saved = true; };
        screen.day.setFocus();
        QTest::keyClicks(&screen.day, u"99"_qs);
        QTest::keyClick(&screen.day, Qt::Key_U, Qt::AltModifier);
        QTRY_VERIFY(!screen.save.isDown()); // as one would be that was pressed
        QVERIFY(!saved);
        QCOMPARE(messages.texts.size(), 1);
        QCOMPARE(screen.day.text(), u"99"_qs);
    }

    void aWrongEntryThatWasLeftToGiveUpIsFoundLater() {
        const CapturedMessages messages;
        frmTest screen;
        QVERIFY(screen.Load());
        show(screen);
        screen.ticket.setFocus();
        QTest::keyClicks(&screen.ticket, u"99"_qs);
        screen.cancel.setFocus(Qt::MouseFocusReason);
        QCoreApplication::processEvents();
        QCOMPARE(messages.texts, QStringList());
        screen.pages.setCurrentIndex(1);
        QVERIFY(!screen.leaveField());
        QCOMPARE(messages.texts.size(), 1);
        QCOMPARE(screen.pages.currentIndex(), 0);
        QVERIFY(screen.ticket.hasFocus());
        QCOMPARE(screen.ticket.text(), u"99"_qs);
        screen.ticket.setText({});
        QVERIFY(screen.leaveField());
    }

    void aPageIsNotTurnedOverAWrongEntry() {
        const CapturedMessages messages;
        frmTest screen;
        QVERIFY(screen.Load());
        show(screen);
        screen.ticket.setFocus();
        QTest::keyClicks(&screen.ticket, u"99"_qs);
        QTabBar* tabs = screen.pages.tabBar();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
        QCOMPARE(screen.pages.currentIndex(), 0);
        QTest::keyClick(&screen.ticket, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(screen.pages.currentIndex(), 0);
        QCOMPARE(messages.texts.size(), 2);
        QVERIFY(screen.ticket.hasFocus());
        screen.ticket.setText(u"h170301"_qs);
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
        QCOMPARE(screen.pages.currentIndex(), 1);
        QCOMPARE(screen.ticket.text(), u"2005/03/01"_qs);
    }

    void closesTheSameWayByFrameEscapeAndButton() {
        frmTest screen;
        QVERIFY(screen.Load());
        show(screen);
        screen.stays = true;
        QTest::keyClick(&screen, Qt::Key_Escape);
        screen.close();
        QVERIFY(screen.isVisible());
        screen.stays = false;
        QTest::keyClick(&screen, Qt::Key_Escape);
        QVERIFY(!screen.isVisible());
    }

    void positionIsKeptInTwips() {
        writeIni("[frmTest]\r\nTop=1500\r\nLeft=3000\r\n");
        frmTest screen;
        QVERIFY(screen.Load());
        QCOMPARE(screen.pos(), QPoint(200, 100));
        screen.move(40, 20);
        SaveFormPosition(&screen);
        const clsProfile profile;
        QCOMPARE(profile.GetValue(u"frmTest"_qs, u"Top"_qs), u"300"_qs);
        QCOMPARE(profile.GetValue(u"frmTest"_qs, u"Left"_qs), u"600"_qs);
    }

    void topThatNoLongerFitsTheDisplayIsAppliedAllTheSame() {
        writeIni("[frmTest]\r\nTop=150000\r\nLeft=0\r\n");
        frmTest screen;
        QVERIFY(screen.Load());
        QCOMPARE(screen.y(), 10'000);
    }

    void placeThatCannotBeWrittenIsToldOnceAndTheScreenCloses() {
        writeIni("[DB]\r\nPassWd=x\r\n");
        const CapturedMessages messages;
        for (int i = 0; i < 2; ++i) {
            frmTest screen;
            QVERIFY(screen.Load());
            show(screen);
            const FileLimit limit(0);
            QVERIFY(screen.close());
        }
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(messages.texts.first().startsWith(u"INIﾌｧｲﾙに書き込めません。"_qs));
    }

    void placeThatIsNoNumberNamesItsKey() {
        writeIni("[frmTest]\r\nTop=abc\r\n");
        const CapturedMessages messages;
        frmTest screen;
        QVERIFY(!screen.Load());
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(messages.texts.first().contains(u"[frmTest] の Top（abc）"_qs));
    }

    void namesAreShownAsText() {
        frmTest screen;
        auto* label = new QLabel(&screen);
        QVERIFY(screen.Load());
        label->setText(u"<h1>山田</h1>"_qs);
        QCOMPARE(label->textFormat(), Qt::PlainText);
    }

    void positionOfAMaximisedFormIsNotWritten() {
        frmTest screen;
        QVERIFY(screen.Load());
        screen.showMaximized();
        QCoreApplication::processEvents();
        SaveFormPosition(&screen);
        QCOMPARE(clsProfile().GetValue(u"frmTest"_qs, u"Top"_qs, u"none"_qs), u"none"_qs);
    }

    // --- wrappers ---

    void clearedFlagsMakeTheDirtyTestFalseUntilTheNextKeyPress() {
        frmTest screen;
        screen.input = u"山田"_qs;
        QVERIFY(screen.Load());
        QVERIFY(!IsAnyEdited(screen.wrappers));
        show(screen);
        screen.day.setFocus();
        QVERIFY(!IsAnyEdited(screen.wrappers));
        QTest::keyClick(&screen.day, Qt::Key_2);
        QVERIFY(IsAnyEdited(screen.wrappers));
    }

    void everyKindOfControlIsWatched() {
        frmTest screen;
        screen.choice.addEntry(u"左"_qs, u"1"_qs);
        QVERIFY(screen.Load());
        QCOMPARE(screen.wrappers.size(), size_t(6));
        QCOMPARE(screen.price.property("tag").toString(), u"Attached"_qs);
        const QList<std::function<void()>> changes{
            [&] { screen.name.setText(u"a"_qs); }, [&] { screen.day.setValue(u"2005/03/01"_qs); },
            [&] { screen.price.setValue(u"1"_qs); }, [&] { screen.choice.setText(u"左"_qs); },
            [&] { screen.memo.setValue(u"a"_qs); }};
        for (const auto& change : changes) {
            ClearEdited(screen.wrappers);
            change();
            QVERIFY(IsAnyEdited(screen.wrappers));
        }
    }

    void attachedControlsAreNotAttachedTwice() {
        frmTest screen;
        QVERIFY(screen.Load());
        AttachControls(&screen, screen.wrappers);
        QCOMPARE(screen.wrappers.size(), size_t(6));
        ReleaseControls(&screen, screen.wrappers);
        QVERIFY(screen.wrappers.empty());
        AttachControls(&screen, screen.wrappers);
        QCOMPARE(screen.wrappers.size(), size_t(6));
    }
};

HALVANE_TEST(ScreenTest)
#include "ScreenTest.moc"
