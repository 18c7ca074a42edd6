#pragma once

// The text of a catalogue search, from what the operator typed to the terms
// every article is tested against.
//
// The text goes through the steps the search always took, in this order:
// `preparar_texto_busqueda` (the escape of a LIKE pattern), then, as the
// options say, `quitar_preposiciones` and `terminos_similares`, then
// `filtro_terminos` or `filtro_ortografia`, which split it into terms. The
// text keeps the form of an SQL string literal all along (a quote is
// doubled): the option steps count characters of that form, so "''ES" is a
// four-letter word that loses its "ES". `patron_de_literal` gives the value
// the literal stands for, which is the LIKE pattern.
//
// A pattern is matched the way the earlier database engine matched LIKE
// patterns: `%` is any run of characters, `_` any one character, `[...]` one
// character of the group ("[%]" a percent sign, "[[]" an opening bracket),
// `[]` nothing at all; see `LikePattern`.

#include <QString>
#include <QStringList>

#include <vector>

namespace vendrix {

// Escapes the text for a LIKE pattern, in this order: `'` to `''`, `[` to
// `[[]`, `]` to `[]]`, `%` to `[%]`. `_` is not escaped: it stays the
// wildcard of one character. The order matters: the `]` of "[[]" is escaped
// again, so "[" becomes "[[[]]", a pattern that matches "[]".
QString preparar_texto_busqueda(const QString &text);

// Upper case, then each " DE ", " PARA ", " CON ", " / ", " \ " becomes one
// blank, in this order. A preposition at the very start or end stays.
QString quitar_preposiciones(const QString &text);

// Singular forms: split at blanks; a term of more than 3 characters ending in
// "ES" (any case) loses those two letters, else one ending in "S" loses that
// letter; shorter terms stay. Each term, empty ones too, is followed by a
// blank in the result.
QString terminos_similares(const QString &text);

// The spelling variants of a term: the work list of the ten substitutions
// S->C, S->Z, C->S, C->Z, Z->S, Z->C, V->B, B->V, LL->Y, Y->LL, each
// replacing every occurrence in an item. The list starts with the term in
// upper case; every item, also those added on the way, is tried in turn, and
// a result that differs from its item and is not yet listed is added. So
// "CABALLO" also gives "CAVAYO".
QStringList variantes_ortografia(const QString &term);

// The value an SQL string literal stands for: each `''` is one `'`.
QString patron_de_literal(const QString &literal);

// What an article must hold to be found. Every term must match; a term
// matches when any of its patterns does. A pattern is tested as
// `haystack LIKE '%pattern%'`, where the haystack is supplier, group,
// observations, description, brand and code, each followed by one blank
// (an empty field gives an empty text), and then the user's comment on the
// article when `con_comentario` is set.
struct SearchCondition {
    std::vector<QStringList> terminos; // patterns (literal values), per term
    bool con_comentario = false;

    bool operator==(const SearchCondition &) const = default;
};

// Every non-empty term of the text, split at blanks, one pattern each.
SearchCondition filtro_terminos(const QString &text);
// Every non-empty term with its spelling variants: the term as typed, then
// the items the work list added. With `con_comentario` the haystack also
// holds the user's comment on the article.
SearchCondition filtro_ortografia(const QString &text, bool con_comentario);

} // namespace vendrix
