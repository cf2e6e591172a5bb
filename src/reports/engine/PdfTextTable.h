#pragma once

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QRawFont>
#include <QSet>
#include <QString>

// The characters printed in one type, found again by their glyphs.
class PrintedCharacters {
public:
    PrintedCharacters() = default;
    PrintedCharacters(const QRawFont& font, const QString& texts);

    // The printed character with the glyph of this one; the character itself when it was printed or none has its glyph.
    char32_t printedFor(char32_t character) const;

private:
    quint32 glyphOf(char32_t character) const;

    QRawFont m_font;
    QSet<char32_t> m_printed;
    QHash<quint32, char32_t> m_byGlyph;
};

// A PDF file holds for each of its fonts a table from glyph to character, used by search and copy. Where the writer
// chose a look-alike (the radical ⽉ for 月), this puts in the character that was printed. The streams' lengths and the
// file's cross-reference table are kept right. Fonts are named as in the file; those not named stay as they are.
QByteArray withPrintedCharacters(const QByteArray& pdf, const QMap<QByteArray, PrintedCharacters>& fonts);
