#include "reports/engine/ReportPainter.h"

#include "reports/engine/PaperGlyphs.h"

#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double twipsPerInch = 1440;
constexpr double twipsPerPoint = 20;
constexpr double boldness = 0.7; // twips of outline for each point of size

QPen pen(int width, bool dashed) {
    QPen pen(Qt::black, width, dashed ? Qt::CustomDashLine : Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (dashed) pen.setDashPattern({60.0 / width, 60.0 / width});
    return pen;
}

void paintBox(QPainter& painter, const ReportPageBox& box) {
    const QRect at(box.at.x, box.at.y, box.at.width, box.at.height);
    if (box.shade > 0) painter.fillRect(at, QColor::fromRgbF(0, 0, 0, static_cast<float>(box.shade) / 100));
    if (box.width == 0) return;
    painter.setPen(pen(box.width, box.dashed));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(at);
}

// The types have no bold cut, so the outline of the letters is drawn over them.
void thicken(QPainter& painter, const PaperRun& run, const ReportFont& font) {
    QPainterPath letters;
    for (const PaperGlyph& glyph : run.glyphs)
        letters.addPath(run.font.pathForGlyph(glyph.number).translated(glyph.at));
    painter.strokePath(letters, QPen(Qt::black, font.size * boldness, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
}

void paintRun(QPainter& painter, const PaperRun& run) {
    QList<quint32> numbers;
    QList<QPointF> places;
    for (const PaperGlyph& glyph : run.glyphs) {
        numbers.append(glyph.number);
        places.append(glyph.at);
    }
    QGlyphRun glyphs;
    glyphs.setRawFont(run.font);
    glyphs.setGlyphIndexes(numbers);
    glyphs.setPositions(places);
    painter.drawGlyphRun({}, glyphs);
}

void paintText(QPainter& painter, const ReportPageText& text) {
    painter.save();
    painter.translate(text.x, text.baseline);
    painter.scale(text.squeeze, 1);
    painter.setPen(Qt::black);
    for (const PaperRun& run : paperRuns(text.text, text.font)) {
        paintRun(painter, run);
        if (text.font.bold) thicken(painter, run, text.font);
    }
    painter.restore();
}

} // namespace

QPageLayout paperOf(int width, int height) {
    const QSizeF points(std::min(width, height) / twipsPerPoint, std::max(width, height) / twipsPerPoint);
    return {QPageSize(points, QPageSize::Point, {}, QPageSize::FuzzyMatch),
            width > height ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()};
}

void paintPage(QPainter& painter, const ReportPage& page) {
    for (const ReportPageBox& box : page.boxes) paintBox(painter, box);
    for (const ReportPageLine& line : page.lines) {
        painter.setPen(pen(line.width, line.dashed));
        painter.drawLine(line.x1, line.y1, line.x2, line.y2);
    }
    for (const ReportPageText& text : page.texts) paintText(painter, text);
}

QSize pagePixels(const ReportPage& page, double dotsPerInch) {
    const double scale = dotsPerInch / twipsPerInch;
    return {static_cast<int>(std::lround(page.paperWidth * scale)),
            static_cast<int>(std::lround(page.paperHeight * scale))};
}

QImage pageImage(const ReportPage& page, double dotsPerInch, const QImage& under) {
    const double scale = dotsPerInch / twipsPerInch;
    QImage image(pagePixels(page, dotsPerInch), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    if (!under.isNull()) painter.drawImage(image.rect(), under);
    painter.scale(scale, scale);
    paintPage(painter, page);
    return image;
}
