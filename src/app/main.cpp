#include "app/basMain.h"
#include "base/Application.h"
#include "base/AppError.h"
#include "base/Text.h"
#include "base/clsProfile.h"
#include "operations/DatabaseCreation.h"
#include "ui/DialogSeams.h"
#include "ui/Style.h"

#include <QApplication>

#include <cstdio>

namespace {

constexpr int commandLineError = 2;

constexpr char help[] = R"(使い方: halvane [オプション]

オプションなしで起動するとメインメニューを表示します。

  --create-database [--sample]
                      Halvane.ini の指すデータベースを新しく作ります。--sample を付けると
                      見本のデータを入れます。既にあるデータベースには触れません。
  --version           バージョンを表示します。
  --help              この説明を表示します。
)";

int refuse(const QString& argument) {
    std::fprintf(stderr, "halvane: 不明なオプションです: %s\n「halvane --help」で使い方を表示します。\n",
                 qUtf8Printable(argument));
    return commandLineError;
}

int createDatabase(int argc, char** argv, bool sample) {
    QCoreApplication application(argc, argv);
    try {
        using DatabaseCreation::Contents;
        DatabaseCreation::create(ConnectionSettings::fromProfile(clsProfile()),
                                 sample ? Contents::WithSample : Contents::Delivered,
                                 [](const QString& line) { std::printf("%s\n", qUtf8Printable(line)); });
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        std::fprintf(stderr, "halvane: %s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}

int runScreens(int argc, char** argv) {
    QApplication application(argc, argv);
    application.setApplicationName(u"Halvane"_qs);
    Text::assertConverters();
    Style::apply(application);
    fillSeamsWithDialogs();
    return Main() ? QApplication::exec() : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    bool create = false;
    bool sample = false;
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument == u"--create-database" || argument == u"--sample") {
            (argument == u"--sample" ? sample : create) = true;
            continue;
        }
        if (argument == u"--help") return std::printf("%s", help) < 0;
        if (argument == u"--version") return std::printf("Halvane %s\n", qUtf8Printable(programVersion())) < 0;
        if (argument.startsWith(u"--")) return refuse(argument);
    }
    if (sample && !create) return refuse(u"--sample"_qs);
    return create ? createDatabase(argc, argv, sample) : runScreens(argc, argv);
}
