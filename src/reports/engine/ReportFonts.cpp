#include "reports/engine/ReportFonts.h"

#include "base/AppError.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>

#include <cmath>

namespace {

struct PaperFace {
    QString family;   // as the platform lists it
    QString japanese; // its other name
};

const PaperFace& face(bool gothic) {
    static const PaperFace mincho{u"IPAexMincho"_qs, u"IPAex明朝"_qs};
    static const PaperFace gothicFace{u"IPAexGothic"_qs, u"IPAexゴシック"_qs};
    return gothic ? gothicFace : mincho;
}

} // namespace

QStringList missingFonts(const QStringList& installedFamilies) {
    QStringList missing;
    for (const bool gothic : {false, true}) {
        const PaperFace& wanted = face(gothic);
        if (!installedFamilies.contains(wanted.family) && !installedFamilies.contains(wanted.japanese))
            missing.append(wanted.japanese);
    }
    return missing;
}

void assertPaperFonts() {
    const QStringList missing = missingFonts(QFontDatabase::families());
    if (missing.isEmpty()) return;
    throw AppError(u"印刷に使う書体「%1」がありません。書体を入れてから、もう一度起動してください。"_qs.arg(
                       missing.join(u"」「"_qs)),
                   u"assertPaperFonts"_qs);
}

QFont paperFont(const ReportFont& font) {
    const PaperFace& wanted = face(font.gothic);
    QFont type;
    type.setFamilies({wanted.family, wanted.japanese});
    type.setPixelSize(static_cast<int>(std::lround(font.size * 20)));
    type.setHintingPreference(QFont::PreferNoHinting);
    type.setKerning(false);
    return type;
}

double measurePaperText(const QString& text, const ReportFont& font) {
    return QFontMetricsF(paperFont(font)).horizontalAdvance(text);
}
