#include "HalvaneTest.h"

#include "reports/engine/PdfObjects.h"
#include "reports/engine/ReportPdf.h"

#include <QProcess>
#include <QTemporaryDir>

namespace {

QList<ReportPage> pages(int count) {
    QList<ReportPage> all;
    for (int page = 1; page <= count; ++page) {
        ReportPage made;
        made.paperWidth = 11906;
        made.paperHeight = 16838;
        ReportFont font;
        font.size = 12;
        made.texts.append({u"lbl"_qs, u"第%1頁"_qs.arg(page), font, 600, 900, 200, 1, {}});
        all.append(made);
    }
    return all;
}

QString readBy(const QString& program, const QStringList& words, const QByteArray& pdf) {
    QTemporaryDir folder;
    QFile file(folder.filePath(u"paper.pdf"_qs));
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size()) return {};
    file.close();
    QProcess reader;
    reader.setWorkingDirectory(folder.path());
    QStringList all = words;
    all.replaceInStrings(u"FILE"_qs, file.fileName());
    reader.start(program, all);
    reader.waitForFinished();
    return QString::fromUtf8(reader.readAllStandardOutput() + reader.readAllStandardError());
}

// The list of bookmarks as another program reads it.
QString outlineOf(const QByteArray& pdf) {
    const QString all = readBy(u"pdftohtml"_qs, {u"-xml"_qs, u"-i"_qs, u"-stdout"_qs, u"FILE"_qs}, pdf);
    const qsizetype start = all.indexOf(u"<outline>"_qs);
    return start < 0 ? QString() : all.mid(start, all.indexOf(u"</outline>"_qs) - start);
}

} // namespace

class PdfOutlineTest : public QObject {
    Q_OBJECT

private slots:
    void aReaderListsTheBookmarks() {
        const QByteArray pdf = pdfOfPages(pages(4), u"2024-00012"_qs, {{u"見積書"_qs, 1}, {u"請求書"_qs, 3}});
        const QString outline = outlineOf(pdf);
        QVERIFY2(outline.contains(u"<item page=\"1\">見積書</item>"_qs), qPrintable(outline));
        QVERIFY2(outline.contains(u"<item page=\"3\">請求書</item>"_qs), qPrintable(outline));
    }

    void pagesAndTextsStayAsTheyAre() {
        const QByteArray plain = pdfOfPages(pages(4), u"見積書"_qs);
        const QByteArray marked = pdfOfPages(pages(4), u"見積書"_qs, {{u"見積書"_qs, 1}, {u"請求書"_qs, 3}});
        QVERIFY(marked.startsWith(plain));
        const QStringList words{u"FILE"_qs, u"-"_qs};
        QCOMPARE(readBy(u"pdftotext"_qs, words, marked), readBy(u"pdftotext"_qs, words, plain));
        QVERIFY(readBy(u"pdftotext"_qs, words, marked).contains(u"第4頁"_qs));
        const QString info = readBy(u"pdfinfo"_qs, {u"FILE"_qs}, marked);
        QVERIFY2(info.contains(u"見積書"_qs) && !info.contains(u"Error"_qs), qPrintable(info));
        QVERIFY(outlineOf(plain).isEmpty());
    }

    void marksBesideThePagesAreLeftOut() {
        const QByteArray plain = pdfOfPages(pages(2), u"a"_qs);
        QCOMPARE(withBookmarks(plain, {{u"x"_qs, 0}, {u"y"_qs, 3}}), plain);
        const QString outline = outlineOf(withBookmarks(plain, {{u"x"_qs, 3}, {u"最後"_qs, 2}}));
        QVERIFY2(outline.contains(u"最後"_qs) && !outline.contains(u">x<"_qs), qPrintable(outline));
    }

    void signsOfTheFormatStandForThemselves() {
        const QString outline = outlineOf(pdfOfPages(pages(1), u"a"_qs, {{u"(甲) \\ <𠮷>"_qs, 1}}));
        QVERIFY2(outline.contains(u"(甲) \\ &lt;𠮷&gt;"_qs), qPrintable(outline));
    }

    void whatIsNoPdfStaysAsItIs() {
        for (const QByteArray& bytes : {QByteArray(), QByteArray("no file"), QByteArray("startxref\n99999\n")})
            QCOMPARE(withBookmarks(bytes, {{u"x"_qs, 1}}), bytes);
    }
};

HALVANE_TEST(PdfOutlineTest)
#include "PdfOutlineTest.moc"
