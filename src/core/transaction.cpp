#include "core/database.h"

#include <sqlite3.h>

namespace vendrix {

// BEGIN IMMEDIATE takes the write lock at once, so a transaction that starts
// can finish: no other writer can slip in between its statements. Inside a
// transaction already open on the connection, a savepoint nests in it.
Transaction::Transaction(Database &db, const QString &target) : db_(db), target_(target)
{
    sqlite3 *conn = db_.conexion(target_);
    if (conn && !sqlite3_get_autocommit(conn))
        savepoint_ = QStringLiteral("vendrix_sp%1").arg(++db_.savepoints_);
    active_ = db_.execNQ(savepoint_.isEmpty() ? QStringLiteral("BEGIN IMMEDIATE")
                                              : QStringLiteral("SAVEPOINT ") + savepoint_,
                         target_);
}

Transaction::~Transaction()
{
    if (!active_)
        return;
    // An error such as a full disk may already have rolled the whole
    // transaction back; then there is nothing left to undo.
    sqlite3 *conn = db_.conexion(target_);
    if (!conn || sqlite3_get_autocommit(conn))
        return;
    if (savepoint_.isEmpty())
        db_.ejecutar_interno(QStringLiteral("ROLLBACK"), target_);
    else
        db_.ejecutar_interno(
            QStringLiteral("ROLLBACK TO ") + savepoint_ + QStringLiteral("; RELEASE ") + savepoint_, target_);
}

bool Transaction::commit()
{
    if (!active_)
        return false;
    if (!db_.execNQ(savepoint_.isEmpty() ? QStringLiteral("COMMIT") : QStringLiteral("RELEASE ") + savepoint_,
                    target_))
        return false; // still active: the destructor rolls back
    active_ = false;
    return true;
}

} // namespace vendrix
