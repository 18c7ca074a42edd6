// The main of the widget test programs: they need one QApplication for the
// whole run, made before any test.
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    // Test discovery runs the program too, outside ctest's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
