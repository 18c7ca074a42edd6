#include "catalogue/search/list_search.h"

#include "core/context.h"
#include "core/numeric.h"

#include <QElapsedTimer>

namespace vendrix {

namespace {

const QString kTitulo = QStringLiteral("Búsqueda de Artículos");

bool activo(const Context &ctx, const char *key)
{
    return ctx.leer_parametro(QLatin1String(key)) == QLatin1String("1");
}

// The number a setting starts with, as the earlier program read numbers
// from text: "12" and "12 filas" read 12, "" and "abc" read 0.
int numero_inicial(const QString &text)
{
    const QString trimmed = text.trimmed();
    qsizetype digits = 0;
    while (digits < trimmed.size() && trimmed.at(digits).isDigit() && trimmed.at(digits).unicode() < 128)
        ++digits;
    return digits == 0 ? 0 : trimmed.left(std::min<qsizetype>(digits, 9)).toInt();
}

// The statement line of a search, for the log at the "High" detail.
QString describir(const SearchQuery &c)
{
    const QString expression = expresion_indice(c.condicion);
    return QStringLiteral("Listas - SELECT rowid FROM xls_busqueda") +
           (expression.isEmpty()
                ? QString()
                : QStringLiteral(" WHERE xls_busqueda MATCH '") + expression + QLatin1Char('\'')) +
           QStringLiteral(" - límite ") + QString::number(c.limite) +
           (c.solo_favoritos ? QStringLiteral(" - solo favoritos") : QString()) +
           (c.comentario ? QStringLiteral(" - comentarios: ") + *c.comentario : QString());
}

} // namespace

QStringList columnas_listas()
{
    return {QStringLiteral("ID"),          QStringLiteral("Proveedor"), QStringLiteral("Rubro"),
            QStringLiteral("Descripción"), QStringLiteral("Moneda"),    QStringLiteral("Marca"),
            QStringLiteral("Precio")};
}

ListGridRow fila_articulo(const FoundArticle &a)
{
    return {{QString::number(a.id), a.proveedor, a.grupo, a.descripcion, a.moneda, a.marca,
             texto_numero(redondear(valor_texto(a.precio), 2))},
            a.marcas,
            false};
}

ListGridRow fila_marcador()
{
    const QString vendrix = QLatin1String(kMarcaVendrix);
    const QString dots = QStringLiteral("...");
    return {{vendrix, vendrix, dots, QStringLiteral("... Haga click aquí para ver mas resultados ..."), dots,
             dots, dots},
            {},
            true};
}

bool es_fila_marcador(const QStringList &celdas)
{
    const QString vendrix = QLatin1String(kMarcaVendrix);
    return celdas.value(0) == vendrix || celdas.value(1) == vendrix;
}

SearchOptions leer_opciones_busqueda(const Context &ctx)
{
    return {activo(ctx, "busqueda_ignorarPreposiciones"),
            activo(ctx, "busqueda_terminos_similares"),
            activo(ctx, "busqueda_ortografia"),
            activo(ctx, "busqueda_buscar_en_comentarios"),
            activo(ctx, "mostrar_solo_favoritos"),
            ctx.leer_parametro(QStringLiteral("busqueda_al_escribir")) != QLatin1String("0")};
}

QString texto_de_trabajo(const SearchOptions &opciones, const QString &texto)
{
    QString text = preparar_texto_busqueda(texto);
    if (opciones.ignorar_preposiciones)
        text = quitar_preposiciones(text);
    if (opciones.terminos_similares)
        text = terminos_similares(text);
    return text;
}

SearchQuery consulta_de_texto(const SearchOptions &opciones, const QString &texto_trabajo, int limite)
{
    SearchQuery c;
    c.condicion = opciones.ortografia ? filtro_ortografia(texto_trabajo, opciones.en_comentarios)
                                      : filtro_terminos(texto_trabajo);
    if (opciones.en_comentarios)
        c.comentario = texto_literal(texto_trabajo);
    c.solo_favoritos = opciones.solo_favoritos;
    c.limite = limite;
    return c;
}

int limite_busqueda(const Context &ctx, QString &boton)
{
    if (boton == QLatin1String(kBotonBuscar) && activo(ctx, "busqueda_cantidad_resultados")) {
        bool numeric = false;
        const int cap = ctx.leer_parametro(QStringLiteral("busqueda_cantidad_resultados_combo"))
                            .trimmed()
                            .toInt(&numeric);
        // A cap that isn't a whole number from 0, or one beyond the uncapped
        // limit, counts as no cap.
        if (numeric && cap >= 0 && cap < kLimiteTodos) {
            boton = QLatin1String(kBotonBuscarTodos);
            return cap + 1;
        }
    }
    boton = QLatin1String(kBotonBuscar);
    return kLimiteTodos;
}

bool pintar_resultado(const QueryResult &r, GridSink &grilla)
{
    grilla.limpiar();
    grilla.redibujar(false);
    for (const FoundArticle &a : r.articulos)
        grilla.agregar(fila_articulo(a));
    if (r.hay_mas)
        grilla.agregar(fila_marcador());
    grilla.redibujar(true);
    return r.hay_mas;
}

bool cargar_grilla_listas(Context &ctx, const SearchQuery &consulta, QString &boton, GridSink &grilla,
                          const ListActions &acciones, CatalogueSearcher *buscador)
{
    const QString price = QStringLiteral("external");
    ctx.estado().marcar_ocupado(true);
    const bool high = ctx.log().detalle_alto();
    if (high)
        ctx.escribir_log(describir(consulta), QStringLiteral("Q"));
    QElapsedTimer clock;
    clock.start();
    sqlite3 *db = ctx.db().conexion(price);
    QueryResult r;
    if (!db)
        r = {{}, false, false, ctx.db().error_apertura(price)};
    else
        r = buscador ? buscador->buscar(db, consulta) : ejecutar_consulta(db, consulta);
    if (high)
        ctx.escribir_log(QStringLiteral("Tiempo de ejecución de la query: ") +
                             QString::number(clock.elapsed() / 1000),
                         QStringLiteral("Q"));
    if (!r.ok) {
        pintar_resultado({}, grilla); // the grid left empty
        avisar_error_grilla(
            ctx, QStringLiteral("GRA01"),
            QStringLiteral("ER GRA01: Se produjo un error al cargar la información en la Grilla de "
                           "Artículos. Cierre Vendrix e intente nuevamente."),
            r.error, "cargar_grilla_listas");
        return false;
    }
    if (!pintar_resultado(r, grilla))
        boton = QLatin1String(kBotonBuscar);

    if (!r.articulos.empty() && acciones.mostrar_primera)
        acciones.mostrar_primera();
    // The cart hook: a single article found goes straight to the first cart.
    if (activo(ctx, "busqueda_agregar_automaticamente") && r.articulos.size() == 1 && !r.hay_mas &&
        acciones.carritos_marcados && acciones.carritos_marcados() && acciones.agregar_al_carrito &&
        acciones.agregar_al_carrito(fila_articulo(r.articulos.front()))) {
        ctx.escribir_log(QStringLiteral("Se agregó un artículo de la grilla automáticamente al carrito"),
                         QStringLiteral("A"));
    }
    ctx.estado().marcar_ocupado(false);
    return true;
}

QString rechazo_busqueda(const Context &ctx, const QString &texto)
{
    if (texto.isEmpty())
        return QStringLiteral("Por favor ingrese al menos un término en la búsqueda.");
    if (activo(ctx, "busqueda_limite_caracteres")) {
        const QString minimum = ctx.leer_parametro(QStringLiteral("busqueda_limite_caracteres_combo"));
        if (texto.size() < numero_inicial(minimum))
            return QStringLiteral("El texto a buscar es muy corto. Por favor ingrese un texto de más de ") +
                   minimum + QStringLiteral(" caracteres.");
    }
    return {};
}

SearchQuery consulta_listas(const Context &ctx, const QString &texto, QString &boton, QString *trabajo)
{
    const SearchOptions options = leer_opciones_busqueda(ctx);
    const QString work = texto_de_trabajo(options, texto);
    if (trabajo)
        *trabajo = work;
    return consulta_de_texto(options, work, limite_busqueda(ctx, boton));
}

std::optional<SearchQuery> consulta_al_escribir(const Context &ctx, const QString &texto)
{
    if (!leer_opciones_busqueda(ctx).al_escribir || !rechazo_busqueda(ctx, texto).isEmpty())
        return std::nullopt;
    QString caption = QLatin1String(kBotonBuscar);
    return consulta_listas(ctx, texto, caption);
}

SearchResult buscar_articulos(Context &ctx, const QString &texto, QString &boton, GridSink &grilla,
                              const ListActions &acciones, CatalogueSearcher *buscador)
{
    if (const QString why = rechazo_busqueda(ctx, texto); !why.isEmpty()) {
        ctx.op().inform(kTitulo, why);
        return SearchResult::rechazada;
    }
    if (acciones.limpiar_detalle)
        acciones.limpiar_detalle();
    QString work;
    const SearchQuery consulta = consulta_listas(ctx, texto, boton, &work);
    const bool ok = cargar_grilla_listas(ctx, consulta, boton, grilla, acciones, buscador);
    ctx.escribir_log(QStringLiteral("Listas - se busco el término: ") + work, QStringLiteral("A"));
    return ok ? SearchResult::hecha : SearchResult::fallida;
}

} // namespace vendrix
