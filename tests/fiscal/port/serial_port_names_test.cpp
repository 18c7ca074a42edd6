#include "fiscal/port/serial_port_names.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(SerialPortNamesTest, SettingsNamesBecomeDevices)
{
    const std::pair<const char *, const char *> cases[] = {
        {"COM1", "/dev/ttyS0"},       {"com7", "/dev/ttyS6"},   {"ttyUSB0", "/dev/ttyUSB0"},
        {"/dev/pts/4", "/dev/pts/4"}, {" COM2 ", "/dev/ttyS1"}, {"", ""},
    };
    for (const auto &[puerto, ruta] : cases)
        EXPECT_EQ(ruta_puerto(puerto), ruta) << puerto;
}

TEST(SerialPortNamesTest, TheComboOffersCom1ToCom7First)
{
    const QStringList puertos = puertos_disponibles();
    EXPECT_EQ(puertos.mid(0, 7), QStringList({"COM1", "COM2", "COM3", "COM4", "COM5", "COM6", "COM7"}));
    EXPECT_EQ(puertos.count("COM1"), 1);
    EXPECT_FALSE(puertos.contains("ttyS0"));
}

} // namespace
} // namespace vendrix
