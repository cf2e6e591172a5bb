#include "reports/ReportTextFit.h"

#include "base/Text.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace {

constexpr double twipsPerPoint = 20;
constexpr double smallestSize = 5;
constexpr double sizeStep = 0.5;
constexpr double ascent = 0.88;
constexpr double looseLeading = 1.2;
constexpr double littleSmaller = 0.85; // this much smaller reads better than broken
constexpr double easilyRead = 6;       // below this nothing is worth a smaller size
constexpr double squeezeStep = 1.02;
constexpr double shortestLastLine = 0.34; // of the widest one

double startSize(const QString& text, const ReportTextItem& item) {
    const int bytes = Text::cp932Length(text);
    double size = item.font.size;
    for (const ReportSizeStep& step : item.sizes)
        if (bytes > step.overBytes) size = step.size;
    return size;
}

QStringList pieces(const QString& text, QTextBoundaryFinder::BoundaryType type) {
    QStringList found;
    QTextBoundaryFinder finder(type, text);
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
        found.append(text.mid(start, end - start));
        start = end;
    }
    return found;
}

// A text in the pieces between which its lines may break.
struct Pieced {
    QString text;
    QStringList pieces;
    bool parts; // a piece that is wider than the line breaks anywhere
};

Pieced betweenCharacters(const QString& text) { return {text, pieces(text, QTextBoundaryFinder::Line), true}; }
Pieced betweenPhrases(const QString& text) { return {text, Text::phrases(text), false}; }
Pieced unbroken(const QString& text) { return {text, {text}, false}; }

QStringList breakable(const Pieced& text, double width, const ReportFont& font, const ReportMeasure& measure) {
    if (!text.parts) return text.pieces;
    QStringList found;
    for (const QString& word : text.pieces) {
        if (measure(word, font) <= width)
            found.append(word);
        else
            found.append(pieces(word, QTextBoundaryFinder::Grapheme));
    }
    return found;
}

QStringList wrapped(const Pieced& text, double width, const ReportFont& font, const ReportMeasure& measure) {
    if (measure(text.text, font) <= width) return {text.text};
    QStringList lines{QString()};
    for (const QString& piece : breakable(text, width, font, measure)) {
        if (!lines.last().isEmpty() && measure(lines.last() + piece, font) > width) lines.append(QString());
        lines.last() += piece;
    }
    return lines;
}

double widest(const QStringList& lines, const ReportFont& font, const ReportMeasure& measure) {
    double width = 0;
    for (const QString& line : lines) width = std::max(width, measure(line, font));
    return width;
}

struct Attempt {
    QStringList lines;
    double size = 0;
    bool fits = false;
};

// The largest size at which the text stands inside of its control, or else the smallest.
Attempt largest(const Pieced& text, const ReportTextItem& item, const ReportMeasure& measure) {
    const double room = item.at.width;
    for (double size = startSize(text.text, item);; size = std::max(size - sizeStep, smallestSize)) {
        const ReportFont font = item.font.sized(size);
        const double em = size * twipsPerPoint;
        const auto most = static_cast<qsizetype>(std::max(1.0, item.at.height / em));
        QStringList lines = most > 1 ? wrapped(text, room, font, measure) : QStringList{text.text};
        const bool fits = widest(lines, font, measure) <= room && lines.size() <= most && em <= item.at.height;
        if (!fits && size > smallestSize) continue;
        for (double virtualRoom = room; lines.size() > most; virtualRoom *= squeezeStep)
            lines = wrapped(text, virtualRoom, font, measure);
        return {lines, size, fits};
    }
}

// Two lines that part at a blank, as even as the blanks allow; none when neither fits.
QStringList partedAtBlank(const QString& text, double room, const ReportFont& font, const ReportMeasure& measure) {
    QStringList parted;
    double narrowest = room;
    for (qsizetype blank = 0; blank < text.size() - 1; ++blank) {
        if (!text.at(blank).isSpace()) continue;
        const QStringList tried{text.left(blank + 1), text.mid(blank + 1)};
        const double width = widest(tried, font, measure);
        if (width > narrowest) continue;
        narrowest = width;
        parted = tried;
    }
    return parted;
}

// A last line of a character or two looks like a slip: the lines share the text more evenly then.
QStringList evened(const Pieced& text, const QStringList& lines, double room, const ReportFont& font,
                   const ReportMeasure& measure) {
    if (measure(lines.last(), font) >= room * shortestLastLine) return lines;
    if (lines.size() == 2)
        if (const QStringList parted = partedAtBlank(text.text, room, font, measure); !parted.isEmpty()) return parted;
    QStringList even = lines;
    for (int percent = 95; percent > 50; percent -= 5) {
        const QStringList tried = wrapped(text, room * percent / 100, font, measure);
        if (tried.size() > lines.size() || widest(tried, font, measure) > room) break;
        even = tried;
    }
    return even;
}

bool isKinder(const Attempt& attempt, const Attempt& parted) {
    if (!attempt.fits) return false;
    return attempt.size >= std::min(parted.size, std::max(parted.size * littleSmaller, easilyRead));
}

Attempt wholeLines(const Pieced& text, const ReportTextItem& item, const ReportMeasure& measure) {
    Attempt attempt = largest(text, item, measure);
    if (attempt.fits && attempt.lines.size() > 1)
        attempt.lines = evened(text, attempt.lines, item.at.width, item.font.sized(attempt.size), measure);
    return attempt;
}

// A little smaller is better than a second line, and that is better than a word in two parts.
Attempt best(const QString& text, const ReportTextItem& item, const ReportMeasure& measure) {
    if (!item.wrap) return largest(unbroken(text), item, measure);
    const Attempt parted = wholeLines(betweenCharacters(text), item, measure);
    if (!parted.fits || parted.lines.size() < 2) return parted;
    for (const Pieced& kinder : {unbroken(text), betweenPhrases(text)})
        if (const Attempt attempt = wholeLines(kinder, item, measure); isKinder(attempt, parted)) return attempt;
    return parted;
}

} // namespace

FittedText fitText(const QString& text, const ReportTextItem& item, const ReportMeasure& measure) {
    const Attempt found = best(text, item, measure);
    const double room = item.at.width;
    const double printed = widest(found.lines, item.font.sized(found.size), measure);
    const double em = found.size * twipsPerPoint;
    const double pitch = std::min(em * looseLeading, double(item.at.height) / double(found.lines.size()));
    return {found.lines, found.size, printed > room ? room / printed : 1, static_cast<int>(pitch)};
}

int centredBaseline(int top, int height, double size) {
    const double em = size * twipsPerPoint;
    return static_cast<int>(std::lround(top + (height - em) / 2 + ascent * em));
}
