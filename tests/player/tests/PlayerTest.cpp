#include "HalvaneTest.h"

#include "Player.h"
#include "Watchdog.h"
#include "base/basMessage.h"
#include "ui/ChoiceBox.h"
#include "ui/DateField.h"
#include "ui/Grid.h"
#include "ui/MemoField.h"
#include "ui/NumberField.h"
#include "ui/Screen.h"
#include "ui/TextField.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <sys/wait.h>
#include <unistd.h>

namespace {

// A screen with every kind of control, which opens itself once more and asks before it closes.
class frmPlayed : public Screen {
public:
    explicit frmPlayed(QWidget* parent = nullptr) : Screen(parent) {
        setObjectName(u"frmPlayed"_qs);
        setWindowTitle(u"試験"_qs);
        auto* box = new QFormLayout(this);
        const auto add = [&](QWidget& widget, const QString& objectName) {
            widget.setObjectName(objectName);
            box->addRow(&widget);
        };
        add(name, u"txtName"_qs);
        add(day, u"idtDay"_qs);
        add(price_0, u"numPrice_0"_qs);
        add(price_1, u"numPrice_1"_qs);
        add(choice, u"cboSide"_qs);
        add(whole, u"cboWhole"_qs);
        add(memo, u"txtMemo"_qs);
        add(tick, u"chkUse"_qs);
        tick.setToolTip(u"この行を使う"_qs);
        add(grid, u"flxData"_qs);
        add(tabs, u"tabPages"_qs);
        add(result, u"lblResult"_qs);
        add(rowLabel, u"lblRow"_qs);
        add(open, u"cmdOpen"_qs);
        add(ask, u"cmdAsk"_qs);
        add(tell, u"cmdTell"_qs);
        add(shut, u"cmdClose"_qs);
        tabs.addTab(new QWidget, u"一"_qs);
        tabs.addTab(new QWidget, u"二"_qs);
        ask.setText(u"尋ねる(&A)"_qs);
        choice.addEntry(u"左"_qs, u"1"_qs);
        choice.addEntry(u"右"_qs, u"2"_qs);
        whole.addEntry(u"（全て）"_qs);
        whole.addEntry(u"左"_qs, u"1"_qs);
        setUpGrid();
        onClick(&open, [this] { openNext(); });
        onClick(&ask, [this] { result.setText(QString::number(ShowMessage(904, u"続けますか？"_qs))); });
        onClick(&tell, [] { ShowMessage(902, u"終わりました。"_qs); });
        onClick(&shut, [this] { close(); });
    }

    int depth = 0;
    TextField name;
    DateField day;
    NumberField price_0, price_1;
    ChoiceBox choice, whole;
    MemoField memo;
    QCheckBox tick;
    Grid grid;
    QTabWidget tabs;
    QLabel result, rowLabel;
    QPushButton open, ask, tell, shut;

protected:
    void load() override { price_0.hide(); }
    bool queryUnload() override {
        return name.text() != u"開"_qs || ShowMessage(909, u"保存しますか？"_qs) == AnswerNo;
    }

private:
    void setUpGrid() {
        GridColumn number;
        number.kind = GridColumn::RowNumber;
        GridColumn item;
        item.title = u"種目"_qs;
        item.editable = true;
        item.entries = {GridEntry::parse(u"#1;義手"_qs), GridEntry::parse(u"#2;義足"_qs)};
        GridColumn count = item;
        count.title = u"数量"_qs;
        count.kind = GridColumn::Number;
        count.entries.clear();
        GridColumn used = count;
        used.kind = GridColumn::Check;
        used.title = u"使用"_qs;
        grid.setColumns({number, item, count, used});
        grid.setRows(3);
        connect(&grid, &Grid::headingClicked, this, [this](int column) { grid.toggleSortMark(column); });
        connect(&grid, &Grid::currentRowChanged, this, [this](int row) { rowLabel.setNum(row); });
        connect(&grid, &Grid::cellEdited, this,
                [this](int row, int column, const QString&) { result.setText(u"%1/%2"_qs.arg(row).arg(column)); });
    }

