#include "reports/engine/ReportPdf.h"

#include "base/AppError.h"
#include "base/WholeFile.h"
#include "reports/engine/PdfTextTable.h"
#include "reports/engine/ReportFonts.h"
#include "reports/engine/ReportPainter.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>

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

// Several characters share a glyph, and the file names only one of them: here is the one that was really printed.
PrintedCharacters printedCharacters(const QList<ReportPage>& pages, bool gothic) {
    QString texts;
    for (const ReportPage& page : pages)
        for (const ReportPageText& text : page.texts)
            if (text.font.gothic == gothic) texts += text.text;
    return PrintedCharacters(QRawFont::fromFont(paperFont({gothic, 10, false})), texts);
}

} // namespace

QByteArray pdfOfPages(const QList<ReportPage>& pages, const QString& title) {
    if (pages.isEmpty()) throw AppError(u"保存するページがありません。"_qs, u"pdfOfPages"_qs);
    return withPrintedCharacters(written(pages, title), {{"IPAexMincho", printedCharacters(pages, false)},
                                                         {"IPAexGothic", printedCharacters(pages, true)}});
}

void savePdf(const QList<ReportPage>& pages, const QString& title, const QString& path) {
    const QByteArray pdf = pdfOfPages(pages, title);
    WholeFile file(path, u"PDF ファイル"_qs);
    file.write(pdf);
    file.commit();
}
