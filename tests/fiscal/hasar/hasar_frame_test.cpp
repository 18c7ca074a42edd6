#include "fiscal/hasar/hasar_frame.h"
#include "fiscal/hasar/hasar_models.h"

#include <gtest/gtest.h>

namespace vendrix::hasar {
namespace {

struct FrameCase {
    Frame frame;
    QByteArray bytes;
};

TEST(HasarFrameTest, PacketsWithTheirSumOfEveryByteFromStxToEtx)
{
    const FrameCase cases[] = {
        // Status request: 02+20+2A+03 = 4F.
        {{0x20, "\x2a", {}},
         QByteArray("\x02\x20\x2a\x03"
                    "004F")},
        // Daily close Z: 02+22+39+1C+5A+03 = D6.
        {{0x22, "\x39", {"Z"}},
         QByteArray("\x02\x22\x39\x1c"
                    "Z\x03"
                    "00D6")},
        // Two-byte command (ESC 7F): 02+7E+1B+7F+03 = 11D, hex digits upper case.
        {{0x7e, "\x1b\x7f", {}},
         QByteArray("\x02\x7e\x1b\x7f\x03"
                    "011D")},
        // Bytes above 127 count unsigned (A0 is an accented a); empty fields keep their separators.
        {{0x20, "\x41", {"\xa0", ""}},
         QByteArray("\x02\x20\x41\x1c\xa0\x1c\x03"
                    "013E")},
    };
    for (const FrameCase &c : cases) {
        EXPECT_EQ(codificar(c.frame), c.bytes);
        const std::optional<Frame> back = decodificar(c.bytes);
        ASSERT_TRUE(back) << c.bytes.toHex().toStdString();
        EXPECT_EQ(back->sn, c.frame.sn);
        EXPECT_EQ(back->comando, c.frame.comando);
        EXPECT_EQ(back->campos, c.frame.campos);
    }
    // Lower-case digits are read as well.
    EXPECT_TRUE(decodificar(QByteArray("\x02\x7e\x1b\x7f\x03"
                                       "011d")));
}

TEST(HasarFrameTest, DamagedPacketsAreRefused)
{
    for (const QByteArray &bytes : {
             QByteArray("\x02\x20\x2a\x03"
                        "004E"), // wrong sum
             QByteArray("\x02\x20\x2a\x03"
                        "004"), // sum cut short
             QByteArray("\x20\x2a\x03"
                        "004D"), // no STX
             QByteArray("\x02\x20\x2a"
                        "004F"), // no ETX
             QByteArray("\x02\x20\x2a\x41\x03"
                        "0090"), // data without a separator
         })
        EXPECT_FALSE(decodificar(bytes)) << bytes.toHex().toStdString();
}

TEST(HasarFrameTest, SequenceNumbersAreTheEvenOnesFrom20To7EInARing)
{
    EXPECT_EQ(siguiente_sn(0x20), 0x22);
    EXPECT_EQ(siguiente_sn(0x7c), 0x7e);
    EXPECT_EQ(siguiente_sn(0x7e), 0x20);
}

TEST(HasarModelsTest, VersionTextsNameTheirModelAndUnknownNumbersAreIndeterminate)
{
    EXPECT_EQ(modelo_de_version("SMH/P-715F - Version 2.01"), 9);
    EXPECT_EQ(modelo_de_version("SMH/P-PR5F - Version 1.00"), 10);
    // "P-320F" is not "P-20F".
    EXPECT_EQ(modelo_de_version("SMH/P-320F - Version 1.00"), 8);
    EXPECT_EQ(modelo_de_version("version desconocida"), 0);
    EXPECT_EQ(nombre_modelo(40), "P-715F");
    EXPECT_EQ(nombre_modelo(0), "Indeterminado");
    EXPECT_EQ(nombre_modelo(42), "Indeterminado");
}

} // namespace
} // namespace vendrix::hasar
