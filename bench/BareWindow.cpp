// The least a Qt widget program shows: one empty 800 x 600 window, the start-up every
// other program is measured against.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QWidget window;
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
