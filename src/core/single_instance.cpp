#include "core/single_instance.h"

#include <QDir>
#include <QLockFile>

namespace vendrix {

InstanciaUnica::InstanciaUnica(const QString &folder)
    : lock_(std::make_unique<QLockFile>(QDir(folder).filePath(QLatin1String(kArchivo))))
{
    // A run lasts for hours: age alone must never make the lock stale. Only a
    // dead owner process does.
    lock_->setStaleLockTime(0);
}

InstanciaUnica::~InstanciaUnica() = default;

bool InstanciaUnica::adquirir()
{
    if (lock_->isLocked() || lock_->tryLock(0))
        return true;
    // A folder where the lock can't be written (read-only, say) says nothing
    // of another program; the checks that follow report that folder.
    return lock_->error() != QLockFile::LockFailedError;
}

} // namespace vendrix
