#include "reports/engine/PreviewSheet.h"

#include "reports/engine/ReportPainter.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double twipsPerInch = 1440;
constexpr int desk = 12; // pixels around the page

} // namespace

PreviewSheet::PreviewSheet(QWidget* parent) : QWidget(parent) {}

void PreviewSheet::setPage(const ReportPage& page) {
    m_page = page;
    resizeToPage();
}

void PreviewSheet::setZoom(double zoom) {
    m_zoom = zoom;
    resizeToPage();
}

double PreviewSheet::zoomForWidth(int width) const {
    return (width - 2 * desk) * twipsPerInch / (std::max(1, m_page.paperWidth) * logicalDpiX());
}

double PreviewSheet::zoomForWhole(const QSize& room) const {
    const double byHeight =
        (room.height() - 2 * desk) * twipsPerInch / (std::max(1, m_page.paperHeight) * logicalDpiX());
    return std::min(zoomForWidth(room.width()), byHeight);
}

void PreviewSheet::resizeToPage() {
    const double scale = m_zoom * logicalDpiX() / twipsPerInch;
    m_picture = {};
    setFixedSize(static_cast<int>(std::ceil(m_page.paperWidth * scale)) + 2 * desk,
                 static_cast<int>(std::ceil(m_page.paperHeight * scale)) + 2 * desk);
    update();
}

void PreviewSheet::paintEvent(QPaintEvent*) {
    if (m_page.paperWidth == 0) return;
    if (m_picture.isNull()) {
        const double ratio = devicePixelRatioF();
        m_picture = QPixmap::fromImage(pageImage(m_page, m_zoom * logicalDpiX() * ratio));
        m_picture.setDevicePixelRatio(ratio);
    }
    QPainter painter(this);
    painter.drawPixmap(desk, desk, m_picture);
    painter.setPen(Qt::darkGray);
    painter.drawRect(rect().adjusted(desk - 1, desk - 1, -desk, -desk));
}
