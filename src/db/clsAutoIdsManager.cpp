#include "db/clsAutoIdsManager.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/basCommon.h"

clsAutoIdsManager gAutoIdsManager;

clsAutoIdsManager::clsAutoIdsManager()
    : TableManager(u"採番"_qs, {{&clsAutoIds::ItemNm, u"項目名"_qs},
                                {&clsAutoIds::LastValue, u"最終値"_qs},
                                {&clsAutoIds::Digits, u"桁"_qs},
                                {&clsAutoIds::Year, u"年度"_qs}}) {}

QString clsAutoIdsManager::GetNewId(const QString& itemName) {
    Transaction transaction(connection());
    connection().lockForWriting(table());
    const QString filter = u"[項目名] = "_qs + sqlText(itemName);
    clsAutoIds series;
    if (!readFirst(series, filter)) return {};
    const qint16 digits = ToInt16(Val(series.Digits));
    QString year = Text::rightTrimmed(series.Year);
    QString last = series.LastValue;
    if (!last.isEmpty() && !isPlainNumber(last)) throw AppError(u"データ型が一致しません。"_qs, table(), 13);
    if (!year.isEmpty() && year != gSysYear) {
        year = gSysYear;
        last = QString(u"0"_qs).rightJustified(digits, u'0');
    }
    const QString value = numberText(Val(last) + 1).rightJustified(digits, u'0');
    QString sql = u" UPDATE [採番]     SET        [最終値] = "_qs + sqlText(value) + u' ';
    if (!year.isEmpty()) sql += u"     , [年度] = "_qs + sqlText(year) + u' ';
    execute(sql + u"  WHERE "_qs + filter);
    clsAutoIds written;
    if (!readFirst(written, filter) || written.LastValue != value) return {};
    transaction.commit();
    return value;
}
