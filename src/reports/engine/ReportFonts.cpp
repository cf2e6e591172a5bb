#include "reports/engine/ReportFonts.h"

#include "base/AppError.h"

#include <QFontDatabase>

#include <algorithm>
#include <cmath>

namespace {

const PaperFace& paperFace(bool gothic) {
    static const PaperFace mincho{u"IPAexMincho"_qs, u"IPAex明朝"_qs, "IPAexMincho"};
    static const PaperFace gothicFace{u"IPAexGothic"_qs, u"IPAexゴシック"_qs, "IPAexGothic"};
    return gothic ? gothicFace : mincho;
}

// Rare kanji of names from the hand that drew the type of paper, then what other countries write.
const QList<PaperFace>& standIns() {
    static const QList<PaperFace> faces{{u"IPAmjMincho"_qs, u"IPAmj明朝"_qs, "IPAmjMincho"},
                                        {u"Noto Serif CJK JP"_qs, u"Noto Serif CJK JP"_qs, "NotoSerifCJKjp-Regular"}};
    return faces;
}

bool isAmong(const QStringList& families, const PaperFace& face) {
    return families.contains(face.family) || families.contains(face.japanese);
}

} // namespace

QStringList missingFonts(const QStringList& installedFamilies) {
    QStringList missing;
    for (const bool gothic : {false, true})
        if (!isAmong(installedFamilies, paperFace(gothic))) missing.append(paperFace(gothic).japanese);
    return missing;
}

void assertPaperFonts() {
    const QStringList missing = missingFonts(QFontDatabase::families());
    if (missing.isEmpty()) return;
    throw AppError(u"印刷に使う書体「%1」がありません。書体を入れてから、もう一度起動してください。"_qs.arg(
                       missing.join(u"」「"_qs)),
                   u"assertPaperFonts"_qs);
}

QString standInNotice(const QStringList& installedFamilies) {
    const PaperFace& rareKanji = standIns().first();
    if (isAmong(installedFamilies, rareKanji)) return {};
    return u"氏名などの珍しい漢字（𠮷 など）を印刷する書体「%1」がありません。ほかの書体で印刷するか、枠だけになります。"_qs
        .arg(rareKanji.japanese);
}

QList<PaperFace> paperFaces(bool gothic) {
    const QStringList installed = QFontDatabase::families();
    QList<PaperFace> faces{paperFace(gothic)};
    std::copy_if(standIns().begin(), standIns().end(), std::back_inserter(faces),
                 [&](const PaperFace& face) { return isAmong(installed, face); });
    return faces;
}

QFont faceFont(const PaperFace& face, double size) {
    QFont type;
    type.setFamilies({face.family, face.japanese});
    type.setPixelSize(static_cast<int>(std::lround(size * 20)));
    type.setHintingPreference(QFont::PreferNoHinting);
    type.setStyleStrategy(QFont::NoFontMerging);
    type.setKerning(false);
    return type;
}
