#include "HalvaneTest.h"

#include "base/History.h"

class HistoryTest : public QObject {
    Q_OBJECT

private slots:
    void whatWasChangedIsTakenBackAndForth() {
        History<int> history;
        QVERIFY(!history.undo(0));
        history.record(1); // became 2
        history.record(2); // became 3
        QCOMPARE(history.undo(3), 2);
        QCOMPARE(history.undo(2), 1);
        QVERIFY(!history.mayUndo());
        QCOMPARE(history.redo(1), 2);
        QCOMPARE(history.redo(2), 3);
        QVERIFY(!history.redo(3));
        QCOMPARE(history.undo(3), 2);
    }

    void aNewChangeEndsWhatWasTakenBack() {
        History<int> history;
        history.record(1);
        QCOMPARE(history.undo(2), 1);
        QVERIFY(history.mayRedo());
        history.record(1); // became 5
        QVERIFY(!history.mayRedo());
        QCOMPARE(history.undo(5), 1);
    }

    void onlyTheLastChangesAreKept() {
        History<int> history;
        for (int state = 0; state < History<int>::steps + 10; ++state) history.record(state);
        int undone = 0;
        int state = History<int>::steps + 10;
        while (const auto before = history.undo(state)) {
            state = *before;
            ++undone;
        }
        QCOMPARE(undone, History<int>::steps);
        QCOMPARE(state, 10);
    }

    void clearedItKnowsNothing() {
        History<int> history;
        history.record(1);
        history.clear();
        QVERIFY(!history.mayUndo());
    }
};

HALVANE_TEST(HistoryTest)
#include "HistoryTest.moc"