    void openNext() {
        openScreen<frmPlayed>(
            this, [this](frmPlayed& next) { next.depth = depth + 1; },
            [this](frmPlayed& next) { result.setText(next.name.text()); });
    }
};

// Counts the turns that a player let pass because the screens were not at rest.
class PausesOfPlayers : public QObject {
public:
    PausesOfPlayers() { qApp->installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* timer = event->type() == QEvent::Timer ? qobject_cast<QTimer*>(watched) : nullptr;
        if (timer && timer->interval() > 0 && qobject_cast<Player*>(timer->parent())) ++count;
        return false;
    }
};

} // namespace

class PlayerTest : public QObject {
    Q_OBJECT

private:
    // Plays steps on the screen above; gives the report, empty when all held.
    static QString play(const QString& steps) {
        Player player(parseScenario(u"test.scn"_qs, steps), {});
        QTimer::singleShot(0, &player, [] { openScreen<frmPlayed>(nullptr); });
        return player.play() ? QString() : player.report();
    }

    static void holds(const QString& steps) {
        const QString report = play(steps);
        QVERIFY2(report.isEmpty(), qPrintable(report));
    }

    static void fails(const QString& steps, const QStringList& told) {
        const QString report = play(steps);
        for (const QString& text : told) QVERIFY2(report.contains(text), qPrintable(report));
    }

private slots:
    void typesIntoEveryKindOfField() {
        holds(u"expect screen frmPlayed\n"
              "expect title 試験\n"
              "type txtName 山田\nexpect text txtName 山田\n"
              "type txtName \"\"\nexpect text txtName \"\"\n"
              "type idtDay R6.4.1\nexpect text idtDay 2024/04/01\n"
              "type txtMemo \"一\\n二\"\nexpect text txtMemo \"一\\n二\"\n"
              "choose cboSide 右\nexpect text cboSide 右\nexpect list cboSide 左|右\n"
              "tick chkUse on\nexpect checked chkUse yes\ntick chkUse on\nexpect checked chkUse yes\n"
              "press chkUse\nexpect checked chkUse no\n"
              "tab tabPages 1"_qs);
    }

    void hintsAreLookedAt() {
        holds(u"expect hint chkUse 使う\nexpect hint txtName \"\""_qs);
        fails(u"expect hint chkUse 使わない"_qs, {u"使う"_qs, u"使わない"_qs});
        fails(u"expect hint chkUse \"\""_qs, {u"使う"_qs});
    }

    void arrayNameTakesItsFirstVisibleMember() {
        holds(u"type numPrice 1234567\nexpect text numPrice_1 1,234,567\nexpect text numPrice_0 \"\"\n"
              "expect visible numPrice_0 no"_qs);
    }

    void memberOfAnArrayHasThreeSpellings() {
        holds(u"type numPrice_1 1\nexpect text numPrice(1) 1\ntype numPrice(1) 2\nexpect text numPrice[1] 2"_qs);
        fails(u"type numPrice(2) 1"_qs, {u"no control numPrice(2) in frmPlayed"_qs});
    }

    void typingIntoAListPicksItsEntry() {
        holds(u"type cboSide 右\nexpect text cboSide 右\ntype cboWhole 左\nexpect text cboWhole 左\n"
              "type cboWhole \"\"\nexpect text cboWhole （全て）\nchoose cboWhole 左\nchoose cboWhole \"\"\n"
              "expect text cboWhole （全て）"_qs);
        fails(u"type cboSide 上"_qs, {u"左|右"_qs, u"上"_qs});
        fails(u"choose cboSide \"\""_qs, {u"左|右"_qs});
    }

    void tabsShowTheirCaption() { holds(u"expect text tabPages 一\ntab tabPages 1\nexpect text tabPages 二"_qs); }

    void keysMayStandInOneWord() { holds(u"type txtName ab\nkey txtName \"Home Delete\"\nexpect text txtName b"_qs); }

    void columnsHaveNumbersAndHeadings() {
        holds(u"cell flxData 1 種目 義足\nexpect cell flxData 1 1 義足\nexpect cell flxData 1 種目 義足\n"
              "expect cell flxData 0 1 種目\nhead flxData 種目\nexpect cell flxData 0 1 種目▲\n"
              "expect cell flxData 3 使用 off\ntickcell flxData 3 使用 on\nexpect cell flxData 3 3 on"_qs);
        fails(u"head flxData 価格"_qs, {u"flxData has no column 価格"_qs});
        fails(u"head flxData 4"_qs, {u"the columns 0 to 3"_qs});
    }

