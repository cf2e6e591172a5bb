#include "operations/SystemProperties.h"

#include "base/Csv.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "db/Connection.h"
#include "operations/DatabaseCreation.h"

#include <algorithm>

namespace {

constexpr int officeNumber = 1;

// The least and the largest value of a setting that is a number.
struct Range {
    int No;
    double least, largest;
    bool whole = true;
    bool mayBeEmpty = false;
};

constexpr double longestWait = 999; // days
constexpr double mostLines = 99;    // of a page
const QList<Range>& ranges() {
    static const QList<Range> list{{Setting::FirstMonth, 1, 12},
                                   {Setting::Tax, 0, 100, false},
                                   {Setting::Tax + 1, 0, 100, false},
                                   {Setting::LinesPerPage, 1, mostLines},
                                   {Setting::PriceYear, 1000, 9999},
                                   {Setting::TmpSetDays, 0, longestWait, true, true},
                                   {Setting::CmpltDays, 0, longestWait, true, true},
                                   {Setting::DelvDays, 0, longestWait, true, true},
                                   {Setting::AskDays, 0, longestWait, true, true},
                                   {Setting::PayInDays, 0, longestWait, true, true}};
    return list;
}

// The message against a value; 0 when there is none.
int faultOf(const Range& range, const QString& value) {
    if (value.isEmpty()) return range.mayBeEmpty ? 0 : Message::EnterValue;
    const bool fits = isPlainNumber(value) && (!range.whole || !value.contains(u'.')) && Val(value) >= range.least &&
                      Val(value) <= range.largest;
    return fits ? 0 : Message::Invalid;
}

bool sameOffice(const clsOffice& left, const clsOffice& right) {
    const auto& fields = gOfficeManager.fields();
    return std::all_of(fields.begin(), fields.end(),
                       [&](const Field<clsOffice>& field) { return left.*field.member == right.*field.member; });
}

} // namespace

bool SystemProperties::operator==(const SystemProperties& other) const {
    return settings == other.settings && sameOffice(office, other.office);
}

std::optional<SystemProperties> SystemProperties::read(QString& lacks) {
    SystemProperties found;
    QList<clsSysSetting> rows;
    gSysSettingManager.GetList(rows, {}, gSysSettingManager.byKey());
    for (const clsSysSetting& row : rows) found.settings.insert(ToInt(row.No), row.SetValue);
    if (rows.isEmpty()) lacks = u"システム設定"_qs;
    if (!gOfficeManager.GetData(officeNumber, found.office)) lacks = u"自社情報"_qs;
    return lacks.isEmpty() ? std::optional(found) : std::nullopt;
}

void SystemProperties::addMissing(const QList<int>& numbers) {
    for (const int No : numbers) {
        if (settings.contains(No)) continue;
        missing << No;
        settings.insert(No, deliveredSetting(No).SetValue);
    }
}

std::optional<SystemProperties::Complaint> SystemProperties::complaintAgainst(const SystemProperties& before) const {
    for (const Range& range : ranges()) {
        const QString value = settings.value(range.No);
        if (value == before.settings.value(range.No)) continue;
        if (const int message = faultOf(range, value))
            return Complaint{range.No, message, deliveredSetting(range.No).SetItem};
    }
    return std::nullopt;
}

void SystemProperties::save(Connection& connection, const SystemProperties& before) const {
    const auto row = [this](int No) {
        clsSysSetting setting = deliveredSetting(No);
        setting.SetValue = settings.value(No);
        return setting;
    };
    QList<clsSysSetting> changed;
    for (const int No : settings.keys())
        if (settings.value(No) != before.settings.value(No)) changed << row(No);
    Transaction transaction(connection);
    if (!sameOffice(office, before.office)) gOfficeManager.SaveData(officeNumber, office);
    for (const int No : missing) gSysSettingManager.AddData(row(No));
    gSysSettingManager.SaveDataS(changed);
    transaction.commit();
}

clsSysSetting deliveredSetting(int No) {
    static const QMap<int, clsSysSetting> delivered = [] {
        QMap<int, clsSysSetting> rows;
        for (const QStringList& line : Csv::read(DatabaseCreation::deliveredRows(u"システム設定"_qs)).mid(1))
            rows.insert(line.value(0).toInt(), {line.value(0), line.value(1), line.value(2), line.value(3)});
        return rows;
    }();
    clsSysSetting setting = delivered.value(No);
    setting.No = QString::number(No);
    return setting;
}
