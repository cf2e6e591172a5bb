#include "ui/basControlUtil.h"

#include "db/clsAssistManager.h"
#include "db/clsSysSettingManager.h"
#include "reference/ReferenceManagers.h"
#include "ui/ChoiceBox.h"

#include <QTabBar>

#include <algorithm>

namespace {

const QString kanaTabs = u"全あかさたなはまやらわ他"_qs;

template <class Record>
void fill(ChoiceBox* list, ListHead head, const QList<Record>& rows, QString Record::*text, QString Record::*number) {
    BeginList(list, head);
    for (const Record& row : rows) list->addEntry(row.*text, row.*number);
}

} // namespace

void BeginList(ChoiceBox* list, ListHead head) {
    list->clearEntries();
    if (head.all) list->addEntry(allEntry);
    if (head.none) list->addEntry(noneEntry);
}

void AddListEntry(ChoiceBox* list, const QString& text, const QString& data) { list->addEntry(text, data); }

QString FilterText(const ChoiceBox* list) {
    const QString text = list->text();
    return text == allEntry || text == noneEntry ? QString() : text;
}

void FillCommaList(ChoiceBox* list, const QString& text, ListHead head) {
    BeginList(list, head);
    for (const QString& field : text.split(u',', Qt::SkipEmptyParts)) list->addEntry(field.trimmed(), field.trimmed());
}

QStringList SideEntries() { return {u"なし"_qs, u"左"_qs, u"右"_qs, u"両"_qs}; }

void FillPrefList(ChoiceBox* list, ListHead head) {
    QList<clsPrefecture> rows;
    gPrefectureManager.GetPrefGrpList(rows);
    fill(list, head, rows, &clsPrefecture::Pref, &clsPrefecture::PrefNo);
}

void FillCityList(ChoiceBox* list, const QString& pref, ListHead head) {
    QList<clsPrefecture> rows;
    gPrefectureManager.GetCityGrpList(rows, pref.isEmpty() ? SqlTerm()
                                                           : gPrefectureManager.equal(&clsPrefecture::Pref, pref));
    rows.removeIf([](const clsPrefecture& row) { return row.City.isEmpty(); }); // a prefecture alone
    fill(list, head, rows, &clsPrefecture::City, &clsPrefecture::PrefNo);
}

void FillDoctorList(ChoiceBox* list, const SqlTerm& where, ListHead head) {
    QList<clsDoctor> rows;
    gDoctorManager.GetList(rows, where, bySeq);
    fill(list, head, rows, &clsDoctor::DoctorNm, &clsDoctor::DoctorNo);
}

void FillProducerList(ChoiceBox* list, const SqlTerm& where, ListHead head) {
    QList<clsProducer> rows;
    gProducerManager.GetList(rows, where, bySeq);
    fill(list, head, rows, &clsProducer::ProducerNm, &clsProducer::ProducerNo);
}

void FillInsList(ChoiceBox* list, const SqlTerm& where, const SqlTerm& sort, ListHead head) {
    QList<clsIns> rows;
    gInsManager.GetList(rows, where, sort);
    fill(list, head, rows, &clsIns::InsNm, &clsIns::InsNo);
}

void FillAssistList(ChoiceBox* list, int group, const SqlTerm& sort, ListHead head) {
    QList<clsAssist> rows;
    gAssistManager.GetList(rows, gAssistManager.ofGroup(group), sort.isEmpty() ? gAssistManager.byKey() : sort);
    fill(list, head, rows, &clsAssist::AsstView, &clsAssist::AsstNo);
}

void FillAssistValueList(ChoiceBox* list, int group, ListHead head) {
    fill(list, head, gAssistManager.group(group), &clsAssist::AsstView, &clsAssist::AsstData);
}

void FillTaxList(ChoiceBox* list, const QString& settingNumbers, ListHead head) {
    const QList<clsSysSetting> rows = gSysSettingManager.byValue(settingNumbers.split(u','));
    fill(list, head, rows, &clsSysSetting::SetValue, &clsSysSetting::No);
}

void FillKanaTabs(QTabBar* tabs) {
    while (tabs->count() > 0) tabs->removeTab(0);
    for (const QChar tab : kanaTabs) tabs->addTab(tab);
}

SqlTerm KanaTabFilter(const SqlTerm& column, int tabIndex) {
    return tabIndex < 0 ? SqlTerm() : kanaRangeFilter(column, kanaTabs.mid(tabIndex, 1));
}

int KanaTabOf(const QString& reading) {
    static const QString rowStarts = u"ｱｶｻﾀﾅﾊﾏﾔﾗﾜ"_qs;
    if (reading.isEmpty()) return -1;
    const QChar first = reading.front();
    if (first < rowStarts.front() || first > u'ﾝ') return static_cast<int>(kanaTabs.size()) - 1;
    const auto behind = std::upper_bound(rowStarts.begin(), rowStarts.end(), first);
    return static_cast<int>(behind - rowStarts.begin()); // 全 stands before the first row
}
