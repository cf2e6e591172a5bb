#include "reports/ReportPage.h"

#include <QStringList>

#include <algorithm>

namespace {

int middleOf(const ReportPageText& text) { return text.room.y + text.room.height / 2; }

bool continues(const ReportPageText& text, const ReportPageText& before) {
    return text.control == before.control && text.room == before.room;
}

} // namespace

// Controls whose middles are nearer to each other than the lines of any paper stand on one line.
QList<ReportPageText> inReadingOrder(QList<ReportPageText> texts) {
    constexpr int nearest = 90;
    std::stable_sort(texts.begin(), texts.end(),
                     [](const auto& a, const auto& b) { return middleOf(a) < middleOf(b); });
    for (auto line = texts.begin(); line != texts.end();) {
        const auto end = std::find_if(
            line, texts.end(), [&](const ReportPageText& text) { return middleOf(text) > middleOf(*line) + nearest; });
        std::stable_sort(line, end, [](const auto& a, const auto& b) { return a.room.x < b.room.x; });
        line = end;
    }
    return texts;
}

QString ReportPage::plainText() const {
    QStringList words;
    const ReportPageText* before = nullptr;
    const QList<ReportPageText> ordered = inReadingOrder(texts);
    for (const ReportPageText& text : ordered) {
        if (before && continues(text, *before))
            words.last() += text.text;
        else
            words.append(text.text);
        before = &text;
    }
    return words.join(u'\n');
}
