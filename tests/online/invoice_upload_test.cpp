#include "afip/transport/qt_http_client.h"
#include "online/invoice_upload.h"
#include "support/price_file.h"
#include "support/test_context.h"

#include <QCoreApplication>
#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// Plain HTTP on 127.0.0.1: keeps each whole request and answers it with
// `estado` and `respuesta`, then closes.
struct ServicioLocal {
    ServicioLocal()
    {
        QObject::connect(&servidor, &QTcpServer::pendingConnectionAvailable, [this] {
            QTcpSocket *socket = servidor.nextPendingConnection();
            ++conexiones;
            QObject::connect(socket, &QIODevice::readyRead, [this, socket] {
                pedido += socket->readAll();
                const qsizetype fin = pedido.indexOf("\r\n\r\n");
                const qsizetype largo = pedido.indexOf("Content-Length: ");
                if (fin < 0 || largo < 0 ||
                    pedido.size() <
                        fin + 4 +
                            pedido.mid(largo + 16, pedido.indexOf('\r', largo) - largo - 16).toLongLong())
                    return;
                socket->write("HTTP/1.1 " + QByteArray::number(estado) +
                              " X\r\nContent-Length: " + QByteArray::number(respuesta.size()) +
                              "\r\nConnection: close\r\n\r\n" + respuesta);
                socket->disconnectFromHost();
            });
        });
        servidor.listen(QHostAddress::LocalHost);
    }
    QString url() const { return QStringLiteral("http://127.0.0.1:%1").arg(servidor.serverPort()); }
    QByteArray cuerpo() const { return pedido.mid(pedido.indexOf("\r\n\r\n") + 4); }

    QTcpServer servidor;
    QByteArray pedido;
    int conexiones = 0;
    int estado = 200;
    QByteArray respuesta = "http://facturas.example/f/abc123.pdf\r\n";
};

class SubidaFactura : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char nombre[] = "test", *argv[] = {nombre};
        if (!QCoreApplication::instance())
            new QCoreApplication(argc, argv);
    }
    void SetUp() override
    {
        test::crear_archivo_de_precios(
            app.ruta(QStringLiteral("Vendrix.vdrxdb")),
            {"INSERT INTO xls_parametros (CLAVE, VALOR) VALUES ('CLIENTE', 'Ferretería El Sol')"});
        app.ctx().escribir_parametro(QStringLiteral("servicio_url"), servicio.url() + QStringLiteral("/"));
        QDir(app.carpeta()).mkdir(QStringLiteral("Facturas"));
        for (int i = 0; i < 256; ++i)
            bytes += char(i);
        app.write_file(QStringLiteral("Facturas/Factura_7.pdf"), bytes);
    }
    QString subir(bool conectado = true)
    {
        return subir_factura(app.ctx(), http, QStringLiteral("Factura_7.pdf"),
                             [conectado] { return conectado; });
    }

    test::TestApp app;
    ClienteHttpQt http{app.ctx(), std::chrono::seconds(10)};
    ServicioLocal servicio;
    QByteArray bytes;
};

TEST_F(SubidaFactura, SendsTheFileBytesUnchangedInTheMultipartBodyAndReturnsTheLink)
{
    EXPECT_EQ(subir(), QStringLiteral("http://facturas.example/f/abc123.pdf"));

    EXPECT_TRUE(servicio.pedido.startsWith(
        "POST /upload_factura.php?cliente=Ferreter%C3%ADa%20El%20Sol HTTP/1.1\r\n"))
        << servicio.pedido.left(120).toStdString();
    EXPECT_TRUE(servicio.pedido.contains("\r\nContent-Type: multipart/form-data; boundary=AaB03x\r\n"));
    EXPECT_EQ(servicio.cuerpo(),
              "--AaB03x\r\n"
              "Content-Disposition: form-data; name=\"uploadfile\"; filename=\"Factura_7.pdf\"\r\n"
              "Content-Type: text/xml\r\n"
              "\r\n" +
                  bytes + "\r\n--AaB03x--\r\n");
    EXPECT_TRUE(app.op.empty());
    EXPECT_TRUE(app.log_messages().contains(
        "Se subio el archivo Factura_7.pdfa la URL http://facturas.example/f/abc123.pdf."));
}

TEST_F(SubidaFactura, AFailedUploadTellsTheOperatorAndGivesError)
{
    const struct {
        int estado;
        QByteArray respuesta;
    } casos[] = {{500, "http://facturas.example/f/x.pdf"}, {200, "ERROR"}};
    for (const auto &caso : casos) {
        SCOPED_TRACE(caso.estado);
        app.op.clear();
        servicio.estado = caso.estado;
        servicio.respuesta = caso.respuesta;
        EXPECT_EQ(subir(), QStringLiteral("ERROR"));
        EXPECT_EQ(app.op.lines(),
                  QStringList{"error|Información no enviada|Se produjo un error y no se pudo enviar "
                              "la información al servidor. "});
        EXPECT_TRUE(app.log_messages().contains(
            "upload_factura error: No se pudo cargar el archio al FTP Factura_7.pdf."));
    }
}

TEST_F(SubidaFactura, NothingIsSentWithoutAServiceOrWithoutConnection)
{
    EXPECT_EQ(subir(false), QStringLiteral("ERROR"));
    EXPECT_EQ(app.op.lines(),
              QStringList{"error|Error al conectarse a Internet|Vendrix no puede conectarse a "
                          "Internet. Por favor conéctese a internet e inténtelo nuevamente"});

    app.op.clear();
    app.ctx().escribir_parametro(QStringLiteral("servicio_url"), QString());
    EXPECT_EQ(subir(), QStringLiteral("ERROR"));
    QCoreApplication::processEvents();
    EXPECT_EQ(servicio.conexiones, 0);
}

} // namespace
} // namespace vendrix