    void editedRowStaysCurrent() {
        holds(u"cell flxData 2 1 義足\nexpect text lblRow 2\ncell flxData 2 2 5\nexpect text lblRow 2"_qs);
    }

    void worksInGrids() {
        holds(u"expect rows flxData 3\n"
              "cell flxData 2 1 義足\nexpect cell flxData 2 1 義足\nexpect text lblResult 2/1\n"
              "cell flxData 2 2 1500\nexpect cell flxData 2 2 1,500\n"
              "tickcell flxData 3 3 on\nexpect text lblResult 3/3\n"
              "row flxData 3\nhead flxData 2"_qs);
        fails(u"cell flxData 1 1 靴"_qs, {u"no such entry"_qs});
        fails(u"cell flxData 4 1 義手"_qs, {u"the rows 1 to 3"_qs});
        fails(u"cell flxData 1 0 x"_qs, {u"cannot be edited"_qs});
    }

    void playsInNestedModalScreens() {
        holds(u"press cmdOpen\npress cmdOpen\ntype txtName 奥\npress cmdClose\n"
              "expect text lblResult 奥\nclose\nexpect text lblResult \"\"\nclose"_qs);
    }

    void answersAreTakenInTurn() {
        holds(u"answer yes no\npress cmdAsk\nexpect text lblResult 6\npress cmdAsk\nexpect text lblResult 7\n"
              "expect question 続けますか\nexpect no message"_qs);
    }

    void preparedOkBelongsToABoxWithOkAlone() {
        holds(u"answer ok no\npress cmdTell\npress cmdAsk\nexpect text lblResult 7\nexpect message 終わりました"_qs);
    }

    void altLetterIsWaitedFor() { holds(u"answer yes\nkey cmdAsk Alt+A\nexpect text lblResult 6"_qs); }

    void unpreparedQuestionFailsWithItsText() {
        fails(u"press cmdAsk\nexpect text lblResult 6"_qs,
              {u"test.scn:1: press cmdAsk"_qs, u"続けますか？"_qs, u"frmPlayed"_qs});
    }

    void noteOnAnUnpreparedQuestionShowsTheScreenThatAsked() {
        fails(u"press cmdOpen\ntype txtName 開\npress cmdClose"_qs,
              {u"保存しますか？"_qs, u"screens:   frmPlayed > frmPlayed"_qs});
    }

    void answerThatTheBoxDoesNotOfferFails() { fails(u"answer retry\npress cmdAsk"_qs, {u"retry"_qs}); }

    void messagesAreAcceptedAndKept() {
        holds(
            u"press cmdTell\npress cmdTell\nexpect message 終わり\nexpect message 終わりました\nexpect no message"_qs);
        fails(u"press cmdTell\nexpect no message"_qs, {u"found:     終わりました。"_qs});
        fails(u"expect message 終わり"_qs, {u"no message"_qs});
    }

    void wrongDateStopsThePress() {
        holds(u"type idtDay 99\nexpect message 日付が正しくありません\npress cmdTell\n"
              "expect message 日付が正しくありません\nexpect no message\nexpect text idtDay 99"_qs);
    }

    void missingDisabledAndHiddenControlsAreNamed() {
        fails(u"press cmdNone"_qs, {u"no control cmdNone in frmPlayed"_qs});
        fails(u"press numPrice_1"_qs, {u"numPrice_1 is no button"_qs});
        fails(u"type numPrice_0 1"_qs, {u"numPrice_0 is not visible"_qs});
        fails(u"choose cboSide 上"_qs, {u"左|右"_qs, u"上"_qs});
        fails(u"tab tabPages 2"_qs, {u"the tabs 0 to 1"_qs});
        fails(u"start\npress cbKakaku"_qs, {u"frmPlayed"_qs}); // the menu lies below the modal screen
    }

    void failureTellsFoundExpectedAndScreens() {
        fails(u"press cmdOpen\n\n# here\nexpect text txtName 山"_qs,
              {u"test.scn:4: expect text txtName 山"_qs, u"found:     \n"_qs, u"expected:  山"_qs,
               u"screens:   frmPlayed > frmPlayed"_qs});
    }

