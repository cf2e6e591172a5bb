#include "app/basMain.h"
#include "base/AppError.h"
#include "base/Application.h"
#include "base/Text.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "db/TableReference.h"
#include "operations/DatabaseCopy.h"
#include "operations/DatabaseCreation.h"
#include "reports/engine/ReportFonts.h"
#include "ui/DialogSeams.h"
#include "ui/Style.h"

#include <QApplication>
#include <QFontDatabase>

#include <cstdio>
#include <functional>
#include <optional>

namespace {

constexpr int commandLineError = 2;

constexpr char help[] = R"(使い方: halvane [オプション]

オプションなしで起動するとメインメニューを表示します。

  --create-database [--sample]
                      Halvane.ini の指すデータベースを新しく作ります。--sample を付けると
                      見本のデータを入れます。既にあるデータベースには触れません。
  --copy-database 移行元.ini 移行先.ini
                      移行元の INI ファイルの指すデータベースの内容をすべて、移行先の INI
                      ファイルの指す新しいデータベースへ写します。終わりに、表ごとの行数と
                      金額の合計を両方について表示します。一致しなければ何も残しません。
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
                                                ConnectionSettings::fromProfile(clsProfile(profiles.at(1))), print);
    for (const QString& line : DatabaseCopy::report(comparisons)) print(line);
    print(u"移行が完了しました。"_qs);
}

using Command = std::function<void()>;

// What a command line without windows asks for; nothing when it is not one that the program knows.
std::optional<Command> commandOf(const QStringList& words) {
    const QString name = words.value(0);
    const QStringList rest = words.mid(1);
    if (name == u"--create-database" && (rest.isEmpty() || rest == QStringList(u"--sample"_qs)))
        return [rest] { createDatabase(rest); };
    if (name == u"--copy-database" && rest.size() == 2) return [rest] { copyDatabase(rest); };
    if (!rest.isEmpty()) return std::nullopt;
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

int runCommand(int argc, char** argv, const Command& command) {
    QCoreApplication application(argc, argv);
    try {
        command();
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        std::fprintf(stderr, "halvane: %s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}

int runScreens(int argc, char** argv) {
    QApplication application(argc, argv);
    application.setApplicationName(u"Halvane"_qs);
    Style::apply(application);
    fillSeamsWithDialogs();
    const bool equipped = guarded([] {
        Text::assertConverters();
        assertPaperFonts();
    });
    if (!equipped) return EXIT_FAILURE;
    if (const QString notice = standInNotice(QFontDatabase::families()); !notice.isEmpty())
        ShowMessage(Message::Information, notice);
    return Main() ? QApplication::exec() : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i) words << QString::fromLocal8Bit(argv[i]);
    if (!words.value(0).startsWith(u"--")) return runScreens(argc, argv);
    const auto command = commandOf(words);
    return command ? runCommand(argc, argv, *command) : refuse(words);
}
