#include "FormUnderTest.h"
#include "HalvaneTest.h"
#include "support/CapturedMessages.h"

#include "ui/Grid.h"
#include "ui/frmSelectList.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

class SelectListTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    static SelectRows orders() {
        return {{u"受注先No"_qs, u"受注先コード"_qs, u"受注先名"_qs},
                {{u"1"_qs, u"A01"_qs, u"中央病院"_qs},
                 {u"2"_qs, u"A02"_qs, u"市民病院"_qs},
                 {u"3"_qs, u"B01"_qs, u"ヤマダ整形外科"_qs}}};
    }

    // Opens the list, lets the operator work on it and gives what came of it.
    static void run(std::function<void(frmSelectList&)> prepare, std::function<void(QWidget*)> work,
                    std::function<void(frmSelectList&)> read) {
        QTimer::singleShot(0, [work] { work(QApplication::activeModalWidget()); });
        openScreen<frmSelectList>(
            nullptr,
            [&](frmSelectList& list) {
                list.Recordset = orders();
                if (prepare) prepare(list);
            },
            read);
    }

    static void press(QWidget* screen, const QString& name) { screen->findChild<QPushButton*>(name)->click(); }
    static Grid* grid(QWidget* screen) { return screen->findChild<Grid*>(u"flxData"_qs); }

private slots:
    void init() {
        QFile ini(m_folder.filePath(u"Halvane.ini"_qs));
        QVERIFY(ini.open(QIODevice::WriteOnly));
        seams().programFolder = [this] { return m_folder.path(); };
    }
    void cleanupTestCase() { seams() = defaultSeams(); }

    void showsOneRowForEachRecordAndTheirCount() {
        run(
            {},
            [](QWidget* screen) {
                QCOMPARE(screen->windowTitle(), u"マスタ選択"_qs);
                QCOMPARE(grid(screen)->rows(), 3);
                QCOMPARE(screen->findChild<QLabel*>(u"lblRecCnt"_qs)->text(), u"3件"_qs);
                QVERIFY(!screen->findChild<QPushButton*>(u"cbEstDetail"_qs)->isVisible());
                screen->close();
            },
            [](frmSelectList& list) { QVERIFY(list.Cancel); });
    }

    void titleAndHiddenColumnsAreTheCallers() {
        run(
            [](frmSelectList& list) {
                list.TblName = u"受注先"_qs;
                list.HideCols = {u"受注先No"_qs};
            },
            [](QWidget* screen) {
                QCOMPARE(screen->windowTitle(), u"受注先"_qs);
                QVERIFY(grid(screen)->isColumnHidden(0));
                QVERIFY(!grid(screen)->isColumnHidden(1));
                screen->close();
            },
            [](frmSelectList&) {});
    }

    void selectGivesTheFieldsOfTheRow() {
        run(
            {},
            [](QWidget* screen) {
                grid(screen)->setCurrent(2);
                press(screen, u"cbSelect"_qs);
            },
            [](frmSelectList& list) {
                QVERIFY(!list.Cancel);
                QCOMPARE(list.Selected.value(u"受注先No"_qs), u"2"_qs);
                QCOMPARE(list.Selected.value(u"受注先名"_qs), u"市民病院"_qs);
            });
    }

    void doubleClickSelects() {
        run(
            {},
            [](QWidget* screen) {
                grid(screen)->setCurrent(3);
                emit grid(screen)->doubleClicked(grid(screen)->currentIndex());
            },
            [](frmSelectList& list) { QCOMPARE(list.Selected.value(u"受注先コード"_qs), u"B01"_qs); });
    }

    void cancelledSelectionLeavesNothingToTake() {
        run(
            {}, [](QWidget* screen) { press(screen, u"cbClose"_qs); },
            [](frmSelectList& list) {
                QVERIFY(list.Cancel);
                QVERIFY(list.Selected.isEmpty());
            });
    }

    void typedTextNarrowsTheRows() {
        run(
            {},
            [](QWidget* screen) {
                auto* search = screen->findChild<QLineEdit*>(u"txtSearch"_qs);
                search->setText(u"やまだ"_qs);
                QCOMPARE(grid(screen)->rows(), 1);
                QTest::keyClick(search, Qt::Key_Return);
                press(screen, u"cbSelect"_qs);
            },
            [](frmSelectList& list) { QCOMPARE(list.Selected.value(u"受注先No"_qs), u"3"_qs); });
    }

    void estimateOfTheDetailListIsHandedOn() {
        run([](frmSelectList& list) { list.EstDetail = [](QWidget*) { return u"20050001"_qs; }; },
            [](QWidget* screen) { press(screen, u"cbEstDetail"_qs); },
            [](frmSelectList& list) {
                QVERIFY(!list.Cancel);
                QCOMPARE(list.EstId, u"20050001"_qs);
            });
    }
};

HALVANE_TEST(SelectListTest)
#include "SelectListTest.moc"
