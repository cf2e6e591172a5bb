// What any program with a window needs to show it.
#include "TellWhenShown.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    TellWhenShown teller;
    application.installEventFilter(&teller);
    QWidget window;
    window.resize(900, 600);
    window.show();
    return QApplication::exec();
}
