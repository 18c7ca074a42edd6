#include "catalogue/search/search_terms.h"

#include "catalogue/search/search_index.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vendrix {

namespace {

const QChar kBlanco = QLatin1Char(' ');

// Splits at each blank, keeping the empty pieces between two blanks.
QStringList partir(const QString &text)
{
    return text.split(kBlanco, Qt::KeepEmptyParts);
}

bool termina_en(const QString &term, QLatin1String tail)
{
    return term.endsWith(tail, Qt::CaseInsensitive);
}

std::vector<QStringList> terminos_con(const QString &text, QStringList (*patrones)(const QString &term))
{
    std::vector<QStringList> terms;
    for (const QString &term : partir(text)) {
        if (!term.isEmpty())
            terms.push_back(patrones(term));
    }
    return terms;
}

QStringList solo_el_termino(const QString &term)
{
    return {texto_literal(term)};
}

// The term as typed, then what the work list added to it.
QStringList termino_y_variantes(const QString &term)
{
    QStringList texts{texto_literal(term)};
    const QStringList variants = variantes_ortografia(term);
    for (qsizetype i = 1; i < variants.size(); ++i)
        texts << texto_literal(variants.at(i));
    return texts;
}

} // namespace

QString preparar_texto_busqueda(const QString &text)
{
    QString escaped = text;
    escaped.replace(QLatin1String("'"), QLatin1String("''"));
    escaped.replace(QLatin1String("["), QLatin1String("[[]"));
    escaped.replace(QLatin1String("]"), QLatin1String("[]]"));
    escaped.replace(QLatin1String("%"), QLatin1String("[%]"));
    return escaped;
}

QString quitar_preposiciones(const QString &text)
{
    QString upper = plegar_texto(text);
    for (const char *word : {" DE ", " PARA ", " CON ", " / ", " \\ "})
        upper.replace(QLatin1String(word), QString(kBlanco));
    return upper;
}

QString terminos_similares(const QString &text)
{
    QString out;
    for (QString term : partir(text)) {
        if (term.size() > 3) {
            if (termina_en(term, QLatin1String("ES")))
                term.chop(2);
            else if (termina_en(term, QLatin1String("S")))
                term.chop(1);
        }
        out += term + kBlanco;
    }
    return out;
}

QStringList variantes_ortografia(const QString &term)
{
    static const std::array<std::pair<QLatin1String, QLatin1String>, 10> kCambios{{
        {QLatin1String("S"), QLatin1String("C")},
        {QLatin1String("S"), QLatin1String("Z")},
        {QLatin1String("C"), QLatin1String("S")},
        {QLatin1String("C"), QLatin1String("Z")},
        {QLatin1String("Z"), QLatin1String("S")},
        {QLatin1String("Z"), QLatin1String("C")},
        {QLatin1String("V"), QLatin1String("B")},
        {QLatin1String("B"), QLatin1String("V")},
        {QLatin1String("LL"), QLatin1String("Y")},
        {QLatin1String("Y"), QLatin1String("LL")},
    }};
    QStringList list{plegar_texto(term)};
    // The list grows while it is walked: index, not iterators.
    for (qsizetype i = 0; i < list.size(); ++i) {
        for (const auto &[from, to] : kCambios) {
            const QString item = list.at(i);
            QString changed = item;
            changed.replace(from, to);
            if (changed != item && !list.contains(changed))
                list << changed;
        }
    }
    return list;
}

QString texto_literal(const QString &trabajo)
{
    static const std::array<std::pair<QLatin1String, QChar>, 4> kEscapes{{
        {QLatin1String("''"), QLatin1Char('\'')},
        {QLatin1String("[[[]]"), QLatin1Char('[')},
        {QLatin1String("[]]"), QLatin1Char(']')},
        {QLatin1String("[%]"), QLatin1Char('%')},
    }};
    QString text;
    text.reserve(trabajo.size());
    for (qsizetype i = 0; i < trabajo.size(); ++i) {
        const QStringView rest = QStringView(trabajo).mid(i);
        const auto escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                         [rest](const auto &e) { return rest.startsWith(e.first); });
        if (escape == kEscapes.end()) {
            text += trabajo.at(i);
        } else {
            text += escape->second;
            i += escape->first.size() - 1;
        }
    }
    return text;
}

SearchCondition filtro_terminos(const QString &text)
{
    return {terminos_con(text, solo_el_termino), false};
}

SearchCondition filtro_ortografia(const QString &text, bool con_comentario)
{
    return {terminos_con(text, termino_y_variantes), con_comentario};
}

} // namespace vendrix
