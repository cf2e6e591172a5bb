// The program's own start, up to its menu, in the program folder given as the first argument.
#include "TellWhenShown.h"

#include "app/basMain.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "ui/DialogSeams.h"
#include "ui/Style.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    TellWhenShown teller;
    application.installEventFilter(&teller);
    application.setApplicationName(u"Halvane"_qs);
    Text::assertConverters();
    Style::apply(application);
    fillSeamsWithDialogs();
    const QString folder = application.arguments().value(1);
    seams().programFolder = [folder] { return folder; };
    seams().message = [](const MessageBoxRequest& request) -> qint16 { qFatal("%s", qUtf8Printable(request.text)); };
    return Main() ? QApplication::exec() : EXIT_FAILURE;
}
