// The floor that bench/footprint compares with: a Qt application that does nothing.

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    return QApplication::exec();
}