    void longFindingIsCutInTheNote() {
        QString lines;
        for (int i = 1; i <= 100; ++i) lines += u"\\n行%1"_qs.arg(i);
        const QString report = play(u"type txtMemo \""_qs + lines + u"\"\nexpect text txtMemo \"\""_qs);
        QVERIFY2(report.contains(u"行9\n"_qs) && report.contains(u"lines …"_qs) && report.contains(u"行100\n"_qs),
                 qPrintable(report));
        QVERIFY2(!report.contains(u"行50\n"_qs), qPrintable(report));
    }

    void failureClosesAllScreensEvenThoseThatAsk() {
        fails(u"type txtName 開\npress cmdOpen\ntype txtName 開\npress cmdNone"_qs, {u"cmdNone"_qs});
        QVERIFY(!QApplication::activeModalWidget());
    }

    void leftOpenScreensAreClosedAtTheEnd() {
        holds(u"press cmdOpen\npress cmdOpen"_qs);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void stepsOnAScreenAtRestWaitForNothing() {
        QString steps;
        for (int i = 0; i < 100; ++i) steps += u"type txtName 山田\nexpect text txtName 山田\n"_qs;
        const PausesOfPlayers pauses;
        holds(steps);
        QVERIFY2(pauses.count < 20, qPrintable(QString::number(pauses.count)));
    }

    void stepThatFindsNoRestFailsWithItsScreen() {
        PlayOptions options;
        options.longestStep = 200;
        Player player(parseScenario(u"test.scn"_qs, u"key txtName Home\nexpect text txtName \"\""_qs), options);
        QTimer::singleShot(0, &player, [] {
            openScreen<frmPlayed>(
                nullptr, [](frmPlayed& screen) { screen.tell.setDown(true); }, [](frmPlayed&) {});
        });
        // the first step finds its screen; what holds the button down never lets go
        QVERIFY(!player.play());
        QVERIFY2(player.report().contains(u"no rest after 0.2 seconds"_qs), qPrintable(player.report()));
        QVERIFY(player.report().contains(u"frmPlayed"_qs));
    }

    void programThatStandsStillIsEndedWithANote() {
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        const pid_t child = fork();
        if (child == 0) {
            dup2(ends[1], STDOUT_FILENO);
            Watchdog watchdog(std::chrono::milliseconds(100));
            watchdog.beat(u"test.scn:3: press cmdOpen"_qs, u"frmMenu > frmPlayed"_qs);
            alarm(patience / 1000); // should nobody end it
            while (true) pause();
        }
        ::close(ends[1]);
        QFile note;
        QVERIFY(note.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
        const QString told = QString::fromUtf8(note.readAll());
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), EXIT_FAILURE);
        QVERIFY2(told.startsWith(u"test.scn:3: press cmdOpen\n"_qs), qPrintable(told));
        QVERIFY2(told.contains(u"stands still"_qs) && told.contains(u"frmMenu > frmPlayed"_qs), qPrintable(told));
    }

    void databaseAndFilesAreReached() {
        holds(u"sql UPDATE [システム設定] SET [設定値] = '2031' WHERE [No] = 20\n"
              "expect sql \"SELECT [設定値] FROM [システム設定] WHERE [No] = 20\" 2031\n"
              "expect sql \"SELECT [設定値] FROM [システム設定] WHERE [No] = 12345\" \"\"\n"
              "ini Misc SYSDATE 2005/04/01\nexpect file Halvane.ini SYSDATE=2005/04/01"_qs);
        holds(u"clock 2005/04/01\n"
              "expect sql \"SELECT [番号] FROM [企業情報] WHERE NOW() BETWEEN #2005/04/01# AND #2005/04/02#\" 1"_qs);
        fails(u"clock someday"_qs, {u"someday"_qs, u"a date"_qs});
        fails(u"sql UPDATE [nothing] SET [a] = 1"_qs, {u"test.scn:1"_qs});
        fails(u"expect file none.txt x"_qs, {u"no file"_qs});
    }
};

HALVANE_TEST(PlayerTest)
#include "PlayerTest.moc"
