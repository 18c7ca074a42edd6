// vendrix: the desktop program. `vendrix [--carpeta DIR] [archivo.vdrxdb]`
// runs the start-up behind the splash screen and then opens the main window
// on the application folder, the executable's own unless --carpeta names
// another. A `.vdrxdb` file (a double-clicked price list) is imported first.
#include "catalogue/search/index_at_startup.h"
#include "core/context.h"
#include "core/single_instance.h"
#include "core/startup.h"
#include "core/status_relay.h"
#include "screens/main_window/frm_main.h"
#include "screens/main_window/frm_splash.h"
#include "screens/main_window/qt_operator.h"

#include "vendrix_version.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>

using namespace vendrix;

namespace {

// With VENDRIX_SALIR_AL_MOSTRAR=1 the program prints one line once the main
// window has painted for the first time, and ends: how the time to a usable
// window is measured from outside.
class SalirAlMostrar final : public QObject {
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !visto_) {
            visto_ = true;
            // After the rest of this paint, children included.
            QTimer::singleShot(0, qApp, [] {
                std::fputs("vendrix: ventana principal mostrada\n", stdout);
                std::fflush(stdout);
                QCoreApplication::exit(0);
            });
        }
        return false;
    }

private:
    bool visto_ = false;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vendrix"));
    QApplication::setApplicationVersion(QStringLiteral(VENDRIX_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("vendrix"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Vendrix - listas de precios, ventas y facturación"));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption folder_option(
        QStringLiteral("carpeta"), QStringLiteral("Carpeta de la aplicación (por omisión, la del programa)."),
        QStringLiteral("DIR"));
    parser.addOption(folder_option);
    parser.addPositionalArgument(QStringLiteral("archivo"),
                                 QStringLiteral("Lista de precios .vdrxdb a importar."),
                                 QStringLiteral("[archivo]"));
    parser.process(app);
    const QString folder =
        parser.isSet(folder_option) ? parser.value(folder_option) : QCoreApplication::applicationDirPath();

    QtOperator op;
    StatusRelay status;
    SystemClock clock;
    Context ctx(folder, op, status, clock);
    InstanciaUnica instancia(ctx.carpeta());

    OpcionesArranque options;
    options.linea_de_comandos = parser.positionalArguments().join(QLatin1Char(' '));
    FrmSplash splash;
    const ResultadoArranque result = ejecutar_arranque(ctx, splash, instancia, options);
    if (!result.continuar)
        return 0;

    // A price file that arrived without the search index gets it now, while
    // the splash is still on screen.
    ctx.escribir_log(QStringLiteral("Verifica el índice de búsqueda de las listas"), QStringLiteral("I"));
    preparar_indice_busqueda(ctx);

    FrmMain main_window(ctx);
    main_window.setWindowTitle(result.titulo);
    status.conectar(&main_window);
    op.set_parent(&main_window);
    main_window.cargar();
    SalirAlMostrar salir;
    if (qEnvironmentVariable("VENDRIX_SALIR_AL_MOSTRAR") == QLatin1String("1"))
        main_window.installEventFilter(&salir);
    main_window.show();
    splash.close();
    const int code = QApplication::exec();
    status.conectar(nullptr);
    op.set_parent(nullptr);
    return code;
}
