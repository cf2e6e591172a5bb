// What any program with a window needs to show it.
#include "QuitWhenShown.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QuitWhenShown quit;
    application.installEventFilter(&quit);
    QWidget window;
    window.resize(900, 600);
    window.show();
    return QApplication::exec();
}
