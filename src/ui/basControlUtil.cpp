#include "ui/basControlUtil.h"

#include "base/basCommon.h"
#include "ui/ChoiceBox.h"

#include <QTabBar>

namespace {

const QString kanaTabs = u"全あかさたなはまやらわ他"_qs;

} // namespace

void BeginList(ChoiceBox* list, ListHead head) {
    list->clearEntries();
    if (head.all) list->addEntry(allEntry);
    if (head.none) list->addEntry(noneEntry);
}

QString FilterText(const ChoiceBox* list) {
    const QString text = list->text();
    return text == allEntry || text == noneEntry ? QString() : text;
}

void FillCommaList(ChoiceBox* list, const QString& text, ListHead head) {
    BeginList(list, head);
    for (const QString& field : text.split(u',', Qt::SkipEmptyParts)) list->addEntry(field.trimmed(), field.trimmed());
}

QStringList SideEntries() { return {u"なし"_qs, u"左"_qs, u"右"_qs, u"両"_qs}; }

void FillKanaTabs(QTabBar* tabs) {
    while (tabs->count() > 0) tabs->removeTab(0);
    for (const QChar tab : kanaTabs) tabs->addTab(tab);
}

QString KanaTabFilter(const QString& column, int tabIndex) {
    return tabIndex < 0 ? QString() : kanaRangeFilter(column, kanaTabs.mid(tabIndex, 1));
}
