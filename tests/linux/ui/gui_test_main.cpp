#include <gmock/gmock.h>

#include <QApplication>
#include <QFont>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QFont font = QApplication::font();
    font.setPixelSize(13); // at which the measures of the windows hold
    QApplication::setFont(font);
    return RUN_ALL_TESTS();
}
