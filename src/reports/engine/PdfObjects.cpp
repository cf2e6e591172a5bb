#include "reports/engine/PdfObjects.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr qsizetype entryLength = 20;
constexpr int tenDigits = 10;

QByteArray offsetText(qsizetype offset) { return QByteArray::number(offset).rightJustified(tenDigits, '0'); }

qsizetype moved(qsizetype offset, const QList<PdfEdit>& edits) {
    qsizetype shift = 0;
    for (const PdfEdit& edit : edits)
        if (edit.at < offset) shift += edit.text.size() - edit.length;
    return offset + shift;
}

} // namespace

PdfObjects::PdfObjects(const QByteArray& pdf) : m_pdf(pdf) {
    static const QByteArray pointerKey("startxref\n"), rootKey("/Root "), infoKey("/Info ");
    const qsizetype pointer = pdf.lastIndexOf(pointerKey);
    if (pointer < 0) return;
    m_pointer = pointer + pointerKey.size();
    m_table = numberAt(m_pointer);
    const qsizetype line = pdf.indexOf('\n', m_table) + 1; // past "xref"
    const QByteArray range = pdf.mid(line, pdf.indexOf('\n', line) - line);
    const qsizetype count = range.mid(range.indexOf(' ') + 1).toLongLong();
    m_entries = pdf.indexOf('\n', line) + 1;
    for (qsizetype i = 0; i < count; ++i) m_offsets.append(numberAt(m_entries + i * entryLength));
    m_root = numberAt(pdf.indexOf(rootKey, m_entries) + rootKey.size());
    m_info = numberAt(pdf.indexOf(infoKey, m_entries) + infoKey.size());
}

qsizetype PdfObjects::numberAt(qsizetype at) const {
    qsizetype end = at;
    while (end < m_pdf.size() && m_pdf.at(end) >= '0' && m_pdf.at(end) <= '9') ++end;
    return m_pdf.mid(at, end - at).toLongLong();
}

QByteArray PdfObjects::body(qsizetype object) const {
    const qsizetype start = m_pdf.indexOf("obj", offset(object)) + 3;
    return m_pdf.mid(start, m_pdf.indexOf("endobj", start) - start).trimmed();
}

QList<qsizetype> PdfObjects::references(qsizetype object, const QByteArray& key) const {
    const QRegularExpression list(QString::fromLatin1(key) + u"\\s*\\[?((?:\\s*\\d+ 0 R)+)"_qs);
    static const QRegularExpression reference(u"(\\d+) 0 R"_qs);
    QList<qsizetype> found;
    auto each = reference.globalMatch(list.match(QString::fromLatin1(body(object))).captured(1));
    while (each.hasNext()) found << each.next().captured(1).toLongLong();
    return found;
}

QByteArray PdfObjects::edited(QList<PdfEdit> edits) const {
    const QList<PdfEdit> asked = edits;
    for (qsizetype object = 1; object < count(); ++object)
        edits.append({m_entries + object * entryLength, tenDigits, offsetText(moved(offset(object), asked))});
    const QByteArray oldPointer = QByteArray::number(m_table);
    edits.append({m_pointer, oldPointer.size(), QByteArray::number(moved(m_table, asked))});
    std::sort(edits.begin(), edits.end(), [](const PdfEdit& a, const PdfEdit& b) { return a.at < b.at; });
    QByteArray result;
    qsizetype done = 0;
    for (const PdfEdit& edit : edits) {
        result += m_pdf.mid(done, edit.at - done) + edit.text;
        done = edit.at + edit.length;
    }
    return result + m_pdf.mid(done);
}

QByteArray PdfObjects::updated(const QMap<qsizetype, QByteArray>& bodies) const {
    QByteArray result = m_pdf + '\n', table = "xref\n";
    qsizetype size = count();
    for (auto body = bodies.begin(); body != bodies.end(); ++body) {
        const QByteArray number = QByteArray::number(body.key());
        table += number + " 1\n" + offsetText(result.size()) + " 00000 n \n";
        result += number + " 0 obj\n" + body.value() + "\nendobj\n";
        size = std::max(size, body.key() + 1);
    }
    const QByteArray pointer = QByteArray::number(result.size());
    const auto key = [](const char* name, qsizetype value) {
        return '/' + QByteArray(name) + ' ' + QByteArray::number(value);
    };
    return result + table + "trailer\n<<\n" + key("Size", size) + '\n' + key("Root", m_root) + " 0 R\n" +
           key("Info", m_info) + " 0 R\n" + key("Prev", m_table) + "\n>>\nstartxref\n" + pointer + "\n%%EOF\n";
}

QByteArray pdfHex(const QString& text) {
    QByteArray digits;
    for (const QChar unit : text) digits += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').toUpper();
    return '<' + digits + '>';
}
