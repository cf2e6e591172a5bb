#include "payments/PaymentWords.h"

#include "base/Dates.h"
#include "base/basCommon.h"

namespace {

QString between(const QString& from, const QString& to) {
    return (from.isEmpty() ? QString() : from + u"から"_qs) + (to.isEmpty() ? QString() : to + u"まで"_qs);
}

} // namespace

QString searchedParty(const QString& code, const QString& name) { return JoinWithSpace(code, name); }

QString periodOnPaper(const QString& from, const QString& to) {
    const QString form = u"yyyy年mm月dd日"_qs;
    return between(formatDate(from, form), formatDate(to, form));
}

QString periodInEra(const QString& from, const QString& to) {
    const QString form = u"ggge年mm月dd日"_qs;
    return between(FormatEraDate(from, form), FormatEraDate(to, form));
}
