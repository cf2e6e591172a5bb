#include "reports/engine/ReportPainter.h"

#include "reports/engine/ReportFonts.h"

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
void thicken(QPainter& painter, const QPointF& at, const QString& text, const ReportFont& font) {
    QPainterPath letters;
    letters.addText(at, paperFont(font), text);
    painter.strokePath(letters, QPen(Qt::black, font.size * boldness, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
}

void paintLetters(QPainter& painter, const QPointF& at, const QString& text, const ReportFont& font) {
    painter.drawText(at, text);
    if (font.bold) thicken(painter, at, text, font);
}

// Letter by letter, as a PDF loses the places of letters that the type itself spaces.
void paintSpaced(QPainter& painter, const QString& text, const ReportFont& font) {
    double x = 0;
    for (const QChar letter : text) {
        paintLetters(painter, QPointF(x, 0), letter, font);
        x += measurePaperText(letter, font) + font.spacing;
    }
}

void paintText(QPainter& painter, const ReportPageText& text) {
    painter.save();
    painter.translate(text.x, text.baseline);
    painter.scale(text.squeeze, 1);
    painter.setPen(Qt::black);
    painter.setFont(paperFont(text.font));
    if (text.font.spacing == 0)
        paintLetters(painter, QPointF(0, 0), text.text, text.font);
    else
        paintSpaced(painter, text.text, text.font);
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

QImage pageImage(const ReportPage& page, double dotsPerInch) {
    const double scale = dotsPerInch / twipsPerInch;
    QImage image(static_cast<int>(std::lround(page.paperWidth * scale)),
                 static_cast<int>(std::lround(page.paperHeight * scale)), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    paintPage(painter, page);
    return image;
}
