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

// The pieces between which a line may break; a word that is wider than the line may break anywhere.
QStringList breakable(const QString& text, double width, const ReportFont& font, const ReportMeasure& measure) {
    QStringList found;
    for (const QString& word : pieces(text, QTextBoundaryFinder::Line)) {
        if (measure(word, font) <= width)
            found.append(word);
        else
            found.append(pieces(word, QTextBoundaryFinder::Grapheme));
    }
    return found;
}

QStringList wrapped(const QString& text, double width, const ReportFont& font, const ReportMeasure& measure) {
    if (measure(text, font) <= width) return {text};
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

} // namespace

FittedText fitText(const QString& text, const ReportTextItem& item, const ReportMeasure& measure) {
    const double room = item.at.width;
    for (double size = startSize(text, item);; size = std::max(size - sizeStep, smallestSize)) {
        const ReportFont font = item.font.sized(size);
        const double em = size * twipsPerPoint;
        const auto most = static_cast<qsizetype>(std::max(1.0, item.at.height / em));
        QStringList lines = item.wrap && most > 1 ? wrapped(text, room, font, measure) : QStringList{text};
        const double width = widest(lines, font, measure);
        const bool fits = width <= room && lines.size() <= most && em <= item.at.height;
        if (!fits && size > smallestSize) continue;
        for (double virtualRoom = room; lines.size() > most; virtualRoom *= 1.1)
            lines = wrapped(text, virtualRoom, font, measure);
        const double printed = widest(lines, font, measure);
        const double pitch = std::min(em * looseLeading, double(item.at.height) / double(lines.size()));
        return {lines, size, printed > room ? room / printed : 1, static_cast<int>(pitch)};
    }
}

int centredBaseline(int top, int height, double size) {
    const double em = size * twipsPerPoint;
    return static_cast<int>(std::lround(top + (height - em) / 2 + ascent * em));
}
