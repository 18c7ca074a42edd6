#include "core/log.h"
#include "support/test_context.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::TestApp;

const QString kLog = QStringLiteral("vendrix.log");
const QString kOld = QStringLiteral("vendrix.old");

QByteArray file_of_size(qint64 size)
{
    // Whole lines of a previous run, padded to the exact size.
    QByteArray bytes;
    const QByteArray line = QByteArrayLiteral("[22/11/2026 09:00:00] [INF] - linea anterior.\r\n");
    while (bytes.size() + line.size() <= size)
        bytes += line;
    bytes += QByteArray(size - bytes.size(), 'x');
    return bytes;
}

TEST(LogTest, LineFormatByLevel)
{
    TestApp app;
    const struct {
        const char *level;
        const char *line;
    } cases[] = {
        {"I", "[23/11/2026 10:30:00] [INF] - hola."}, {"P", "[23/11/2026 10:30:00] [PRN] - hola."},
        {"A", "[23/11/2026 10:30:00] [ACT] - hola."}, {"Q", "[23/11/2026 10:30:00] [SQL] - hola."},
        {"X", "[23/11/2026 10:30:00] [XML] - hola."}, {"E", "[23/11/2026 10:30:00] [ERR] - hola."},
        {"T", "[23/11/2026 10:30:00] [] - hola."},
    };
    QStringList expected;
    for (const auto &c : cases) {
        app.log().escribir_log(QStringLiteral("hola"), QLatin1String(c.level));
        expected << QLatin1String(c.line);
    }
    EXPECT_EQ(app.log_lines(), expected);
}

TEST(LogTest, DateAndTimeComeFromTheClockWithLeadingZeros)
{
    TestApp app;
    app.clock.set(QDateTime(QDate(2027, 1, 5), QTime(7, 4, 9)));
    app.log().escribir_log(QStringLiteral("x"), QStringLiteral("I"));
    EXPECT_EQ(app.log_lines(), QStringList{QStringLiteral("[05/01/2027 07:04:09] [INF] - x.")});
}

TEST(LogTest, LinesEndInCrLfAndAreUtf8)
{
    TestApp app;
    app.log().escribir_log(QStringLiteral("Configuración"), QStringLiteral("A"));
    app.log().escribir_log(QStringLiteral("ñ"), QStringLiteral("I"));
    EXPECT_EQ(app.read_file(kLog), QByteArrayLiteral("[23/11/2026 10:30:00] [ACT] - Configuraci\xc3\xb3n.\r\n"
                                                     "[23/11/2026 10:30:00] [INF] - \xc3\xb1.\r\n"));
}

TEST(LogTest, MessagesAreCleaned)
{
    TestApp app;
    const struct {
        QString message;
        QString stored;
    } cases[] = {
        {QStringLiteral("a, b,c"), QStringLiteral("a;; b;;c")},
        {QStringLiteral("uno\r\ndos\r\n\r\ntres"), QStringLiteral("unodostres")},
        {QStringLiteral("uno\ndos\rtres"), QStringLiteral("unodostres")},
        {QStringLiteral("open pwd=Kum4rt;x=Kum4rt"),
         QStringLiteral("open pwd=[PASSWORD_VENDRIX];x=[PASSWORD_VENDRIX]")},
        {QStringLiteral("kum4rt"), QStringLiteral("kum4rt")}, // the mask is exact, as the password is
        {QStringLiteral("Kum4rt,\r\n1"), QStringLiteral("[PASSWORD_VENDRIX];;1")},
    };
    QStringList expected;
    for (const auto &c : cases) {
        app.log().escribir_log(c.message, QStringLiteral("I"));
        expected << c.stored + QLatin1Char('.');
        EXPECT_EQ(Log::limpiar(c.message), c.stored);
    }
    EXPECT_EQ(app.log_messages(), expected);
}

