#include "app/InstanceLock.h"
#include "app/OfficeFolder.h"
#include "app/basMain.h"
#include "base/AppError.h"
#include "base/Application.h"
#include "base/Arrangement.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "db/TableReference.h"
#include "operations/AutoBackup.h"
#include "operations/DatabaseCopy.h"
#include "operations/DatabaseCreation.h"
#include "operations/Restore.h"
#include "operations/screens/frmFirstStart.h"
#include "reports/engine/ReportFonts.h"
#include "ui/DialogSeams.h"
#include "ui/Style.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

namespace {

constexpr int commandLineError = 2;

constexpr char help[] = R"(使い方: halvane [--office フォルダー] [オプション]

オプションなしで起動するとメインメニューを表示します。

  --office フォルダー 事業所のフォルダー（Halvane.ini のある所）です。指定しなければ、プログラムの
                      フォルダー、端末にインストールされたものでは「ホーム/Halvane」です。
  --create-database [--sample]
                      Halvane.ini の指すデータベースを新しく作ります。--sample を付けると
                      見本のデータを入れます。既にあるデータベースには触れません。
  --copy-database 移行元.ini 移行先.ini
                      移行元の INI ファイルの指すデータベースの内容をすべて、移行先の INI
                      ファイルの指す新しいデータベースへ写します。終わりに、表ごとの行数と
                      金額の合計を両方について表示します。一致しなければ何も残しません。
  --backup            バックアップ先にバックアップを作り、内容を確かめます。開いている端末は
                      使い続けられます。自動で作ったものとして、古いものから整理します。
  --restore ファイル  バックアップを今のデータベースと入れ替えます。すべての端末の Halvane を
                      閉じてから実行します。今のものは -before-restore として残ります。
  --verify ファイル   バックアップを調べ、表ごとの行数と金額の合計を表示します。
  --table-reference   すべての表の説明を Markdown で出力します。
  --version           バージョンを表示します。
  --help              この説明を表示します。
)";

