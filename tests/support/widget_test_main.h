#pragma once

// The main of the widget test programs: they need one QApplication for the
// whole run, made before any test. Header-only, so that the support library
// itself doesn't link the widgets.
#include <QApplication>

#include <gtest/gtest.h>

namespace vendrix::test {

inline int ejecutar_pruebas_con_ventanas(int argc, char **argv)
{
    // Test discovery runs the program too, outside ctest's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

} // namespace vendrix::test
