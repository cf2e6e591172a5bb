#include "reports/engine/ReportPdf.h"

#include "base/AppError.h"
#include "base/WholeFile.h"
#include "reports/engine/PaperGlyphs.h"
#include "reports/engine/PdfTextTable.h"
#include "reports/engine/ReportPainter.h"

#include <QBuffer>
#include <QHash>
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr int twipsPerInch = 1440;

QByteArray written(const QList<ReportPage>& pages, const QString& title) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setResolution(twipsPerInch);
    QPainter painter;
    for (const ReportPage& page : pages) {
        writer.setPageLayout(paperOf(page.paperWidth, page.paperHeight));
        painter.isActive() ? static_cast<void>(writer.newPage()) : static_cast<void>(painter.begin(&writer));
        paintPage(painter, page);
    }
    painter.end();
    return buffer.data();
}

// Of the texts that share a letter the ordinary one: 月 and not the radical that looks like it.
bool isPlainer(const QString& text, const QString& other) {
    if (text.isEmpty() || other.isEmpty()) return other.isEmpty();
    const auto isPlain = [](const QString& each) { return each == each.normalized(QString::NormalizationForm_KC); };
    if (isPlain(text) != isPlain(other)) return isPlain(text);
    return text.size() < other.size();
}

// The writer numbers the letters of each font in the order in which they are drawn first.
class PrintedTexts {
public:
    void add(const PaperRun& run) {
        QStringList& texts = m_texts[run.pdfName];
        if (texts.isEmpty()) texts.append(QString());
        for (const PaperGlyph& glyph : run.glyphs) {
            if (glyph.number == 0) continue;
            qsizetype& number = m_numbers[{run.pdfName, glyph.number}];
            if (number == 0) {
                number = texts.size();
                texts.append(glyph.text);
            } else if (isPlainer(glyph.text, texts.at(number))) {
                texts[number] = glyph.text;
            }
        }
    }

    const PdfTexts& texts() const { return m_texts; }

private:
    PdfTexts m_texts;
    QHash<std::pair<QByteArray, quint32>, qsizetype> m_numbers;
};

PdfTexts printedTexts(const QList<ReportPage>& pages) {
    PrintedTexts printed;
    for (const ReportPage& page : pages)
        for (const ReportPageText& text : page.texts)
            for (const PaperRun& run : paperRuns(text.text, text.font)) printed.add(run);
    return printed.texts();
}

QList<QList<PdfSpan>> spansOf(const QList<ReportPage>& pages) {
    QList<QList<PdfSpan>> all;
    for (const ReportPage& page : pages) {
        QList<PdfSpan> spans;
        const ReportPageText* before = nullptr;
        for (const ReportPageText& text : page.texts) {
            const bool sameRow = before && text.row > 0 && text.row == before->row;
            const bool sameCell = sameRow && text.room == before->room;
            if (!sameRow) spans.append(PdfSpan{});
            spans.last().drawings += paperRuns(text.text, text.font).size();
            spans.last().text += (sameRow && !sameCell ? u" "_qs : QString()) + text.text;
            before = &text;
        }
        // A text without a letter draws nothing; a page without any has no place to tell it.
        spans.removeIf([](const PdfSpan& span) { return span.drawings == 0; });
        if (!spans.isEmpty()) all.append(spans);
    }
    return all;
}

} // namespace

QByteArray pdfOfPages(const QList<ReportPage>& pages, const QString& title, const QList<PdfBookmark>& bookmarks) {
    if (pages.isEmpty()) throw AppError(u"保存するページがありません。"_qs, u"pdfOfPages"_qs);
    const QByteArray pdf = withSpans(withPrintedTexts(written(pages, title), printedTexts(pages)), spansOf(pages));
    return withBookmarks(pdf, bookmarks);
}

void savePdf(const QList<ReportPage>& pages, const QString& title, const QString& path,
             const QList<PdfBookmark>& bookmarks) {
    const QByteArray pdf = pdfOfPages(pages, title, bookmarks);
    WholeFile file(path, u"PDF ファイル"_qs);
    file.write(pdf);
    file.commit();
}
