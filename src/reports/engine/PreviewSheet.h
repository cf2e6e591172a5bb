#pragma once

#include "reports/ReportPage.h"

#include <QPixmap>
#include <QWidget>

// One page on the preview's desk, at a scale of 1 as large as on paper.
class PreviewSheet : public QWidget {
    Q_OBJECT
public:
    explicit PreviewSheet(QWidget* parent = nullptr);

    void setPage(const ReportPage& page);
    void setZoom(double zoom);
    double zoom() const { return m_zoom; }
    // The zoom at which the page is this wide, or stands whole inside of the size.
    double zoomForWidth(int width) const;
    double zoomForWhole(const QSize& room) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void resizeToPage();

    ReportPage m_page;
    double m_zoom = 1;
    QPixmap m_picture; // of page and zoom, made when first painted
};
