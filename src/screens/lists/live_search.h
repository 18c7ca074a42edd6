#pragma once

// The search as the operator types: one thread with a connection of its own
// to the price file runs the newest search asked of it. A newer request
// abandons the running search, and requests still waiting are replaced, so
// at most one search runs and one waits. Each result comes back on the
// thread that owns this object, with the number its request was given.

#include "catalogue/search/catalogue_query.h"
#include "core/database.h"

#include <QObject>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace vendrix::screens {

class LiveSearch : public QObject {
    Q_OBJECT

public:
    // Opens the thread's connection, on the thread, at its first search;
    // null and why in the error when it can't.
    using OpenConnection = std::function<ConexionPropia(SqlError &error)>;

    explicit LiveSearch(OpenConnection abrir, QObject *parent = nullptr);
    // Abandons the running search and waits for the thread to end.
    ~LiveSearch() override;

    // Runs `consulta` after the running search, which is abandoned.
    void pedir(const SearchQuery &consulta, quint64 numero);
    // Drops the waiting request and abandons the running one.
    void abandonar();

Q_SIGNALS:
    // A search ran to its end (or failed: `resultado.ok` is false).
    // Abandoned searches say nothing.
    void terminada(quint64 numero, const vendrix::QueryResult &resultado);

private:
    struct Request {
        SearchQuery consulta;
        quint64 numero = 0;
    };

    void trabajar();

    OpenConnection abrir_;
    std::mutex mutex_;
    std::condition_variable cambio_;
    std::optional<Request> pendiente_;
    bool parar_ = false;
    // The running search stops when this turns true; reset as each starts.
    std::atomic<bool> abandonar_{false};
    std::thread hilo_;
};

} // namespace vendrix::screens
