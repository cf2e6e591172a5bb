#include "HalvaneTest.h"

#include "reports/engine/PreviewPapers.h"

namespace {

ReportJob paper(const QString& title, int pages, const QString& about = {}) {
    ReportJob job{u"repCsEstimateA4"_qs, {}, {}, title};
    for (int page = 1; page <= pages; ++page) {
        ReportPage made;
        made.paperWidth = page;
        job.pages.append(made);
    }
    job.about = about;
    return job;
}

const QString person = u"2024-00012 橋本　太郎"_qs;

} // namespace

class PreviewPapersTest : public QObject {
    Q_OBJECT

private slots:
    void pagesRunThroughAllPapers() {
        const PreviewPapers papers({paper(u"見積書 1"_qs, 2), paper(u"請求書 1"_qs, 1), paper(u"領収書 1"_qs, 3)});
        QCOMPARE(papers.pages(), 6);
        QList<int> of, inside;
        for (int page = 1; page <= 6; ++page) {
            of << papers.paperOf(page);
            inside << papers.pageInPaper(page);
            QCOMPARE(papers.page(page).paperWidth, inside.last());
        }
        QCOMPARE(of, (QList<int>{0, 0, 1, 2, 2, 2}));
        QCOMPARE(inside, (QList<int>{1, 2, 1, 1, 2, 3}));
        QCOMPARE(papers.firstPageOf(2), 4);
    }

    void papersAreNamedAndToldApart() {
        const PreviewPapers papers({paper(u"内訳書 1"_qs, 1), paper(u"請求書 1"_qs, 1), paper(u"内訳書 1"_qs, 1)});
        QCOMPARE(papers.name(0), u"内訳書"_qs);
        QCOMPARE(papers.name(2), u"内訳書 (2)"_qs);
        const QList<PdfBookmark> marks = papers.bookmarks();
        QCOMPARE(marks.size(), 3);
        QCOMPARE(marks.at(2).title, u"内訳書 (2)"_qs);
        QCOMPARE(marks.at(2).page, 3);
        QVERIFY(PreviewPapers({paper(u"内訳書 1"_qs, 4)}).bookmarks().isEmpty());
    }

    void aFileIsNamedByNumberPersonAndPaper() {
        QCOMPARE(PreviewPapers({paper(u"見積書 2024-00012"_qs, 1, person)}).fileName(),
                 u"2024-00012 橋本　太郎 見積書.pdf"_qs);
        QCOMPARE(PreviewPapers({paper(u"見積書 1"_qs, 1, person), paper(u"請求書 1"_qs, 1, person)}).fileName(),
                 u"2024-00012 橋本　太郎 見積書・請求書.pdf"_qs);
        QCOMPARE(PreviewPapers({paper(u"見積書 1"_qs, 1, person), paper(u"内訳書 1"_qs, 1, person),
                                paper(u"請求書 1"_qs, 1, person), paper(u"領収書 1"_qs, 1, person)})
                     .fileName(),
                 u"2024-00012 橋本　太郎 見積書ほか3件.pdf"_qs);
    }

    void aListIsNamedByItsTitle() {
        QCOMPARE(PreviewPapers({paper(u"受注先別売上一覧"_qs, 1)}).fileName(), u"受注先別売上一覧.pdf"_qs);
        QCOMPARE(PreviewPapers({paper(u"見積書 R06-1"_qs, 1)}).fileName(), u"見積書 R06-1.pdf"_qs);
    }

    void aNameFitsEveryFileSystem_data() {
        QTest::addColumn<QString>("about");
        QTest::newRow("signs of paths") << u"1/2 a\\b:c*d?e\"f<g>h|i"_qs;
        QTest::newRow("line breaks") << u"橋本\n太郎\t"_qs;
        QTest::newRow("long") << QString(200, u'長');
        QTest::newRow("rare kanji") << u"𠮷"_qs.repeated(200);
    }
    void aNameFitsEveryFileSystem() {
        QFETCH(QString, about);
        const QString name = PreviewPapers({paper(u"見積書 1"_qs, 1, about)}).fileName();
        QVERIFY2(name.toUtf8().size() <= 255, qPrintable(name));
        for (const QChar unfit : u"/\\:*?\"<>|\n\t"_qs) QVERIFY2(!name.contains(unfit), qPrintable(name));
        QVERIFY(name.endsWith(u"見積書.pdf"_qs) || about.size() > 100);
    }

    void noPaperHasNoName() {
        const PreviewPapers none({});
        QCOMPARE(none.pages(), 0);
        QVERIFY(none.title().isEmpty());
        QVERIFY(none.fileName().isEmpty());
    }
};

HALVANE_TEST(PreviewPapersTest)
#include "PreviewPapersTest.moc"
