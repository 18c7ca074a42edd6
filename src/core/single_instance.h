#pragma once

#include <QString>

#include <memory>

class QLockFile;

namespace vendrix {

// One running program per application folder: a lock file in the folder
// held for the whole run. The lock dies with its process, so a crash leaves
// no stale lock behind.
class InstanciaUnica {
public:
    static constexpr const char *kArchivo = "vendrix.lock";

    explicit InstanciaUnica(const QString &folder);
    ~InstanciaUnica();
    InstanciaUnica(const InstanciaUnica &) = delete;
    InstanciaUnica &operator=(const InstanciaUnica &) = delete;

    // False only while another program holds the lock.
    bool adquirir();

private:
    std::unique_ptr<QLockFile> lock_;
};

} // namespace vendrix
