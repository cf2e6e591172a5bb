#include "db/clsAutoIdsManager.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Numbers.h"

clsAutoIdsManager gAutoIdsManager;

clsAutoIdsManager::clsAutoIdsManager()
    : TableManager(u"採番"_qs, {{&clsAutoIds::ItemNm, u"項目名"_qs},
                                {&clsAutoIds::LastValue, u"最終値"_qs},
                                {&clsAutoIds::Digits, u"桁"_qs},
                                {&clsAutoIds::Year, u"年度"_qs}}) {}

namespace {

// By the clock never backwards: a machine whose clock is behind, or was ahead when it drew, would give out the numbers
// of a year once more.
bool beginsAnew(const QString& year) { return isSystemDateGiven() ? year != gSysYear : Val(year) < Val(gSysYear); }

} // namespace

QString clsAutoIdsManager::GetNewId(const QString& itemName) {
    followClock();
    Transaction transaction(connection());
    connection().lockForWriting(table());
    clsAutoIds series;
    if (!get({itemName}, series)) return {};
    const qint16 digits = ToInt16(Val(series.Digits));
    QString year = Text::rightTrimmed(series.Year);
    QString last = series.LastValue;
    if (!last.isEmpty() && !isPlainNumber(last)) throw AppError(u"データ型が一致しません。"_qs, table(), 13);
    if (!year.isEmpty() && beginsAnew(year)) {
        year = gSysYear;
        last = QString(u"0"_qs).rightJustified(digits, u'0');
    }
    const QString value = numberText(Val(last) + 1).rightJustified(digits, u'0');
    QStringList columns{u"最終値"_qs};
    if (!year.isEmpty()) columns << u"年度"_qs;
    update({itemName, value, {}, year}, columns);
    clsAutoIds written;
    if (!get({itemName}, written) || written.LastValue != value) return {};
    transaction.commit();
    return value;
}
