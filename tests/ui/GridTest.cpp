#include "FormUnderTest.h"
#include "HalvaneTest.h"
#include "support/CapturedMessages.h"

#include "ui/ChoiceBox.h"
#include "ui/Grid.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QCompleter>
#include <QHeaderView>
#include <QSignalSpy>

namespace {

enum Column { Number, Quick, Item, Side, Quantity, Hidden, Price, Tick, Day };

GridColumn editableColumn(const QString& title, GridColumn::Kind kind = GridColumn::Text) {
    GridColumn column;
    column.title = title;
    column.kind = kind;
    column.editable = true;
    return column;
}

QList<GridColumn> estimateColumns() {
    GridColumn number;
    number.kind = GridColumn::RowNumber;
    GridColumn quick = editableColumn(u"一括選択"_qs);
    quick.entries = {{u"1"_qs, u"1"_qs, u"下肢装具"_qs}, {u"12"_qs, u"12"_qs, u"義手"_qs}};
    quick.freeText = true;
    quick.maxLength = 6;
    GridColumn item = editableColumn(u"種目"_qs);
    item.entries = {GridEntry::parse(u"義手"_qs), GridEntry::parse(u"義足"_qs)};
    GridColumn side = editableColumn(u"左右"_qs);
    side.entries = {GridEntry::parse(u"#1;左"_qs), GridEntry::parse(u"#2;右"_qs)};
    GridColumn hidden = editableColumn(u"ﾏｽﾀ価格"_qs);
    hidden.hidden = true;
    GridColumn price = editableColumn(u"価格"_qs, GridColumn::Number);
    price.background = Style::computed;
    return {number,
            quick,
            item,
            side,
            editableColumn(u"数量"_qs, GridColumn::Number),
            hidden,
            price,
            editableColumn(u"印"_qs, GridColumn::Check),
            editableColumn(u"日"_qs, GridColumn::Date)};
}

} // namespace

class GridTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<FormUnderTest> m_form;
    Grid* m_grid = nullptr;

    // Types into the cell as an operator does, and leaves it with Return.
    void enter(int row, int column, const QString& text) {
        QVERIFY(m_grid->beginEdit(row, column));
        QWidget* editor = m_grid->editor();
        QVERIFY(editor);
        if (auto* list = qobject_cast<ChoiceBox*>(editor))
            list->lineEdit()->selectAll();
        else
            qobject_cast<QLineEdit*>(editor)->selectAll();
        m_form->type(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents();
    }

private slots:
    void init() {
        m_form = std::make_unique<FormUnderTest>();
        m_grid = m_form->add<Grid>();
        m_grid->setColumns(estimateColumns());
        m_grid->setRows(5);
        m_form->open();
    }

    void cleanup() { m_form.reset(); }

    void rowsCountFromOne() {
        QCOMPARE(m_grid->rows(), 5);
        QCOMPARE(m_grid->text(1, Number), u"1"_qs);
        QCOMPARE(m_grid->text(5, Number), u"5"_qs);
        m_grid->setCurrent(3, Item);
        QCOMPARE(m_grid->currentRow(), 3);
        QCOMPARE(m_grid->currentColumn(), int(Item));
    }

    void entryShowsItsTextAndHoldsItsNumber() {
        m_grid->setValue(1, Side, u"2"_qs);
        QCOMPARE(m_grid->text(1, Side), u"右"_qs);
        enter(2, Side, u"左"_qs);
        QCOMPARE(m_grid->value(2, Side), u"1"_qs);
    }

    void numbersShowSeparators() {
        m_grid->setValue(1, Price, u"1234567"_qs);
        QCOMPARE(m_grid->text(1, Price), u"1,234,567"_qs);
        enter(2, Price, u"４５００"_qs);
        QCOMPARE(m_grid->value(2, Price), u"4500"_qs);
    }

    void editIsToldWithItsFormerText() {
        QSignalSpy edits(m_grid, &Grid::cellEdited);
        enter(2, Item, u"義手"_qs);
        QCOMPARE(edits.count(), 1);
        QCOMPARE(edits.first(), (QVariantList{2, int(Item), QString()}));
        enter(2, Item, u"義手"_qs);
        QCOMPARE(edits.count(), 1);
        enter(2, Item, u"義足"_qs);
        QCOMPARE(edits.last().at(2).toString(), u"義手"_qs);
    }

    void writingByTheProgramIsNotTold() {
        QSignalSpy edits(m_grid, &Grid::cellEdited);
        m_grid->setValue(1, Item, u"義手"_qs);
        QCOMPARE(edits.count(), 0);
    }

    void editMayBeRefused() {
        m_grid->editStarting = [](int row, int) { return row != 3; };
        QVERIFY(!m_grid->beginEdit(3, Item));
        QVERIFY(!m_grid->editor());
        QVERIFY(!m_grid->toggleCheck(3, Tick));
        QVERIFY(m_grid->beginEdit(2, Item));
    }

    void listIsSetJustBeforeTheEdit() {
        m_grid->editStarting = [this](int row, int column) {
            m_grid->setEntries(column, QStringList{u"行%1の一"_qs.arg(row), u"行%1の二"_qs.arg(row)});
            return true;
        };
        QVERIFY(m_grid->beginEdit(4, Item));
        auto* list = qobject_cast<ChoiceBox*>(m_grid->editor());
        QVERIFY(list);
        QCOMPARE(list->itemText(1), u"行4の二"_qs);
    }

    void textOutsideOfTheListIsNotTaken() {
        enter(1, Item, u"靴"_qs);
        QCOMPARE(m_grid->value(1, Item), QString());
    }

    void onlyMatchOfATypedPartIsTaken() {
        enter(1, Item, u"足"_qs);
        QCOMPARE(m_grid->value(1, Item), u"義足"_qs);
        enter(2, Item, u"義"_qs);
        QCOMPARE(m_grid->value(2, Item), QString());
    }

    // The key of a row: any number, in either width; a text that is none is refused, and the cell stays.
    void numbersAloneMayBeTypedBesideTheList() {
        const CapturedMessages messages;
        QList<GridColumn> columns = estimateColumns();
        columns[Quick].freeText = false;
        columns[Quick].numbersOnly = true;
        m_grid->setColumns(columns);
        m_grid->setRows(5);
        enter(1, Quick, u"５２"_qs);
        QCOMPARE(m_grid->value(1, Quick), u"52"_qs);
        enter(2, Quick, u"１２"_qs);
        QCOMPARE(m_grid->value(2, Quick), u"12"_qs);
        enter(1, Quick, u"1-2"_qs);
        QCOMPARE(messages.texts.size(), 1);
        m_grid->giveUpEdit();
        QCOMPARE(m_grid->value(1, Quick), u"52"_qs);
        m_grid->setEntries(Quick, GridEntries());
        enter(3, Quick, u"７"_qs);
        QCOMPARE(m_grid->value(3, Quick), u"7"_qs);
    }

    void codesBecomeNarrow() {
        QList<GridColumn> columns = estimateColumns();
        columns[Quick].narrow = true;
        m_grid->setColumns(columns);
        m_grid->setRows(5);
        enter(1, Quick, u"Ｔ０１"_qs);
        QCOMPARE(m_grid->value(1, Quick), u"T01"_qs);
    }

    void yenAreShownWholeAndAQuantityWithItsDecimals() {
        QList<GridColumn> columns = estimateColumns();
        columns[Price].wholeYen = true;
        m_grid->setColumns(columns);
        m_grid->setRows(5);
        m_grid->setRowValues(1, {u"1234.5"_qs, {}, u"1234567.5"_qs}, Quantity);
        QCOMPARE(m_grid->text(1, Quantity), u"1,234.5"_qs);
        QCOMPARE(m_grid->text(1, Price), u"1,234,568"_qs);
        QCOMPARE(m_grid->value(1, Price), u"1234567.5"_qs);
        QSignalSpy edits(m_grid, &Grid::cellEdited);
        QVERIFY(m_grid->beginEdit(1, Price));
        QVERIFY(m_grid->endEdit());
        QCOMPARE(edits.count(), 0);
    }

    void freeTextMayBeTypedBesideTheList() {
        enter(1, Quick, u"3"_qs);
        QCOMPARE(m_grid->value(1, Quick), u"3"_qs);
        enter(2, Quick, u"1"_qs);
        QCOMPARE(m_grid->value(2, Quick), u"1"_qs);
    }

    void typedTextIsCutAtTheLengthOfItsColumn() {
        enter(1, Quick, u"12345𠮷𠮷"_qs);
        QCOMPARE(m_grid->value(1, Quick), u"12345𠮷"_qs);
    }

    void returnGoesToTheNextCellToFill() {
        m_grid->setValue(1, Side, u"1"_qs);
        enter(1, Item, u"義手"_qs);
        QCOMPARE(m_grid->currentColumn(), int(Quantity)); // 左右 is filled already
        QTest::keyClick(m_grid, Qt::Key_Return);
        QCOMPARE(m_grid->currentColumn(), int(Price)); // the hidden column is passed over
        m_grid->setValue(1, Day, u"2005/03/01"_qs);
        QTest::keyClick(m_grid, Qt::Key_Return);
        QCOMPARE(m_grid->currentRow(), 2);
        QCOMPARE(m_grid->currentColumn(), int(Quick));
    }

    void deleteEmptiesACell() {
        m_grid->setValue(1, Item, u"義手"_qs);
        QSignalSpy edits(m_grid, &Grid::cellEdited);
        m_grid->setCurrent(1, Item);
        QTest::keyClick(m_grid, Qt::Key_Delete);
        QCOMPARE(m_grid->value(1, Item), QString());
        QCOMPARE(edits.first().at(2).toString(), u"義手"_qs);
    }

    void spaceTurnsATickBox() {
        QSignalSpy edits(m_grid, &Grid::cellEdited);
        m_grid->setCurrent(2, Tick);
        QTest::keyClick(m_grid, Qt::Key_Space);
        QVERIFY(m_grid->isChecked(2, Tick));
        QCOMPARE(edits.count(), 1);
        QTest::keyClick(m_grid, Qt::Key_Space);
        QVERIFY(!m_grid->isChecked(2, Tick));
    }

    void dateCellsTakeEveryForm() {
        enter(1, Day, u"h170301"_qs);
        QCOMPARE(m_grid->value(1, Day), u"2005/03/01"_qs);
    }

    void wrongDateInACellIsTold() {
        const CapturedMessages messages;
        QVERIFY(m_grid->beginEdit(1, Day));
        m_form->type(m_grid->editor(), u"99"_qs);
        QTest::keyClick(m_grid->editor(), Qt::Key_Return);
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(m_grid->editor()); // the text stands to be mended
        m_form->leave();
        QCOMPARE(m_grid->value(1, Day), QString());
    }

    void rowsMoveWithTheirCells() {
        m_grid->setValue(1, Item, u"義手"_qs);
        m_grid->swapRows(1, 2);
        QCOMPARE(m_grid->value(2, Item), u"義手"_qs);
        m_grid->insertRow(1);
        QCOMPARE(m_grid->rows(), 6);
        QCOMPARE(m_grid->value(3, Item), u"義手"_qs);
        m_grid->removeRow(1);
        QCOMPARE(m_grid->value(2, Item), u"義手"_qs);
        QVERIFY(m_grid->isRowEmpty(1));
        QVERIFY(!m_grid->isRowEmpty(2));
        m_grid->clearRow(2);
        QVERIFY(m_grid->isRowEmpty(2));
    }

    void bothRowsArePaintedAnewAfterASwap() {
        QSignalSpy changed(m_grid->model(), &QAbstractItemModel::dataChanged);
        m_grid->swapRows(2, 4);
        QSet<int> rows;
        for (const QList<QVariant>& told : changed) {
            const auto from = told.at(0).toModelIndex(), to = told.at(1).toModelIndex();
            QCOMPARE(to.column() - from.column(), m_grid->columns() - 1);
            for (int row = from.row(); row <= to.row(); ++row) rows << row + 1;
        }
        QVERIFY(rows.contains(2) && rows.contains(4));
    }

    void sortMarkMovesAndTurns() {
        const auto title = [this](int column) {
            return m_grid->model()->headerData(column, Qt::Horizontal).toString();
        };
        QVERIFY(m_grid->toggleSortMark(Item));
        QCOMPARE(title(Item), u"種目▲"_qs);
        QVERIFY(!m_grid->toggleSortMark(Item));
        QCOMPARE(title(Item), u"種目▼"_qs);
        QVERIFY(m_grid->toggleSortMark(Price));
        QCOMPARE(title(Item), u"種目"_qs);
        QCOMPARE(title(Price), u"価格▲"_qs);
    }

    void aHundredThousandRowsAreAskedForAsNeeded() {
        int asked = 0;
        GridColumn name;
        name.title = u"氏名"_qs;
        m_grid->setColumns({name, name});
        m_grid->setSource(100'000, [&asked](int row) {
            ++asked;
            return QStringList{QString::number(row), u"山田"_qs};
        });
        QCoreApplication::processEvents();
        m_grid->grab();
        QCOMPARE(m_grid->rows(), 100'000);
        QVERIFY2(asked < 200, qPrintable(QString::number(asked)));
        QCOMPARE(m_grid->value(100'000, 0), u"99999"_qs);
    }

    void returnBehindTheLastCellGoesOn() {
        QKeyEvent inside(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        m_grid->setCurrent(4, Day);
        QApplication::sendEvent(m_grid, &inside);
        QVERIFY(inside.isAccepted());
        QCOMPARE(m_grid->currentRow(), 5);
        QKeyEvent behind(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        m_grid->setCurrent(5, Day);
        QApplication::sendEvent(m_grid, &behind);
        QVERIFY(!behind.isAccepted()); // the screen goes to its next field
        QCOMPARE(m_grid->currentColumn(), int(Day));
    }

    void aGridToFillHasACurrentCellFromTheStart() {
        QCOMPARE(m_grid->currentRow(), 1);
        QCOMPARE(m_grid->currentColumn(), int(Quick));
        m_grid->setCurrent(3, Price);
        m_grid->setRows(4); // other contents
        QCOMPARE(m_grid->currentRow(), 1);
        QCOMPARE(m_grid->currentColumn(), int(Quick));
        m_form->leave();
        m_grid->setCurrent(3, Number); // clicked where nothing is typed
        m_grid->setFocus(Qt::TabFocusReason);
        QCOMPARE(m_grid->currentRow(), 3);
        QCOMPARE(m_grid->currentColumn(), int(Quick));
    }

    void anEmptyRowIsLeftAtOnceWhereNothingFollowsOne() {
        m_grid->setLeavesFromEmptyRow(true);
        m_grid->setValue(1, Item, u"義手"_qs);
        m_grid->setCurrent(1, Day);
        QKeyEvent filled(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(m_grid, &filled);
        QVERIFY(filled.isAccepted());
        QCOMPARE(m_grid->currentRow(), 2);
        QKeyEvent empty(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(m_grid, &empty);
        QVERIFY(!empty.isAccepted());
        QCOMPARE(m_grid->currentRow(), 2);
    }

    void theOpenListIsAsWideAsItsLongestEntryAndAsHighAsARow() {
        const QString longest = u"とても長い名前を持つ完成用部品の一覧の行"_qs;
        m_grid->setEntries(Item, GridEntries{{u"1"_qs, u"1"_qs, u"甲製作所／100"_qs},
                                             {u"2"_qs, u"2"_qs, longest + u"／1,234,567"_qs}});
        QVERIFY(m_grid->beginEdit(1, Item));
        auto* list = qobject_cast<ChoiceBox*>(m_grid->editor());
        const QFontMetrics letters(QApplication::font());
        QVERIFY(list->view()->minimumWidth() > letters.horizontalAdvance(longest + u"1,234,567"_qs));
        QVERIFY(list->view()->minimumWidth() > list->width());
        QCOMPARE(list->completer()->popup()->minimumWidth(), list->view()->minimumWidth());
        QCOMPARE(list->view()->sizeHintForRow(0), m_grid->verticalHeader()->defaultSectionSize());
        m_grid->giveUpEdit();
    }

    void aBlockIsCopiedAsASpreadsheetTakesIt() {
        m_grid->setRowValues(1, {{}, {}, u"義手"_qs, u"2"_qs, u"1"_qs, u"500"_qs, u"12345"_qs});
        m_grid->setCurrent(1, Item);
        m_grid->selectionModel()->select(
            QItemSelection(m_grid->model()->index(0, Item), m_grid->model()->index(1, Price)),
            QItemSelectionModel::ClearAndSelect);
        QTest::keyClick(m_grid, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"義手\t右\t1\t12345\n\t\t\t\n"_qs);
    }

    void aBlockIsPastedCellByCellAsIfTyped() {
        QSignalSpy edits(m_grid, &Grid::cellEdited);
        QGuiApplication::clipboard()->setText(u"義足\t左\t３\t12,345\r\n義手\t\t1\t\r\n"_qs);
        m_grid->setCurrent(4, Item);
        QTest::keyClick(m_grid, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(m_grid->rowValues(4).mid(Item, 5), (QStringList{u"義足"_qs, u"1"_qs, u"3"_qs, {}, u"12345"_qs}));
        QCOMPARE(m_grid->value(5, Item), u"義手"_qs);
        QCOMPARE(edits.size(), 6); // what is empty already is no edit
    }

    void whatACellDoesNotTakeIsToldOnceAndKeepsWhatItHeld() {
        const CapturedMessages messages;
        m_grid->setValue(4, Quantity, u"7"_qs);
        QGuiApplication::clipboard()->setText(u"義眼\t左\t二つ\n義手\n義足\n"_qs);
        m_grid->setCurrent(4, Item);
        QTest::keyClick(m_grid, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(m_grid->value(4, Item), QString());
        QCOMPARE(m_grid->value(4, Side), u"1"_qs);
        QCOMPARE(m_grid->value(4, Quantity), u"7"_qs);
        QCOMPARE(m_grid->value(5, Item), u"義手"_qs);
        QCOMPARE(messages.texts.size(), 1);
        for (const QString& told : {u"4行目 種目「義眼」"_qs, u"二つ"_qs, u"6行目 種目「義足」"_qs})
            QVERIFY2(messages.texts.first().contains(told), qPrintable(messages.texts.first()));
    }

    void oneCellIsPastedIntoAllThatAreSelected() {
        QGuiApplication::clipboard()->setText(u"義手\n"_qs);
        m_grid->setCurrent(1, Item);
        m_grid->selectionModel()->select(
            QItemSelection(m_grid->model()->index(0, Item), m_grid->model()->index(2, Item)),
            QItemSelectionModel::ClearAndSelect);
        QTest::keyClick(m_grid, Qt::Key_V, Qt::ControlModifier);
        for (int row = 1; row <= 3; ++row) QCOMPARE(m_grid->value(row, Item), u"義手"_qs);
        QCOMPARE(m_grid->value(4, Item), QString());
        QTest::keyClick(m_grid, Qt::Key_Delete); // and all are emptied
        for (int row = 1; row <= 3; ++row) QCOMPARE(m_grid->value(row, Item), QString());
    }

    void whatMayNotBeEditedIsNotPastedOver() {
        const CapturedMessages messages;
        m_grid->editStarting = [](int row, int) { return row != 2; };
        m_grid->setValue(2, Item, u"義足"_qs);
        QGuiApplication::clipboard()->setText(u"義手\n義手\n義手\n"_qs);
        m_grid->setCurrent(1, Item);
        QTest::keyClick(m_grid, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(m_grid->value(2, Item), u"義足"_qs);
        QCOMPARE(m_grid->value(3, Item), u"義手"_qs);
        QCOMPARE(messages.texts.size(), 1);
    }

    void theMenuOffersWhatTheKeysDo() {
        QStringList texts;
        for (const QAction* action : m_grid->actions()) texts << action->text();
        QCOMPARE(texts, (QStringList{u"切り取り"_qs, u"コピー"_qs, u"貼り付け"_qs}));
        QCOMPARE(m_grid->contextMenuPolicy(), Qt::ActionsContextMenu);
    }

    void aTextThatNoEntryAnswersIsTold() {
        const CapturedMessages messages;
        m_grid->setValue(2, Item, u"義手"_qs);
        enter(2, Item, u"ZZ"_qs);
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY2(messages.texts.first().contains(u"「ZZ」"_qs), qPrintable(messages.texts.first()));
        QVERIFY(m_grid->editor()); // to be mended where it stands
        QCOMPARE(m_grid->value(2, Item), u"義手"_qs);
        QVERIFY(!m_grid->endEdit());
        QCOMPARE(messages.texts.size(), 2);
        m_form->leave(); // for another field
        QCOMPARE(messages.texts.size(), 3);
        QVERIFY(m_grid->editor() && m_grid->editor()->hasFocus());
        m_grid->setCurrent(3, Item); // for another cell
        QTRY_COMPARE(messages.texts.size(), 4);
        QVERIFY(!m_grid->editor());
        QCOMPARE(m_grid->value(2, Item), u"義手"_qs);
        enter(2, Item, u"義"_qs); // two of them
        QCOMPARE(messages.texts.size(), 5);
        m_grid->giveUpEdit();
        QCOMPARE(m_grid->value(2, Item), u"義手"_qs);
    }

    void readOnlyRowOpensWithReturn() {
        GridColumn name;
        m_grid->setColumns({name});
        m_grid->setRows(3);
        QSignalSpy opened(m_grid, &Grid::rowOpened);
        m_grid->setCurrent(2);
        QTest::keyClick(m_grid, Qt::Key_Return);
        QCOMPARE(opened.count(), 1);
        QCOMPARE(opened.first().first().toInt(), 2);
    }
};

HALVANE_TEST(GridTest)
#include "GridTest.moc"
