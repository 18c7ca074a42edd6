#include "support/scripted_operator.h"

#include <gtest/gtest.h>

namespace vendrix::test {

bool ScriptedOperator::ask(const QString &title, const QString &text)
{
    shown.push_back({QStringLiteral("ask"), title, text});
    if (answers.empty()) {
        ADD_FAILURE() << "Unexpected question: " << title.toStdString() << " / " << text.toStdString();
        return false;
    }
    const bool yes = answers.front();
    answers.pop_front();
    return yes;
}

QStringList ScriptedOperator::lines() const
{
    QStringList out;
    for (const Shown &s : shown)
        out << s.kind + QLatin1Char('|') + s.title + QLatin1Char('|') + s.text;
    return out;
}

QStringList ScriptedOperator::texts() const
{
    QStringList out;
    for (const Shown &s : shown)
        out << s.text;
    return out;
}

} // namespace vendrix::test
