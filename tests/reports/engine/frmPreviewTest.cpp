#include "HalvaneTest.h"

#include "base/Seams.h"
#include "reports/engine/PreviewSheet.h"
#include "reports/engine/ReportRecorder.h"
#include "reports/engine/frmPreview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

ReportJob jobOf(int pages) {
    ReportJob job{u"repCsEstimateA4"_qs, {}, {}, u"見積書 R06-1"_qs};
    for (int page = 1; page <= pages; ++page) {
        ReportPage made;
        made.paperWidth = 11906;
        made.paperHeight = 16838;
        made.texts.append({u"lbl"_qs, QString::number(page), {}, 600, 600, 200, 1, {}});
        job.pages.append(made);
    }
    return job;
}

template <class Control> Control* control(frmPreview& screen, const QString& name) {
    auto* found = screen.findChild<Control*>(name);
    if (!found) qFatal("no control %s", qPrintable(name));
    return found;
}

void press(frmPreview& screen, const QString& name) { control<QPushButton>(screen, name)->click(); }

} // namespace

class frmPreviewTest : public QObject {
    Q_OBJECT

private slots:
    void buttonsLeafThroughThePages() {
        frmPreview screen(jobOf(3));
        QCOMPARE(control<QLabel>(screen, u"lblPage"_qs)->text(), u"1 / 3 ページ"_qs);
        QVERIFY(!control<QPushButton>(screen, u"cmdPrev"_qs)->isEnabled());
        press(screen, u"cmdNext"_qs);
        press(screen, u"cmdNext"_qs);
        QCOMPARE(screen.pageNumber(), 3);
        QVERIFY(!control<QPushButton>(screen, u"cmdNext"_qs)->isEnabled());
        press(screen, u"cmdPrev"_qs);
        QCOMPARE(screen.pageNumber(), 2);
    }

    void keysLeafThroughThePages() {
        frmPreview screen(jobOf(3));
        screen.show();
        QVERIFY(QTest::qWaitForWindowActive(&screen, patience));
        QWidget* page = screen.findChild<QWidget*>(u"scrPage"_qs);
        QTest::keyClick(page, Qt::Key_PageDown);
        QCOMPARE(screen.pageNumber(), 2);
        QTest::keyClick(page, Qt::Key_End);
        QCOMPARE(screen.pageNumber(), 3);
        QTest::keyClick(page, Qt::Key_PageUp);
        QCOMPARE(screen.pageNumber(), 2);
        QTest::keyClick(page, Qt::Key_Home);
        QCOMPARE(screen.pageNumber(), 1);
        QTest::keyClick(page, Qt::Key_PageUp);
        QCOMPARE(screen.pageNumber(), 1);
    }

    void zoomStepsFromTheFittedPageToTheNextInTheList() {
        frmPreview screen(jobOf(1));
        screen.resize(900, 700);
        screen.show();
        auto* sheet = control<PreviewSheet>(screen, u"sheet"_qs);
        auto* zoom = control<QComboBox>(screen, u"cboZoom"_qs);
        QCOMPARE(zoom->currentText(), u"ページ全体"_qs);
        QCOMPARE(zoom->currentText(), u"ページ全体"_qs);
        const double whole = sheet->zoom();
        QVERIFY(whole > 0.3 && whole < 0.75);
        press(screen, u"cmdZoomIn"_qs);
        QVERIFY(sheet->zoom() > whole);
        zoom->setCurrentText(u"100 %"_qs);
        QCOMPARE(sheet->zoom(), 1.0);
        press(screen, u"cmdZoomIn"_qs);
        QCOMPARE(zoom->currentText(), u"125 %"_qs);
        press(screen, u"cmdZoomOut"_qs);
        press(screen, u"cmdZoomOut"_qs);
        QCOMPARE(zoom->currentText(), u"75 %"_qs);
        zoom->setCurrentText(u"ページ幅"_qs);
        QVERIFY(sheet->width() <= screen.width());
        QVERIFY(sheet->width() > screen.width() * 3 / 4);
    }

    void printGoesToThePrinter() {
        ReportRecorder recorder;
        frmPreview screen(jobOf(2));
        press(screen, u"cmdPrint"_qs);
        QCOMPARE(recorder.documents(), QStringList{u"repCsEstimateA4"_qs});
        QCOMPARE(recorder.pages().size(), 2);
    }

    void pdfIsSavedWhereTheOperatorSays() {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"見積書.pdf"_qs);
        const Seams kept = seams();
        QString proposed;
        seams().saveFile = [&](FileDialogRequest& request) {
            proposed = request.fileName;
            return path;
        };
        frmPreview screen(jobOf(2));
        press(screen, u"cmdPdf"_qs);
        seams() = kept;
        QCOMPARE(proposed, u"見積書 R06-1.pdf"_qs);
        QVERIFY(QFileInfo(path).size() > 1000);
    }

    void aCancelledPdfWritesNothing() {
        const Seams kept = seams();
        int messages = 0;
        seams().saveFile = [](FileDialogRequest&) { return QString(); };
        seams().message = [&](const MessageBoxRequest&) -> qint16 { return ++messages; };
        frmPreview screen(jobOf(1));
        press(screen, u"cmdPdf"_qs);
        seams() = kept;
        QCOMPARE(messages, 0);
    }

    void theScanOfAFormLiesUnderThePageAndIsNeverPrinted() {
        QTemporaryDir folder;
        QImage scan(210, 297, QImage::Format_RGB32);
        scan.fill(Qt::red);
        const QString path = folder.filePath(u"form.png"_qs);
        QVERIFY(scan.save(path));
        ReportJob job = jobOf(1);
        job.underlay = path;
        frmPreview screen(job);
        screen.show();
        auto* sheet = screen.findChild<PreviewSheet*>();
        auto* tick = control<QCheckBox>(screen, u"chkUnderlay"_qs);
        const auto middle = [&] { return sheet->grab().toImage().pixelColor(sheet->width() / 2, sheet->height() / 2); };
        QVERIFY(tick->isVisible() && tick->isChecked());
        QCOMPARE(middle(), QColor(Qt::red));
        tick->setChecked(false);
        QCOMPARE(middle(), QColor(Qt::white));
        tick->setChecked(true);
        ReportRecorder recorder;
        press(screen, u"cmdPrint"_qs);
        QCOMPARE(recorder.jobs().first().pages.first().texts.size(), job.pages.first().texts.size());
        QVERIFY(recorder.jobs().first().pages.first().boxes.isEmpty());
    }

    void aScanThatIsGoneLeavesThePreviewAlone() {
        ReportJob job = jobOf(1);
        job.underlay = u"/nowhere/form.png"_qs;
        frmPreview screen(job);
        screen.show();
        QVERIFY(!control<QCheckBox>(screen, u"chkUnderlay"_qs)->isVisible());
    }

    void closeEndsThePreview() {
        frmPreview screen(jobOf(1));
        screen.show();
        press(screen, u"cmdClose"_qs);
        QVERIFY(!screen.isVisible());
    }

    void everyCommandHasItsOwnAltLetter() {
        frmPreview screen(jobOf(1));
        QStringList letters;
        for (const QPushButton* button : screen.findChildren<QPushButton*>()) {
            const QString key = button->shortcut().toString();
            QVERIFY2(!key.isEmpty(), qPrintable(button->objectName()));
            QVERIFY2(!letters.contains(key), qPrintable(key));
            letters.append(key);
        }
        QCOMPARE(letters.size(), 7);
    }
};

HALVANE_TEST(frmPreviewTest)
#include "frmPreviewTest.moc"
