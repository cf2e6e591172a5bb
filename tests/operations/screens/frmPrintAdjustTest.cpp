#include "HalvaneTest.h"

#include "base/Seams.h"
#include "base/clsProfile.h"
#include "db/clsDbManager.h"
#include "operations/screens/frmPrintAdjust.h"
#include "reports/ReportClasses.h"
#include "reports/engine/PreviewSheet.h"
#include "reports/engine/ReportRecorder.h"
#include "support/TestDatabase.h"
#include "ui/ChoiceBox.h"
#include "ui/Grid.h"
#include "ui/NumberField.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>

namespace {

constexpr int className = 2, underlayColumn = 5;
const QString report = u"repCsEstimateA4"_qs; // the first of the list

} // namespace

class frmPrintAdjustTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<frmPrintAdjust> m_screen;

    template <class Control> Control* control(const QString& name) {
        auto* found = m_screen->findChild<Control*>(name);
        if (!found) qFatal("no control %s", qPrintable(name));
        return found;
    }

    void press(const QString& name) { control<QPushButton>(name)->click(); }

    void openScreen() {
        m_screen = std::make_unique<frmPrintAdjust>();
        QVERIFY(m_screen->Load());
        m_screen->show();
    }

    void choose(const QString& path) {
        seams().openFile = [path](const FileDialogRequest&) { return path; };
        press(u"cmdUnderlay"_qs);
    }

    QColor middleOfTheSheet() {
        auto* sheet = control<PreviewSheet>(u"sheet"_qs);
        return sheet->grab().toImage().pixelColor(sheet->width() / 2, sheet->height() - 30);
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->writeProfile();
        gDbManager.DBOpen();
        m_database->prepareManagers();
        openScreen();
    }
    void cleanup() {
        m_screen.reset();
        seams().message = defaultSeams().message;
        seams().openFile = defaultSeams().openFile;
        gDbManager.DBClose();
        m_database.reset();
    }

    void everyReportHasItsRow() {
        const auto* grid = control<Grid>(u"flxReport"_qs);
        QCOMPARE(grid->rows(), reportClasses().size());
        for (int row = 1; row <= grid->rows(); ++row) {
            QVERIFY2(!grid->value(row, 1).isEmpty(), qPrintable(grid->value(row, className)));
        }
    }

    // Each of them can be shown with the sample, whatever it is made of.
    void everyReportShowsItsSample() {
        auto* grid = control<Grid>(u"flxReport"_qs);
        seams().message = [](const MessageBoxRequest& request) -> qint16 {
            qWarning("%s", qPrintable(request.text));
            return AnswerNone;
        };
        for (int row = 1; row <= grid->rows(); ++row) {
            QTest::failOnWarning(QRegularExpression(u".*"_qs));
            grid->setCurrent(row, className);
            QVERIFY(control<PreviewSheet>(u"sheet"_qs)->width() > 100);
        }
    }

    void anOffsetIsKeptForItsReport() {
        control<NumberField>(u"numRight"_qs)->setValue(u"1.5"_qs);
        control<NumberField>(u"numDown"_qs)->setValue(u"-0.3"_qs);
        QCOMPARE(readReportOffset(clsProfile(), report, {}), (ReportOffset{15, -3}));
        openScreen();
        QCOMPARE(control<NumberField>(u"numRight"_qs)->value(), u"1.5"_qs);
        control<Grid>(u"flxReport"_qs)->setCurrent(2, className);
        QCOMPARE(control<NumberField>(u"numRight"_qs)->value(), u"0"_qs);
    }

    void aPrinterHasItsOwnOffset() {
        control<NumberField>(u"numRight"_qs)->setValue(u"1"_qs);
        auto* printers = control<ChoiceBox>(u"cboPrinter"_qs);
        printers->addEntry(u"レーザー"_qs, u"レーザー"_qs);
        printers->chooseByData(u"レーザー"_qs);
        QCOMPARE(control<NumberField>(u"numRight"_qs)->value(), u"1"_qs); // that of all
        control<NumberField>(u"numRight"_qs)->setValue(u"2"_qs);
        QCOMPARE(readReportOffset(clsProfile(), report, {}), (ReportOffset{10, 0}));
        QCOMPARE(readReportOffset(clsProfile(), report, u"レーザー"_qs), (ReportOffset{20, 0}));
        ReportRecorder recorder;
        press(u"cmdTest"_qs);
        QCOMPARE(recorder.jobs().first().settings.printer, u"レーザー"_qs);
        QCOMPARE(recorder.jobs().first().offset, (ReportOffset{20, 0}));
    }

    void theRulerIsMovedAsThePaperWillBe() {
        const auto firstCorner = [&] {
            ReportRecorder recorder;
            press(u"cmdTest"_qs);
            int least = 99'999;
            const ReportPage page = recorder.pages().first();
            for (const ReportPageLine& line : page.lines)
                if (line.x1 == line.x2 && line.y2 - line.y1 == 566) least = std::min(least, line.x1);
            return least;
        };
        const int plain = firstCorner();
        QCOMPARE(plain, 567); // 10 mm from the edge
        control<NumberField>(u"numRight"_qs)->setValue(u"2.5"_qs);
        QCOMPARE(firstCorner(), plain + 142); // 2.5 mm
    }

    void aScanLiesUnderTheSampleUntilItIsTakenAway() {
        QImage scan(210, 297, QImage::Format_RGB32);
        scan.fill(Qt::red);
        const QString path = m_database->folder() + u"/様式.png"_qs;
        QVERIFY(scan.save(path));
        QCOMPARE(middleOfTheSheet(), QColor(Qt::white));
        choose(path);
        QCOMPARE(readReportUnderlay(clsProfile(), report), path);
        QCOMPARE(control<QLabel>(u"lblUnderlay"_qs)->text(), u"様式.png"_qs);
        QCOMPARE(control<Grid>(u"flxReport"_qs)->value(1, underlayColumn), u"あり"_qs);
        QCOMPARE(middleOfTheSheet(), QColor(Qt::red));
        ReportRecorder recorder;
        press(u"cmdPreview"_qs);
        QCOMPARE(recorder.jobs().first().underlay, path);
        press(u"cmdUnderlayClear"_qs);
        QCOMPARE(middleOfTheSheet(), QColor(Qt::white));
        QVERIFY(readReportUnderlay(clsProfile(), report).isEmpty());
    }

    void aNameThatTheIniFileCannotHoldIsRefused() {
        QImage scan(210, 297, QImage::Format_RGB32);
        scan.fill(Qt::red);
        const QString path = m_database->folder() + u"/𠮷.png"_qs;
        QVERIFY(scan.save(path));
        QString told;
        seams().message = [&](const MessageBoxRequest& request) -> qint16 {
            told = request.text;
            return AnswerNone;
        };
        choose(path);
        QVERIFY2(told.contains(u"𠮷"), qPrintable(told));
        QVERIFY(readReportUnderlay(clsProfile(), report).isEmpty());
    }
};

HALVANE_TEST(frmPrintAdjustTest)
#include "frmPrintAdjustTest.moc"
