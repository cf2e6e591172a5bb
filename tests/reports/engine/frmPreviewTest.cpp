#include "HalvaneTest.h"

#include "base/Arrangement.h"
#include "base/Seams.h"
#include "reports/engine/PreviewSheet.h"
#include "reports/engine/ReportRecorder.h"
#include "reports/engine/frmPreview.h"
#include "support/ProgramFolder.h"
#include "ui/NumberField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWheelEvent>

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

ReportJob paper(const QString& title, int pages) {
    ReportJob job = jobOf(pages);
    job.title = title;
    job.about = u"2024-00012 橋本　太郎"_qs;
    return job;
}

// 見積書 of two pages, 請求書 of one, 領収書 of three.
QList<ReportJob> threePapers() {
    return {paper(u"見積書 1"_qs, 2), paper(u"請求書 1"_qs, 1), paper(u"領収書 1"_qs, 3)};
}

void turnWheel(QWidget* page, int angle, Qt::KeyboardModifiers keys) {
    QWheelEvent turn(QPointF(5, 5), page->mapToGlobal(QPointF(5, 5)), {}, {0, angle}, Qt::NoButton, keys,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(page, &turn);
}

void press(frmPreview& screen, const QString& name) { control<QPushButton>(screen, name)->click(); }

} // namespace

class frmPreviewTest : public QObject {
    Q_OBJECT

private slots:
    void buttonsLeafThroughThePages() {
        frmPreview screen({jobOf(3)});
        QCOMPARE(control<QLabel>(screen, u"lblPage"_qs)->text(), u"/ 3 ページ"_qs);
        QVERIFY(!control<QPushButton>(screen, u"cmdPrev"_qs)->isEnabled());
        press(screen, u"cmdNext"_qs);
        press(screen, u"cmdNext"_qs);
        QCOMPARE(screen.pageNumber(), 3);
        QVERIFY(!control<QPushButton>(screen, u"cmdNext"_qs)->isEnabled());
        press(screen, u"cmdPrev"_qs);
        QCOMPARE(screen.pageNumber(), 2);
    }

    void keysLeafThroughThePages() {
        frmPreview screen({jobOf(3)});
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
        frmPreview screen({jobOf(1)});
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
        frmPreview screen({jobOf(2)});
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
        frmPreview screen({jobOf(2)});
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
        frmPreview screen({jobOf(1)});
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
        frmPreview screen({job});
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
        frmPreview screen({job});
        screen.show();
        QVERIFY(!control<QCheckBox>(screen, u"chkUnderlay"_qs)->isVisible());
    }

    // --- several papers ---

    void papersAreListedByNameAndPage() {
        frmPreview screen(threePapers());
        screen.show();
        auto* papers = control<QListWidget>(screen, u"lstPaper"_qs);
        QVERIFY(papers->isVisible());
        QCOMPARE(papers->count(), 3);
        QCOMPARE(papers->item(0)->text(), u"見積書　1～2"_qs);
        QCOMPARE(papers->item(1)->text(), u"請求書　3"_qs);
        QCOMPARE(papers->item(2)->text(), u"領収書　4～6"_qs);
        QCOMPARE(control<QLabel>(screen, u"lblPage"_qs)->text(), u"/ 6 ページ"_qs);
        papers->setCurrentRow(2);
        QCOMPARE(screen.pageNumber(), 4);
        press(screen, u"cmdPrev"_qs);
        QCOMPARE(papers->currentRow(), 1);
        QVERIFY(screen.windowTitle().contains(u"2024-00012 橋本　太郎"_qs));
    }

    void aSinglePaperHasNoList() {
        frmPreview screen({jobOf(3)});
        screen.show();
        QVERIFY(!control<QListWidget>(screen, u"lstPaper"_qs)->isVisible());
        QVERIFY(!control<QPushButton>(screen, u"cmdPrintPaper"_qs)->isVisible());
    }

    void allPapersOrOneArePrinted() {
        ReportRecorder recorder;
        frmPreview screen(threePapers());
        press(screen, u"cmdPrint"_qs);
        QCOMPARE(recorder.jobs().size(), 3);
        QCOMPARE(recorder.pages().size(), 6);
        recorder.clear();
        control<QListWidget>(screen, u"lstPaper"_qs)->setCurrentRow(2);
        press(screen, u"cmdPrintPaper"_qs);
        QCOMPARE(recorder.jobs().size(), 1);
        QCOMPARE(recorder.jobs().first().title, u"領収書 1"_qs);
    }

    void ctrlPPrints() {
        ReportRecorder recorder;
        frmPreview screen(threePapers());
        screen.show();
        QVERIFY(QTest::qWaitForWindowActive(&screen, patience));
        QTest::keyClick(screen.findChild<QWidget*>(u"scrPage"_qs), Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(recorder.jobs().size(), 3);
    }

    // --- ways to a page ---

    void aTypedPageIsGoneTo() {
        frmPreview screen(threePapers());
        screen.show();
        QVERIFY(QTest::qWaitForWindowActive(&screen, patience));
        auto* number = control<NumberField>(screen, u"numPage"_qs);
        const auto go = [&](const QString& typed) {
            number->setFocus();
            number->selectAll();
            QTest::keyClick(number, Qt::Key_Delete);
            for (const QChar sign : typed) {
                QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, sign);
                QApplication::sendEvent(number, &key);
            }
            QTest::keyClick(number, Qt::Key_Return);
            return screen.pageNumber();
        };
        QCOMPARE(go(u"5"_qs), 5);
        QCOMPARE(go(u"３"_qs), 3); // in full width
        QCOMPARE(go(u"99"_qs), 6);
        QCOMPARE(number->text(), u"6"_qs);
        QCOMPARE(go(u"0"_qs), 6);
        QCOMPARE(number->text(), u"6"_qs);
        QCOMPARE(go({}), 6);
        QCOMPARE(number->text(), u"6"_qs);
        QVERIFY(screen.isVisible());
    }

