#include "support/scripted_operator.h"

#include <gtest/gtest.h>

namespace vendrix::test {

void ScriptedOperator::inform(const QString &title, const QString &text)
{
    shown.push_back({QStringLiteral("inform"), title, text});
}

void ScriptedOperator::warn(const QString &title, const QString &text)
{
    shown.push_back({QStringLiteral("warn"), title, text});
}

void ScriptedOperator::error(const QString &title, const QString &text)
{
    shown.push_back({QStringLiteral("error"), title, text});
}

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

void ScriptedOperator::answers_in_order(std::initializer_list<bool> list)
{
    for (bool yes : list)
        answers.push_back(yes);
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
