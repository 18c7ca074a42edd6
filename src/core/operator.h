#pragma once

#include <QString>

namespace vendrix {

// The operator at the counter, as the core sees them: the core tells them
// things and asks yes/no questions through this interface only. The desktop
// program answers with message boxes; tests answer with a scripted fake.
class Operator {
public:
    virtual ~Operator() = default;

    virtual void inform(const QString &title, const QString &text) = 0;
    virtual void warn(const QString &title, const QString &text) = 0;
    virtual void error(const QString &title, const QString &text) = 0;
    // True for "Sí", false for "No".
    virtual bool ask(const QString &title, const QString &text) = 0;
};

// The status bar of the main window: indicator keywords (`impresora_on`,
// `bug_on`, `internet_off`, `ocupado_on`, ...) and the busy state.
class StatusSink {
public:
    virtual ~StatusSink() = default;

    virtual void actualizar_indicador(const QString &keyword) = 0;
    virtual void marcar_ocupado(bool busy) = 0;
};

// An operator for tools with no one to ask: it shows nothing and answers No.
class SilentOperator final : public Operator {
public:
    void inform(const QString &, const QString &) override {}
    void warn(const QString &, const QString &) override {}
    void error(const QString &, const QString &) override {}
    bool ask(const QString &, const QString &) override { return false; }
};

// A status sink for tools with no screen: it remembers the last state only.
class SilentStatus final : public StatusSink {
public:
    void actualizar_indicador(const QString &keyword) override { last_keyword = keyword; }
    void marcar_ocupado(bool busy) override { ocupado = busy; }

    QString last_keyword;
    bool ocupado = false;
};

} // namespace vendrix
