#include "screens/lists/live_search.h"

#include "core/sqlite_values.h"

#include <memory>

namespace vendrix::screens {

LiveSearch::LiveSearch(OpenConnection abrir, QObject *parent)
    : QObject(parent), abrir_(std::move(abrir)), hilo_([this] { trabajar(); })
{
}

LiveSearch::~LiveSearch()
{
    {
        const std::lock_guard lock(mutex_);
        parar_ = true;
        pendiente_.reset();
        abandonar_ = true;
    }
    cambio_.notify_one();
    hilo_.join();
    // Results the thread posted before it ended go with this object.
}

void LiveSearch::pedir(const SearchQuery &consulta, quint64 numero)
{
    {
        const std::lock_guard lock(mutex_);
        pendiente_ = Request{consulta, numero};
        abandonar_ = true;
    }
    cambio_.notify_one();
}

void LiveSearch::abandonar()
{
    const std::lock_guard lock(mutex_);
    pendiente_.reset();
    abandonar_ = true;
}

void LiveSearch::trabajar()
{
    // Both live on this thread only: the searcher keeps its statements on
    // this connection between searches.
    CatalogueSearcher buscador;
    ConexionPropia db;
    std::unique_lock lock(mutex_);
    for (;;) {
        cambio_.wait(lock, [this] { return parar_ || pendiente_.has_value(); });
        if (parar_)
            return;
        const Request request = std::move(*pendiente_);
        pendiente_.reset();
        // A request that comes from now on abandons this search.
        abandonar_ = false;
        lock.unlock();

        auto result = std::make_shared<QueryResult>();
        SqlError error;
        if (!db)
            db = abrir_(error);
        if (db)
            *result = buscador.buscar(db.get(), request.consulta, &abandonar_);
        else
            *result = {{}, false, false, error.texto()};
        // A search that a newer request or the owner gave up on is not wanted,
        // even when it got to its end.
        if (!result->abandonada && !abandonar_) {
            QMetaObject::invokeMethod(
                this, [this, numero = request.numero, result] { Q_EMIT terminada(numero, *result); },
                Qt::QueuedConnection);
        }
        lock.lock();
    }
}

} // namespace vendrix::screens
