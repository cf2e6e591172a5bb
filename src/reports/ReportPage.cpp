#include "reports/ReportPage.h"

#include <QStringList>

#include <algorithm>
#include <tuple>

namespace {

bool continues(const ReportPageText& text, const ReportPageText& before) {
    return text.control == before.control && text.room == before.room;
}

} // namespace

QString ReportPage::plainText() const {
    QList<ReportPageText> whole;
    for (const ReportPageText& text : texts) {
        if (!whole.isEmpty() && continues(text, whole.last()))
            whole.last().text += text.text;
        else
            whole.append(text);
    }
    std::stable_sort(whole.begin(), whole.end(), [](const ReportPageText& a, const ReportPageText& b) {
        return std::tie(a.baseline, a.x) < std::tie(b.baseline, b.x);
    });
    QStringList words;
    for (const ReportPageText& text : whole) words.append(text.text);
    return words.join(u'\n');
}
