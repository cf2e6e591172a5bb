#include "operations/PriceRevision.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "base/clsProfile.h"
#include "db/Schema.h"
#include "db/clsSysSettingManager.h"
#include "master/MasterRepricing.h"
#include "operations/DatabaseCreation.h"
#include "price/PriceFiles.h"
#include "price/PriceImport.h"
#include "price/PriceTable.h"
#include "price/basPriceSelection.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

namespace {

const QString ending = u".db"_qs;
const QString emptyPrices = u"Kakaku_Org"_qs;
const QString ownRows = u"Kbetu"_qs;

QString pathOf(const QString& name) { return QDir(PriceRevision::folder()).filePath(PriceRevision::fileName(name)); }

void makeFolder() {
    if (QDir().mkpath(PriceRevision::folder())) return;
    ShowMessage(Message::Warning, u"フォルダの作成に失敗しました。"_qs);
}

bool isFile(const QString& path) { return QFileInfo(path).isFile(); }

void saveYear(const QString& year) {
    clsSysSetting setting;
    setting.No = QString::number(Setting::PriceYear);
    gSysSettingManager.GetData(Setting::PriceYear, setting);
    setting.SetValue = year;
    gSysSettingManager.SaveData(setting);
}

} // namespace

PriceRevision::PriceRevision(Connection& main, Tell tell, std::function<void()> pause)
    : m_main(main), m_tell(std::move(tell)), m_pause(std::move(pause)) {
    m_copies.Prepare(main);
    m_copies.onRows = m_pause;
}

QString PriceRevision::folder() { return QDir(programFolder()).filePath(u"kakaku"_qs); }

QString PriceRevision::fileName(const QString& year) { return year + ending; }

QStringList PriceRevision::keptYears() {
    QStringList years;
    for (const QString& file : QDir(folder()).entryList({u'*' + ending}, QDir::Files, QDir::Name)) {
        const QString name = file.chopped(ending.size());
        const bool fixed =
            name.compare(emptyPrices, Qt::CaseInsensitive) == 0 || name.compare(ownRows, Qt::CaseInsensitive) == 0;
        if (!fixed) years << name;
    }
    return years;
}

QStringList PriceRevision::filesIn(const QString& folder) {
    const clsProfile profile;
    QStringList files;
    for (const QString& table : Schema::priceTables()) {
        const QString name = profile.GetValue(u"Kakaku"_qs, PriceFiles::profileKey(table));
        files << (name.isEmpty() ? QString() : QDir(folder).filePath(name));
    }
    return files;
}

bool PriceRevision::isThere(const Request& request) {
    if (request.source == Request::KeptYear) {
        if (isFile(pathOf(request.from))) return true;
        ShowMessage(Message::Warning, u"指定された年度の価格データは保存されていません。"_qs);
        return false;
    }
    const QStringList files = filesIn(request.from);
    if (std::all_of(files.begin(), files.end(), isFile)) return true;
    ShowMessage(Message::Warning, u"指定されたフォルダに必要な価格改訂ファイルが存在しませんでした。"_qs);
    return false;
}

bool PriceRevision::isPossible(const Request& request) {
    if (!isThere(request)) return false;
    if (request.source == Request::KeptYear || !request.year.isEmpty()) return true;
    ShowMessage(Message::Warning, u"価格改訂データの[年度]を指定してください。"_qs);
    return false;
}

bool PriceRevision::run(const Request& request) {
    if (!mayReplaceYear(request)) return false;
    Transaction transaction(m_main);
    keepYearInForce();
    const QString year = request.source == Request::KeptYear ? request.from : request.year;
    if (!makeYear(request)) return false;
    if (request.source == Request::Files) importFiles(request);
    takeYear(year);
    if (request.source == Request::Files) m_copies.InsertKbtuTable();
    tellCounts();
    saveYear(year);
    followPrices(year);
    transaction.commit();
    gPriceYear = year;
    if (!m_complete) {
        ShowMessage(
            Message::Warning,
            u"更新処理中に該当するデータが存在しない。またはデータが複数存在しました。ログ内容をご確認ください。"_qs);
        if (gLogger) OpenWithShell(gLogger->FileNm());
    }
    return true;
}

