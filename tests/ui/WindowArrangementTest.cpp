#include "HalvaneTest.h"
#include "support/ProgramFolder.h"

#include "base/Arrangement.h"
#include "ui/Grid.h"
#include "ui/WindowArrangement.h"

#include <QHeaderView>
#include <QScreen>
#include <QVBoxLayout>

namespace {

// A list as screens draw it.
class ListUnderTest : public QWidget {
public:
    explicit ListUnderTest(const QStringList& titles = {u"番号"_qs, u"氏名"_qs, u"住所"_qs}) {
        setObjectName(u"frmList"_qs);
        grid->setObjectName(u"flxData"_qs);
        setLayout(new QVBoxLayout);
        layout()->addWidget(grid);
        QList<GridColumn> columns;
        for (const QString& title : titles) columns << GridColumn::of(title, 10);
        grid->setColumns(columns);
        resize(500, 300);
    }

    void open() {
        WindowArrangement::restoreSort(grid);
        WindowArrangement::restore(this);
        show();
        QCoreApplication::processEvents();
    }
    void leave() {
        WindowArrangement::keep(this);
        close();
    }

    Grid* grid = new Grid(this);
};

} // namespace

class WindowArrangementTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ProgramFolder> m_folder;

private slots:
    void init() {
        m_folder = std::make_unique<ProgramFolder>();
        Arrangement::keepIn(m_folder->path(u"arrangement.json"_qs));
    }
    void cleanup() { Arrangement::keepIn({}); }

    void theSizeStays() {
        ListUnderTest first;
        first.open();
        first.resize(640, 420);
        first.leave();
        ListUnderTest second;
        second.open();
        QCOMPARE(second.size(), QSize(640, 420));
    }

    void aMaximisedWindowComesBackSoAndKeepsItsOwnSizeBelow() {
        ListUnderTest first;
        first.open();
        first.resize(640, 420);
        first.showMaximized();
        first.leave();
        ListUnderTest second;
        second.open();
        QVERIFY(second.isMaximized());
        second.leave();
        const QJsonObject kept = Arrangement::of(u"frmList"_qs);
        QVERIFY(kept.value(u"maximised"_qs).toBool());
        QCOMPARE(QSize(kept.value(u"width"_qs).toInt(), kept.value(u"height"_qs).toInt()), QSize(640, 420));
    }

    void aWindowLeftAsDrawnFollowsItsDrawing() {
        ListUnderTest first;
        first.open();
        first.leave();
        QVERIFY(!Arrangement::of(u"frmList"_qs).contains(u"width"_qs));
    }

    void draggedColumnsStayByTheirTitles() {
        ListUnderTest first;
        first.open();
        first.grid->setColumnWidth(1, 177);
        first.leave();
        ListUnderTest second({u"氏名"_qs, u"年齢"_qs, u"番号"_qs, u"住所"_qs});
        const int drawn = second.grid->columnWidth(2);
        second.open();
        QCOMPARE(second.grid->columnWidth(0), 177);
        QCOMPARE(second.grid->columnWidth(2), drawn);
    }

    void aColumnDraggedBackIsForgotten() {
        ListUnderTest first;
        const int drawn = first.grid->columnWidth(1);
        first.open();
        first.grid->setColumnWidth(1, 177);
        first.leave();
        ListUnderTest second;
        second.open();
        second.grid->setColumnWidth(1, drawn);
        second.leave();
        ListUnderTest third;
        third.open();
        QCOMPARE(third.grid->columnWidth(1), drawn);
        QVERIFY(Arrangement::of(u"frmList"_qs).value(u"grids"_qs).toObject().value(u"flxData"_qs).toObject().isEmpty());
    }

    void theSortStaysWhereTheListReadsByIt() {
        ListUnderTest first;
        first.open();
        first.grid->toggleSortMark(1);
        first.grid->toggleSortMark(1);
        first.leave();
        ListUnderTest second;
        second.open();
        QCOMPARE(second.grid->sortColumn(), 1);
        QVERIFY(!second.grid->sortsUpwards());
        ListUnderTest another;
        WindowArrangement::restore(&another);
        QCOMPARE(another.grid->sortColumn(), -1);
    }

    void withoutAFileEverythingStandsAsDrawn() {
        Arrangement::keepIn({});
        ListUnderTest first;
        first.open();
        first.resize(640, 420);
        first.grid->setColumnWidth(1, 177);
        first.leave();
        ListUnderTest second;
        second.open();
        QCOMPARE(second.size(), QSize(500, 300));
        QVERIFY(second.grid->columnWidth(1) != 177);
    }

    void whatFitsNoDisplayIsMadeToFit_data() {
        QTest::addColumn<QJsonObject>("kept");
        const auto columns = [](const QJsonValue& width) {
            return QJsonObject{{u"flxData"_qs, QJsonObject{{u"氏名"_qs, width}}}};
        };
        QTest::newRow("huge") << QJsonObject{
            {u"width"_qs, 90000}, {u"height"_qs, 90000}, {u"grids"_qs, columns(90000)}};
        QTest::newRow("tiny") << QJsonObject{{u"width"_qs, 1}, {u"height"_qs, 1}, {u"grids"_qs, columns(1)}};
        QTest::newRow("below nothing") << QJsonObject{
            {u"width"_qs, -5}, {u"height"_qs, -5}, {u"grids"_qs, columns(-5)}};
        QTest::newRow("no numbers") << QJsonObject{
            {u"width"_qs, u"wide"_qs},
            {u"height"_qs, QJsonObject()},
            {u"grids"_qs, u"none"_qs},
            {u"sorts"_qs, QJsonObject{{u"flxData"_qs, QJsonObject{{u"column"_qs, u"消えた列"_qs}}}}}};
    }
    void whatFitsNoDisplayIsMadeToFit() {
        QFETCH(QJsonObject, kept);
        Arrangement::keep(u"frmList"_qs, kept);
        ListUnderTest window;
        window.open();
        const QSize display = window.screen()->availableSize();
        QVERIFY(window.width() <= display.width() && window.height() <= display.height());
        QVERIFY(window.width() >= window.minimumSizeHint().width());
        QVERIFY(window.grid->columnWidth(1) >= 8 && window.grid->columnWidth(1) <= display.width());
        QCOMPARE(window.grid->sortColumn(), -1);
    }
};

HALVANE_TEST(WindowArrangementTest)
#include "WindowArrangementTest.moc"
