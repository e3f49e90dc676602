// Test entry of a suite that draws: QPdfWriter and fonts need a GUI
// application object. Offscreen unless told otherwise, so that listing the
// tests works without a display too.
#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
