#include "base/CsvOutput.h"

#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "base/clsProfile.h"

#include <QDir>

namespace {

constexpr int csvFilter = 2;
constexpr int utf8Filter = 3;
constexpr qsizetype mostTold = 15;

FileDialogRequest csvRequest() {
    FileDialogRequest request;
    request.filters = {u"すべてのﾌｧｲﾙ (*.*)"_qs, u"ﾃｷｽﾄﾌｧｲﾙ (*.txt)"_qs, u"ｶﾝﾏ区切り csvﾌｧｲﾙ (*.csv)"_qs};
    request.filter = csvFilter;
    return request;
}

bool askPath(QString& path, FileDialogRequest& request) {
    const clsProfile profile;
    request.folder = platformPath(profile.GetValue(u"SaveFile"_qs, u"EstCsvPath"_qs, QString()));
    request.fileName = profile.GetValue(u"SaveFile"_qs, u"EstCsvFile"_qs, QString());
    const QString chosen = seams().saveFile(request);
    if (chosen.isEmpty()) return false;
    const qsizetype separator = chosen.lastIndexOf(QDir::separator());
    profile.Remember(u"SaveFile"_qs,
                     {{u"EstCsvPath"_qs, chosen.left(separator + 1)}, {u"EstCsvFile"_qs, chosen.mid(separator + 1)}});
    path = chosen;
    return true;
}

} // namespace

bool AskCsvSavePath(QString& path) {
    FileDialogRequest request = csvRequest();
    return askPath(path, request);
}

bool AskCsvSavePath(QString& path, Csv::Encoding& encoding) {
    FileDialogRequest request = csvRequest();
    request.filters << u"ｶﾝﾏ区切り csvﾌｧｲﾙ UTF-8 (*.csv)"_qs;
    if (!askPath(path, request)) return false;
    encoding = request.filter == utf8Filter ? Csv::Encoding::Utf8 : Csv::Encoding::Cp932;
    return true;
}

void CsvLacking::add(const CsvRow& row) {
    ++m_row;
    for (int i = 0; i < row.fields.size(); ++i)
        if (const QStringList missing = Text::missingInCp932(row.fields.at(i)); !missing.isEmpty())
            m_places << Place{u"%1行目"_qs.arg(formatThousands(m_row)), row.whose,
                              u"%1：%2"_qs.arg(m_columns.at(i), missing.join(u'、'))};
}

QString CsvLacking::told() const {
    QStringList first;
    for (const Place& place : m_places.first(qMin(m_places.size(), mostTold)))
        first << u"%1（%2） %3"_qs.arg(place.row, place.whose, place.what);
    if (m_places.size() <= mostTold) return first.join(u'\n');
    // The log is written in the same code page as the file, and names no person.
    for (const Place& place : m_places)
        writeLog(u"Shift_JIS にない文字 "_qs + Text::withCodePoints(place.row + u' ' + place.what));
    return first.join(u'\n') +
           u"\nほか %1か所（すべての箇所はログに記録しました）"_qs.arg(formatThousands(m_places.size() - mostTold));
}

namespace {

// False when the operator gives up over characters that the file would lose.
bool settleEncoding(const QStringList& columns, const EachCsvRow& each, Csv::Encoding& encoding) {
    if (encoding != Csv::Encoding::Cp932) return true;
    CsvLacking lacking(columns);
    each([&lacking](const CsvRow& row) { lacking.add(row); });
    if (lacking.isEmpty()) return true;
    encoding = Csv::Encoding::Utf8;
    return ShowMessage(Message::Question, u"Shift_JIS にない文字があります。UTF-8 で出力しますか？\n"
                                          u"（行は、見出しの次の行を 1 行目として数えます）\n\n"_qs +
                                              lacking.told()) == AnswerYes;
}

} // namespace

void exportCsv(const QStringList& columns, const EachCsvRow& each) {
    QString path;
    Csv::Encoding encoding = Csv::Encoding::Cp932;
    if (!AskCsvSavePath(path, encoding) || !settleEncoding(columns, each, encoding)) return;
    Csv::Writer file(path, encoding);
    file.line(columns);
    qint64 written = 0;
    each([&](const CsvRow& row) {
        file.line(row.fields);
        ++written;
    });
    file.commit();
    ShowMessage(Message::Information, formatThousands(written) + u"件出力しました。"_qs);
}