TEST(LogTest, EmptyMessageLeavesTheFileUnchanged)
{
    TestApp app;
    app.log().escribir_log(QString(), QStringLiteral("I"));
    EXPECT_FALSE(QFile::exists(app.ruta(kLog)));

    app.log().escribir_log(QStringLiteral("uno"), QStringLiteral("I"));
    const QByteArray before = app.read_file(kLog);
    app.log().escribir_log(QString(), QStringLiteral("I"));
    app.log().escribir_log(QString(), QStringLiteral("E"));
    EXPECT_EQ(app.read_file(kLog), before);
    EXPECT_TRUE(app.status.keywords.isEmpty());
}

TEST(LogTest, ErrorLevelLightsTheBugIndicator)
{
    TestApp app;
    app.log().escribir_log(QStringLiteral("info"), QStringLiteral("I"));
    app.log().escribir_log(QStringLiteral("aviso"), QStringLiteral("A"));
    EXPECT_TRUE(app.status.keywords.isEmpty());
    app.log().escribir_log(QStringLiteral("ER EXECNQ - 1 fallo"), QStringLiteral("E"));
    EXPECT_EQ(app.status.keywords, QStringList{QStringLiteral("bug_on")});
}

TEST(LogTest, WriteFailureIsSilent)
{
    TestApp app;
    // vendrix.log is a folder: nothing can be written, and nothing breaks.
    ASSERT_TRUE(QDir(app.carpeta()).mkdir(kLog));
    app.log().escribir_log(QStringLiteral("x"), QStringLiteral("E"));
    app.log().iniciar_log(QStringLiteral("Inicio"), QStringLiteral("I"));
    EXPECT_EQ(app.status.keywords, QStringList{QStringLiteral("bug_on")});
}

TEST(LogTest, SmallLogIsNotRotatedAndTheFirstLineIsNotWritten)
{
    TestApp app;
    const QByteArray previous = file_of_size(Log::kRotateAtBytes - 1);
    ASSERT_EQ(previous.size(), 99999);
    app.write_file(kLog, previous);
    app.log().iniciar_log(QStringLiteral("Inicio de la aplicación Vendrix"), QStringLiteral("I"));
    EXPECT_EQ(app.read_file(kLog), previous);
    EXPECT_FALSE(QFile::exists(app.ruta(kOld)));
}

TEST(LogTest, MissingLogIsLeftMissingAtStart)
{
    TestApp app;
    app.log().iniciar_log(QStringLiteral("Inicio de la aplicación Vendrix"), QStringLiteral("I"));
    EXPECT_FALSE(QFile::exists(app.ruta(kLog)));
    EXPECT_FALSE(QFile::exists(app.ruta(kOld)));
}

TEST(LogTest, LogOf100000BytesRotatesIntoOld)
{
    TestApp app;
    const QByteArray previous = file_of_size(Log::kRotateAtBytes);
    app.write_file(kLog, previous);
    app.write_file(kOld, QByteArrayLiteral("una rotacion mas antigua\r\n"));

    // The first line keeps its comma and the password: it is not cleaned.
    app.log().iniciar_log(QStringLiteral("Inicio de la aplicación Vendrix, clave Kum4rt"),
                          QStringLiteral("I"));
    EXPECT_EQ(app.read_file(kOld), previous);
    EXPECT_EQ(app.log_lines(),
              QStringList{QStringLiteral(
                  "[23/11/2026 10:30:00] [INF] - Inicio de la aplicación Vendrix, clave Kum4rt.")});

    // What follows in the run is appended as usual.
    app.log().escribir_log(QStringLiteral("Version: 1.0.0"), QStringLiteral("I"));
    EXPECT_EQ(app.log_lines().size(), 2);
    EXPECT_EQ(app.read_file(kOld), previous);
}

TEST(LogTest, RotationWithErrorLevelLightsTheIndicator)
{
    TestApp app;
    app.log().iniciar_log(QStringLiteral("x"), QStringLiteral("E"));
    EXPECT_EQ(app.status.keywords, QStringList{QStringLiteral("bug_on")});
}

} // namespace
} // namespace vendrix
