#pragma once

#include "core/single_instance.h"
#include "core/startup.h"

#include "support/price_file.h"
#include "support/test_context.h"

#include <QStringList>

#include <stdexcept>

namespace vendrix::test {

// A splash that records what the start-up showed on it, and can break at a
// chosen step the way a failing step would.
class SplashGrabado final : public ProgresoArranque {
public:
    void mostrar(int logo_index, const QString &version_label) override
    {
        logo = logo_index;
        version = version_label;
    }
    void avanzar() override { ++pasos; }
    void update_bar(const QString &step) override
    {
        ++pasos;
        captions << step;
        if (step == romper_en)
            throw std::runtime_error("falla simulada");
    }

    int logo = -1;
    QString version;
    int pasos = 0;
    QStringList captions;
    QString romper_en;
};

// A temporary application folder, its splash and its lock, ready to run the
// start-up.
struct Arranque {
    // With `failing`, the database layer fails on demand (TestApp(true)).
    explicit Arranque(bool failing = false) : app(failing), instancia(app.carpeta())
    {
        options.version = {2, 9, 9};
        options.sistema = {QStringLiteral("cajero"), false, QStringLiteral("Debian GNU/Linux 12 (bookworm)")};
    }

    // The seeds an installation ships: a price list with the given
    // parameters, the empty shop database and the invoice page.
    void instalar(const QString &cliente = QStringLiteral("Ferretería Sur"),
                  const QString &version = QStringLiteral("2.9.9"))
    {
        crear_archivo_de_precios(
            app.ruta(QStringLiteral("Vendrix.install")),
            {QStringLiteral("INSERT INTO xls_parametros VALUES ('CLIENTE', '%1'), ('VERSION', '%2'), "
                            "('FECHA', '20/11/2026')")
                 .arg(cliente, version),
             QStringLiteral("INSERT INTO xls_proveedores (Proveedor, Ult_Actualizacion) VALUES ('Acme', "
                            "'20/11/2026')")});
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.install"));
        app.write_file(QStringLiteral("factura.install"), "<html>factura</html>");
    }

    ResultadoArranque ejecutar() { return ejecutar_arranque(app.ctx(), splash, instancia, options); }

    TestApp app;
    SplashGrabado splash;
    InstanciaUnica instancia;
    OpcionesArranque options;
};

} // namespace vendrix::test
