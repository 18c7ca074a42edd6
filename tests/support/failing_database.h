#pragma once

#include "core/database.h"

namespace vendrix::test {

// A database layer that fails the Nth statement from now (1 = the next one),
// or every statement whose SQL contains a given text.
class FailingDatabase final : public Database {
public:
    using Database::Database;

    void fail_nth(int n) { countdown_ = n; }
    void fail_matching(const QString &fragment) { fragment_ = fragment; }
    void heal() { countdown_ = 0; fragment_.clear(); }
    int statements_seen() const { return seen_; }

protected:
    bool antes_de_ejecutar(const QString &sql) override
    {
        ++seen_;
        if (!fragment_.isEmpty() && sql.contains(fragment_))
            return false;
        if (countdown_ > 0 && --countdown_ == 0)
            return false;
        return true;
    }

private:
    int countdown_ = 0;
    int seen_ = 0;
    QString fragment_;
};

} // namespace vendrix::test
