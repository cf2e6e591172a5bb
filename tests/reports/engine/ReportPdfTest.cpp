#include "HalvaneTest.h"

#include "base/AppError.h"
#include "reports/FormSample.h"
#include "reports/engine/PaperGlyphs.h"
#include "reports/engine/PdfTextTable.h"
#include "reports/engine/ReportFonts.h"
#include "reports/engine/ReportPdf.h"
#include "support/FileLimit.h"
#include "support/Raised.h"
#include "support/ReportSamples.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

ReportPage pageOf(const QString& text, bool gothic) {
    ReportPage page;
    page.paperWidth = 11906;
    page.paperHeight = 16838;
    const ReportFont font{gothic, 10, false};
    // A line of its own every forty characters, so that nothing runs off the paper.
    for (int start = 0, baseline = 600; start < text.size(); start += 40, baseline += 300)
        page.texts.append({u"line"_qs, text.mid(start, 40), font, 600, baseline, 8000, 1, {}});
    return page;
}

// What a reader of the file finds when it copies its text, without blanks and line breaks.
QString textIn(const QByteArray& pdf, const QStringList& options = {}) {
    QProcess reader;
    reader.start(u"pdftotext"_qs, options + QStringList{u"-enc"_qs, u"UTF-8"_qs, u"-"_qs, u"-"_qs});
    reader.write(pdf);
    reader.closeWriteChannel();
    if (!reader.waitForFinished() || reader.exitCode() != 0)
        return u"pdftotext failed: "_qs + QString::fromUtf8(reader.readAllStandardError());
    const QByteArray warnings = reader.readAllStandardError();
    if (!warnings.isEmpty()) return QString::fromUtf8(warnings);
    return QString::fromUtf8(reader.readAllStandardOutput()).remove(u' ').remove(u'\n').remove(u'\f').remove(u'　');
}

// Where the words of the file start and end, in twips from the left.
QList<int> wordEdges(const QByteArray& pdf) {
    static const QRegularExpression word(u"<word xMin=\"([0-9.]+)\" yMin=\"[0-9.]+\" xMax=\"([0-9.]+)\""_qs);
    QList<int> edges;
    QProcess reader;
    reader.start(u"pdftotext"_qs, {u"-bbox"_qs, u"-"_qs, u"-"_qs});
    reader.write(pdf);
    reader.closeWriteChannel();
    reader.waitForFinished();
    const QString found = QString::fromUtf8(reader.readAllStandardOutput());
    for (auto match = word.globalMatch(found); match.hasNext();)
        for (const QRegularExpressionMatch one = match.next(); const int edge : {1, 2})
            edges << qRound(one.captured(edge).toDouble() * 20);
    return edges;
}

quint32 glyphOf(char32_t character, bool gothic) {
    return paperRuns(QString::fromUcs4(&character, 1), {gothic, 10}).first().glyphs.first().number;
}

// The characters of a font that share their glyph with a radical.
QString ideographsWithRadicals(bool gothic) {
    QHash<quint32, char32_t> ideographs;
    for (char32_t character = 0x4E00; character < 0xA000; ++character)
        ideographs.insert(glyphOf(character, gothic), character);
    QString found;
    for (char32_t radical = 0x2E80; radical < 0x2FE0; ++radical)
        if (const quint32 shared = glyphOf(radical, gothic); shared != 0 && ideographs.contains(shared))
            found += QString::fromUcs4(&ideographs[shared], 1);
    return found;
}

QList<ReportPage> formPages(const QString& name) {
    ReportHeader header = documentHeader(ReportSamples::ordinarySetup(10));
    header.values.insert(reportClass(name).sample.given.first());
    return reportPages(reportClass(name), loadReportLayout(name), sampleRecords(reportClass(name)), header,
                       measurePaperText);
}

} // namespace

class ReportPdfTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { assertPaperFonts(); }

    void textIsFoundAsItWasWritten_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("gothic");
        for (const bool gothic : {false, true}) {
            QTest::addRow("radicals %d", gothic) << u"令和六年十一月三日金額車長門東京都見積書一二三"_qs << gothic;
            QTest::addRow("signs %d", gothic) << u"〒￥−－～ー―・（円未満は切り捨て）"_qs << gothic;
            QTest::addRow("wave dash %d", gothic) << u"十時〜正午"_qs << gothic;
            QTest::addRow("names %d", gothic) << u"髙橋﨑濱邊齋藤廣"_qs << gothic;
            QTest::addRow("rare names %d", gothic) << u"𠮷野家の𠮷田さんと𩸽、髙𣘺"_qs << gothic;
            QTest::addRow("kana and letters %d", gothic) << u"ｿｹｯﾄソケットABC-123/45%"_qs << gothic;
        }
    }
    void textIsFoundAsItWasWritten() {
        QFETCH(QString, text);
        QFETCH(bool, gothic);
        QCOMPARE(textIn(pdfOfPages({pageOf(text, gothic)}, u"test"_qs)), text);
    }

    void everyIdeographThatSharesARadicalsGlyphIsFound_data() {
        QTest::addColumn<bool>("gothic");
        QTest::newRow("mincho") << false;
        QTest::newRow("gothic") << true;
    }
    void everyIdeographThatSharesARadicalsGlyphIsFound() {
        QFETCH(bool, gothic);
        const QString text = ideographsWithRadicals(gothic);
        QVERIFY(text.size() > 100);
        QCOMPARE(textIn(pdfOfPages({pageOf(text, gothic)}, u"test"_qs)), text);
    }

    // Pasted from a file whose own table was wrong, it stays alone with its fault.
    void aPastedRadicalChangesOnlyItself() {
        for (const QString& text : {u"⽉曜と月曜"_qs, u"月曜と⽉曜"_qs, u"⽉"_qs})
            QCOMPARE(textIn(pdfOfPages({pageOf(text, false)}, u"test"_qs)), text);
    }

    void everyKanjiOfTheStandardIsFound() {
        QString kanji;
        for (const char32_t sign : ReportSamples::japaneseStandard().toUcs4())
            if (sign >= 0x3400 && QChar::script(sign) == QChar::Script_Han) kanji += QString::fromUcs4(&sign, 1);
        QVERIFY(kanji.size() > 10000);
        QList<ReportPage> pages;
        for (qsizetype start = 0; start < kanji.size();) {
            qsizetype end = std::min(start + 1600, kanji.size());
            if (end < kanji.size() && kanji.at(end).isLowSurrogate()) ++end;
            ReportPage page = pageOf({}, false);
            for (int baseline = 600; start < end; baseline += 300) {
                qsizetype stop = std::min(start + 40, end);
                if (stop < end && kanji.at(stop).isLowSurrogate()) ++stop;
                page.texts.append({u"line"_qs, kanji.mid(start, stop - start), {}, 600, baseline, 8000, 1, {}});
                start = stop;
            }
            pages.append(page);
        }
        QCOMPARE(textIn(pdfOfPages(pages, u"test"_qs)), kanji);
    }

    void spacedLettersStandApart() {
        ReportPage page = pageOf(u"見積データ"_qs, false);
        page.texts.first().font = {false, 18, true, 180};
        const QByteArray pdf = pdfOfPages({page}, u"test"_qs);
        QCOMPARE(textIn(pdf), u"見積データ"_qs);
        QCOMPARE(wordEdges(pdf), (QList<int>{600, 3120}));
    }

    void aPageOnItsSideIsWiderThanHigh() {
        ReportPage page = pageOf(u"予定表"_qs, false);
        page.paperWidth = 16838;
        page.paperHeight = 11906;
        page.texts.first().x = 15000; // beyond an upright page
        const QByteArray pdf = pdfOfPages({page}, u"test"_qs);
        QCOMPARE(textIn(pdf), u"予定表"_qs);
        QCOMPARE(wordEdges(pdf), (QList<int>{15000, 15600}));
    }

    void aWholeDocumentIsFoundPageByPage() {
        ReportRecordset records = ReportSamples::ordinary();
        ReportSamples::addDocument(records, 2);
        const QList<ReportPage> pages =
            reportPages(reportClass(u"repCsEstAskA4NoM"_qs), loadReportLayout(u"repCsEstAskA4NoM"_qs), records,
                        documentHeader(ReportSamples::ordinarySetup()), measurePaperText);
        QCOMPARE(pages.size(), 2);
        const QByteArray pdf = pdfOfPages(pages, u"repCsEstAskA4NoM"_qs);
        for (const QString& page : {u"1"_qs, u"2"_qs}) {
            const QString text = textIn(pdf, {u"-raw"_qs, u"-f"_qs, page, u"-l"_qs, page});
            for (const ReportPageText& printed : pages.first().texts) {
                const QString wanted = QString(printed.text).remove(u' ').remove(u'　');
                QVERIFY2(text.contains(wanted), qPrintable(wanted + u" in "_qs + text));
            }
        }
    }

    // As a reader without any eye for columns tells it: title and rows stay whole, one below the other.
    void anInvoiceReadsAsAPersonWould() {
        const QString name = u"repCsEstAskA4NoM"_qs;
        const QList<ReportPage> pages =
            reportPages(reportClass(name), loadReportLayout(name), ReportSamples::ordinary(),
                        documentHeader(ReportSamples::ordinarySetup()), measurePaperText);
        const QString text = textIn(pdfOfPages(pages, name));
        qsizetype from = 0;
        for (const QString& words :
             {u"請求書"_qs, u"横浜市長"_qs, u"312,540円"_qs, u"上記金額を請求いたします。"_qs, u"品名"_qs,
              u"下腿義足（右）修理"_qs, u"氏名"_qs, u"山田太郎"_qs, u"品名・仕様"_qs,
              u"基本価格下腿義足B-4PTB式採型184,30084,300"_qs, u"ソケット熱硬化性樹脂141,70041,700"_qs,
              u"小計144,250"_qs, u"(小計×95/100)137,038"_qs, u"完成用部品"_qs,
              u"足部1S90=26東西ケアF-101153,90053,900"_qs, u"総合計"_qs}) {
            const qsizetype found = text.indexOf(words, from);
            QVERIFY2(found >= 0, qPrintable(words + u" in "_qs + text.mid(from)));
            from = found + words.size();
        }
    }

    // The forms have titles of their own and boxes of one digit each.
    void everyFormIsFoundAsItWasPrinted_data() {
        QTest::addColumn<QString>("report");
        for (const ReportClass& report : accidentPapers() + opinionPapers())
            QTest::newRow(qPrintable(report.name)) << report.name;
    }
    void everyFormIsFoundAsItWasPrinted() {
        QFETCH(QString, report);
        const QList<ReportPage> pages = formPages(report);
        const QString text = textIn(pdfOfPages(pages, report), {u"-raw"_qs});
        for (const ReportPageText& printed : pages.first().texts) {
            const QString wanted = QString(printed.text).remove(u' ').remove(u'　');
            QVERIFY2(text.contains(wanted), qPrintable(wanted + u" in "_qs + text));
        }
    }

    void theSamePaperGivesTheSameBytesButForItsDates_data() { everyFormIsFoundAsItWasPrinted_data(); }
    void theSamePaperGivesTheSameBytesButForItsDates() {
        static const QRegularExpression dates(
            u"/CreationDate ?\\([^)]*\\)|<xmp:\\w+Date>[^<]*|uuid:[0-9a-f-]+|/ID \\[[^\\]]*\\]"_qs);
        QFETCH(QString, report);
        const auto bytes = [&] { return QString::fromLatin1(pdfOfPages(formPages(report), report)).remove(dates); };
        QCOMPARE(bytes(), bytes());
    }

    void theSignOfTheCurrencyPrintsAsAYenAndIsFoundAsItWasWritten() {
        for (const bool gothic : {false, true}) {
            QCOMPARE(glyphOf(U'\\', gothic), glyphOf(U'\u00A5', gothic));
            QCOMPARE(textIn(pdfOfPages({pageOf(u"金\\123"_qs, gothic)}, u"test"_qs)), u"金\\123"_qs);
        }
    }

    void everyObjectStandsWhereTheFileSays() {
        const QByteArray pdf = pdfOfPages({pageOf(u"月日金車長"_qs, false)}, u"test"_qs);
        const qsizetype table = pdf.mid(pdf.lastIndexOf("startxref\n") + 10).split('\n').first().toLongLong();
        QCOMPARE(pdf.mid(table, 5), QByteArray("xref\n"));
        const QByteArrayList lines = pdf.mid(table).split('\n');
        const int count = lines.at(1).split(' ').at(1).toInt();
        QVERIFY(count > 10);
        for (int object = 1; object < count; ++object) {
            const qsizetype offset = lines.at(2 + object).left(10).toLongLong();
            const QByteArray head = QByteArray::number(object) + " 0 obj";
            QCOMPARE(pdf.mid(offset, head.size()), head);
        }
    }

    void aFileWithoutTablesStaysAsItIs() {
        QCOMPARE(withPrintedTexts("no PDF at all", {{"IPAexMincho", {}}}), QByteArray("no PDF at all"));
    }

    void aPageWithoutALetterIsAPage() {
        ReportPage empty = pageOf({}, false);
        const QByteArray pdf =
            pdfOfPages({empty, pageOf(u"月\n⽉"_qs, false), empty, pageOf(u"𠮷"_qs, true)}, u"test"_qs);
        QCOMPARE(textIn(pdf), u"月⽉𠮷"_qs);
    }

    void spansThatDoNotMeetThePageLeaveItAlone() {
        const QByteArray pdf = pdfOfPages({pageOf(u"月"_qs, false)}, u"test"_qs);
        QCOMPARE(withSpans(pdf, {{{2, u"火"_qs}}}), pdf);
        QCOMPARE(textIn(withSpans(pdf, {{{1, u"火"_qs}}})), u"火"_qs);
        QCOMPARE(withSpans("no PDF at all", {{{1, u"火"_qs}}}), QByteArray("no PDF at all"));
    }

    void noPagesAreAnError() { QVERIFY_EXCEPTION_THROWN(pdfOfPages({}, u"test"_qs), AppError); }

    void aFolderThatIsNotThereIsNamedInTheError() {
        try {
            savePdf({pageOf(u"月"_qs, false)}, u"test"_qs, u"/nowhere/at/all.pdf"_qs);
            QFAIL("no error");
        } catch (const AppError& error) {
            QVERIFY(error.description().contains(u"/nowhere/at/all.pdf"));
        }
    }

    void aDiskThatTakesNoMoreLeavesTheFileAsItWas() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"order.pdf"_qs);
        const auto contents = [&] {
            QFile file(path);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        savePdf({pageOf(u"月"_qs, false)}, u"test"_qs, path);
        const QByteArray before = contents();
        QVERIFY(before.startsWith("%PDF"));
        const FileLimit limit(0);
        const QString told = raised([&] { savePdf({pageOf(u"火"_qs, false)}, u"test"_qs, path); });
        QVERIFY2(told.startsWith(u"PDF ファイルに書き込めません。\n"_qs + path), qUtf8Printable(told));
        QCOMPARE(contents(), before);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(u"order.pdf"_qs));
    }
};

HALVANE_TEST(ReportPdfTest)
#include "ReportPdfTest.moc"
