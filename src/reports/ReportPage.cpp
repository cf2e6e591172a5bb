#include "reports/ReportPage.h"

#include <QStringList>

#include <algorithm>
#include <tuple>

QString ReportPage::plainText() const {
    QList<ReportPageText> ordered = texts;
    std::stable_sort(ordered.begin(), ordered.end(), [](const ReportPageText& a, const ReportPageText& b) {
        return std::tie(a.baseline, a.x) < std::tie(b.baseline, b.x);
    });
    QStringList words;
    for (const ReportPageText& text : ordered) words.append(text.text);
    return words.join(u'\n');
}