// Asked ahead, so that no other machine waits for the answer. The year in force is kept whatever the answer is.
bool PriceRevision::mayReplaceYear(const Request& request) {
    if (request.source != Request::Files || !isFile(pathOf(request.year))) return true;
    {
        Transaction unwritten(m_main);
        keepYearInForce();
    }
    const QString file = fileName(request.year);
    return ShowMessage(Message::Question, file + u"は既に存在しています。上書きしてよろしいですか？"_qs) == AnswerYes;
}

// A price database starts as a copy of the empty one. It has its name when it is whole.
void PriceRevision::provide(const QString& name) {
    if (isFile(pathOf(name))) return;
    if (!isFile(pathOf(emptyPrices))) DatabaseCreation::createPrices(pathOf(emptyPrices));
    const QString unfinished = pathOf(name) + u".new"_qs;
    QFile::remove(unfinished);
    if (!QFile::copy(pathOf(emptyPrices), unfinished) || !QFile::rename(unfinished, pathOf(name)))
        throw AppError(u"価格データベースを作成できません。\n"_qs + pathOf(name), u"PriceRevision"_qs);
}

void PriceRevision::keepYearInForce() {
    if (gPriceYear.isEmpty())
        throw AppError(u"現在の価格の年度が設定されていません（システム設定 No.20）。"_qs, u"PriceRevision"_qs);
    makeFolder();
    provide(gPriceYear);
    provide(ownRows);
    m_copies.KDBOpen(folder(), fileName(gPriceYear));
    m_copies.BackupKTable();
    m_copies.KDBClose();
}

// False when the kept year went away in the meantime, which was told.
bool PriceRevision::makeYear(const Request& request) {
    if (request.source == Request::Files) {
        provide(request.year);
        return true;
    }
    if (isFile(pathOf(request.from))) return true;
    ShowMessage(Message::Warning,
                fileName(request.from) +
                    u"は既に削除されています。新たに価格改訂するか、切り替える年度を変更してください。"_qs);
    return false;
}

void PriceRevision::importFiles(const Request& request) {
    m_copies.KDBOpen(folder(), fileName(ownRows));
    m_copies.BackupKbtuTable();
    m_copies.KDBOpen(folder(), fileName(ownRows));
    m_copies.CopyKbtuTable();
    m_copies.KDBOpen(folder(), fileName(request.year));
    const auto close = qScopeGuard([this] { m_copies.KDBClose(); });
    m_copies.assertWritable(); // else each table would fail on its own, and the year would change without its prices
    const BoundPrices bound(m_copies.Connection(), m_main);
    const QStringList files = filesIn(request.from);
    for (qsizetype i = 0; i < files.size(); ++i) {
        PriceTable& table = priceTable(Schema::priceTables().at(i));
        const qint64 own = m_copies.TableCount(clsKDBManager::ownRowsTable(table.name()));
        importPriceFile(table, m_copies.Connection(), files.at(i), own, [&](qint64 done, qint64 all) {
            m_tell(static_cast<Part>(i), done, all);
            m_pause();
        });
    }
}

// Twice, as the tables have always been taken over.
void PriceRevision::takeYear(const QString& year) {
    m_copies.KDBOpen(folder(), fileName(year));
    m_copies.CopyKTable();
    m_copies.CopyKTable();
    m_copies.KDBClose();
}

void PriceRevision::tellCounts() {
    for (qsizetype i = 0; i < Schema::priceTables().size(); ++i) {
        const qint64 count = priceTable(Schema::priceTables().at(i)).rowCount();
        m_tell(static_cast<Part>(i), count, count);
    }
}

void PriceRevision::followPrices(const QString& year) {
    const auto telling = [this](Part part) {
        return [this, part](qint64 done, qint64 all) {
            m_tell(part, done, all);
            m_pause();
        };
    };
    guarded([&] { RebuildBaseElmtSelect(m_main, telling(Selection)); });
    m_complete = UpdateMasterEstimates(m_main, year, telling(Masters));
}
