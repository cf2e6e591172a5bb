#include "reports/engine/PdfTextTable.h"

#include <QList>
#include <QRegularExpression>

#include <algorithm>

namespace {

struct Edit {
    qsizetype at = 0, length = 0;
    QByteArray text;
};

// The places of all objects, from the cross-reference table that ends the file.
class ObjectTable {
public:
    explicit ObjectTable(const QByteArray& pdf) : m_pdf(pdf) {
        const qsizetype pointer = pdf.lastIndexOf("startxref\n");
        if (pointer < 0) return;
        m_table = numberAt(pointer + 10);
        m_pointer = pointer + 10;
        qsizetype line = pdf.indexOf('\n', m_table) + 1; // past "xref"
        const QByteArray range = pdf.mid(line, pdf.indexOf('\n', line) - line);
        const qsizetype count = range.mid(range.indexOf(' ') + 1).toLongLong();
        m_entries = pdf.indexOf('\n', line) + 1;
        for (qsizetype i = 0; i < count; ++i) m_offsets.append(numberAt(m_entries + i * entryLength));
    }

    qsizetype count() const { return m_offsets.size(); }
    qsizetype offset(qsizetype object) const { return m_offsets.value(object, -1); }

    // The file with the edits made and every offset moved along.
    QByteArray edited(QList<Edit> edits) const {
        for (qsizetype object = 1; object < count(); ++object)
            edits.append({m_entries + object * entryLength, tenDigits,
                          QByteArray::number(moved(offset(object), edits)).rightJustified(tenDigits, '0')});
        const QByteArray oldPointer = QByteArray::number(m_table);
        edits.append({m_pointer, oldPointer.size(), QByteArray::number(moved(m_table, edits))});
        std::sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) { return a.at < b.at; });
        QByteArray result;
        qsizetype done = 0;
        for (const Edit& edit : edits) {
            result += m_pdf.mid(done, edit.at - done) + edit.text;
            done = edit.at + edit.length;
        }
        return result + m_pdf.mid(done);
    }

private:
    static constexpr qsizetype entryLength = 20;
    static constexpr int tenDigits = 10;

    qsizetype numberAt(qsizetype at) const {
        qsizetype end = at;
        while (end < m_pdf.size() && m_pdf.at(end) >= '0' && m_pdf.at(end) <= '9') ++end;
        return m_pdf.mid(at, end - at).toLongLong();
    }

    static qsizetype moved(qsizetype offset, const QList<Edit>& edits) {
        qsizetype shift = 0;
        for (const Edit& edit : edits)
            if (edit.at < offset) shift += edit.text.size() - edit.length;
        return offset + shift;
    }

    const QByteArray& m_pdf;
    qsizetype m_table = 0;
    qsizetype m_pointer = 0;
    qsizetype m_entries = 0;
    QList<qsizetype> m_offsets;
};

QByteArray hex(const QString& text) {
    QByteArray digits;
    for (const QChar unit : text) digits += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').toUpper();
    return '<' + digits + '>';
}

// Lines "<number> <text>" in blocks, which hold no more than a hundred.
QByteArray tableLines(const QStringList& texts) {
    constexpr qsizetype longestBlock = 100;
    QByteArrayList lines;
    for (qsizetype number = 1; number < texts.size(); ++number)
        if (!texts.at(number).isEmpty())
            lines.append(hex(QChar(static_cast<char16_t>(number))) + ' ' + hex(texts.at(number)) + '\n');
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
QList<Edit> streamEdits(const QByteArray& pdf, qsizetype object, const QStringList& texts) {
    static const QByteArray lengthKey("/Length "), streamKey("stream\n");
    const qsizetype length = pdf.indexOf(lengthKey, object) + lengthKey.size();
    const qsizetype lengthEnd = pdf.indexOf(' ', length);
    const qsizetype content = pdf.indexOf(streamKey, length) + streamKey.size();
    const QByteArray oldLength = pdf.mid(length, lengthEnd - length);
    const QByteArray table = pdf.mid(content, oldLength.toLongLong());
    const QByteArray mended = withLines(table, texts);
    return {{length, oldLength.size(), QByteArray::number(mended.size())}, {content, table.size(), mended}};
}

} // namespace

QByteArray withPrintedTexts(const QByteArray& pdf, const PdfTexts& fonts) {
    static const QRegularExpression fontObject(
        u"^\\d+ 0 obj\\s*<< /Type /Font\\s+/Subtype /Type0\\s+/BaseFont /(\\S+).*?/ToUnicode (\\d+) 0 R"_qs,
        QRegularExpression::DotMatchesEverythingOption);
    constexpr qsizetype longestFontObject = 400;
    const ObjectTable objects(pdf);
    QList<Edit> edits;
    for (qsizetype object = 1; object < objects.count(); ++object) {
        const auto found = fontObject.match(QString::fromLatin1(pdf.mid(objects.offset(object), longestFontObject)));
        const auto texts = fonts.constFind(found.captured(1).toLatin1());
        if (!found.hasMatch() || texts == fonts.constEnd()) continue;
        edits += streamEdits(pdf, objects.offset(found.captured(2).toLongLong()), *texts);
    }
    return edits.isEmpty() ? pdf : objects.edited(edits);
}
