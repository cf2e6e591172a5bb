#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/TestDatabase.h"

#include "base/AppError.h"
#include "ui/EditedList.h"
#include "ui/Grid.h"

#include <QLabel>

// Rows of a long list that are edited in place.
class EditedListTest : public QObject {
    Q_OBJECT

private:
    enum Column { Key, Tick, Sum, Double };

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<Grid> m_grid;
    QLabel m_count;
    EditedList* m_list = nullptr;
    QHash<QString, QString> m_sums; // what is stored

    QHash<QString, QStringList> fetch(const QStringList& keys) {
        QHash<QString, QStringList> rows;
        for (const QString& key : keys)
            if (key != m_gone) rows.insert(key, {key, u"0"_qs, m_sums.value(key), {}});
        return rows;
    }
    void show(const QString& order) {
        m_list->show(u"SELECT [見積ID] FROM [顧客見積情報] ORDER BY [見積ID]"_qs + order);
        QVERIFY(QTest::qWaitFor([this] { return !m_grid->isFilling(); }, patience));
    }
    int rowOf(const QString& key) {
        for (int row = 1; row <= m_grid->rows(); ++row)
            if (m_grid->value(row, Key) == key) return row;
        return 0;
    }

    QString m_gone;

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample); }
    void cleanupTestCase() { m_database.reset(); }
    void init() {
        m_sums.clear();
        m_gone.clear();
        m_grid = std::make_unique<Grid>();
        m_grid->setColumns({GridColumn::of(u"見積ID"_qs, 11), GridColumn::of(u"選択"_qs, 4, GridColumn::Check).typed(),
                            GridColumn::of(u"金額"_qs, 8, GridColumn::Number).typed(),
                            GridColumn::of(u"倍"_qs, 8, GridColumn::Number)});
        m_list = new EditedList(m_grid.get(), &m_count, m_database->settings(),
                                [this](const QStringList& keys) { return fetch(keys); });
        m_list->follow = [](int column, QStringList& values) {
            if (values.at(Sum) == u"13") throw AppError(u"13は使えません。"_qs);
            if (column == Sum) values[Double] = QString::number(2 * values.at(Sum).toInt());
        };
        m_grid->show();
        show({});
    }

    void editsStayWithTheirRowsInAnyOrder() {
        const QString key = m_grid->value(2, Key);
        m_list->edit(2, Sum, u"7"_qs);
        QVERIFY(m_grid->toggleCheck(2, Tick));
        show(u" DESC"_qs);
        QVERIFY(rowOf(key) > 100);
        QCOMPARE(m_grid->value(rowOf(key), Sum), u"7"_qs);
        QCOMPARE(m_grid->value(rowOf(key), Double), u"14"_qs);
        QVERIFY(m_grid->isChecked(rowOf(key), Tick));
        QCOMPARE(m_list->edits().size(), 1);
        QCOMPARE(m_list->edits().first().key(), key);
        QCOMPARE(m_list->edits().first().found.at(Sum), QString());
        QCOMPARE(m_list->edits().first().edited.at(Double), u"14"_qs);
    }

    void whatIsTakenBackIsNoEdit() {
        QVERIFY(m_grid->toggleCheck(1, Tick));
        QVERIFY(m_list->hasEdits());
        QVERIFY(m_grid->toggleCheck(1, Tick));
        QVERIFY(!m_list->hasEdits());
    }

    void aSettledRowShowsWhatIsStored() {
        const QString key = m_grid->value(3, Key);
        m_list->edit(3, Sum, u"7"_qs);
        m_list->edit(4, Sum, u"8"_qs);
        m_sums[key] = u"9"_qs;
        m_grid->setCurrent(3, Sum);
        m_list->settle({key});
        QCOMPARE(m_grid->value(3, Sum), u"9"_qs);
        QCOMPARE(m_grid->value(3, Double), QString());
        QCOMPARE(m_grid->value(4, Sum), u"8"_qs);
        QCOMPARE(m_list->edits().size(), 1);
        QCOMPARE(m_grid->currentRow(), 3);
        QCOMPARE(m_grid->currentColumn(), int(Sum));
    }

    void aRefusedEditLeavesTheRow() {
        CapturedMessages messages;
        m_list->edit(1, Sum, u"5"_qs);
        QVERIFY(m_grid->beginEdit(1, Sum));
        qobject_cast<QLineEdit*>(m_grid->editor())->setText(u"13"_qs);
        QVERIFY(m_grid->endEdit());
        QCOMPARE(messages.texts, QStringList{u"13は使えません。"_qs});
        QCOMPARE(m_grid->value(1, Sum), u"5"_qs);
        QCOMPARE(m_list->edits().first().edited.at(Sum), u"5"_qs);
    }

    void aRowThatHasGoneTakesNothing() {
        m_gone = m_grid->value(5, Key);
        m_list->settle({});
        QCOMPARE(m_grid->value(5, Key), QString());
        QVERIFY(!m_grid->toggleCheck(5, Tick));
        QVERIFY(!m_grid->beginEdit(5, Sum));
        QVERIFY(!m_list->hasEdits());
    }

    void everyEditIsTold() {
        QSignalSpy told(m_list, &EditedList::changed);
        QVERIFY(m_grid->toggleCheck(1, Tick));
        m_list->settle({m_grid->value(1, Key)});
        QCOMPARE(told.size(), 2);
    }
};

HALVANE_TEST(EditedListTest)
#include "EditedListTest.moc"
