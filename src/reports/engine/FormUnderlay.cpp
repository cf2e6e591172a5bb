#include "reports/engine/FormUnderlay.h"

#include "base/AppError.h"

#include <QFileInfo>
#include <QImageReader>

namespace {

// A whole sheet at 600 dots to the inch in colours.
constexpr int megabytes = 300;

AppError unreadable(const QString& path, const QString& reason) {
    return AppError(u"下敷きの「%1」を読めません。PNG、JPEG、PDF のどれかを選んでください。\n%2"_qs.arg(
                        QFileInfo(path).fileName(), reason),
                    u"FormUnderlay"_qs);
}

// The toolkit refuses large pictures from strangers; this one the office has chosen itself.
class RoomForScans {
public:
    RoomForScans() : m_before(QImageReader::allocationLimit()) { QImageReader::setAllocationLimit(megabytes); }
    ~RoomForScans() { QImageReader::setAllocationLimit(m_before); }
    RoomForScans(const RoomForScans&) = delete;
    RoomForScans& operator=(const RoomForScans&) = delete;

private:
    int m_before;
};

} // namespace

FormUnderlay::FormUnderlay(const QString& path) : m_path(path) {
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead()) throw unreadable(path, reader.errorString());
    if (picture(1, QSize(100, 141)).isNull()) throw unreadable(path, reader.errorString());
}

FormUnderlay FormUnderlay::ifReadable(const QString& path) {
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    FormUnderlay underlay;
    if (!path.isEmpty() && reader.canRead()) underlay.m_path = path;
    return underlay;
}

QImage FormUnderlay::picture(int page, const QSize& pixels) const {
    if (isEmpty()) return {};
    const RoomForScans room;
    QImageReader reader(m_path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (page > 1 && reader.imageCount() >= page) reader.jumpToImage(page - 1);
    if (reader.format() == "pdf") reader.setScaledSize(pixels); // it has no size of its own in pixels
    const QImage whole = reader.read();
    if (whole.isNull()) return {};
    return whole.size() == pixels ? whole : whole.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QStringList FormUnderlay::fileFilters() { return {u"用紙の画像 (*.png *.jpg *.jpeg *.pdf)"_qs, u"すべて (*.*)"_qs}; }
