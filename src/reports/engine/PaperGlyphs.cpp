#include "reports/engine/PaperGlyphs.h"

#include "reports/engine/ReportFonts.h"

#include <QHash>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// A letter with the marks that belong to it, from the start of its own.
struct Letter {
    qsizetype face = 0;
    QList<PaperGlyph> glyphs;
    double width = 0;
};

struct SizedFaces {
    QList<PaperFace> faces;
    QList<QRawFont> fonts;
    QHash<QString, Letter> letters;
};

// They stay until the end of the process, since a font must not be taken down after the application.
// Fitting asks for the same letters again and again, and shaping is what costs: they are kept.
SizedFaces& sizedFaces(const ReportFont& font) {
    static auto& known = *new QHash<std::pair<bool, int>, SizedFaces>;
    SizedFaces& sized = known[{font.gothic, static_cast<int>(std::lround(font.size * 20))}];
    if (!sized.faces.isEmpty()) return sized;
    sized.faces = paperFaces(font.gothic);
    for (const PaperFace& face : sized.faces) sized.fonts.append(QRawFont::fromFont(faceFont(face, font.size)));
    return sized;
}

bool isVariationSelector(char32_t sign) {
    return (sign >= 0xFE00 && sign <= 0xFE0F) || (sign >= 0xE0100 && sign <= 0xE01EF);
}

bool isControl(char32_t sign) {
    return QChar::category(sign) == QChar::Other_Control || QChar::category(sign) == QChar::Other_Format;
}

// Offices write their currency by the backslash of the code page, and have never seen one there.
char32_t onPaper(char32_t sign) { return sign == U'\\' ? U'\u00A5' : sign; }

// The types know no variants of a kanji, nor line breaks: these would print as boxes.
QString printable(const QString& letter) {
    QString signs;
    for (const char32_t sign : letter.toUcs4())
        if (!isVariationSelector(sign) && !isControl(sign)) {
            const char32_t printed = onPaper(sign);
            signs += QString::fromUcs4(&printed, 1);
        }
    return signs;
}

bool hasAll(const QRawFont& font, const QString& signs) {
    const QList<uint> all = signs.toUcs4();
    return std::all_of(all.begin(), all.end(), [&](uint sign) { return font.supportsCharacter(sign); });
}

// The paper's own face takes what none has, with its sign for that.
qsizetype faceFor(const SizedFaces& sized, const QString& signs) {
    for (qsizetype face = 0; face < sized.fonts.size(); ++face)
        if (hasAll(sized.fonts.at(face), signs)) return face;
    return 0;
}

void addSign(Letter& letter, const QRawFont& font, const QString& sign) {
    for (const quint32 number : font.glyphIndexesForString(sign)) {
        letter.glyphs.append({number, {letter.width, 0}, {}});
        letter.width += font.advancesForGlyphIndexes({number}).value(0).x();
    }
}

// Marks find their places by the face's own rules.
void addShaped(Letter& letter, const QFont& font, const QString& signs) {
    QTextLayout layout(signs, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    for (const QGlyphRun& run : line.glyphRuns())
        for (qsizetype i = 0; i < run.glyphIndexes().size(); ++i)
            letter.glyphs.append(
                {run.glyphIndexes().at(i), {run.positions().at(i).x(), run.positions().at(i).y() - line.ascent()}, {}});
    letter.width = line.naturalTextWidth();
}

Letter shaped(const SizedFaces& sized, const QString& text, double size) {
    const QString signs = printable(text);
    Letter letter{faceFor(sized, signs), {}, 0};
    if (signs.toUcs4().size() > 1)
        addShaped(letter, faceFont(sized.faces.at(letter.face), size), signs);
    else
        addSign(letter, sized.fonts.at(letter.face), signs);
    if (!letter.glyphs.isEmpty()) letter.glyphs.first().text = text;
    return letter;
}

// The text may be borrowed from a longer one, what is kept has to have its own.
const Letter& letterOf(SizedFaces& sized, const QString& text, double size) {
    auto found = sized.letters.constFind(text);
    if (found != sized.letters.constEnd()) return *found;
    const QString kept(text.constData(), text.size());
    return *sized.letters.insert(kept, shaped(sized, kept, size));
}

// A letter that joins no other, so that it is as wide anywhere as it is alone.
bool standsAlone(QChar letter) { return letter.isPrint() && !letter.isMark() && !letter.isSurrogate(); }

template <class Visit> void forEachLetter(const QString& text, Visit visit) {
    if (std::all_of(text.begin(), text.end(), standsAlone)) {
        for (const QChar& letter : text) visit(QString::fromRawData(&letter, 1));
        return;
    }
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype start = 0, end = finder.toNextBoundary(); end > 0; start = end, end = finder.toNextBoundary())
        visit(text.mid(start, end - start));
}

} // namespace

QList<PaperRun> paperRuns(const QString& text, const ReportFont& font) {
    SizedFaces& sized = sizedFaces(font);
    QList<PaperRun> runs;
    qsizetype face = -1;
    double x = 0;
    forEachLetter(text, [&](const QString& sign) {
        const Letter& letter = letterOf(sized, sign, font.size);
        if (!letter.glyphs.isEmpty() && std::exchange(face, letter.face) != letter.face)
            runs.append({sized.fonts.at(letter.face), sized.faces.at(letter.face).pdfName, {}});
        for (const PaperGlyph& glyph : letter.glyphs)
            runs.last().glyphs.append({glyph.number, glyph.at + QPointF(x, 0), glyph.text});
        x += letter.width + font.spacing;
    });
    return runs;
}

double measurePaperText(const QString& text, const ReportFont& font) {
    SizedFaces& sized = sizedFaces(font);
    double width = text.isEmpty() ? 0 : -font.spacing;
    forEachLetter(text, [&](const QString& sign) { width += letterOf(sized, sign, font.size).width + font.spacing; });
    return width;
}
