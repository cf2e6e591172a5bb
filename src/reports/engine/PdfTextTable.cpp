#include "reports/engine/PdfTextTable.h"

#include <QList>
#include <QRegularExpression>

#include <algorithm>

PrintedCharacters::PrintedCharacters(const QRawFont& font, const QString& texts) : m_font(font) {
    for (const char32_t character : texts.toUcs4()) {
        if (m_printed.contains(character)) continue;
        m_printed.insert(character);
        m_byGlyph.insert(glyphOf(character), character);
    }
}

char32_t PrintedCharacters::printedFor(char32_t character) const {
    if (m_printed.contains(character)) return character;
    const quint32 glyph = glyphOf(character);
    return glyph == 0 ? character : m_byGlyph.value(glyph, character);
}

quint32 PrintedCharacters::glyphOf(char32_t character) const {
    const QList<quint32> glyphs = m_font.glyphIndexesForString(QString::fromUcs4(&character, 1));
    return glyphs.isEmpty() ? 0 : glyphs.first();
}

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

QByteArray hex(char32_t character) {
    QByteArray digits;
    for (const QChar unit : QString::fromUcs4(&character, 1))
        digits += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').toUpper();
    return '<' + digits + '>';
}

// A table line is "<first> <last> <character of the first>" or "<first> <last> [<character> <character> ...]".
QByteArray mendedLine(const QString& line, const PrintedCharacters& printed) {
    static const QRegularExpression number(u"<([0-9A-Fa-f]{4})>"_qs);
    QList<char32_t> numbers;
    for (auto found = number.globalMatch(line); found.hasNext();)
        numbers.append(found.next().captured(1).toUInt(nullptr, 16));
    if (numbers.size() < 3) return line.toLatin1();
    const bool list = line.contains(u'[');
    QByteArray characters;
    for (char32_t code = numbers.at(0); code <= numbers.at(1); ++code) {
        const char32_t step = code - numbers.at(0);
        const char32_t named = list ? numbers.value(2 + static_cast<qsizetype>(step), 0) : numbers.at(2) + step;
        characters += hex(printed.printedFor(named)) + ' ';
    }
    return hex(numbers.at(0)) + ' ' + hex(numbers.at(1)) + " [" + characters + ']';
}

QByteArray mendedTable(const QByteArray& table, const PrintedCharacters& printed) {
    QByteArrayList lines;
    bool inRanges = false;
    for (const QByteArray& line : table.split('\n')) {
        if (line.endsWith("endbfrange")) inRanges = false;
        lines.append(inRanges ? mendedLine(QString::fromLatin1(line), printed) : line);
        if (line.endsWith("beginbfrange")) inRanges = true;
    }
    return lines.join('\n');
}

// The edits of the length and of the content of a stream that is not compressed.
QList<Edit> streamEdits(const QByteArray& pdf, qsizetype object, const PrintedCharacters& printed) {
    static const QByteArray lengthKey("/Length "), streamKey("stream\n");
    const qsizetype length = pdf.indexOf(lengthKey, object) + lengthKey.size();
    const qsizetype lengthEnd = pdf.indexOf(' ', length);
    const qsizetype content = pdf.indexOf(streamKey, length) + streamKey.size();
    const QByteArray oldLength = pdf.mid(length, lengthEnd - length);
    const QByteArray table = pdf.mid(content, oldLength.toLongLong());
    const QByteArray mended = mendedTable(table, printed);
    return {{length, oldLength.size(), QByteArray::number(mended.size())}, {content, table.size(), mended}};
}

} // namespace

QByteArray withPrintedCharacters(const QByteArray& pdf, const QMap<QByteArray, PrintedCharacters>& fonts) {
    static const QRegularExpression fontObject(
        u"^\\d+ 0 obj\\s*<< /Type /Font\\s+/Subtype /Type0\\s+/BaseFont /(\\S+).*?/ToUnicode (\\d+) 0 R"_qs,
        QRegularExpression::DotMatchesEverythingOption);
    constexpr qsizetype longestFontObject = 400;
    const ObjectTable objects(pdf);
    QList<Edit> edits;
    for (qsizetype object = 1; object < objects.count(); ++object) {
        const auto found = fontObject.match(QString::fromLatin1(pdf.mid(objects.offset(object), longestFontObject)));
        const auto printed = fonts.constFind(found.captured(1).toLatin1());
        if (!found.hasMatch() || printed == fonts.constEnd()) continue;
        edits += streamEdits(pdf, objects.offset(found.captured(2).toLongLong()), *printed);
    }
    return edits.isEmpty() ? pdf : objects.edited(edits);
}
