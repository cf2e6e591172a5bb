#include "app/basMain.h"
#include "base/Application.h"
#include "base/Text.h"
#include "ui/DialogSeams.h"
#include "ui/Style.h"

#include <QApplication>

#include <cstdio>

namespace {

constexpr int commandLineError = 2;

constexpr char help[] = R"(使い方: halvane [オプション]

オプションなしで起動するとメインメニューを表示します。

  --version           バージョンを表示します。
  --help              この説明を表示します。
)";

int refuse(const QString& argument) {
    std::fprintf(stderr, "halvane: 不明なオプションです: %s\n「halvane --help」で使い方を表示します。\n",
                 qUtf8Printable(argument));
    return commandLineError;
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
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument == u"--help") return std::printf("%s", help) < 0;
        if (argument == u"--version") return std::printf("Halvane %s\n", qUtf8Printable(programVersion())) < 0;
        if (argument.startsWith(u"--")) return refuse(argument);
    }
    return runScreens(argc, argv);
}
