#include "HalvaneTest.h"

#include "ui/EditedRows.h"
#include "ui/Grid.h"

#include <QLineEdit>
#include <QTest>

class EditedRowsTest : public QObject {
    Q_OBJECT

private:
    enum Column { Mark, Key, Name };

    std::unique_ptr<Grid> m_grid;
    EditedRows* m_rows = nullptr;
    QStringList m_written;

    void type(int row, const QString& text) {
        QVERIFY(m_grid->beginEdit(row, Name));
        qobject_cast<QLineEdit*>(m_grid->editor())->setText(text);
        QVERIFY(m_grid->endEdit());
    }

    bool write(const QString& refused = {}) {
        const auto note = [this](const QString& what) {
            return [this, what](int row) { m_written << what + u' ' + m_grid->value(row, Name); };
        };
        const auto noteRemoval = [this, refused](int row) {
            m_written << u"remove "_qs + m_grid->value(row, Name);
            return m_grid->value(row, Name) != refused;
        };
        return m_rows->write({[this, refused](int row) { return m_grid->value(row, Name) != refused; },
                              note(u"save"_qs), noteRemoval, note(u"place"_qs)});
    }

private slots:
    void init() {
        m_written.clear();
        m_grid = std::make_unique<Grid>();
        m_grid->setColumns({GridColumn::of({}, 2), GridColumn::of({}, 4).unseen(), GridColumn::of(u"名"_qs, 20).typed(),
                            GridColumn::of(u"他"_qs, 20).typed()});
        m_rows = new EditedRows(m_grid.get(), Mark, Key);
        m_rows->load({{{}, u"1"_qs, u"A"_qs, {}}, {{}, u"2"_qs, u"B"_qs, {}}, {{}, u"3"_qs, u"C"_qs, {}}});
        m_grid->show();
    }

    void loadedRowsHoldNoEdit() {
        QVERIFY(!m_rows->hasEdits());
        QCOMPARE(m_grid->rows(), 4);
        QVERIFY(write());
        QCOMPARE(m_written, QStringList());
    }

    void theBlankLastRowTakesANewOneAndAnotherFollows() {
        type(4, u"D"_qs);
        QCOMPARE(m_grid->rows(), 5);
        QCOMPARE(m_grid->value(4, Mark), u"*"_qs);
        QVERIFY(write());
        QCOMPARE(m_written, QStringList(u"save D"_qs));
    }

    void rowsAreWrittenFromTheTopEachOnce() {
        type(3, u"C2"_qs);
        m_grid->setCurrent(2);
        m_rows->removeCurrent();
        m_grid->setCurrent(2);
        m_rows->moveCurrent(-1);
        QVERIFY(write());
        QCOMPARE(m_written, (QStringList{u"remove B"_qs, u"place A"_qs, u"save C2"_qs}));
    }

    void aRowThatIsToGoTakesNoEdit() {
        m_grid->setCurrent(1);
        m_rows->removeCurrent();
        QVERIFY(!m_grid->beginEdit(1, Name));
        QVERIFY(m_rows->hasEdits());
    }

    void aRowThatIsToGoIsMarkedAndTellsWhoEditsIt() {
        int refusals = 0;
        m_rows->editRefused = [&refusals] { ++refusals; };
        m_grid->setCurrent(1);
        m_rows->removeCurrent();
        QCOMPARE(m_grid->value(1, Mark), u"×"_qs);
        QVERIFY(!m_grid->beginEdit(1, Name));
        QCOMPARE(refusals, 1);
    }

    void removingOnceMoreTakesTheMarkBack() {
        m_grid->setCurrent(1);
        m_rows->removeCurrent();
        m_rows->removeCurrent();
        QCOMPARE(m_grid->value(1, Mark), QString());
        QVERIFY(!m_rows->hasEdits());
        QVERIFY(m_grid->beginEdit(1, Name));
    }

    void aNewRowBeginsAheadOfItsFirstValue() {
        m_rows->startRow = [this](int row) { m_grid->setValue(row, Name + 1, u"default"_qs); };
        type(4, u"D"_qs);
        QCOMPARE(m_grid->value(4, Name + 1), u"default"_qs);
        type(1, u"A2"_qs);
        QCOMPARE(m_grid->value(1, Name + 1), QString());
    }

    void aNewRowIsRemovedAtOnce() {
        type(4, u"D"_qs);
        m_grid->setCurrent(4);
        m_rows->removeCurrent();
        QCOMPARE(m_grid->rows(), 4);
        QVERIFY(!m_rows->hasEdits());
    }

    void movingStaysAboveTheBlankRow() {
        m_grid->setCurrent(1);
        m_rows->moveCurrentToEnd();
        QCOMPARE(m_grid->currentRow(), 3);
        QCOMPARE(m_grid->value(3, Name), u"A"_qs);
        QCOMPARE(m_grid->value(4, Name), QString());
        m_rows->moveCurrent(1);
        QCOMPARE(m_grid->value(3, Name), u"A"_qs);
    }

    void aMoveThatIsNotAllowedLeavesTheRows() {
        m_rows->mayMove = [](int row, int other) { return row + other != 5; }; // 2 and 3
        m_grid->setCurrent(2);
        QVERIFY(!m_rows->moveCurrent(1));
        QVERIFY(!m_rows->hasEdits());
        m_grid->setCurrent(1);
        QVERIFY(m_rows->moveCurrentToEnd());
        QCOMPARE(m_grid->value(2, Name), u"A"_qs);
        QCOMPARE(m_grid->value(3, Name), u"C"_qs);
    }

    void movesAreToldOnceForEachCommand() {
        int told = 0;
        connect(m_rows, &EditedRows::moved, this, [&told] { ++told; });
        m_grid->setCurrent(1);
        m_rows->moveCurrentToEnd();
        QCOMPARE(told, 1);
        QVERIFY(m_rows->isMoved(1) && m_rows->isMoved(3));
    }

    void whatWasWrittenIsNotWrittenAgain() {
        type(1, u"A2"_qs);
        m_grid->setCurrent(2);
        m_rows->removeCurrent();
        type(3, u"wrong"_qs);
        QVERIFY(!write(u"wrong"_qs));
        QCOMPARE(m_grid->value(1, Mark), QString());
        QCOMPARE(m_grid->value(2, Name), u"wrong"_qs); // the row ahead of it has gone
        type(2, u"C2"_qs);
        m_written.clear();
        QVERIFY(write());
        QCOMPARE(m_written, QStringList(u"save C2"_qs));
        QVERIFY(!m_rows->hasEdits());
    }

    void aRowThatHasToStayKeepsItsMark() {
        m_grid->setCurrent(2);
        m_rows->removeCurrent();
        QVERIFY(!write(u"B"_qs));
        QCOMPARE(m_grid->value(2, Mark), u"×"_qs);
        QCOMPARE(m_grid->currentRow(), 2);
    }

    void aRefusedRowEndsTheRunAndIsCurrent() {
        type(1, u"A2"_qs);
        type(2, u"wrong"_qs);
        type(3, u"C2"_qs);
        QVERIFY(!write(u"wrong"_qs));
        QCOMPARE(m_written, QStringList(u"save A2"_qs));
        QCOMPARE(m_grid->currentRow(), 2);
        QVERIFY(m_rows->hasEdits());
    }
};

HALVANE_TEST(EditedRowsTest)
#include "EditedRowsTest.moc"
