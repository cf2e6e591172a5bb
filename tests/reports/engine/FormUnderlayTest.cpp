#include "HalvaneTest.h"

#include "base/AppError.h"
#include "reports/engine/FormUnderlay.h"
#include "reports/engine/ReportPdf.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

constexpr QSize sheet(210, 297);

// A page that is black but for its margins.
ReportPage blackPage() {
    ReportPage page;
    page.paperWidth = 11906;
    page.paperHeight = 16838;
    page.boxes.append({{1000, 1000, 9906, 14838}, 0, false, 100});
    return page;
}

ReportPage whitePage() {
    ReportPage page = blackPage();
    page.boxes.clear();
    return page;
}

} // namespace

class FormUnderlayTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    QString path(const QString& name) const { return m_folder.filePath(name); }

    QString picture(const QString& name, const QSize& size = {100, 50}) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        if (!image.save(path(name))) qFatal("no picture");
        return path(name);
    }

    QString file(const QString& name, const QByteArray& bytes) const {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly)) qFatal("no file");
        file.write(bytes);
        return path(name);
    }

private slots:
    void aPictureFillsTheSheet_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("PNG") << u"form.png"_qs;
        QTest::newRow("JPEG") << u"様式.jpg"_qs;
    }
    void aPictureFillsTheSheet() {
        QFETCH(QString, name);
        const QImage image = FormUnderlay(picture(name)).picture(1, sheet);
        QCOMPARE(image.size(), sheet);
        QVERIFY(image.pixelColor(5, 290).red() > 240 && image.pixelColor(5, 290).green() < 15);
    }

    void aPdfShowsThePageOfItsNumberAndElseTheFirst() {
        savePdf({blackPage(), whitePage()}, u"form"_qs, path(u"form.pdf"_qs));
        const FormUnderlay form(path(u"form.pdf"_qs));
        const auto middle = [&](int page) { return form.picture(page, sheet).pixelColor(105, 150); };
        QCOMPARE(form.picture(1, sheet).size(), sheet);
        QCOMPARE(middle(1), QColor(Qt::black));
        QVERIFY(middle(2) != QColor(Qt::black));
        QCOMPARE(middle(3), QColor(Qt::black));
    }

    void aPdfStandsWhereItStoodOnItsPaper() {
        savePdf({blackPage()}, u"form"_qs, path(u"edge.pdf"_qs));
        const QImage image = FormUnderlay(path(u"edge.pdf"_qs)).picture(1, {1190, 1683});
        QVERIFY(image.pixelColor(96, 800) != QColor(Qt::black)); // the edge stands at 100
        QCOMPARE(image.pixelColor(104, 800), QColor(Qt::black));
    }

    void aScanOfAWholeSheetInColoursIsTaken() {
        const FormUnderlay form(picture(u"large.png"_qs, {4960, 7016}));
        QCOMPARE(form.picture(1, sheet).size(), sheet);
    }

    void whatIsNoPictureIsToldByItsName_data() {
        QTest::addColumn<QString>("path");
        const QByteArray png = [&] {
            QFile whole(picture(u"whole.png"_qs));
            return whole.open(QIODevice::ReadOnly) ? whole.readAll() : QByteArray();
        }();
        QTest::newRow("text") << file(u"letter.png"_qs, "dear sirs");
        QTest::newRow("empty") << file(u"empty.pdf"_qs, "");
        QTest::newRow("broken PDF") << file(u"broken.pdf"_qs, "%PDF-1.4\n1 0 obj\n");
        QTest::newRow("cut off") << file(u"cut.png"_qs, png.left(40));
        QTest::newRow("missing") << path(u"missing.png"_qs);
    }
    void whatIsNoPictureIsToldByItsName() {
        QFETCH(QString, path);
        try {
            const FormUnderlay form(path);
            QFAIL("no fault");
        } catch (const AppError& error) {
            QVERIFY2(error.description().contains(path.section(u'/', -1)), qPrintable(error.description()));
        }
        QVERIFY(FormUnderlay::ifReadable(path).picture(1, sheet).isNull());
    }

    void withoutAFileThereIsNothing() {
        QVERIFY(FormUnderlay::ifReadable({}).isEmpty());
        QVERIFY(FormUnderlay().picture(1, sheet).isNull());
    }
};

HALVANE_TEST(FormUnderlayTest)
#include "FormUnderlayTest.moc"
