#include "reports/ReportPage.h"

#include <QStringList>

#include <algorithm>
#include <tuple>

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

// By their baselines alone, as a search on the page has always met them.
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

QList<ReportPage> shifted(QList<ReportPage> pages, int right, int down) {
    for (ReportPage& page : pages) {
        for (ReportPageText& text : page.texts) {
            text.x += right;
            text.baseline += down;
            text.room = text.room.moved(right, down);
        }
        for (ReportPageLine& line : page.lines)
            line = {line.x1 + right, line.y1 + down, line.x2 + right, line.y2 + down, line.width, line.dashed};
        for (ReportPageBox& box : page.boxes) box.at = box.at.moved(right, down);
    }
    return pages;
}
