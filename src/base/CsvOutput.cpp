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

constexpr qsizetype mostTold = 15;
const QString separatorOfFolders = QString(QDir::separator());

// A name that a list proposes by itself is not remembered, and the folder is.
bool askPath(QString& path, FileDialogRequest& request) {
    const clsProfile profile;
    const bool proposes = !request.fileName.isEmpty();
    request.folder = platformPath(profile.GetValue(u"SaveFile"_qs, u"EstCsvPath"_qs, QString()));
    if (!proposes) request.fileName = profile.GetValue(u"SaveFile"_qs, u"EstCsvFile"_qs, QString());
    if (request.fileName.isEmpty()) request.fileName = u"一覧%1.csv"_qs.arg(currentDate().toString(u"yyyyMMdd"));
    const QString chosen = seams().saveFile(request);
    if (chosen.isEmpty()) return false;
    const qsizetype separator = chosen.lastIndexOf(separatorOfFolders);
    QList<std::pair<QString, QString>> remembered{{u"EstCsvPath"_qs, chosen.left(separator + 1)}};
    if (!proposes) remembered << std::pair{u"EstCsvFile"_qs, chosen.mid(separator + 1)};
    profile.Remember(u"SaveFile"_qs, remembered);
    path = chosen;
    return true;
}

bool askPath(QString& path, const ListFile& file, Csv::Encoding& encoding) {
    FileDialogRequest request;
    request.fileName = file.name;
    request.filters = file.filters;
    request.filter = file.filter;
    if (!askPath(path, request)) return false;
    encoding = request.filter == file.filters.size() - 1 ? Csv::Encoding::Utf8 : Csv::Encoding::Cp932;
    return true;
}

} // namespace

const QStringList ListFile::csvFilters{u"すべてのﾌｧｲﾙ (*.*)"_qs, u"ﾃｷｽﾄﾌｧｲﾙ (*.txt)"_qs,
                                       u"ｶﾝﾏ区切り csvﾌｧｲﾙ (*.csv)"_qs, u"ｶﾝﾏ区切り csvﾌｧｲﾙ UTF-8 (*.csv)"_qs};
const QStringList ListFile::textFilters{u"すべてのﾌｧｲﾙ (*.*)"_qs, u"ﾃｷｽﾄﾌｧｲﾙ (*.txt)"_qs, u"ﾃｷｽﾄﾌｧｲﾙ UTF-8 (*.txt)"_qs};

bool AskCsvSavePath(QString& path) {
    FileDialogRequest request;
    request.filters = ListFile::csvFilters.first(3);
    request.filter = ListFile().filter;
    return askPath(path, request);
}

bool AskCsvSavePath(QString& path, Csv::Encoding& encoding) { return askPath(path, ListFile(), encoding); }

void CsvLacking::add(const CsvRow& row) {
    ++m_row;
    for (int i = 0; i < row.fields.size(); ++i)
        if (const QStringList missing = Text::missingInCp932(row.fields.at(i)); !missing.isEmpty())
            m_places << Place{u"%1行目"_qs.arg(formatThousands(m_row)), row.whose,
                              u"%1：%2"_qs.arg(m_columns.value(i), missing.join(u'、'))};
}

void CsvLacking::addHead(const QStringList& fields) {
    for (const QString& field : fields)
        if (const QStringList missing = Text::missingInCp932(field); !missing.isEmpty())
            m_places << Place{u"見出し"_qs, field, missing.join(u'、')};
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
bool settleEncoding(const ListFile& form, const EachListRow& each, Csv::Encoding& encoding) {
    if (encoding != Csv::Encoding::Cp932) return true;
    CsvLacking lacking(form.columns);
    for (const QStringList& head : form.heads) lacking.addHead(head);
    if (!each([&lacking](const CsvRow& row) { lacking.add(row); })) return false;
    if (lacking.isEmpty()) return true;
    encoding = Csv::Encoding::Utf8;
    const QString counted =
        form.heads.isEmpty() ? u"ファイルの 1 行目から数えます"_qs : u"見出しの次の行を 1 行目として数えます"_qs;
    const QString question =
        u"Shift_JIS にない文字があります。UTF-8 で出力しますか？\n（行は、%1）\n\n"_qs.arg(counted);
    return ShowMessage(Message::Question, question + lacking.told()) == AnswerYes;
}

} // namespace

std::optional<WrittenFile> writeListFile(const ListFile& form, const EachListRow& each) {
    WrittenFile written;
    Csv::Encoding encoding = Csv::Encoding::Cp932;
    if (!askPath(written.path, form, encoding) || !settleEncoding(form, each, encoding)) return {};
    Csv::Writer file(written.path, encoding, form.separator);
    for (const QStringList& head : form.heads) file.line(head);
    const bool whole = each([&](const CsvRow& row) {
        file.line(row.fields);
        ++written.rows;
    });
    if (!whole) return {};
    file.commit();
    return written;
}

void exportCsv(const ListFile& file, const EachListRow& each, const std::function<qint64()>& counts) {
    if (const auto written = writeListFile(file, each))
        ShowMessage(Message::Information, formatThousands(counts ? counts() : written->rows) + u"件出力しました。"_qs);
}

void exportCsv(const QStringList& columns, const EachListRow& each) {
    ListFile file{columns};
    file.heads = {columns};
    exportCsv(file, each);
}
