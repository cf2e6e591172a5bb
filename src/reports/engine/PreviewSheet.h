#pragma once

#include "reports/ReportPage.h"
#include "reports/engine/FormUnderlay.h"

#include <QPixmap>
#include <QWidget>

// One page on the preview's desk, at a scale of 1 as large as on paper.
class PreviewSheet : public QWidget {
    Q_OBJECT
public:
    explicit PreviewSheet(QWidget* parent = nullptr);

    void setPage(const ReportPage& page, int number = 1);
    // What lies under the pages.
    void setUnderlay(const FormUnderlay& underlay);
    void setZoom(double zoom);
    double zoom() const { return m_zoom; }
    // The zoom at which the page is this wide, or stands whole inside of the size.
    double zoomForWidth(int width) const;
    double zoomForWhole(const QSize& room) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void resizeToPage();
    QImage picture() const;

    ReportPage m_page;
    int m_number = 1;
    FormUnderlay m_underlay;
    double m_zoom = 1;
    QPixmap m_picture; // of page and zoom, made when first painted
};
