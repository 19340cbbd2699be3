// Entry of the Rovanel program; the main window arrives with its own change.
#include <QApplication>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName("Rovanel");
    return 0;
}
