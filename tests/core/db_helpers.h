#pragma once

#include "support/price_file.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix::test {

// Each row of a query, its fields joined with '|'.
inline QStringList filas(Database &db, const QString &sql, const QString &target = "internal",
                         const SqlParams &params = {})
{
    QStringList out;
    const Matrix m = db.execQ_matriz(sql, target, params);
    for (int r = 0; r < m.filas(); ++r)
        out << m.fila(r).join(QLatin1Char('|'));
    return out;
}

// A folder with the seed shop database as clientes.vdrx.
class ShopTest : public ::testing::Test {
protected:
    explicit ShopTest(bool failing = false) : app(failing)
    {
        app.copy_seed("clientes.install", "clientes.vdrx");
    }

    Database &db() { return app.db(); }
    QString q1(const QString &sql, const QString &target = "internal", const SqlParams &p = {})
    {
        return db().execQ1(sql, target, p);
    }
    bool nq(const QString &sql, const QString &target = "internal", const SqlParams &p = {})
    {
        return db().execNQ(sql, target, p);
    }
    QStringList filas(const QString &sql, const SqlParams &p = {})
    {
        return test::filas(db(), sql, "internal", p);
    }

    TestApp app;
};

} // namespace vendrix::test
