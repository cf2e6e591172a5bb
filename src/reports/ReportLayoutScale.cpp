#include "reports/ReportLayoutScale.h"

#include <cmath>

namespace {

class Scale {
public:
    explicit Scale(double factor) : m_factor(factor) {}

    void apply(ReportLayout& layout) const {
        for (int* margin : {&layout.margins.top, &layout.margins.bottom, &layout.margins.left, &layout.margins.right})
            *margin = twips(*margin);
        for (ReportBand& band : layout.bands) {
            band.height = twips(band.height);
            for (ReportTextItem& text : band.texts) applyTo(text);
            for (ReportBoxItem& box : band.boxes) box.at = rect(box.at);
            for (ReportLineItem& line : band.lines)
                for (int* end : {&line.x1, &line.y1, &line.x2, &line.y2}) *end = twips(*end);
        }
    }

private:
    int twips(int length) const { return static_cast<int>(std::lround(length * m_factor)); }
    // Down to half a point, so that words still stand inside of their controls.
    double points(double size) const { return std::floor(size * m_factor * 2) / 2; }
    // By its edges, so that what touched still does.
    ReportRect rect(const ReportRect& at) const {
        const int x = twips(at.x), y = twips(at.y);
        return {x, y, twips(at.right()) - x, twips(at.bottom()) - y};
    }
    void applyTo(ReportTextItem& text) const {
        text.at = rect(text.at);
        if (text.digits > 0) text.at.width -= text.at.width % text.digits;
        text.font.size = points(text.font.size);
        text.font.spacing = twips(text.font.spacing);
        for (ReportSizeStep& step : text.sizes) step.size = points(step.size);
    }

    double m_factor;
};

} // namespace

void scaleLayout(ReportLayout& layout, double factor) { Scale(factor).apply(layout); }
