#include "reports/engine/PdfTextTable.h"

#include "reports/engine/PdfObjects.h"

#include <QList>
#include <QRegularExpression>

#include <numeric>
#include <optional>

namespace {

// Lines "<number> <text>" in blocks, which hold no more than a hundred.
QByteArray tableLines(const QStringList& texts) {
    constexpr qsizetype longestBlock = 100;
    QByteArrayList lines;
    for (qsizetype number = 1; number < texts.size(); ++number)
        if (!texts.at(number).isEmpty())
            lines.append(pdfHex(QChar(static_cast<char16_t>(number))) + ' ' + pdfHex(texts.at(number)) + '\n');
    QByteArray blocks;
    for (qsizetype start = 0; start < lines.size(); start += longestBlock) {
        const QByteArrayList block = lines.mid(start, longestBlock);
        blocks += QByteArray::number(block.size()) + " beginbfchar\n" + block.join() + "endbfchar\n";
    }
    return blocks;
}

QByteArray withLines(const QByteArray& table, const QStringList& texts) {
    static const QByteArray head("endcodespacerange\n");
    const qsizetype start = table.indexOf(head) + head.size();
    return table.left(start) + tableLines(texts) + table.mid(table.indexOf("endcmap", start));
}

// The edits of the length and of the content of a stream that is not compressed.
QList<PdfEdit> streamEdits(const QByteArray& pdf, qsizetype object, const QStringList& texts) {
    static const QByteArray lengthKey("/Length "), streamKey("stream\n");
    const qsizetype length = pdf.indexOf(lengthKey, object) + lengthKey.size();
    const qsizetype lengthEnd = pdf.indexOf(' ', length);
    const qsizetype content = pdf.indexOf(streamKey, length) + streamKey.size();
    const QByteArray oldLength = pdf.mid(length, lengthEnd - length);
    const QByteArray table = pdf.mid(content, oldLength.toLongLong());
    const QByteArray mended = withLines(table, texts);
    return {{length, oldLength.size(), QByteArray::number(mended.size())}, {content, table.size(), mended}};
}

bool drawsAll(const QByteArray& content, const QList<PdfSpan>& spans) {
    const qsizetype drawings = std::accumulate(spans.begin(), spans.end(), qsizetype(0),
                                               [](qsizetype sum, const PdfSpan& span) { return sum + span.drawings; });
    return content.count("\nBT\n") == drawings;
}

QByteArray spanHead(const PdfSpan& span) {
    return "/Span <</ActualText " + pdfHex(QChar(QChar::ByteOrderMark) + span.text) + ">> BDC";
}

QByteArray withMarks(const QByteArray& content, const QList<PdfSpan>& spans) {
    QByteArrayList lines;
    auto span = spans.begin();
    qsizetype drawn = 0;
    for (const QByteArray& line : content.split('\n')) {
        if (line == "BT" && span != spans.end() && drawn++ == 0) lines.append(spanHead(*span));
        lines.append(line);
        if (line != "ET" || span == spans.end() || drawn < span->drawings) continue;
        lines.append("EMC");
        drawn = 0;
        ++span;
    }
    return lines.join('\n');
}

// The compressed content of a page, whose length stands in an object of its own.
struct PageContent {
    qsizetype at = 0, length = 0, lengthAt = 0;
    QByteArray content;
};

std::optional<PageContent> pageContentAt(const QByteArray& pdf, const PdfObjects& objects, qsizetype object) {
    static const QRegularExpression head(u"^\\d+ 0 obj\n<<\n/Length (\\d+) 0 R\n/Filter /FlateDecode\n>>\nstream\n"_qs);
    constexpr qsizetype longestHead = 100;
    const auto found = head.match(QString::fromLatin1(pdf.mid(objects.offset(object), longestHead)));
    if (!found.hasMatch()) return std::nullopt;
    PageContent page;
    page.at = objects.offset(object) + found.capturedLength();
    page.lengthAt = pdf.indexOf('\n', objects.offset(found.captured(1).toLongLong())) + 1;
    page.length = pdf.mid(page.lengthAt, pdf.indexOf('\n', page.lengthAt) - page.lengthAt).toLongLong();
    page.content = qUncompress(QByteArray(4, '\0') + pdf.mid(page.at, page.length));
    return page.content.contains("\nBT\n") ? std::optional(page) : std::nullopt;
}

} // namespace

QByteArray withPrintedTexts(const QByteArray& pdf, const PdfTexts& fonts) {
    static const QRegularExpression fontObject(
        u"^\\d+ 0 obj\\s*<< /Type /Font\\s+/Subtype /Type0\\s+/BaseFont /(\\S+).*?/ToUnicode (\\d+) 0 R"_qs,
        QRegularExpression::DotMatchesEverythingOption);
    constexpr qsizetype longestFontObject = 400;
    const PdfObjects objects(pdf);
    QList<PdfEdit> edits;
    for (qsizetype object = 1; object < objects.count(); ++object) {
        const auto found = fontObject.match(QString::fromLatin1(pdf.mid(objects.offset(object), longestFontObject)));
        const auto texts = fonts.constFind(found.captured(1).toLatin1());
        if (!found.hasMatch() || texts == fonts.constEnd()) continue;
        edits += streamEdits(pdf, objects.offset(found.captured(2).toLongLong()), *texts);
    }
    return edits.isEmpty() ? pdf : objects.edited(edits);
}

QByteArray withSpans(const QByteArray& pdf, const QList<QList<PdfSpan>>& pages) {
    constexpr qsizetype sizeOfHead = 4; // before what the compressor gives
    const PdfObjects objects(pdf);
    QList<PdfEdit> edits;
    auto spans = pages.begin();
    for (qsizetype object = 1; object < objects.count() && spans != pages.end(); ++object) {
        const auto page = pageContentAt(pdf, objects, object);
        if (!page) continue;
        const QList<PdfSpan>& told = *spans++;
        if (!drawsAll(page->content, told)) continue;
        const QByteArray packed = qCompress(withMarks(page->content, told)).mid(sizeOfHead);
        edits.append({page->at, page->length, packed});
        edits.append({page->lengthAt, QByteArray::number(page->length).size(), QByteArray::number(packed.size())});
    }
    return edits.isEmpty() ? pdf : objects.edited(edits);
}
