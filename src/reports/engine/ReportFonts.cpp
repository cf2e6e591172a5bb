#include "reports/engine/ReportFonts.h"

#include "base/AppError.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

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

int pixelSize(const ReportFont& font) { return static_cast<int>(std::lround(font.size * 20)); }

double shapedWidth(const QString& text, const ReportFont& font) {
    return QFontMetricsF(paperFont(font)).horizontalAdvance(text);
}

// A letter that joins no other, so that it is as wide anywhere as it is alone.
bool standsAlone(QChar letter) { return letter.isPrint() && !letter.isMark() && !letter.isSurrogate(); }

// Fitting asks for the same letters again and again, and shaping is what costs: the widths are kept.
double letterWidth(QChar letter, const ReportFont& font) {
    static std::array<QHash<std::pair<int, QChar>, double>, 2> families;
    auto& known = families.at(font.gothic);
    const std::pair key{pixelSize(font), letter};
    auto found = known.constFind(key);
    if (found == known.constEnd()) found = known.insert(key, shapedWidth(letter, font));
    return *found;
}

double lettersWidth(const QString& text, const ReportFont& font) {
    if (!std::all_of(text.begin(), text.end(), standsAlone)) return shapedWidth(text, font);
    return std::accumulate(text.begin(), text.end(), 0.0,
                           [&](double width, QChar letter) { return width + letterWidth(letter, font); });
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
    type.setPixelSize(pixelSize(font));
    type.setHintingPreference(QFont::PreferNoHinting);
    type.setKerning(false);
    return type;
}

double measurePaperText(const QString& text, const ReportFont& font) {
    const auto gaps = std::max(qsizetype(0), text.size() - 1);
    return lettersWidth(text, font) + double(gaps) * font.spacing;
}
