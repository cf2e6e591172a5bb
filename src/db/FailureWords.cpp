#include "db/FailureWords.h"

#include <QHash>
#include <QSqlError>

namespace {

const QString diskFull = u"ディスクの空き容量がありません。"_qs;
const QString readOnly = u"データベースが読み取り専用になっています。"_qs;
const QString fileGone = u"データベースのファイルがなくなったか、別のファイルに置き換えられました。"_qs;
const QString diskFault = u"ディスクの読み書きに失敗しました。"_qs;
const QString damaged = u"データベースのファイルが壊れています。"_qs;
const QString noMemory = u"メモリーが足りません。"_qs;

// By the engine's code, and the more general one that the code belongs to.
QString sqliteWords(int code) {
    constexpr int familyBits = 0xFF;
    static const QHash<int, QString> words{{13, diskFull},
                                           {8, readOnly},
                                           {1032, fileGone}, // the file at that path is another one now
                                           {14, u"データベースのファイルを開けません。"_qs},
                                           {10, diskFault},
                                           {11, damaged},
                                           {26, u"データベースのファイルではありません。"_qs},
                                           {7, noMemory}};
    return words.value(code, words.value(code & familyBits));
}

QString postgresWords(const QString& state) {
    static const QHash<QString, QString> words{{u"53100"_qs, diskFull}, {u"25006"_qs, readOnly},
                                               {u"58P01"_qs, fileGone}, {u"58030"_qs, diskFault},
                                               {u"XX001"_qs, damaged},  {u"XX002"_qs, damaged},
                                               {u"53200"_qs, noMemory}, {u"42501"_qs, u"権限がありません。"_qs}};
    return words.value(state);
}

} // namespace

QString failureWords(Provider provider, const QSqlError& error) {
    const QString code = error.nativeErrorCode();
    const QString words = provider == Provider::SQLite ? sqliteWords(code.toInt()) : postgresWords(code);
    return words.isEmpty() ? error.databaseText().trimmed().section(u'\n', 0, 0) : words;
}
