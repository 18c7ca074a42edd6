#include "core/migrations.h"

#include "core/context.h"
#include "core/update_script.h"

#include <QFile>

#include <vector>

namespace vendrix {

namespace {

const QString kInternal = QStringLiteral("internal");

struct Sentencia {
    QString sql;
    SqlParams params = {};
};

// One statement alone, or several in one transaction so that a failure
// leaves nothing half made and the next run tries the whole update again.
bool ejecutar(Database &db, const QString &target, const std::vector<Sentencia> &statements)
{
    if (statements.size() == 1)
        return db.execNQ(statements.front().sql, target, statements.front().params);
    Transaction tx(db, target);
    if (!tx.activa())
        return false;
    for (const Sentencia &s : statements) {
        if (!db.execNQ(s.sql, target, s.params))
            return false;
    }
    return tx.commit();
}

bool agregar_columna(Context &ctx, const char *table, const char *column, const char *fill = nullptr)
{
    std::vector<Sentencia> statements{{QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 TEXT")
                                           .arg(QLatin1String(table), QLatin1String(column))}};
    if (fill)
        statements.push_back({QString::fromUtf8(fill)});
    return ejecutar(ctx.db(), kInternal, statements);
}

// The tables the program creates, in the types of SQLite.
const char *const kPedidos =
    "CREATE TABLE vendrix_pedidos (ID INTEGER PRIMARY KEY AUTOINCREMENT, Codigo TEXT, Marca TEXT, "
    "Descripcion TEXT, Grupo TEXT, Precio REAL, Proveedor TEXT, Fecha TEXT, Estado TEXT, Descuento REAL, "
    "Cantidad INTEGER, unidaddemedida TEXT)";
const char *const kUnidades = "CREATE TABLE vendrix_unidades_articulo (ID INTEGER PRIMARY KEY AUTOINCREMENT, "
                              "Codigo TEXT, Proveedor TEXT, Unidades REAL)";
// Its `Descripcion` came later, with its own update.
const char *const kTestigo = "CREATE TABLE vendrix_articulos_testigo (ID INTEGER PRIMARY KEY AUTOINCREMENT, "
                             "Codigo TEXT, Proveedor TEXT, Tipo TEXT, ID_Testigo REAL)";
const char *const kCamposDeLista =
    " (ID INTEGER PRIMARY KEY AUTOINCREMENT, Proveedor TEXT, FechaLista TEXT, Grupo TEXT, Codigo TEXT, "
    "Descripcion TEXT, Marca TEXT, UnidaddeMedida TEXT, Precio TEXT, Moneda TEXT, Observaciones TEXT)";
const char *const kDual = "CREATE TABLE [dual] (ID INTEGER PRIMARY KEY AUTOINCREMENT, dummy TEXT)";
const char *const kFormasDePago =
    "CREATE TABLE Vendrix_FormasDePago (ID INTEGER PRIMARY KEY AUTOINCREMENT, Forma_de_Pago TEXT, "
    "Descripcion TEXT, cantidad_cuotas INTEGER, Recargo REAL, ReadOnly INTEGER, Tipo TEXT)";
const char *const kDestinosDePago =
    "CREATE TABLE Vendrix_DestinosDePago (ID INTEGER PRIMARY KEY AUTOINCREMENT, Destino_de_Pago TEXT, "
    "Descripcion TEXT, Requiere_proveedor TEXT, ReadOnly INTEGER)";
const char *const kPagos =
    "CREATE TABLE Vendrix_Pagos (ID INTEGER PRIMARY KEY AUTOINCREMENT, TIPO TEXT, Proveedor TEXT, "
    "Medio_de_pago TEXT, Destino_de_pago TEXT, Pagado TEXT, Notas TEXT, Total_Pago TEXT, "
    "ID_Factura_pagos INTEGER, Fecha TEXT, Factura_neto INTEGER, Factura_iva INTEGER, "
    "Factura_Descuentos INTEGER, Factura_otrosImpuestos INTEGER, factura_letra TEXT, Factura_sucursal TEXT, "
    "factura_numero TEXT, proximo_vencimiento TEXT, Medio_de_pago_origen TEXT)";
// Vendrix's own: a copy of each open cart, one row a line, so that the
// carts come back after the program closes or dies. The cart's name and
// captions repeat on each of its rows; the cells keep their text.
const char *const kCarritosAbiertos =
    "CREATE TABLE vendrix_carritos_abiertos (Carrito INTEGER NOT NULL, Fila INTEGER NOT NULL, Nombre TEXT, "
    "Marca_guardado TEXT, Leyenda TEXT, Total TEXT, Cantidad TEXT, Articulo TEXT, Precio_unit TEXT, "
    "Importe TEXT, IVA TEXT, Codigo TEXT, Ganancia TEXT, Descuento TEXT, Descuento_cliente TEXT, Costo TEXT, "
    "Codigo_segun_proveedor TEXT, Grupo_segun_proveedor TEXT, Proveedor TEXT, PRIMARY KEY (Carrito, Fila))";
// Vendrix's own: the electronic invoices on their way to AFIP, one row a
// sale, so that an authorization is never lost. The sale's draft comes
// first, the request's class, point of sale, number, total and date just
// before it is sent, the CAE as soon as it arrives; the row goes when the
// sale is stored.
const char *const kCaePendientes =
    "CREATE TABLE vendrix_cae_pendientes (referencia TEXT PRIMARY KEY, documento TEXT, CbteTipo INTEGER, "
    "PtoVta INTEGER, CbteNro INTEGER, ImpTotal TEXT, CbteFch TEXT, CAE TEXT, CAEFchVto TEXT, creado TEXT)";

bool crear(Context &ctx, const char *ddl, const QString &target = kInternal)
{
    return ejecutar(ctx.db(), target, {{QString::fromUtf8(ddl)}});
}

// Both in one go; the probe looks for the last one.
bool crear_indices_pagos(Context &ctx)
{
    return ejecutar(
        ctx.db(), kInternal,
        {{QStringLiteral("CREATE INDEX IF NOT EXISTS idx_vendrix_pagos_factura ON "
                         "Vendrix_Pagos (ID_Factura_pagos)")},
         {QStringLiteral("CREATE INDEX IF NOT EXISTS idx_vendrix_pagos_fecha ON Vendrix_Pagos (Fecha)")}});
}

bool crear_formas_de_pago(Context &ctx)
{
    struct Forma {
        const char *forma, *descripcion;
        int read_only;
        const char *tipo;
    };
    static const Forma kFormas[] = {
        {"Efectivo", "Efectivo", 1, "Cobro y Pago"},
        {"Tarjeta de Débito", "Tarjeta de Débito", 1, "Cobro y Pago"},
        {"Tarjeta de Crédito", "Tarjeta de Crédito", 1, "Cobro y Pago"},
        {"MercadoPago", "MercadoPago", 0, "Cobro y Pago"},
        {"Cheques y valores", "Cheques, pagarés, etc.", 0, "Cobro y Pago"},
        {"Banco", "Transferencias bancarias", 0, "Cobro y Pago"},
        {"Ajustes", "Ajustes de saldos en Vendrix", 1, "Solo Pago"},
    };
    std::vector<Sentencia> statements{{QString::fromUtf8(kFormasDePago)}};
    for (const Forma &f : kFormas) {
        statements.push_back(
            {QStringLiteral("INSERT INTO Vendrix_FormasDePago (Forma_de_Pago, Descripcion, "
                            "cantidad_cuotas, Recargo, ReadOnly, Tipo) VALUES (?, ?, 1, 0, ?, ?)"),
             {QString::fromUtf8(f.forma), QString::fromUtf8(f.descripcion), f.read_only,
              QString::fromUtf8(f.tipo)}});
    }
    return ejecutar(ctx.db(), QStringLiteral("Internal"), statements);
}

bool crear_destinos_de_pago(Context &ctx)
{
    struct Destino {
        const char *destino, *descripcion, *requiere_proveedor;
        int read_only;
    };
    static const Destino kDestinos[] = {
        {"Compra de mercadería", "Compra de mercadería", "Si", 1},
        {"Gastos Varios", "Extraccion para gastos varios", "No", 0},
        {"Retiro de utilidades", "Retiro de utilidades", "No", 0},
        {"Honorarios", "Honorarios profesionales", "Si", 0},
        {"Sueldos y Jornales", "Sueldo y adelantos del personal", "No", 0},
        {"Alquileres", "Alquileres", "No", 0},
        {"Servicios", "Luz, Gas, Teléfono, Internet", "No", 0},
        {"Impuestos varios", "IIBB, Monotributo, IVA, etc.", "No", 0},
        {"Otros", "Destino de pago no categorizado", "No", 0},
    };
    std::vector<Sentencia> statements{{QString::fromUtf8(kDestinosDePago)}};
    for (const Destino &d : kDestinos) {
        statements.push_back(
            {QStringLiteral("INSERT INTO Vendrix_DestinosDePago (Destino_de_Pago, Descripcion, "
                            "Requiere_proveedor, ReadOnly) VALUES (?, ?, ?, ?)"),
             {QString::fromUtf8(d.destino), QString::fromUtf8(d.descripcion),
              QString::fromUtf8(d.requiere_proveedor), d.read_only}});
    }
    return ejecutar(ctx.db(), QStringLiteral("Internal"), statements);
}

bool crear_dual(Context &ctx)
{
    return ejecutar(
        ctx.db(), kInternal,
        {{QString::fromUtf8(kDual)}, {QStringLiteral("INSERT INTO [dual] (dummy) VALUES ('0')")}});
}

bool agregar_campos_factura_electronica(Context &ctx)
{
    std::vector<Sentencia> statements;
    for (const char *column :
         {"FE_CAE_numero", "FE_CAE_fechaEmision", "FE_CAE_fechaVencimiento", "FE_CAE_ID"})
        statements.push_back(
            {QStringLiteral("ALTER TABLE vendrix_facturas ADD COLUMN %1 TEXT").arg(QLatin1String(column))});
    return ejecutar(ctx.db(), kInternal, statements);
}

bool crear_update_bat(Context &ctx)
{
    if (escribir_update_bat(ctx.carpeta()))
        return true;
    ctx.escribir_log(QStringLiteral("No se pudo crear el archivo \"update.bat\" en ") + ctx.carpeta(),
                     QStringLiteral("E"));
    return false;
}

// What an update probes; it runs when the probe finds nothing.
enum class Sonda { tabla, campo, archivo, indice };

struct Migracion {
    const char *verifica; // null: no "Verifica" line
    Sonda sonda;
    const char *nombre; // table, index or file
    const char *campo;  // column, or the target word of a table or index probe
    bool (*accion)(Context &);
    const char *linea_accion; // null when the update logs a single line
    const char *linea_inicio;
};

const Migracion kMigraciones[] = {
    {"Verifica de la existencia de la tabla de pedidos", Sonda::tabla, "vendrix_pedidos", "internal",
     [](Context &c) { return crear(c, kPedidos); }, "Se creó la tabla de [vendrix_pedidos] ",
     "Tabla de pedidos creada"},
    {nullptr, Sonda::campo, "vendrix_descuentos", "articulo",
     [](Context &c) {
         return agregar_columna(
             c, "vendrix_descuentos", "Articulo",
             "UPDATE vendrix_descuentos SET Articulo='Todos los articulos del grupo' WHERE "
             "Grupo <> 'General para la lista'");
     },
     "Se creó agrego un campo a la tabla de [vendrix_descuentos] ",
     "Campo de articulos agregado a la tabla Vendrix_Descuentos"},
    {"Verifica de la existencia de la tabla de unidades por articulo", Sonda::tabla,
     "vendrix_unidades_articulo", "internal", [](Context &c) { return crear(c, kUnidades); },
     "Se creó la tabla de [vendrix_unidades_articulo] ", "Tabla de unidades por articulo creada"},
    {"Verifica de la existencia de la tabla de articulos testigo", Sonda::tabla, "vendrix_articulos_testigo",
     "internal", [](Context &c) { return crear(c, kTestigo); },
     "Se creó la tabla de [vendrix_articulos_testigo] ", "Tabla de articulos testigo creada"},
    // `External` reaches the shop database, where the update above has just
    // made sure of the table: the price file's old-prices table is never
    // made here, it comes with the price file.
    {"Verifica de la existencia de la tabla de articulos viejos testigo", Sonda::tabla,
     "vendrix_articulos_testigo", "External",
     [](Context &c) {
         return crear(c, QByteArray("CREATE TABLE xls_listas_viejos").append(kCamposDeLista).constData(),
                      QStringLiteral("external"));
     },
     "Se creó la tabla de [xls_listas_viejos] ", "Tabla de articulos viejos testigo creada"},
    {"Verifica de la existencia del campo descripcion en la tabla vendrix_articulos_testigo", Sonda::campo,
     "vendrix_articulos_testigo", "descripcion",
     [](Context &c) { return agregar_columna(c, "vendrix_articulos_testigo", "Descripcion"); }, nullptr,
     "Campo de 'descripcion' agregado a la tabla Vendrix_articulos_testigo"},
    {nullptr, Sonda::campo, "vendrix_clientes", "tipo",
     [](Context &c) {
         return agregar_columna(c, "vendrix_clientes", "tipo",
                                "UPDATE vendrix_clientes SET tipo='F - CONSUMIDOR FINAL'");
     },
     "Se creó agrego el campo TIPO a la tabla de [vendrix_clientes] ",
     "Campo de 'Tipo' agregado a la tabla Vendrix_clientes"},
    {"Verifica de la existencia de la tabla vendrix_listas_custom", Sonda::tabla, "vendrix_listas_custom",
     "Internal",
     [](Context &c) {
         return crear(c, QByteArray("CREATE TABLE vendrix_listas_custom").append(kCamposDeLista).constData(),
                      QStringLiteral("Internal"));
     },
     "Se creó la tabla de [vendrix_listas_custom] ", "Tabla vendrix_listas_custom creada"},
    {"Verifica de la existencia del archivo update.bat", Sonda::archivo, kUpdateScript, nullptr,
     crear_update_bat, nullptr, "Archivo \"update.bat\" creado"},
    {"Verifica de la existencia del campo nro_referencia en la tabla vendrix_facturas", Sonda::campo,
     "vendrix_facturas", "nro_referencia",
     [](Context &c) { return agregar_columna(c, "vendrix_facturas", "nro_referencia"); }, nullptr,
     "Campo de 'nro_referencia' agregado a la tabla vendrix_facturas"},
    {"Verifica de la existencia del campo Provincia en la tabla vendrix_facturas", Sonda::campo,
     "vendrix_facturas", "Provincia",
     [](Context &c) { return agregar_columna(c, "vendrix_facturas", "Provincia"); }, nullptr,
     "Campo de 'Provincia' agregado a la tabla vendrix_facturas"},
    {"Verifica de la existencia del campo FE_CAE_numero en la tabla vendrix_facturas", Sonda::campo,
     "vendrix_facturas", "FE_CAE_numero", agregar_campos_factura_electronica, nullptr,
     "se agregaron los campos necesarios para la factura electrónica en la tabla vendrix_facturas"},
    {"Verifica de la existencia de la tabla DUAL", Sonda::tabla, "dual", "internal", crear_dual,
     "Se creó la tabla de [DUAL] ", "Tabla DUAL creada"},
    {"Verifica de la existencia del campo TIPO_DOC en la tabla vendrix_facturas", Sonda::campo,
     "vendrix_facturas", "TIPO_DOC",
     [](Context &c) {
         return agregar_columna(c, "vendrix_facturas", "TIPO_DOC",
                                "UPDATE vendrix_facturas SET TIPO_DOC='CUIT'");
     },
     nullptr, "se agrego el campo TIPO_DOC en la tabla vendrix_facturas."},
    {"Verifica de la existencia del campo TIPO_DOC en la tabla vendrix_clientes", Sonda::campo,
     "vendrix_clientes", "TIPO_DOC",
     [](Context &c) {
         return agregar_columna(c, "vendrix_clientes", "TIPO_DOC",
                                "UPDATE vendrix_clientes SET TIPO_DOC='CUIT'");
     },
     nullptr, "se agrego el campo TIPO_DOC en la tabla vendrix_clientes."},
    {"Verifica de la existencia del campo TIPO_RECORD en la tabla vendrix_clientes", Sonda::campo,
     "vendrix_clientes", "Tipo_record",
     [](Context &c) {
         return agregar_columna(c, "vendrix_clientes", "TIPO_RECORD",
                                "UPDATE vendrix_clientes SET TIPO_RECORD='Cliente'");
     },
     nullptr, "se agrego el campo TIPO_RECORD en la tabla vendrix_clientes."},
    {"Verifica de la existencia del campo EMAIL en la tabla vendrix_clientes", Sonda::campo,
     "vendrix_clientes", "email", [](Context &c) { return agregar_columna(c, "vendrix_clientes", "EMAIL"); },
     nullptr, "se agrego el campo EMAIL en la tabla vendrix_clientes."},
    {"Verifica de la existencia del campo BORRABLE en la tabla vendrix_clientes", Sonda::campo,
     "vendrix_clientes", "borrable",
     [](Context &c) { return agregar_columna(c, "vendrix_clientes", "BORRABLE"); }, nullptr,
     "se agrego el campo BORRABLE en la tabla vendrix_clientes."},
    {"Verifica de la existencia del campo TELEFONO en la tabla vendrix_clientes", Sonda::campo,
     "vendrix_clientes", "telefono",
     [](Context &c) { return agregar_columna(c, "vendrix_clientes", "TELEFONO"); }, nullptr,
     "se agrego el campo TELEFONO en la tabla vendrix_clientes."},
    // The counts in the log lines of these two tables are the lines' own,
    // not the number of rows inserted.
    {"Verifica de la existencia de la tabla Vendrix_FormasDePago", Sonda::tabla, "Vendrix_FormasDePago",
     "Internal", crear_formas_de_pago,
     "Se creó la tabla de [Vendrix_FormasDePago] y se insertaron 4 valores de formas de pago ",
     "se agrego la tabla Vendrix_FormasDePago."},
    {"Verifica de la existencia del campo NOTAS en la tabla vendrix_facturas", Sonda::campo,
     "vendrix_facturas", "NOTAS", [](Context &c) { return agregar_columna(c, "vendrix_facturas", "NOTAS"); },
     nullptr, "se agrego el campo NOTAS en la tabla vendrix_facturas."},
    {"Verifica de la existencia del campo FDP_CC en la tabla vendrix_facturas", Sonda::campo,
     "vendrix_facturas", "FDP_CC",
     [](Context &c) { return agregar_columna(c, "vendrix_facturas", "FDP_CC"); }, nullptr,
     "se agrego el campo FDP_CC en la tabla vendrix_facturas."},
    {"Verifica de la existencia de la tabla Vendrix_DestinosDePago", Sonda::tabla, "Vendrix_DestinosDePago",
     "Internal", crear_destinos_de_pago,
     "Se creó la tabla de [Vendrix_DestinosDePago] y se inserto 2 valores de destino de pago ",
     "se agrego la tabla Vendrix_DestinosDePago."},
    {"Verifica de la existencia de la tabla Vendrix_Pagos", Sonda::tabla, "Vendrix_Pagos", "Internal",
     [](Context &c) { return crear(c, kPagos, QStringLiteral("Internal")); },
     "Se creó la tabla de [Vendrix_Pagos].", "se agrego la tabla Vendrix_Pagos."},
    // Vendrix's own updates go after the older ones.
    {"Verifica de la existencia de la tabla vendrix_carritos_abiertos", Sonda::tabla,
     "vendrix_carritos_abiertos", "internal", [](Context &c) { return crear(c, kCarritosAbiertos); },
     "Se creó la tabla de [vendrix_carritos_abiertos].", "se agrego la tabla vendrix_carritos_abiertos."},
    {"Verifica de la existencia de la tabla vendrix_cae_pendientes", Sonda::tabla, "vendrix_cae_pendientes",
     "internal", [](Context &c) { return crear(c, kCaePendientes); },
     "Se creó la tabla de [vendrix_cae_pendientes].", "se agrego la tabla vendrix_cae_pendientes."},
    // The ledger's list joins each debt with its payments and keeps to a
    // range of dates: without these it reads the whole table per row.
    {"Verifica de la existencia de los indices de la tabla Vendrix_Pagos", Sonda::indice,
     "idx_vendrix_pagos_fecha", "internal", crear_indices_pagos, nullptr,
     "Se crearon los indices de la tabla [Vendrix_Pagos]"},
};

bool existe(Context &ctx, const Migracion &m)
{
    switch (m.sonda) {
    case Sonda::tabla:
        return ctx.db().existe_tabla(QString::fromUtf8(m.nombre), QString::fromUtf8(m.campo));
    case Sonda::campo:
        return ctx.db().existe_campo(QString::fromUtf8(m.nombre), QString::fromUtf8(m.campo));
    case Sonda::indice:
        return ctx.db().execQ1(
                   QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'index' AND name = ?"),
                   QString::fromUtf8(m.campo), {QString::fromUtf8(m.nombre)}) != QLatin1String("0");
    case Sonda::archivo:
        return QFile::exists(ctx.ruta(QString::fromUtf8(m.nombre)));
    }
    return true;
}

} // namespace

ResultadoMigraciones ejecutar_migraciones(Context &ctx)
{
    const QString info = QStringLiteral("I");
    const QString action = QStringLiteral("A");
    ResultadoMigraciones result;
    for (const Migracion &m : kMigraciones) {
        if (m.verifica)
            ctx.escribir_log(QString::fromUtf8(m.verifica), info);
        if (existe(ctx, m))
            continue;
        const QString line = QString::fromUtf8(m.linea_inicio);
        // A failed action has shown and logged its error; its "created"
        // lines would not be true.
        if (!m.accion(ctx)) {
            result.fallidas << line;
            continue;
        }
        if (m.linea_accion)
            ctx.escribir_log(QString::fromUtf8(m.linea_accion), action);
        ctx.escribir_log(line, action);
        result.aplicadas << line;
    }
    return result;
}

} // namespace vendrix
