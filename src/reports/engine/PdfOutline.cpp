#include "reports/engine/PdfOutline.h"

#include "reports/engine/PdfObjects.h"

namespace {

QByteArray reference(const char* key, qsizetype object) {
    return '/' + QByteArray(key) + ' ' + QByteArray::number(object) + " 0 R\n";
}

QByteArray dictionary(const QByteArray& entries) { return "<<\n" + entries + ">>"; }

// The catalogue that lists the bookmarks and has them shown.
QByteArray rootWith(QByteArray root, qsizetype outline) {
    const qsizetype end = root.lastIndexOf(">>");
    return root.insert(end, reference("Outlines", outline) + "/PageMode /UseOutlines\n");
}

} // namespace

QByteArray withBookmarks(const QByteArray& pdf, const QList<PdfBookmark>& bookmarks) {
    const PdfObjects objects(pdf);
    const QList<qsizetype> trees = objects.references(objects.root(), "/Pages");
    const QList<qsizetype> pages = trees.isEmpty() ? trees : objects.references(trees.first(), "/Kids");
    QList<PdfBookmark> kept = bookmarks;
    kept.removeIf([&pages](const PdfBookmark& mark) { return mark.page < 1 || mark.page > pages.size(); });
    if (kept.isEmpty()) return pdf;

    const qsizetype outline = objects.count(), first = outline + 1, last = outline + kept.size();
    QMap<qsizetype, QByteArray> bodies;
    bodies[objects.root()] = rootWith(objects.body(objects.root()), outline);
    bodies[outline] = dictionary("/Type /Outlines\n" + reference("First", first) + reference("Last", last) + "/Count " +
                                 QByteArray::number(kept.size()) + '\n');
    for (qsizetype object = first; object <= last; ++object) {
        const PdfBookmark& mark = kept.at(object - first);
        bodies[object] =
            dictionary("/Title " + pdfHex(QChar(QChar::ByteOrderMark) + mark.title) + '\n' +
                       reference("Parent", outline) + (object > first ? reference("Prev", object - 1) : QByteArray()) +
                       (object < last ? reference("Next", object + 1) : QByteArray()) + "/Dest [" +
                       QByteArray::number(pages.at(mark.page - 1)) + " 0 R /Fit]\n");
    }
    return objects.updated(bodies);
}
