#include "core/log.h"
#include "core/log_reader.h"
#include "core/text_helpers.h"
#include "rows.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::TestApp;

FilaLog fila(const char *tipo, const QString &texto)
{
    return {"23/11/2026 10:30:00", tipo, texto};
}

TEST(LogTest, LineFormatByLevelWithTheClockInCrLfUtf8Lines)
{
    TestApp app;
    QByteArray expected;
    for (const QString &level : QString("I:INF P:PRN A:ACT Q:SQL X:XML E:ERR T:").split(' ')) {
        app.log().escribir_log("ñ", level.left(1));
        expected += "[23/11/2026 10:30:00] [" + level.mid(2).toUtf8() + "] - \xc3\xb1.\r\n";
    }
    app.clock.set(QDateTime(QDate(2027, 1, 5), QTime(7, 4, 9)));
    app.log().escribir_log("x", "I");
    EXPECT_EQ(app.read_file("vendrix.log"), expected + "[05/01/2027 07:04:09] [INF] - x.\r\n");
    // Only the error level lights the bug indicator.
    EXPECT_EQ(app.status.keywords, QStringList{"bug_on"});
}

TEST(LogTest, MessagesAreCleanedAndAnEmptyOneIsNotWritten)
{
    TestApp app;
    app.log().escribir_log(QString(), "E");
    EXPECT_FALSE(QFile::exists(app.ruta("vendrix.log")));
    EXPECT_TRUE(app.status.keywords.isEmpty());
    for (const char *message :
         {"a, b,c", "uno\r\ndos\r\n\r\ntres", "open pwd=Kum4rt;x=Kum4rt", "Kum4rt,\r\n1"})
        app.log().escribir_log(message, "I");
    EXPECT_EQ(app.log_messages(),
              QStringList({"a;; b;;c.", "unodostres.", "open pwd=[PASSWORD_VENDRIX];x=[PASSWORD_VENDRIX].",
                           "[PASSWORD_VENDRIX];;1."}));
}

TEST(LogTest, AFailedWriteIsSilent)
{
    TestApp app;
    // vendrix.log is a folder: nothing can be written, and nothing breaks.
    ASSERT_TRUE(QDir(app.carpeta()).mkdir("vendrix.log"));
    app.log().escribir_log("x", "E");
    app.log().iniciar_log("Inicio", "E");
    EXPECT_EQ(app.status.keywords, QStringList({"bug_on", "bug_on"}));
}

TEST(LogTest, RotationAt100000Bytes)
{
    // Whole lines of a previous run, padded to the exact size.
    const QByteArray line = "[22/11/2026 09:00:00] [INF] - linea anterior.\r\n";
    const QByteArray previous = line.repeated(Log::kRotateAtBytes / line.size()).leftJustified(99999, 'x');
    TestApp app;
    app.log().iniciar_log("Inicio de la aplicación Vendrix", "I");
    EXPECT_FALSE(QFile::exists(app.ruta("vendrix.log"))); // a missing log stays missing
    app.write_file("vendrix.log", previous);
    app.log().iniciar_log("Inicio de la aplicación Vendrix", "I");
    EXPECT_EQ(app.read_file("vendrix.log"), previous); // too small: the first line isn't written
    EXPECT_FALSE(QFile::exists(app.ruta("vendrix.old")));

    app.write_file("vendrix.log", previous + "x");
    app.write_file("vendrix.old", "una rotacion mas antigua\r\n");
    // The first line keeps its comma and the password: it is not cleaned.
    app.log().iniciar_log("Inicio de la aplicación Vendrix, clave Kum4rt", "I");
    app.log().escribir_log("Version: 1.0.0", "I");
    EXPECT_EQ(app.read_file("vendrix.old"), previous + "x");
    EXPECT_EQ(app.log_lines(), QStringList({"[23/11/2026 10:30:00] [INF] - Inicio de la aplicación Vendrix, "
                                            "clave Kum4rt.",
                                            "[23/11/2026 10:30:00] [INF] - Version: 1.0.0."}));
}

TEST(LogReaderTest, RowsGetTheirViewerWordAndShowTheStoredComma)
{
    TestApp app;
    for (const char *level : {"I", "E", "A", "Q", "P", "X", "T"})
        app.log().escribir_log(QString(level) + ", 1,50", level);
    // Printer lines show as SQL; bare text has no level word and no row.
    const std::vector<FilaLog> expected = {fila("INFO", "I, 1,50."),   fila("ERROR", "E, 1,50."),
                                           fila("ACTION", "A, 1,50."), fila("SQL", "Q, 1,50."),
                                           fila("SQL", "P, 1,50."),    fila("XML", "X, 1,50.")};
    EXPECT_EQ(leer_filas_log(app.log().ruta_log(), kTodosLosNiveles), expected);
    // Each check box shows its level alone.
    for (int box = kFiltroInfo; box <= kFiltroXml; ++box) {
        FiltrosLog filtros{};
        filtros[box] = true;
        EXPECT_EQ(leer_filas_log(app.log().ruta_log(), filtros), std::vector<FilaLog>{expected[box]}) << box;
    }
    // Lines without a level are skipped; a line quoting another level keeps its own.
    EXPECT_EQ(filas_log("\r\ntexto sin cierre [INF - x\r\n\n[f] [ACT] - copia de [ERR] - algo.\nresto",
                        kTodosLosNiveles),
              (std::vector<FilaLog>{{"f", "ACTION", "copia de [ERR] - algo."}}));
}

TEST(LogReaderTest, SizeCaptionsAndXmlSpaces)
{
    const Rows<qint64, const char *> cases = {{1023, "1023 Bytes"}, {1024, "1,00 KB"},
                                              {1152, "1,13 KB"},    {1048576, "1,00 MB"},
                                              {5000000, "4,77 MB"}, {5368709120, "5,00 GB"}};
    for (const auto &[bytes, text] : cases)
        EXPECT_EQ(tamano_archivo_texto(bytes), text) << bytes;
    // The layout of tags and of other rows is pinned by the log viewer's tests.
    EXPECT_EQ(detalle_log(fila("XML", "a" + QString(64, ' ') + "b")), "a b");
    EXPECT_EQ(detalle_log(fila("XML", "a" + QString(65, ' ') + "b")), "a  b");
}

} // namespace
} // namespace vendrix
