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

void PreviewSheet::setPage(const ReportPage& page, int number) {
    m_page = page;
    m_number = number;
    resizeToPage();
}

void PreviewSheet::setUnderlay(const FormUnderlay& underlay) {
    m_underlay = underlay;
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

QImage PreviewSheet::picture() const {
    const double dots = m_zoom * logicalDpiX() * devicePixelRatioF();
    return pageImage(m_page, dots, m_underlay.picture(m_number, pagePixels(m_page, dots)));
}

void PreviewSheet::paintEvent(QPaintEvent*) {
    if (m_page.paperWidth == 0) return;
    if (m_picture.isNull()) {
        m_picture = QPixmap::fromImage(picture());
        m_picture.setDevicePixelRatio(devicePixelRatioF());
    }
    QPainter painter(this);
    painter.drawPixmap(desk, desk, m_picture);
    painter.setPen(Qt::darkGray);
    painter.drawRect(rect().adjusted(desk - 1, desk - 1, -desk, -desk));
}
