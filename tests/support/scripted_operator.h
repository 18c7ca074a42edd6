#pragma once

#include "core/operator.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <vector>

namespace vendrix::test {

// One thing the core showed or asked the operator.
struct Shown {
    QString kind; // "inform", "warn", "error", "ask"
    QString title;
    QString text;
};

// An operator that records every message and answers questions from a
// script. A question with no answer left fails the test.
class ScriptedOperator final : public Operator {
public:
    void inform(const QString &t, const QString &x) override { shown.push_back({"inform", t, x}); }
    void warn(const QString &t, const QString &x) override { shown.push_back({"warn", t, x}); }
    void error(const QString &t, const QString &x) override { shown.push_back({"error", t, x}); }
    bool ask(const QString &title, const QString &text) override;

    // Queue the answers of the next questions, in order.
    void answer(bool yes) { answers.push_back(yes); }
    void answers_in_order(std::initializer_list<bool> list) { answers.insert(answers.end(), list); }

    // "kind|title|text" of each message, in order: handy for exact asserts.
    QStringList lines() const;
    // The texts alone.
    QStringList texts() const;
    bool empty() const { return shown.empty(); }
    void clear() { shown.clear(); }

    std::vector<Shown> shown;
    std::deque<bool> answers;
};

// A status bar that records every keyword and busy change.
class RecordingStatus final : public StatusSink {
public:
    void actualizar_indicador(const QString &keyword) override { keywords << keyword; }
    void marcar_ocupado(bool busy) override { busy_changes.push_back(busy); }

    QStringList keywords;
    std::vector<bool> busy_changes;
};

} // namespace vendrix::test
