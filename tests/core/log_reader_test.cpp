#include "core/log.h"
#include "core/log_reader.h"
#include "support/test_context.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::TestApp;

const QString kFecha = QStringLiteral("23/11/2026 10:30:00");

FilaLog fila(const char *tipo, const QString &texto)
{
    return {kFecha, QLatin1String(tipo), texto};
}

TEST(LogReaderTest, ShowsTheCommaThatTheLogStoredAsDoubleSemicolon)
{
    TestApp app;
    app.log().escribir_log(QStringLiteral("Precio: 1,50, total 3,00"), QStringLiteral("I"));
    ASSERT_TRUE(app.read_file(QStringLiteral("vendrix.log")).contains("1;;50;; total 3;;00"));
    const auto rows = leer_filas_log(app.log().ruta_log(), kTodosLosNiveles);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0], fila("INFO", QStringLiteral("Precio: 1,50, total 3,00.")));
}

TEST(LogReaderTest, EveryLevelGetsItsViewerWord)
{
    TestApp app;
    for (const char *level : {"I", "E", "A", "Q", "P", "X", "T"})
        app.log().escribir_log(QLatin1String(level), QLatin1String(level));
    const std::vector<FilaLog> expected = {
        fila("INFO", QStringLiteral("I.")),   fila("ERROR", QStringLiteral("E.")),
        fila("ACTION", QStringLiteral("A.")), fila("SQL", QStringLiteral("Q.")),
        fila("SQL", QStringLiteral("P.")), // printer lines show as SQL
        fila("XML", QStringLiteral("X.")),
        // bare text has no level word and no row
    };
    EXPECT_EQ(leer_filas_log(app.log().ruta_log(), kTodosLosNiveles), expected);
}

TEST(LogReaderTest, EachCheckBoxFiltersItsLevel)
{
    const QString text = QStringLiteral("[d] [INF] - i.\r\n[d] [ERR] - e.\r\n[d] [ACT] - a.\r\n"
                                        "[d] [SQL] - q.\r\n[d] [PRN] - p.\r\n[d] [XML] - x.\r\n");
    const struct {
        FiltroLog box;
        const char *only;
    } cases[] = {
        {kFiltroInfo, "i."}, {kFiltroError, "e."},     {kFiltroAccion, "a."},
        {kFiltroSql, "q."},  {kFiltroImpresora, "p."}, {kFiltroXml, "x."},
    };
    for (const auto &c : cases) {
        FiltrosLog filtros{};
        filtros[c.box] = true;
        const auto rows = filas_log(text, filtros);
        ASSERT_EQ(rows.size(), 1u) << c.only;
        EXPECT_EQ(rows[0].texto, QLatin1String(c.only));

        FiltrosLog all_but = kTodosLosNiveles;
        all_but[c.box] = false;
        EXPECT_EQ(filas_log(text, all_but).size(), 5u) << c.only;
    }
    EXPECT_TRUE(filas_log(text, FiltrosLog{}).empty());
}

TEST(LogReaderTest, SkipsEmptyLinesAndLinesWithoutBracket)
{
    const QString text = QStringLiteral("\r\n"
                                        "texto sin cierre [INF - x\r\n"
                                        "\n"
                                        "[23/11/2026 10:30:00] [INF] - ok.\n"
                                        "[23/11/2026 10:30:00] [] - texto plano.\r\n"
                                        "resto de una linea");
    const std::vector<FilaLog> expected = {fila("INFO", QStringLiteral("ok."))};
    EXPECT_EQ(filas_log(text, kTodosLosNiveles), expected);
}

TEST(LogReaderTest, MessageQuotingAnotherLevelKeepsItsOwn)
{
    const auto rows = filas_log(QStringLiteral("[f] [ACT] - copia de [ERR] - algo."), kTodosLosNiveles);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0], (FilaLog{QStringLiteral("f"), QStringLiteral("ACTION"),
                                QStringLiteral("copia de [ERR] - algo.")}));
}

TEST(LogReaderTest, MissingLogGivesNoRowsAndZeroSize)
{
    TestApp app;
    EXPECT_TRUE(leer_filas_log(app.log().ruta_log(), kTodosLosNiveles).empty());
    EXPECT_EQ(titulo_marco_log(app.log().ruta_log()), QStringLiteral("Log (0 Bytes)"));
}

TEST(LogReaderTest, SizeCaptions)
{
    const struct {
        qint64 bytes;
        const char *text;
    } cases[] = {
        {0, "0 Bytes"},          {1, "1 Bytes"},          {1023, "1023 Bytes"}, {1024, "1,00 KB"},
        {1152, "1,13 KB"}, // 1.125 rounds half up
        {1536, "1,50 KB"},       {1048575, "1024,00 KB"}, {1048576, "1,00 MB"}, {1073741823, "1024,00 MB"},
        {1073741824, "1,00 GB"}, {5368709120, "5,00 GB"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(texto_tamano_log(c.bytes), QLatin1String(c.text)) << c.bytes;
}

TEST(LogReaderTest, FrameCaptionShowsTheFileSize)
{
    TestApp app;
    app.write_file(QStringLiteral("vendrix.log"), QByteArray(2048, 'x'));
    EXPECT_EQ(titulo_marco_log(app.log().ruta_log()), QStringLiteral("Log (2,00 KB)"));
}

TEST(LogReaderTest, XmlDetailIsMadeReadable)
{
    const FilaLog xml = fila("XML", QStringLiteral("<a><b>1</b>    <c>2</c> </a>"));
    EXPECT_EQ(detalle_log(xml), QStringLiteral("<a>\r\n<b>1</b>\r\n<c>2</c>\r\n</a>"));
    // Other rows show their text as it is.
    const FilaLog sql = fila("SQL", QStringLiteral("<a><b>  x"));
    EXPECT_EQ(detalle_log(sql), sql.texto);
}

TEST(LogReaderTest, SixPassesReduceLongRunsOfBlanks)
{
    EXPECT_EQ(
        detalle_log(fila("XML", QStringLiteral("a") + QString(64, QLatin1Char(' ')) + QStringLiteral("b"))),
        QStringLiteral("a b"));
    EXPECT_EQ(
        detalle_log(fila("XML", QStringLiteral("a") + QString(65, QLatin1Char(' ')) + QStringLiteral("b"))),
        QStringLiteral("a  b"));
}

TEST(LogReaderTest, ClearingDeletesTheLogLogsItAndTurnsTheIndicatorOff)
{
    TestApp app;
    app.log().escribir_log(QStringLiteral("ER algo"), QStringLiteral("E"));
    app.log().escribir_log(QStringLiteral("otra"), QStringLiteral("I"));

    EXPECT_TRUE(borrar_log(app.log(), app.status));
    EXPECT_EQ(app.log_lines(),
              QStringList{QStringLiteral(
                  "[23/11/2026 10:30:00] [ACT] - Configuración - Se Borro el log a pedido del usuario.")});
    EXPECT_EQ(app.status.keywords, (QStringList{QStringLiteral("bug_on"), QStringLiteral("bug_off")}));
}

} // namespace
} // namespace vendrix
