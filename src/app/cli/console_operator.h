#pragma once

#include "core/operator.h"

#include <QTextStream>

namespace vendrix::cli {

// The operator of the command-line tool: each message is printed as a line
// "MENSAJE<TAB>title<TAB>text" on standard output, and questions are answered
// "No" unless the tool was called with `--si`.
class ConsoleOperator final : public Operator {
public:
    explicit ConsoleOperator(bool answer_yes) : answer_yes_(answer_yes), out_(stdout) {}

    void inform(const QString &title, const QString &text) override { print(title, text); }
    void warn(const QString &title, const QString &text) override { print(title, text); }
    void error(const QString &title, const QString &text) override { print(title, text); }
    bool ask(const QString &title, const QString &text) override
    {
        print(title, text);
        return answer_yes_;
    }

private:
    void print(const QString &title, const QString &text)
    {
        QString flat = text;
        flat.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(QLatin1Char('\n'), QLatin1Char(' '));
        out_ << "MENSAJE\t" << title << '\t' << flat << '\n';
        out_.flush();
    }

    bool answer_yes_;
    QTextStream out_;
};

} // namespace vendrix::cli