    void pageDownGoesThroughAZoomedPageFirst() {
        frmPreview screen({jobOf(2)});
        screen.resize(900, 700);
        screen.show();
        QVERIFY(QTest::qWaitForWindowActive(&screen, patience));
        control<QComboBox>(screen, u"cboZoom"_qs)->setCurrentText(u"200 %"_qs);
        auto* area = control<QScrollArea>(screen, u"scrPage"_qs);
        QScrollBar* bar = area->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        int presses = 0;
        for (; screen.pageNumber() == 1 && presses < 50; ++presses) QTest::keyClick(area, Qt::Key_PageDown);
        QCOMPARE(presses, (bar->maximum() + bar->pageStep() - 1) / bar->pageStep() + 1);
        QCOMPARE(bar->value(), 0);
        QTest::keyClick(area, Qt::Key_PageUp);
        QCOMPARE(screen.pageNumber(), 1);
        QCOMPARE(bar->value(), bar->maximum()); // the end of the page before
    }

    void ctrlAndWheelZoom() {
        frmPreview screen({jobOf(1)});
        screen.show();
        auto* zoom = control<QComboBox>(screen, u"cboZoom"_qs);
        zoom->setCurrentText(u"100 %"_qs);
        QWidget* page = control<QScrollArea>(screen, u"scrPage"_qs)->viewport();
        turnWheel(page, 120, Qt::ControlModifier);
        QCOMPARE(zoom->currentText(), u"125 %"_qs);
        turnWheel(page, -240, Qt::ControlModifier);
        QCOMPARE(zoom->currentText(), u"75 %"_qs);
        turnWheel(page, 60, Qt::ControlModifier); // half a step of a fine wheel
        QCOMPARE(zoom->currentText(), u"75 %"_qs);
        turnWheel(page, 60, Qt::ControlModifier);
        QCOMPARE(zoom->currentText(), u"100 %"_qs);
        turnWheel(page, 120, Qt::NoModifier);
        QCOMPARE(zoom->currentText(), u"100 %"_qs);
    }

    // --- what is kept ---

    void zoomAndFolderAreKeptForTheNextOne() {
        const ProgramFolder office;
        QTemporaryDir folder;
        Arrangement::keepIn(office.path(u"arrangement.json"_qs));
        const Seams kept = seams();
        QStringList proposed;
        seams().saveFile = [&](FileDialogRequest& request) {
            proposed << request.folder;
            return folder.filePath(u"a.pdf"_qs);
        };
        {
            frmPreview screen({jobOf(1)});
            screen.show();
            control<QComboBox>(screen, u"cboZoom"_qs)->setCurrentText(u"150 %"_qs);
            press(screen, u"cmdPdf"_qs);
            press(screen, u"cmdClose"_qs);
        }
        frmPreview screen({jobOf(1)});
        QCOMPARE(control<QComboBox>(screen, u"cboZoom"_qs)->currentText(), u"150 %"_qs);
        press(screen, u"cmdPdf"_qs);
        folder.remove();
        press(screen, u"cmdPdf"_qs); // a folder that has gone is not offered, and the failure is told
        seams() = kept;
        Arrangement::keepIn({});
        QCOMPARE(proposed, (QStringList{QString(), folder.path(), QString()}));
    }

    // --- PDF ---

    void onePdfHoldsAllPapersAndCanBeOpened() {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"all.pdf"_qs);
        const Seams kept = seams();
        QString proposed, opened;
        seams().saveFile = [&](FileDialogRequest& request) {
            proposed = request.fileName;
            return path;
        };
        seams().openWithShell = [&](const QString& file) { opened = file; };
        frmPreview screen(threePapers());
        screen.show();
        auto* open = control<QPushButton>(screen, u"cmdOpenPdf"_qs);
        QVERIFY(!open->isVisible());
        press(screen, u"cmdPdf"_qs);
        QVERIFY(open->isVisible());
        QVERIFY(control<QLabel>(screen, u"lblSaved"_qs)->text().contains(u"all.pdf"_qs));
        open->click();
        seams() = kept;
        QCOMPARE(proposed, u"2024-00012 橋本　太郎 見積書・請求書・領収書.pdf"_qs);
        QCOMPARE(opened, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray pdf = file.readAll();
        QCOMPARE(pdf.count("/Type /Page\n"), 6);
        QVERIFY(pdf.contains("/Outlines"));
    }

    void closeEndsThePreview() {
        frmPreview screen({jobOf(1)});
        screen.show();
        press(screen, u"cmdClose"_qs);
        QVERIFY(!screen.isVisible());
    }

    void everyCommandHasItsOwnAltLetter() {
        frmPreview screen({jobOf(1)});
        QStringList letters;
        for (const QPushButton* button : screen.findChildren<QPushButton*>()) {
            const QString key = button->shortcut().toString();
            QVERIFY2(!key.isEmpty(), qPrintable(button->objectName()));
            QVERIFY2(!letters.contains(key), qPrintable(key));
            letters.append(key);
        }
        QCOMPARE(letters.size(), 9);
    }
};

HALVANE_TEST(frmPreviewTest)
#include "frmPreviewTest.moc"
