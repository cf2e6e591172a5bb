#include "db/TableManager.h"

#include "base/AppError.h"
#include "base/basCommon.h"

QString sqlNumber(const QString& value) {
    const QString number = value.trimmed();
    if (!isPlainNumber(number)) throw Errors::typeMismatch(u"SQL"_qs);
    return number;
}

QString sqlText(const QString& value) { return u'\'' + SqlQuote(value) + u'\''; }

Connection& opened(Connection* connection) {
    if (!connection) throw AppError(u"データベースが開かれていません。"_qs, u"TableManager"_qs);
    return *connection;
}