void print(const QString& line) {
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

void createDatabase(const QStringList& options) {
    using DatabaseCreation::Contents;
    const clsProfile profile;
    const bool withSample = !options.isEmpty();
    DatabaseCreation::create(ConnectionSettings::fromProfile(profile),
                             withSample ? Contents::WithSample : Contents::Delivered, print);
    if (withSample) DatabaseCreation::writeSampleHelp(profile);
}

void copyDatabase(const QStringList& profiles) {
    const auto comparisons = DatabaseCopy::copy(ConnectionSettings::fromProfile(clsProfile(profiles.at(0))),
                                                ConnectionSettings::fromProfile(clsProfile(profiles.at(1))),
                                                DatabaseCopy::Others::Wait, print);
    for (const QString& line : DatabaseCopy::report(comparisons)) print(line);
    print(u"移行が完了しました。"_qs);
}

void backUp() {
    print(QDir::toNativeSeparators(AutoBackup::make()));
    print(u"バックアップしました。"_qs);
}

void tellAge(const Backup::Proof& proof) {
    if (proof.isOlder())
        print(u"古いバージョン（%1）のものです。リストアの後、次の起動のときに新しい形に直されます。"_qs.arg(
            proof.version));
}

void restore(const QString& file) {
    InstanceLock lock;
    if (!lock.take()) throw AppError(u"Halvaneは既に起動されています！"_qs, u"Halvane"_qs);
    tellAge(Restore::run(ConnectionSettings::fromProfile(clsProfile()), file));
    print(u"リストアしました。"_qs);
}

void verify(const QString& file) {
    const Backup::Proof proof = Backup::prove(file);
    for (const QString& line : proof.report()) print(line);
    tellAge(proof);
    print(u"このバックアップは使えます。"_qs);
}

using Command = std::function<void()>;

// What a command line without windows asks for; nothing when it is not one that the program knows.
std::optional<Command> commandOf(const QStringList& words) {
    const QString name = words.value(0);
    const QStringList rest = words.mid(1);
    if (name == u"--create-database" && (rest.isEmpty() || rest == QStringList(u"--sample"_qs)))
        return [rest] { createDatabase(rest); };
    if (name == u"--copy-database" && rest.size() == 2) return [rest] { copyDatabase(rest); };
    if (name == u"--restore" && rest.size() == 1) return [rest] { restore(rest.first()); };
    if (name == u"--verify" && rest.size() == 1) return [rest] { verify(rest.first()); };
    if (!rest.isEmpty()) return std::nullopt;
    if (name == u"--backup") return backUp;
    if (name == u"--table-reference") return [] { std::printf("%s", qUtf8Printable(tableReference())); };
    if (name == u"--version") return [] { print(u"Halvane "_qs + programVersion()); };
    if (name == u"--help") return [] { std::printf("%s", help); };
    return std::nullopt;
}

int refuse(const QStringList& words) {
    std::fprintf(stderr, "halvane: オプションが正しくありません: %s\n「halvane --help」で使い方を表示します。\n",
                 qUtf8Printable(words.join(u' ')));
    return commandLineError;
}

int failed(const AppError& error) {
    std::fprintf(stderr, "halvane: %s\n", qUtf8Printable(error.description()));
    return EXIT_FAILURE;
}

int runCommand(const Command& command) {
    try {
        command();
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        return failed(error);
    }
}

void workIn(const QString& folder) {
    seams().programFolder = [folder] { return folder; };
}

// An office that is not set up yet is set up first, or left for a look at the sample. False when the operator left.
bool settleOffice(const OfficeFolder& office) {
    workIn(office.path);
    if (office.isSetUp()) return true;
    frmFirstStart start(office.path, office.sample().path);
    if (start.exec() != QDialog::Accepted) return false;
    workIn(start.chosenFolder());
    return true;
}

// An office that cannot be found is told by `Main`.
void keepArrangement() {
    try {
        const ConnectionSettings office = ConnectionSettings::fromProfile(clsProfile());
        Arrangement::keepIn(Arrangement::machineFile(office.description()));
    } catch (const AppError&) {
    }
}

void equip(QApplication& application) {
    application.setApplicationName(u"Halvane"_qs);
    application.setWindowIcon(QIcon(u":/icons/halvane.png"_qs));
    QGuiApplication::setDesktopFileName(u"halvane"_qs); // so that a desktop knows whose windows these are
    Style::apply(application);
    fillSeamsWithDialogs();
    Text::assertConverters();
    assertPaperFonts();
}

int runScreens(QApplication& application, const OfficeFolder& office) {
    if (!guarded([&] { equip(application); })) return EXIT_FAILURE;
    if (const QString notice = standInNotice(QFontDatabase::families()); !notice.isEmpty())
        ShowMessage(Message::Information, notice);
    if (!settleOffice(office)) return EXIT_SUCCESS;
    keepArrangement();
    return Main() ? QApplication::exec() : EXIT_FAILURE;
}

// Windows are for a command line that asks for nothing else.
int run(int argc, char** argv, QStringList& words) {
    const bool commanded =
        words.value(0) == u"--office" ? words.value(2).startsWith(u"--"_qs) : words.value(0).startsWith(u"--"_qs);
    const std::unique_ptr<QCoreApplication> application(commanded ? new QCoreApplication(argc, argv)
                                                                  : new QApplication(argc, argv));
    const OfficeFolder office = OfficeFolder::of(words);
    if (auto* screens = qobject_cast<QApplication*>(application.get())) return runScreens(*screens, office);
    const auto command = commandOf(words);
    if (!command) return refuse(words);
    workIn(office.path);
    return runCommand(*command);
}

} // namespace

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i) words << QString::fromLocal8Bit(argv[i]);
    try {
        return run(argc, argv, words);
    } catch (const AppError& error) {
        return failed(error);
    }
}
