#include "support/test_context.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix::test {

TestApp::TestApp(bool failing) : clock(QDateTime(QDate(2026, 11, 23), QTime(10, 30, 0))), folder_(dir_.path())
{
    Context::DatabaseFactory factory;
    if (failing) {
        factory = [](const QString &folder, Log &log, Operator &op, StatusSink &status) {
            return std::make_unique<FailingDatabase>(folder, log, op, status);
        };
    }
    ctx_ = std::make_unique<Context>(folder_, op, status, clock, factory);
}

void TestApp::write_file(const QString &file, const QByteArray &bytes) const
{
    QFile f(ruta(file));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

QByteArray TestApp::read_file(const QString &file) const
{
    QFile f(ruta(file));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QStringList TestApp::log_lines() const
{
    const QString text = QString::fromUtf8(read_file(QStringLiteral("vendrix.log")));
    QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString &line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    }
    return lines;
}

QStringList TestApp::log_messages() const
{
    QStringList out;
    for (const QString &line : log_lines()) {
        const int dash = line.indexOf(QLatin1String("] - "));
        out << (dash < 0 ? line : line.mid(dash + 4));
    }
    return out;
}

void TestApp::copy_seed(const QString &seed, const QString &as) const
{
    const QString from = QStringLiteral(VENDRIX_SEED_DIR) + QLatin1Char('/') + seed;
    QFile::remove(ruta(as));
    ASSERT_TRUE(QFile::copy(from, ruta(as))) << from.toStdString();
    QFile::setPermissions(ruta(as), QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace vendrix::test
