#include "base/AppError.h"

namespace Errors {

AppError typeMismatch(const QString& source) { return AppError(u"データ型が一致しません。"_qs, source, 13); }

AppError overflow(const QString& source) { return AppError(u"オーバーフローしました。"_qs, source, 6); }

} // namespace Errors
