#include "sales/tienda.h"

#include <QProcess>
#include <QThread>

#include <random>

namespace vendrix {
namespace {

class RegistroMatado : public test::Tienda {};

TEST_F(RegistroMatado, AfterEachKillEveryDocumentIsWholeAndTheFileSound)
{
    for (const char *a : {"IF_max_efectivo=9999", "IF_max_tarjeta=9999", "IF_Modelo=Sin impresora"})
        ajuste(QString(a).section('=', 0, 0).toUtf8(), QString(a).section('=', 1));
    std::mt19937 azar(15);
    QString documentos;
    for (int vez = 0; vez < 20; ++vez) {
        QProcess proceso;
        proceso.start(VENDRIX_KILLED_PROCESS, {app.carpeta()});
        ASSERT_TRUE(proceso.waitForStarted());
        QThread::msleep(std::uniform_int_distribution(60, 400)(azar));
        proceso.kill();
        proceso.waitForFinished();

        // A connection of its own, as at the next start: an interrupted
        // transaction is rolled back.
        Database db(app.carpeta(), app.log(), app.op, app.status);
        const QString tienda = QStringLiteral("cliente");
        EXPECT_EQ(db.execQ1("PRAGMA integrity_check", tienda), "ok") << vez;
        // Headers without their three lines, and lines without their header.
        EXPECT_EQ(db.execQ1("SELECT (SELECT count(*) FROM vendrix_facturas f WHERE (SELECT count(*) FROM "
                            "vendrix_factura_items WHERE Factura_Id = f.ID) <> 3) + count(*) FROM "
                            "vendrix_factura_items WHERE Factura_Id NOT IN (SELECT ID FROM vendrix_facturas)",
                            tienda),
                  "0")
            << vez;
        documentos = db.execQ1("SELECT count(*) FROM vendrix_facturas", tienda);
    }
    EXPECT_NE(documentos, "0");
}

} // namespace
} // namespace vendrix
